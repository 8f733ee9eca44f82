#include "core/mdlGlobal.h"
#include "lists/care/care_list.h"
#include "lists/list_columns.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/row_codes.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kHeaderRow = u"KopfZeile_ME_LZ_AG"_s;

/// Two columns belong to a weekday: the names, and the notes.
bool isNameColumn(int column) {
    return column % 2 == 1;
}

QString title(const CareOptions& options) {
    const QString word = Global().ListenArt == kListeMensa ? u"Mensa"_s : u"Lernzeiten"_s;
    switch (Global().ListenUnterArt) {
    case kKlassenGruppiert:
        return word + u" - Klassen: "_s + options.cmbKlasse;
    case kEineKlasse:
        return word + u" - Klasse: "_s + options.cmbKlasse;
    default:
        return word;
    }
}

void writeDayHeadings(PageWriter& page, int columns) {
    constexpr std::array<QStringView, 5> kDays{u"MONTAG", u"DIENSTAG", u"MITTWOCH", u"DONNERSTAG",
                                               u"FREITAG"};
    beginRow(page, kHeaderRow);
    for (int day = 0; 2 * day < columns; ++day)
        page.line({u"<TD class=Liste_ME_LZ_AG_KZ1", day == 0 ? u"0" : u"1", u" Colspan=2>",
                   kDays[static_cast<std::size_t>(day)], u"</TD>"});
    endRow(page);
}

/// The words of a cell behind "<TD" and its class.
QString measures(int column) {
    return cellStart(column).sliced(3);
}

void writeColumnHeadings(PageWriter& page, const ListState& liste) {
    beginRow(page, kHeaderRow);
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column) {
        const QStringView place = column == 1 ? u"0" : column == liste.SpaltenAnzahl ? u"2" : u"1";
        page.line(
            {u"<TD class=Liste_ME_LZ_AG_KZ2", place, measures(column), liste.SpaltenText(column), u"</TD>"});
    }
    endRow(page);
}

void beginCareTable(PageWriter& page, const ListState& liste, int row) {
    page.line(uR"(<div class="UE1_ME_LZ_AG">)");
    page.line({u"ZEIT: ", liste.Daten(1, row)});
    page.line(u"</div>");
    beginTable(page, u"Tpt");
    writeDayHeadings(page, liste.SpaltenAnzahl);
    writeColumnHeadings(page, liste);
}

/// A thick line stands in front of each name, and behind the last note.
void writePupils(PageWriter& page, const ListState& liste, int row, bool shaded) {
    beginRow(page, shaded ? u"ME_LZ_AG_Daten2" : u"ME_LZ_AG_Daten1");
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column) {
        const QStringView cellClass = column == liste.SpaltenAnzahl ? u" class=Liste_ME_LZ_AG_2"
                                      : isNameColumn(column)        ? u" class=Liste_ME_LZ_AG_1"
                                                                    : u"";
        page.line({u"<TD", cellClass, measures(column), liste.Daten(column, row), u"</TD>"});
    }
    endRow(page);
}

void writeSums(PageWriter& page, const ListState& liste, int row) {
    beginRow(page, u"SummenZeile_ME_LZ_AG");
    for (int column = 1; column < liste.SpaltenAnzahl; column += 2)
        page.line({u"<TD class=Liste_ME_LZ_AG_SZ1 Colspan=2>", liste.Daten(column, row), u"</TD>"});
    endRow(page);
}

void writeRows(PageWriter& page, const ListState& liste) {
    Stripe stripe;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        const QString& code = liste.ZeilenCode(row);
        if (code == kCodeTabelle)
            beginCareTable(page, liste, row);
        else if (code == kCodeDaten)
            writePupils(page, liste, row, stripe.next());
        else if (code == kCodeSumme)
            writeSums(page, liste, row);
        else if (code == kCodeTabelleEnde)
            endTable(page);
    }
}

} // namespace

void MensaLernzeit_Schreiben(PageWriter& page) {
    const auto& liste = Liste();
    const CareOptions& options = liste.MensaLernzeit;
    beginBody(page);
    writeAddress(page);
    writeTitle(page, title(options), TitleEnd::Plain);
    computeWidths();
    beginBoxTable(page);
    if (Global().ListenUnterArt != kEinheiten)
        writeTextBlock(page, u"woche", u"Woche: "_s + options.txtVon + u" - "_s + options.txtBis);
    writeTextBlock(page, u"anmerkung_vorher", pageText(options.texte.vorher));
    writeRows(page, liste);
    writeTextBlock(page, u"anmerkung_nachher", pageText(options.texte.nachher));
    endBody(page);
}

} // namespace kolibri
