#pragma once

#include "maintenance/spreadsheet.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace kolibri {

class Connection;

/// The most rows and columns of a sheet that are read in.
inline constexpr int kMostExcelRows = 999;
inline constexpr int kMostExcelColumns = 99;

/// A field of the program that a column of the sheet can be assigned to.
struct ExcelField {
    /// Number of its box in the form: 0 to 5, and 100, 200 or 300 and more for the three contacts.
    int index;
    QString label;
    /// Column of Stammdaten.
    QString column;
};

/// Number of the contacts of a pupil, and the distance of their boxes' numbers.
inline constexpr int kExcelContacts = 3;
inline constexpr int kExcelContactStep = 100;

/// All fields in their order.
const std::vector<ExcelField>& excelFields();

/// Which column of the sheet each field takes its values from, by the number of the field's box; a field
/// without an entry or with an empty one stays empty.
using ExcelAssignment = QMap<int, QString>;

/// What came of an import.
struct ExcelImportResult {
    /// Rows of the sheet beyond the bound, which were not taken over.
    int rowsLeftOut = 0;
    /// Classes that the pupils brought with them and that were made.
    QStringList newClasses;
};

/// Names of the sheet's columns that can be chosen.
QStringList ExcelSpalten(const Spreadsheet& sheet);
/// The values of the assigned columns, trimmed, a row each, in the order of the fields.
std::vector<QStringList> ExcelDatenLesen(const Spreadsheet& sheet, const ExcelAssignment& assignment);
/// Writes rows as new pupils, after deleting all others if asked for. A value that its column does not take
/// leaves the field empty, and a row that cannot be written is passed over; neither is told. Nothing is
/// checked: no duplicates, no dates, no classes.
void ExcelDaten_inDB_Schreiben(Connection& conn, const std::vector<QStringList>& rows, bool overwrite);
/// Makes the classes of the rows that the school does not have yet in the shared connection. A school
/// starter's class needs none. Returns those made.
QStringList makeMissingClasses(const std::vector<QStringList>& rows);

/// The menu entry's first half: asks for the file and reads it. No value when there is nothing to import.
/// @throws StoreError in words for a file that cannot be read
std::optional<Spreadsheet> ExcelDateiOeffnen(const QString& tool);
/// The form's OK: asks, imports and tells. False when the user said No.
bool ExcelDatenImportieren(const Spreadsheet& sheet, const ExcelAssignment& assignment, bool overwrite);

} // namespace kolibri
