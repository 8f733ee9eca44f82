#include "lists/groups/group_list.h"
#include "lists/list_columns.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kHeaderRow = u"KopfZeile_ME_LZ_AG"_s;

void writeHead(PageWriter& page, const ListState& liste) {
    const GroupOptions& options = liste.Arbeitsgruppe;
    const std::array<std::pair<QStringView, QString>, 4> lines{
        {{u"Betreuung:", options.txtBetreuer},
         {u"Ort:", options.txtOrt},
         {u"Tag / Zeit:", options.txtTag + u' ' + options.txtZeit},
         {u"Anzahl:", QString::number(liste.AnzahlAG)}}};
    beginTable(page, u"AG");
    for (const auto& [label, value] : lines) {
        beginRow(page, u"ArbeitsgruppeKopf");
        page.line({u"<TD width=10%>", label, u"</TD>"});
        // The bold type is opened twice and never closed; browsers end it with the cell, and the sheet has
        // always looked so.
        page.line({u"<TD width=60%><b>", value, u"<b/></TD>"});
        endRow(page);
    }
    endTable(page);
}

void beginGroupTable(PageWriter& page, const ListState& liste) {
    beginTable(page, u"Tpt");
    beginRow(page, kHeaderRow);
    page.line({cellStart(1), u"NAME</TD>"});
    page.line({cellStart(2), u"KLASSE</TD>"});
    page.line(u"<TD COLSPAN=6>ANWESENHEIT</TD>");
    endRow(page);
    beginRow(page, kHeaderRow);
    page.line(u"<TD COLSPAN=2>&nbsp;</TD>");
    int column = 3;
    for (const auto& datum : liste.Arbeitsgruppe.txtDatum)
        page.line({cellStart(column++), dateHeading(datum), u"</TD>"});
    endRow(page);
}

void writePupil(PageWriter& page, const ListState& liste, int row, bool shaded) {
    beginRow(page, shaded ? u"ME_LZ_AG_Daten2" : u"ME_LZ_AG_Daten1");
    page.line({cellStart(1, u"center"), u"<b>", liste.Daten(1, row), u"</b></TD>"});
    for (int column = 2; column <= liste.SpaltenAnzahl; ++column)
        page.line({cellStart(column), liste.Daten(column, row), u"</TD>"});
    endRow(page);
}

} // namespace

void Arbeitsgruppe_Schreiben(PageWriter& page) {
    const auto& liste = Liste();
    const GroupOptions& options = liste.Arbeitsgruppe;
    beginBody(page);
    writeAddress(page);
    writeTitle(page, options.cmbAG, TitleEnd::Plain);
    computeWidths();
    beginBoxTable(page);
    writeHead(page, liste);
    writeTextBlock(page, u"anmerkung_vorher", pageText(options.texte.vorher));
    Stripe stripe;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        const QString& code = liste.ZeilenCode(row);
        if (code == kCodeTabelle)
            beginGroupTable(page, liste);
        else if (code == kCodeDaten)
            writePupil(page, liste, row, stripe.next());
        else if (code == kCodeTabelleEnde)
            endTable(page);
    }
    writeTextBlock(page, u"anmerkung_nachher", pageText(options.texte.nachher));
    endBody(page);
}

} // namespace kolibri
