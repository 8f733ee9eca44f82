#pragma once

#include "core/store/column_kind.h"
#include "maintenance/jet_file.h"

namespace kolibri {

/// The columns in which the office's database keeps a table of a Jet file. A column that the program knows
/// bears the schema's name and kind; any other one the kind nearest to its old one. Where a value would be
/// lost in that kind, the column takes the next that keeps all values, at last a memo.
std::vector<ColumnInfo> columnsFor(const JetTable& table);

/// A value of a Jet file as its new column takes it: dates become "dd.mm.yyyy", times "hh:mm".
QVariant takenValue(const ColumnInfo& column, const QVariant& value);

} // namespace kolibri
