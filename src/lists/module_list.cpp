#include "lists/module_list.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/list_columns.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void Bausteine_Sammeln() {
    auto& liste = Liste();
    const DbSession session(u"Bausteine lesen"_s);
    Recordset rs = Global().Conn.Open(u"SELECT * FROM Bausteine"_s);
    liste.dimensionieren(liste.SpaltenAnzahl, rs.RecordCount());
    liste.ZeilenNr = 1;
    for (; !rs.Eof(); rs.MoveNext()) {
        liste.ZeilenCode(liste.ZeilenNr) = kCodeDaten;
        liste.Daten(1, liste.ZeilenNr) = rs.Text(u"ID");
        liste.Daten(2, liste.ZeilenNr) = rs.Text(u"Bausteine");
        liste.naechsteZeile();
    }
    liste.ZeilenAnzahl = liste.ZeilenNr - 1;
}

void Bausteine_Schreiben(PageWriter& page) {
    const auto& liste = Liste();
    beginBody(page);
    writeAddress(page);
    writeTitle(page, u"LISTE BAUSTEINE", TitleEnd::Plain);
    computeWidths();
    beginBoxTable(page);
    beginTable(page, u"Tpt");
    beginRow(page, u"STD_KopfZeile");
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column)
        page.line({u"<TD align='center'>", liste.SpaltenText(column), u"</TD>"});
    endRow(page);
    RowWriter rows(page, RowWriter::Cells::WithWidth);
    Stripe stripe;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row)
        rows.writeRow(stripe.next() ? u"Stammdaten2" : u"Stammdaten1", row);
    endTable(page);
    endBody(page);
}

} // namespace kolibri
