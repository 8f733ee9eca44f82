#include "lists/pupil_list_write.h"

#include "core/mdlGlobal.h"
#include "lists/list_columns.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/money.h"
#include "lists/page_body.h"
#include "lists/page_writer.h"
#include "lists/row_codes.h"

#include <map>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Classes of a row without and with shade.
struct RowClasses {
    QStringView off;
    QStringView on;
};

constexpr RowClasses kOneRow{u"Stammdaten1", u"Stammdaten2"};
constexpr RowClasses kNameRow{u"STD_1", u"STD_2"};

/// In the lists with contacts the borders between the rows of one pupil fall away. Which ones do hangs on
/// the code of a row, and on whether the row below goes on with the same pupil.
struct ContactRow {
    QString code;
    std::optional<bool> continuedBelow;
    RowClasses classes;
};

const std::vector<ContactRow>& contactRowClasses() {
    static const std::vector<ContactRow> rows{
        {kCodeDaten, false, kOneRow},
        {kCodeDaten, true, {u"StammdatenGV11", u"StammdatenGV21"}},
        {kCodeFortsetzung, true, {u"StammdatenGV12", u"StammdatenGV22"}},
        {kCodeFortsetzung, false, {u"StammdatenGV13", u"StammdatenGV23"}},
        {kCodeKontaktErster, {}, {u"Stammdaten111", u"Stammdaten2"}},
        {kCodeKontaktLetzter, {}, {u"Stammdaten112", u"Stammdaten2"}},
        {kCodeKontaktMitte, {}, {u"Stammdaten113", u"Stammdaten2"}},
    };
    return rows;
}

QString title(quint8 listenArt) {
    static const std::map<quint8, QString> titles{{kUnterrichtszeiten, u"Unterrichtszeiten der Klassen"_s},
                                                  {kSchulanfaenger, u"Schulanfänger"_s},
                                                  {kNamensliste, u"Namensliste"_s},
                                                  {kNeueSchueler, u"Neue Schüler"_s},
                                                  {kNichtOgSchueler, u"Nicht OG Schüler"_s},
                                                  {kErweiterteListe, u"Stammdaten"_s}};
    return titles.at(listenArt);
}

RowClasses contactClasses(const ListState& liste, int row) {
    const bool continuedBelow = row < liste.ZeilenAnzahl && liste.ZeilenCode(row + 1) == kCodeFortsetzung;
    for (const auto& entry : contactRowClasses())
        if (entry.code == liste.ZeilenCode(row)
            && entry.continuedBelow.value_or(continuedBelow) == continuedBelow)
            return entry.classes;
    return kOneRow;
}

RowClasses classesOf(quint8 listenArt, const ListState& liste, int row) {
    if (listenArt == kNamensliste)
        return kNameRow;
    const bool withContacts = listenArt == kSchulanfaenger || listenArt == kErweiterteListe;
    return withContacts ? contactClasses(liste, row) : kOneRow;
}

bool beginsPupil(const QString& code) {
    return code == kCodeDaten || code == kCodeKontaktErster;
}

void writeRows(RowWriter& rows) {
    const auto& liste = Liste();
    const quint8 listenArt = Global().ListenArt;
    Stripe stripe;
    for (int row = 1; row <= liste.ZeilenAnzahl; ++row) {
        const QString& code = liste.ZeilenCode(row);
        if (!isRowCode(code))
            continue;
        if (beginsPupil(code))
            stripe.next();
        const RowClasses classes = classesOf(listenArt, liste, row);
        rows.writeRow(stripe.on() ? classes.on : classes.off, row);
    }
}

/// Sums under the fee columns, and the word for them in the cell before.
void writeSums(PageWriter& page) {
    const auto& liste = Liste();
    const int fees = static_cast<int>(liste.BeitragNummern.size());
    const int firstFee = liste.SpaltenAnzahl - fees + 1;
    beginRow(page, u"STD_Summe");
    for (int column = 1; column < firstFee; ++column) {
        const bool last = column == firstFee - 1;
        page.line({last ? cellStart(column, u"right") : cellStart(column), last ? u"SUMME:" : u"", u"</TD>"});
    }
    for (int i = 0; i < fees; ++i) {
        const auto fee = static_cast<std::size_t>(liste.BeitragNummern[static_cast<std::size_t>(i)]);
        page.line({cellStart(firstFee + i), moneySumText(liste.BeitragSummen.at(fee)), u"</TD>"});
    }
    endRow(page);
}

} // namespace

void Schuelerliste_Schreiben(PageWriter& page) {
    const quint8 listenArt = Global().ListenArt;
    const bool namesOnly = listenArt == kNamensliste;
    beginBody(page);
    writeAddress(page);
    writeTitle(page, inCapitals(title(listenArt)), TitleEnd::LineBreak);
    computeWidths();
    beginBoxTable(page);
    if (namesOnly)
        page.line(u"<TABLE class=STD_Basic>");
    else
        beginTable(page, u"Tpt");
    RowWriter rows(page, namesOnly ? RowWriter::Cells::Plain : RowWriter::Cells::WithWidth);
    page.line(u"<THEAD>");
    rows.writeHeader(namesOnly ? u"STD_KopfZeile" : u"KopfZeile");
    page.line(u"</THEAD>");
    writeRows(rows);
    if (!Liste().BeitragNummern.empty())
        writeSums(page);
    endTable(page);
    endBody(page);
}

} // namespace kolibri
