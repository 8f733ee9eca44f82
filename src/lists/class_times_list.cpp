#include "lists/class_times_list.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/list_state.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QString timeText(const Recordset& rs, QStringView field) {
    const QString text = rs.Text(field);
    return text.isEmpty() ? u"00:00"_s : text;
}

QString range(const Recordset& rs, QStringView from, QStringView to) {
    return timeText(rs, from) + u" - "_s + timeText(rs, to);
}

bool isSet(const Recordset& rs, QStringView field) {
    return timeText(rs, field) != u"00:00";
}

QString dayCell(const Recordset& rs) {
    QString cell = range(rs, u"Unterrichtsbeginn", u"Unterrichtsende");
    if (isSet(rs, u"UnterrichtsbeginnNM") || isSet(rs, u"UnterrichtsendeNM"))
        cell += u"<br />"_s + range(rs, u"UnterrichtsbeginnNM", u"UnterrichtsendeNM");
    return cell;
}

/// The column of a weekday; 0 for a row that names none.
int dayColumn(const ListState& liste, const QString& day) {
    for (int column = 2; column <= liste.SpaltenAnzahl; ++column)
        if (liste.SpaltenKey(column).compare(day, Qt::CaseInsensitive) == 0)
            return column;
    return 0;
}

} // namespace

void Unterrichtszeiten_Sammeln() {
    auto& liste = Liste();
    const DbSession session(u"Unterrichtszeiten lesen"_s);
    Recordset rs = Global().Conn.Open(u"SELECT * FROM Klassen ORDER BY Klasse, Tag_Zahl"_s);
    liste.dimensionieren(liste.SpaltenAnzahl, rs.RecordCount());
    liste.ZeilenNr = 1;
    QString klasse;
    for (bool first = true; !rs.Eof(); rs.MoveNext(), first = false) {
        // Five rows make a class; its name tells them apart even where a file lacks one of them.
        if (!first && rs.Text(u"Klasse").compare(klasse, Qt::CaseInsensitive) != 0)
            liste.naechsteZeile();
        klasse = rs.Text(u"Klasse");
        liste.ZeilenCode(liste.ZeilenNr) = kCodeDaten;
        liste.Daten(1, liste.ZeilenNr) = klasse;
        if (const int column = dayColumn(liste, rs.Text(u"Tag")); column > 0)
            liste.Daten(column, liste.ZeilenNr) = dayCell(rs);
    }
    liste.ZeilenAnzahl = rs.RecordCount() > 0 ? liste.ZeilenNr : 0;
}

} // namespace kolibri
