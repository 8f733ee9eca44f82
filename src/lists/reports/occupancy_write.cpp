#include "core/mdlGlobal.h"
#include "lists/list_columns.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/reports/reports.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The beginning of a cell; one with too many pupils is to catch the eye. The rule of the rows says how thick
/// their type is and has more weight than the rule of the mark, so the cell says itself that it is bold.
QString placeCell(const ListState& liste, int column, int row) {
    const QString cell = cellStart(column);
    if (liste.BelegungMark(column, row) != kMarkUeberbelegt)
        return cell;
    return u"<TD class=\"BelegungToMax\""_s + cell.sliced(3).chopped(1) + u" style=\"font-weight: bold\">"_s;
}

void writeOffering(PageWriter& page, const ListState& liste, int row) {
    beginRow(page, u"ME_LZ_AG_Daten1");
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column)
        page.line({placeCell(liste, column, row), liste.Daten(column, row), u"</TD>"});
    endRow(page);
}

} // namespace

void Belegung_Schreiben(PageWriter& page) {
    const auto& liste = Liste();
    const bool mensa = Global().ListenArt == kMensaBelegung;
    beginBody(page);
    writeAddress(page);
    writeTitle(page, mensa ? u"MENSA BELEGUNGSPLAN" : u"LERNZEIT BELEGUNGSPLAN", TitleEnd::Plain);
    computeWidths();
    beginBoxTable(page);
    RowWriter headings(page, RowWriter::Cells::WithWidth);
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        const QString& code = liste.ZeilenCode(row);
        if (code == kCodeTextzeile) {
            page.line(u"<div class='UE1_vorher'><b>");
            page.line(liste.Daten(1, row));
            page.line(u"</b></div>");
        } else if (code == kCodeTabelle) {
            beginTable(page, u"Belegungen");
            headings.writeHeader(u"KopfZeile_ME_LZ_AG");
        } else if (code == kCodeDaten) {
            writeOffering(page, liste, row);
        } else if (code == kCodeTabelleEnde) {
            endTable(page);
        }
    }
    endBody(page);
}

} // namespace kolibri
