#pragma once

class QString;

namespace kolibri {

/// Which rows of a list go into the spreadsheet.
enum class SheetRows {
    OneRowEach, ///< those with the code 1: a pupil who takes several rows on the page is left out
    All         ///< every row with data, but no headings, sums or ends of tables
};

/// Writes the list in production into a new workbook: the column headings, bold and centred, below them the
/// rows without gaps, the columns as wide as their texts, and at the foot of the printed sheet the school's
/// address and the date.
/// @throws RuntimeError 75 when the file cannot be written
void writeWorkbook(const QString& file, SheetRows rows);

/// Writes the list in production into a workbook among the user's temporary files and has the desktop open
/// it. Where no program is there for it, a box says where the file lies.
/// @throws RuntimeError 75 when the file cannot be written
void exportToSpreadsheet(SheetRows rows);

} // namespace kolibri
