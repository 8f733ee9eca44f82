#include "core/mdlGlobal.h"
#include "lists/list_columns.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/notes/note_lists.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"

#include <vector>

namespace kolibri {
namespace {

/// What stands over the columns on paper; the spreadsheet has the texts of the columns.
std::vector<QStringView> headings(bool ofAssignments) {
    if (ofAssignments)
        return {u"NAME", u"KL", u"TAG", u"ME/LZ/AG", u"ZEIT", u"NOTIZ"};
    return {u"NAME", u"KLASSE", u"TAG", u"UE", u"NOTIZ"};
}

} // namespace

void Notizen_Schreiben(PageWriter& page) {
    const auto& liste = Liste();
    const bool ofAssignments = Global().ListenArt == kNotizenZuweisungen;
    beginBody(page);
    writeAddress(page);
    writeTitle(page, ofAssignments ? u"NOTIZEN ME/LZ/AG" : u"NOTIZEN TAGESPLAN", TitleEnd::Plain);
    computeWidths();
    beginBoxTable(page);
    beginTable(page, u"Tpt");
    page.line(u"<THEAD>");
    beginRow(page, u"STD_KopfZeile");
    for (const QStringView heading : headings(ofAssignments))
        page.line({u"<TD align='center'>", heading, u"</TD>"});
    endRow(page);
    page.line(u"</THEAD>");
    RowWriter rows(page, RowWriter::Cells::WithWidth);
    Stripe stripe;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row)
        rows.writeRow(stripe.next() ? u"Stammdaten2" : u"Stammdaten1", row);
    endTable(page);
    endBody(page);
}

} // namespace kolibri
