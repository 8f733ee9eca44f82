#include "lists/list_columns.h"
#include "lists/list_state.h"
#include "lists/overlaps/overlap_report.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/row_codes.h"

#include <array>

namespace kolibri {
namespace {

constexpr QStringView kHeaderRow = u"KopfZeile_ME_LZ_AG";
/// Columns of a heading row within the table.
constexpr int kHeadingColumns = 6;

/// On paper the teaching is headed by one letter; the spreadsheet has room for the column's own text.
constexpr std::array<QStringView, 11> kHeadings{u"NAME", u"KL",  u"TAG", u"U",   u"ME", u"LZ",
                                                u"AG1",  u"AG2", u"AG3", u"AG4", u"AG5"};

void writeHeadings(PageWriter& page) {
    beginRow(page, kHeaderRow);
    int column = 1;
    for (const QStringView heading : kHeadings)
        page.line({cellStart(column++), heading, u"</TD>"});
    endRow(page);
}

void writeInnerHeading(PageWriter& page, const ListState& liste, int row) {
    beginRow(page, kHeaderRow);
    for (int column = 1; column <= kHeadingColumns; ++column)
        page.line({cellStart(column), liste.Daten(column, row), u"</TD>"});
    endRow(page);
}

} // namespace

void Zeitueberschneidungen_Schreiben(PageWriter& page) {
    const auto& liste = Liste();
    beginBody(page);
    writeAddress(page);
    writeTitle(page, u"ZEITÜBERSCHNEIDUNGEN", TitleEnd::Plain);
    computeWidths();
    beginBoxTable(page);
    writeTextBlock(page, u"anmerkung_vorher", u"Schüler/Schülerinnen mit Überschneidung von Zeiten");
    page.line(u"<div class='tabelle'>");
    beginTable(page, u"Tpt");
    writeHeadings(page);
    RowWriter rows(page, RowWriter::Cells::WithWidth);
    Stripe stripe;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        const QString& code = liste.ZeilenCode(row);
        if (code == kCodeDaten)
            rows.writeRow(stripe.next() ? u"ME_LZ_AG_Daten2" : u"ME_LZ_AG_Daten1", row);
        else if (code == kCodeSumme)
            writeInnerHeading(page, liste, row);
        else if (code == kCodeTabelleEnde)
            endTable(page);
    }
    // The page has never closed this table, as no row says so; browsers end it with the box around it.
    page.line(u"</div>");
    endBody(page);
}

} // namespace kolibri
