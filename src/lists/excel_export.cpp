#include "lists/excel_export.h"

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "lists/list_state.h"
#include "lists/row_codes.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <xlsxwriter.h>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kExclamation = 48;
/// Bounds of the file format: characters of a cell, and of a header or footer.
constexpr int kCellCharacters = 32767;
constexpr int kHeaderCharacters = 254;
/// The columns "A" to "Z" are fitted; those behind keep the width of an empty sheet.
constexpr int kFittedColumns = 26;
constexpr int kWidestColumn = 255;
constexpr int kPaperA4 = 9;
/// In inches.
constexpr double kTopMargin = 1.1;
constexpr double kOtherMargins = 0.5;

bool isWritten(const QString& code, SheetRows rows) {
    return rows == SheetRows::OneRowEach ? code == kCodeDaten : isDataCode(code);
}

/// The texts of the sheet, row by row; the first are the headings.
std::vector<QStringList> sheetTexts(const ListState& liste, SheetRows rows) {
    std::vector<QStringList> sheet(1);
    for (int column = 1; column <= liste.SpaltenAnzahl; ++column)
        sheet[0] << liste.SpaltenText(column);
    const int last = std::min({liste.ZeilenAnzahl, liste.Daten.rows(), liste.ZeilenCode.bound()});
    for (int row = 1; row <= last; ++row) {
        if (!isWritten(liste.ZeilenCode(row), rows))
            continue;
        QStringList cells;
        for (int column = 1; column <= liste.Daten.columns(); ++column)
            cells << liste.Daten(column, row);
        sheet.push_back(cells);
    }
    return sheet;
}

/// A text as a header or footer shows it: "&" begins a code there.
QString plain(QString text) {
    // Before a "G" or "[" the library takes even a doubled mark for the place of a picture and loses its way.
    static const QRegularExpression pictureMark(u"&(?=[G\\[])"_s);
    return text.replace(u'&', u"&&"_s).replace(pictureMark, u"& "_s);
}

/// As much of a header or footer as the format takes, without half of a doubled "&" at its end.
QString fitted(const QString& text, qsizetype room) {
    QString cut = text.left(room);
    const auto marks = std::find_if(cut.crbegin(), cut.crend(), [](QChar c) { return c != u'&'; });
    if (cut.size() < text.size() && (marks - cut.crbegin()) % 2 != 0)
        cut.chop(1);
    return cut;
}

QString header(const ListState& liste) {
    QString text = liste.Daten.rows() > 0 && liste.Daten.columns() > 0 ? plain(liste.Daten(1, 1)) : QString();
    // A digit would be read as part of the font size before it.
    if (!text.isEmpty() && text.at(0).isDigit())
        text.prepend(u' ');
    return fitted(u"&C&\"Arial,Fett\"&11"_s + text, kHeaderCharacters);
}

QString footer() {
    const auto& global = Global();
    const QString address =
        plain(global.SchuleOrganisation + u", "_s + global.SchuleStrasse + u", "_s + global.SchulePLZOrt);
    const QString date = u"&R &D"_s;
    return fitted(u"&L"_s + address, kHeaderCharacters - date.size()) + date;
}

void writeTexts(lxw_worksheet* sheet, const std::vector<QStringList>& texts, lxw_format* heading) {
    std::vector<qsizetype> widths;
    for (std::size_t row = 0; row < texts.size(); ++row)
        for (qsizetype column = 0; column < texts[row].size(); ++column) {
            const QString text = texts[row].at(column).left(kCellCharacters);
            worksheet_write_string(sheet, static_cast<lxw_row_t>(row), static_cast<lxw_col_t>(column),
                                   text.toUtf8().constData(), nullptr);
            widths.resize(std::max(widths.size(), static_cast<std::size_t>(column) + 1));
            auto& width = widths[static_cast<std::size_t>(column)];
            width = std::max(width, text.size());
        }
    constexpr qsizetype kAir = 2;
    for (std::size_t column = 0; column < widths.size() && column < kFittedColumns; ++column) {
        const auto place = static_cast<lxw_col_t>(column);
        worksheet_set_column(sheet, place, place,
                             static_cast<double>(std::min<qsizetype>(widths[column] + kAir, kWidestColumn)),
                             nullptr);
    }
    worksheet_set_row(sheet, 0, LXW_DEF_ROW_HEIGHT, heading);
}

void setUpPage(lxw_worksheet* sheet, const ListState& liste) {
    worksheet_set_paper(sheet, kPaperA4);
    worksheet_set_margins(sheet, kOtherMargins, kOtherMargins, kTopMargin, kOtherMargins);
    worksheet_set_header(sheet, header(liste).toUtf8().constData());
    worksheet_set_footer(sheet, footer().toUtf8().constData());
}

} // namespace

void writeWorkbook(const QString& file, SheetRows rows) {
    const auto& liste = Liste();
    lxw_workbook* book = workbook_new(QFile::encodeName(file).constData());
    if (!book)
        throw RuntimeError::fileAccess(QDir::toNativeSeparators(file));
    lxw_worksheet* sheet = workbook_add_worksheet(book, nullptr);
    lxw_format* heading = workbook_add_format(book);
    format_set_bold(heading);
    format_set_align(heading, LXW_ALIGN_CENTER);
    writeTexts(sheet, sheetTexts(liste, rows), heading);
    setUpPage(sheet, liste);
    if (const lxw_error error = workbook_close(book); error != LXW_NO_ERROR)
        throw RuntimeError::fileAccess(
            u"%1: %2"_s.arg(QDir::toNativeSeparators(file), QString::fromUtf8(lxw_strerror(error))));
}

namespace {

/// Writes the workbook under a name of its own among the user's temporary files.
QString newWorkbook(SheetRows rows) {
    QTemporaryFile place(QDir::tempPath() + u"/Kolibri-Liste-XXXXXX.xlsx"_s);
    if (!place.open())
        throw RuntimeError::fileAccess(
            u"%1: %2"_s.arg(QDir::toNativeSeparators(place.fileTemplate()), place.errorString()));
    const QString file = place.fileName();
    place.close();
    writeWorkbook(file, rows);
    // The office keeps the file for as long as it likes; only one that could not be written goes away again.
    place.setAutoRemove(false);
    return file;
}

} // namespace

void exportToSpreadsheet(SheetRows rows) {
    const QString file = newWorkbook(rows);
    if (!doors().desktop->open(file))
        MsgBox(u"Auf diesem Rechner ist kein Programm für Tabellen eingerichtet. Die Tabelle liegt hier:\n"_s
                   + QDir::toNativeSeparators(file),
               kExclamation);
}

} // namespace kolibri
