#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/care/mensa_cells.h"
#include "lists/care/mensa_pupils.h"
#include "lists/list_helpers.h"
#include "lists/list_state.h"
#include "lists/page_writer.h"
#include "lists/pupil_notes.h"
#include "lists/row_codes.h"
#include "lists/same_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kColumns = 10;
constexpr int kRows = 9999;

/// A pupil with the Mensa cells of the week.
struct MensaPupil {
    qint64 id = 0;
    QString vorname;
    QString nachname;
    QString klasse;
    std::array<QString, kSchoolDays> cells;

    bool hasAny() const {
        return std::any_of(cells.begin(), cells.end(), [](const QString& cell) { return !cell.isEmpty(); });
    }
    bool has(const QString& zeitKName) const {
        return std::find(cells.begin(), cells.end(), zeitKName) != cells.end();
    }
};

/// The pupils of these classes, deactivated ones too, by first name.
std::vector<MensaPupil> pupilsOf(const QStringList& classes) {
    std::vector<MensaPupil> pupils;
    if (classes.isEmpty())
        return pupils;
    const QString condition = QStringList(classes.size(), u"Klasse = ?"_s).join(u" OR "_s);
    QVariantList values;
    for (const auto& klasse : classes)
        values << klasse;
    Recordset rs =
        Global().Conn.Open(u"SELECT ID, SCH_Vorname, SCH_Name, Klasse, GR1_MO, GR1_DI, GR1_MI, GR1_DO, "
                           "GR1_FR FROM Stammdaten WHERE %1 ORDER BY SCH_Vorname"_s.arg(condition),
                           values);
    for (; !rs.Eof(); rs.MoveNext()) {
        MensaPupil pupil{rs.Value(0).toLongLong(), rs.Text(1), rs.Text(2), rs.Text(3), {}};
        for (int day = 0; day < kSchoolDays; ++day)
            pupil.cells[static_cast<std::size_t>(day)] = rs.Text(4 + day);
        pupils.push_back(std::move(pupil));
    }
    return pupils;
}

/// Makes the list anew; each table begins with its title and ends with a row without a code.
class TableRows {
public:
    explicit TableRows(ListState& liste) : m_liste(liste) {
        m_liste.dimensionieren(kColumns, kRows);
        m_liste.ZeilenNr = 1;
        m_liste.ZeilenAnzahl = 0;
    }

    void begin(const QString& title) {
        m_liste.ZeilenCode(m_liste.ZeilenNr) = kCodeTabelle;
        m_liste.Daten(1, m_liste.ZeilenNr) = title;
        m_liste.naechsteZeile();
    }
    /// A row with the pupil's name and these further cells.
    void add(const MensaPupil& pupil, const QStringList& cells) {
        m_liste.ZeilenCode(m_liste.ZeilenNr) = kCodeDaten;
        Name_Formatieren(pupil.vorname, pupil.nachname, 1, kNamesMensaLernzeit);
        int column = 2;
        for (const auto& cell : cells)
            m_liste.Daten(column++, m_liste.ZeilenNr) = cell;
        m_liste.naechsteZeile();
    }
    void end() {
        m_liste.ZeilenCode(m_liste.ZeilenNr).clear();
        m_liste.ZeilenAnzahl = m_liste.ZeilenNr;
        m_liste.naechsteZeile();
    }

private:
    ListState& m_liste;
};

/// The key of the first row of a Mensa; the office is told when there is none.
std::optional<QString> keyOfMensa(const QString& langname) {
    const Recordset rs =
        Global().Conn.Open(u"SELECT L_Name, K_Name, Zeit_K_Name FROM GR1 WHERE L_Name = ?"_s, {langname});
    if (!rs.Eof())
        return rs.Text(u"Zeit_K_Name");
    MsgBox(u"Kein Kurzname für die Mensa gefunden!"_s);
    return std::nullopt;
}

QString noteText(const AssignmentNotes& notes, qint64 pupil) {
    const auto& own = notes.of(pupil);
    return own.empty() ? QString() : own.front().notiz;
}

} // namespace

void MensaJeSchueler_Sammeln() {
    auto& liste = Liste();
    const QStringList& classes = liste.MensaSchueler.lstKlassen;
    checkListBound(static_cast<int>(std::max<qsizetype>(classes.size(), 1)), kMostMensaClasses, u"Klassen");
    const MensaCells mensa(liste.MensaSchueler.chkMensaMitZeit);
    TableRows rows(liste);
    for (const auto& klasse : classes) {
        rows.begin(klasse);
        for (const auto& pupil : pupilsOf({klasse})) {
            if (!pupil.hasAny())
                continue;
            QStringList cells;
            for (const auto& cell : pupil.cells)
                cells << mensa.MensaZelle(cell);
            rows.add(pupil, cells);
        }
        rows.end();
    }
}

void MensaWoche_Sammeln() {
    auto& liste = Liste();
    const MensaPupilOptions& options = liste.MensaSchueler;
    TableRows rows(liste);
    const auto key = keyOfMensa(options.cmbMensa);
    if (!key)
        return;
    const MensaCells mensa(options.chkMensaMitZeit);
    const AssignmentNotes notes(u"GR = 'GR1' AND L_Name = ?"_s, {options.cmbMensa});
    rows.begin(inCapitals(options.cmbMensa));
    for (const auto& pupil : pupilsOf(options.lstKlassenIndividuell)) {
        if (!pupil.has(*key))
            continue;
        QStringList cells{pupil.klasse, noteText(notes, pupil.id)};
        for (const auto& cell : pupil.cells)
            cells << (cell == *key ? mensa.MensaZelle(cell) : QString());
        rows.add(pupil, cells);
    }
    rows.end();
}

void MensaTag_Sammeln() {
    auto& liste = Liste();
    const MensaPupilOptions& options = liste.MensaSchueler;
    TableRows rows(liste);
    const auto key = keyOfMensa(options.cmbMensa);
    if (!key)
        return;
    const QString tag = TagCode(options.optTag);
    const auto day = static_cast<std::size_t>(options.optTag);
    const MensaCells mensa(options.chkMensaMitZeit);
    const AssignmentNotes notes(u"GR = 'GR1' AND L_Name = ? AND Tag = ?"_s, {options.cmbMensa, tag});
    rows.begin(inCapitals(options.cmbMensa) + u" - "_s + tag);
    for (const auto& pupil : pupilsOf(options.lstKlassenIndividuell)) {
        const QString& cell = pupil.cells.at(day);
        if (cell == *key)
            rows.add(pupil, {pupil.klasse, noteText(notes, pupil.id), mensa.MensaZelle(cell)});
    }
    rows.end();
}

} // namespace kolibri
