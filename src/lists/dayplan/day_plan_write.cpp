#include "lists/dayplan/class_text.h"
#include "lists/dayplan/day_plan.h"
#include "lists/list_columns.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kFirstUnitColumn = 3;
const QString kHeaderRow = u"KopfZeile_Wochenplan"_s;

void writeDayHeadings(PageWriter& page, const ListState& liste) {
    const QString span = QString::number(liste.Seite.AnzahlUE);
    const std::size_t days = liste.Wochenplan.chk2Tage ? 2 : 1;
    beginRow(page, kHeaderRow);
    page.line(u"<TD ALIGN='center' COLSPAN=2> </TD>");
    for (std::size_t day = 0; day < days; ++day)
        page.line({u"<TD ALIGN='center' COLSPAN=", span, u">", liste.Seite.TagKopf[day], u"</TD>"});
    endRow(page);
}

void writeColumnHeadings(PageWriter& page, const ListState& liste) {
    beginRow(page, kHeaderRow);
    page.line(u"<TD ALIGN='center'>NAME</TD>");
    page.line(u"<TD ALIGN='center'>KL</TD>");
    for (int column = kFirstUnitColumn; column <= liste.SpaltenAnzahl; ++column)
        page.line({u"<TD ALIGN='center'>", liste.SpaltenText(column), u"</TD>"});
    endRow(page);
}

/// Begins the table of the class that stands in a row, with the text of that class.
void beginPlanTable(PageWriter& page, const ListState& liste, QStringView tableClass, int row) {
    beginTable(page, tableClass);
    page.line(uR"(<DIV class="WP_Zusatztext">)");
    page.line(classTextOnPage(readClassText(liste.Daten(2, row))));
    page.line(u"</DIV>");
    writeDayHeadings(page, liste);
    writeColumnHeadings(page, liste);
}

} // namespace

void Tagesplan_Schreiben(PageWriter& page) {
    constexpr QStringView kEndsSheet = u"Wochenplan";
    constexpr QStringView kSheetGoesOn = u"Wochenplan_ohneSU";
    const auto& liste = Liste();
    beginBody(page);
    writeTitle(page, u"TAGESPLAN", TitleEnd::Plain);
    beginBoxTable(page);
    page.line(u"<div class='tabelle'>");
    computeWidths();
    const bool allGrades = liste.Wochenplan.cmbSchulstufe == kAlleSchulstufen;
    beginPlanTable(page, liste, allGrades ? kEndsSheet : kSheetGoesOn, 1);
    RowWriter rows(page, RowWriter::Cells::WithWidth);
    Stripe stripe;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        const QString& code = liste.ZeilenCode(row);
        if (code == kCodeDaten)
            rows.writeRow(stripe.next() ? u"Wochenplan_Daten2" : u"Wochenplan_Daten1", row);
        else if (code == kCodeNeuesBlatt)
            rows.writeRow(u"Seitenumbruch_vorher", row);
        else if (code == kCodeTabelle)
            beginPlanTable(page, liste, kEndsSheet, row + 1);
        else if (code == kCodeTabelleOhneUmbruch)
            beginPlanTable(page, liste, kSheetGoesOn, row + 1);
        else if (code == kCodeTabelleEnde && row < liste.ZeilenAnzahl)
            endTable(page);
    }
    endTable(page);
    page.line(u"</div>");
    endBody(page);
}

} // namespace kolibri
