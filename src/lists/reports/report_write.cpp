#include "core/mdlGlobal.h"
#include "lists/list_columns.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/reports/reports.h"
#include "lists/row_codes.h"

#include <array>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// What tells a report from the others. The reports of Mensa and Lernzeit have one column definition for the
/// spreadsheet; on paper the first column, and for the Arbeitsgruppen the last, has a word of its own.
struct ReportTexts {
    quint8 listenArt;
    QStringView title;
    QStringView line;
    QStringView firstHeading;
    QStringView lastHeading;
};

const ReportTexts& reportTexts(quint8 listenArt) {
    // One heading speaks of "Lernzeiten" and the other of "Lernzeit": the office knows its sheets by them.
    static constexpr std::array<ReportTexts, 5> kTexts{{
        {kMensaGesamt, u"BERICHT MENSA", u"Gesamt Mensa-Teilnehmer", u"ZEIT", {}},
        {kMensaJeKlasse, u"BERICHT MENSA", u"Anzahl der Schülerinnen und Schüler", u"KLASSE", {}},
        {kLernzeitGesamt, u"BERICHT LERNZEITEN", u"Gesamt Lernzeiten-Teilnehmer", u"ZEIT", {}},
        {kLernzeitJeKlasse, u"BERICHT LERNZEIT", u"Anzahl der Schülerinnen und Schüler", u"KLASSE", {}},
        {kArbeitsgruppenGesamt,
         u"BERICHT ARBEITSGRUPPEN",
         u"Gesamt Arbeitsgruppen-Teilnehmer",
         {},
         u"TEILNEHMER"},
    }};
    for (const auto& texts : kTexts)
        if (texts.listenArt == listenArt)
            return texts;
    return kTexts.front();
}

QStringView heading(const ListState& liste, const ReportTexts& texts, int column) {
    if (column == 1 && !texts.firstHeading.isEmpty())
        return texts.firstHeading;
    if (column == liste.SpaltenAnzahl && !texts.lastHeading.isEmpty())
        return texts.lastHeading;
    return liste.SpaltenText(column);
}

void beginReportTable(PageWriter& page, const ListState& liste, const ReportTexts& texts) {
    beginTable(page, u"Tpt");
    beginRow(page, u"KopfZeile_ME_LZ_AG");
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column)
        page.line({cellStart(column), heading(liste, texts, column), u"</TD>"});
    endRow(page);
}

} // namespace

void Bericht_Schreiben(PageWriter& page) {
    const auto& liste = Liste();
    const ReportTexts& texts = reportTexts(Global().ListenArt);
    beginBody(page);
    writeAddress(page);
    writeTitle(page, texts.title, TitleEnd::Plain);
    computeWidths();
    beginBoxTable(page);
    writeTextBlock(page, u"anmerkung_vorher", texts.line);
    page.line(u"<div class='tabelle'>");
    RowWriter data(page, RowWriter::Cells::WithWidth);
    RowWriter sums(page, RowWriter::Cells::Plain);
    Stripe stripe;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        const QString& code = liste.ZeilenCode(row);
        if (code == kCodeTextzeile)
            writeTextBlock(page, u"UE1_vorher", liste.Daten(1, row));
        else if (code == kCodeTabelle)
            beginReportTable(page, liste, texts);
        else if (code == kCodeDaten)
            data.writeRow(stripe.next() ? u"ME_LZ_AG_Daten2" : u"ME_LZ_AG_Daten1", row);
        else if (code == kCodeSumme)
            sums.writeRow(u"SummenZeile_ME_LZ_AG", row);
        else if (code == kCodeTabelleEnde)
            endTable(page);
    }
    page.line(u"</div>");
    endBody(page);
}

} // namespace kolibri
