#include "core/mdlGlobal.h"
#include "lists/care/mensa_pupils.h"
#include "lists/list_columns.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The row in which the last table begins; 0 when there is none.
int lastTable(const ListState& liste) {
    int row = liste.ZeilenAnzahl;
    while (row > 0 && liste.ZeilenCode(row) != kCodeTabelle)
        --row;
    return row;
}

void beginMensaTable(PageWriter& page, RowWriter& rows, const QString& title, bool endsSheet) {
    const QStringView word = Global().ListenArt == kMensaJeSchueler ? u"MENSA - KLASSE: " : u"";
    page.line(uR"(<div id="kopf_mitte">)");
    page.line({u"<H1>", word, title, u"</H1><br>"});
    page.line(u"</div>");
    beginTable(page, endsSheet ? u"SeitenumbruchAfter" : u"Tpt");
    page.line(u"<THEAD>");
    rows.writeHeader(u"KopfZeile");
    page.line(u"</THEAD>");
}

} // namespace

void MensaSchueler_Schreiben(PageWriter& page) {
    const auto& liste = Liste();
    beginBody(page);
    writeAddress(page);
    computeWidths();
    beginBoxTable(page);
    RowWriter rows(page, RowWriter::Cells::WithWidth);
    // Each class begins on a sheet of its own, so all tables but the last end theirs.
    const int last = lastTable(liste);
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        const QString& code = liste.ZeilenCode(row);
        if (code == kCodeTabelle) {
            beginMensaTable(page, rows, liste.Daten(1, row), row < last);
        } else if (code == kCodeDaten) {
            rows.writeRow(u"Liste_MensaJeSchülerM", row);
        } else if (!isRowCode(code)) {
            endTable(page);
            page.line(u"</br>");
        }
    }
    endBody(page);
}

} // namespace kolibri
