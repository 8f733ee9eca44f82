#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/care/care_list.h"
#include "lists/list_columns.h"
#include "lists/list_helpers.h"
#include "lists/list_state.h"
#include "lists/pupil_notes.h"
#include "lists/row_codes.h"
#include "lists/same_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// A pupil who may stand in a table, with what he holds on each day.
struct CarePupil {
    qint64 id = 0;
    QString vorname;
    QString nachname;
    std::array<QString, kSchoolDays> cells;
};

/// The pupils of an offering that a table is about, and their order.
struct CarePupils {
    QString condition;
    QVariantList values;
    QString order;
};

/// Fills one table after the other.
class CareGatherer {
public:
    explicit CareGatherer(ListState& liste)
        : m_liste(liste), m_group(careGroup(Global().ListenArt)), m_notes(u"GR = ?"_s, {m_group}) {
        FreitagBelegt_Pruefen_Offen();
        defineColumns();
        m_liste.dimensionieren(kCareColumns, kMaxZeilenCodes);
        m_liste.ZeilenNr = 1;
    }

    /// The table of an offering.
    void addTable(const QString& heading, const QString& zeitKName, const CarePupils& pupils) {
        m_liste.ZeilenCode(m_liste.ZeilenNr) = kCodeTabelle;
        m_liste.Daten(1, m_liste.ZeilenNr) = heading;
        m_liste.naechsteZeile();
        const int first = m_liste.ZeilenNr;
        int highest = first;
        std::array<int, kSchoolDays> sums{};
        const int days = m_liste.FreitagBelegt ? kSchoolDays : kSchoolDays - 1;
        const auto found = readPupils(zeitKName, pupils);
        for (int day = 0; day < days; ++day) {
            m_liste.ZeilenNr = first;
            sums[static_cast<std::size_t>(day)] = addDay(day, zeitKName, found);
            highest = std::max(highest, m_liste.ZeilenNr);
        }
        m_liste.ZeilenNr = highest;
        m_liste.ZeilenCode(highest) = kCodeSumme;
        for (int day = 0; day < days; ++day)
            m_liste.Daten(nameColumn(day), highest) = QString::number(sums[static_cast<std::size_t>(day)]);
        m_liste.naechsteZeile();
        m_liste.ZeilenCode(m_liste.ZeilenNr) = kCodeTabelleEnde;
        m_liste.ZeilenAnzahl = m_liste.ZeilenNr;
        m_liste.naechsteZeile();
    }

private:
    static int nameColumn(int day) { return 2 * day + 1; }

    /// The active pupils of a table, read once for the whole week: comparing texts by the German rules is
    /// what takes time in a large school.
    std::vector<CarePupil> readPupils(const QString& zeitKName, const CarePupils& pupils) const {
        std::vector<CarePupil> found;
        // Where no offering is chosen, those without any must not be taken for its pupils.
        if (zeitKName.isEmpty())
            return found;
        QStringList columns;
        QStringList held;
        QVariantList values = pupils.values;
        for (int day = 0; day < kSchoolDays; ++day) {
            columns << m_group + u'_' + TagCode(day);
            held << columns.back() + u" = ?"_s;
            values << zeitKName;
        }
        const QString select =
            u"SELECT ID, SCH_Vorname, SCH_Name, %1 FROM Stammdaten WHERE aktiv = true%2 AND "
            "(%3) ORDER BY %4"_s;
        Recordset rs = Global().Conn.Open(
            select.arg(columns.join(u", "_s), pupils.condition, held.join(u" OR "_s), pupils.order), values);
        for (; !rs.Eof(); rs.MoveNext()) {
            CarePupil pupil{rs.Value(0).toLongLong(), rs.Text(1), rs.Text(2), {}};
            for (int day = 0; day < kSchoolDays; ++day)
                pupil.cells[static_cast<std::size_t>(day)] = rs.Text(3 + day);
            found.push_back(std::move(pupil));
        }
        return found;
    }

    /// The pupils of a weekday below each other. Returns their number.
    int addDay(int day, const QString& zeitKName, const std::vector<CarePupil>& pupils) {
        const QString tag = TagCode(day);
        int number = 0;
        for (const auto& pupil : pupils) {
            if (!sameText(pupil.cells[static_cast<std::size_t>(day)], zeitKName))
                continue;
            const int row = m_liste.ZeilenNr;
            m_liste.ZeilenCode(row) = kCodeDaten;
            Name_Formatieren(pupil.vorname, pupil.nachname, nameColumn(day), kNamesMensaLernzeit);
            if (const auto* note = noteOf(pupil.id, tag, zeitKName))
                m_liste.Daten(nameColumn(day) + 1, row) = note->notiz;
            m_liste.naechsteZeile();
            ++number;
        }
        return number;
    }

    const AssignmentNote* noteOf(qint64 pupil, const QString& tag, const QString& zeitKName) const {
        return m_notes.first(pupil, [&](const AssignmentNote& note) {
            return sameText(note.tag, tag) && sameText(note.zeitKName, zeitKName);
        });
    }

    ListState& m_liste;
    const QString m_group;
    const AssignmentNotes m_notes;
};

} // namespace

void MensaLernzeit_Sammeln() {
    auto& liste = Liste();
    const CareOptions& options = liste.MensaLernzeit;
    const quint8 unterArt = Global().ListenUnterArt;
    const DbSession session(u"Liste lesen"_s);
    CareGatherer gatherer(liste);
    liste.ZeilenAnzahl = 0;
    if (unterArt == kEinheiten) {
        for (const auto& marked : options.lstME_LZ) {
            const auto [langname, zeitKName] = splitCareEntry(marked);
            gatherer.addTable(langname + u":  "_s + zeitKName, zeitKName, {{}, {}, u"Klasse, SCH_Vorname"_s});
        }
        return;
    }
    const QString condition = unterArt == kKlassenGruppiert ? u" AND Kl_Nr = ?"_s : u" AND Klasse = ?"_s;
    gatherer.addTable(options.txtZeit + u" - "_s + options.cmbME_LZ, options.txtZeit_K_Name,
                      {condition, {options.cmbKlasse}, u"Schulstufe, SCH_Vorname"_s});
}

} // namespace kolibri
