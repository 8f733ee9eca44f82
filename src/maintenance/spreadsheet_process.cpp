#include "maintenance/spreadsheet.h"
#include "maintenance/tool_process.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kName = u"Tabelle"_s;
const QString kColumns = u"Spalten"_s;
const QString kRow = u"Zeile"_s;

/// A row as one line, whatever its cells hold.
QString rowLine(const QStringList& cells) {
    QJsonArray array;
    for (const auto& cell : cells)
        array.append(cell.isNull() ? QJsonValue() : QJsonValue(cell));
    return QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact));
}

QStringList rowOf(const QString& line) {
    QStringList cells;
    for (const auto& cell : QJsonDocument::fromJson(line.toUtf8()).array())
        cells << (cell.isNull() ? QString() : u""_s + cell.toString());
    return cells;
}

} // namespace

Spreadsheet readSpreadsheetInOwnProcess(const QString& tool, const QString& file) {
    constexpr int kPatience = 10'000;
    const ToolTask task{
        tool,
        {kReadSpreadsheetVerb, file},
        kPatience,
        u"Die Datei %1 ist beschädigt und kann nicht gelesen werden."_s.arg(QDir::toNativeSeparators(file))};
    Spreadsheet sheet;
    runTool(task, [&](const QString& word, const QString& text) {
        if (word == kName)
            sheet.name = text;
        else if (word == kColumns)
            sheet.columns = rowOf(text);
        else if (word == kRow)
            sheet.rows.push_back(rowOf(text));
    });
    return sheet;
}

void serveSpreadsheetReading(const QString& file) {
    serveProgram([&] {
        const Spreadsheet sheet = readSpreadsheet(file);
        tellProgram(kName, sheet.name);
        tellProgram(kColumns, rowLine(sheet.columns));
        for (const auto& row : sheet.rows)
            tellProgram(kRow, rowLine(row));
    });
}

} // namespace kolibri
