#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace kolibri {

/// The first sheet of a spreadsheet file: its name, the names in its heading row, and the rows below. A cell
/// is the text that the sheet shows: a number in its German form, a date as "dd.mm.yyyy"; an empty cell is a
/// null text.
struct Spreadsheet {
    QString name;
    QStringList columns;
    std::vector<QStringList> rows;
};

/// The verb with which the tool kolibri-db reads a spreadsheet for the program. Not meant for people.
inline const QString kReadSpreadsheetVerb = QStringLiteral("tabelle-lesen");

/// How a cell's number is shown.
QString numberCell(double number);
/// How a cell's date is shown; `iso` is "2018-03-04", with a time of day or without.
QString dateCell(const QString& iso);

/// Reads the first sheet of a file in the format of Excel 97 to 2003. The library below trusts its input, so
/// this belongs into a process of its own.
/// @throws StoreError in words when the file is none of that format, is locked, empty or damaged
Spreadsheet readSpreadsheet(const QString& file);

/// The same by the tool, in a process of its own.
Spreadsheet readSpreadsheetInOwnProcess(const QString& tool, const QString& file);
/// The tool's side of it.
void serveSpreadsheetReading(const QString& file);

} // namespace kolibri
