#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/groups/group_list.h"
#include "lists/list_helpers.h"
#include "lists/list_state.h"
#include "lists/pupil_notes.h"
#include "lists/row_codes.h"
#include "lists/same_text.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kColumns = 10;
constexpr int kFirstMeetingColumn = 3;

/// The classes that stay away, by date, as far as the sheet looks at them.
std::array<QStringList, kMeetings> absentClasses(const GroupOptions& options) {
    std::array<QStringList, kMeetings> absent;
    for (std::size_t i = 0; i < absent.size(); ++i) {
        const QStringList& chosen = options.lstNichtTeilnehmen[i];
        checkListBound(static_cast<int>(std::max<qsizetype>(chosen.size(), 1)), kMostAbsentClasses,
                       u"NichtTeilnahme");
        absent[i] = chosen.first(std::min<qsizetype>(chosen.size(), kAbsentClassesRead));
    }
    return absent;
}

/// The pupils of the group. Without one there are none: a pupil with a free slot is not meant.
Recordset openPupils(const GroupOptions& options) {
    if (options.txtTag.isEmpty() || options.txtZeit_K_Name.isEmpty())
        return {};
    QStringList slots;
    QVariantList values;
    for (int slot = 3; slot <= 7; ++slot) {
        slots << u"GR%1_%2 = ?"_s.arg(slot).arg(options.txtTag);
        values << options.txtZeit_K_Name;
    }
    QString select =
        u"SELECT ID, SCH_Vorname, SCH_Name, Klasse, Kl_Nr FROM Stammdaten WHERE aktiv = true AND ("_s
        + slots.join(u" OR "_s) + u')';
    if (const QString order = groupSortColumns(options.cmbSortierung); !order.isEmpty())
        select += u" ORDER BY "_s + order;
    return Global().Conn.Open(select, values);
}

} // namespace

void Arbeitsgruppe_Sammeln() {
    auto& liste = Liste();
    const GroupOptions& options = liste.Arbeitsgruppe;
    const DbSession session(u"Liste lesen"_s);
    const auto absent = absentClasses(options);
    const AssignmentNotes notes(u"L_Name = ? AND Tag = ? AND Zeit = ?"_s,
                                {options.cmbAG, options.txtTag, options.txtZeit});
    liste.dimensionieren(kColumns, kMaxZeilenCodes);
    liste.AnzahlAG = 0;
    liste.ZeilenNr = 1;
    liste.ZeilenCode(1) = kCodeTabelle;
    liste.Daten(1, 1) = u" "_s;
    liste.naechsteZeile();
    Recordset rs = openPupils(options);
    for (; !rs.Eof(); rs.MoveNext()) {
        const int row = liste.ZeilenNr;
        const QString klasse = rs.Text(3);
        liste.ZeilenCode(row) = kCodeDaten;
        Name_Formatieren(rs.Text(1), rs.Text(2), 1, kNamesArbeitsgruppe);
        liste.Daten(2, row) = klasse;
        if (const auto& own = notes.of(rs.Value(0).toLongLong()); !own.empty())
            liste.Daten(1, row) += u"<br /><i>"_s + own.front().notiz + u"</i>"_s;
        for (int date = 0; date < kMeetings && !rs.Text(4).isEmpty(); ++date)
            if (absent[static_cast<std::size_t>(date)].contains(klasse))
                liste.Daten(kFirstMeetingColumn + date, row) = u"------"_s;
        liste.naechsteZeile();
    }
    liste.AnzahlAG = rs.RecordCount();
    liste.ZeilenCode(liste.ZeilenNr) = kCodeTabelleEnde;
    liste.ZeilenAnzahl = liste.ZeilenNr;
}

} // namespace kolibri
