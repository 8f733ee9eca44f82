#pragma once

#include "core/store/column_kind.h"

#include <QString>

#include <vector>

namespace kolibri {

/// A column of the schema.
struct SchemaColumn {
    ColumnInfo info;
    /// True for a column that the first version of the program did not have yet; older files lack it.
    bool later = false;
};

/// A table of the schema, in the shape that a current file has.
struct SchemaTable {
    QString name;
    /// True for a table that the first version of the program did not have yet; so are all its columns then.
    bool later = false;
    std::vector<SchemaColumn> columns;

    /// The columns as the store makes them.
    std::vector<ColumnInfo> columnInfos() const;
};

/// All tables of the office's database in the order in which the program came to have them. The one place
/// that knows their columns.
const std::vector<SchemaTable>& schema();
/// A table of the schema by its exact name.
const SchemaTable& schemaTable(QStringView name);

} // namespace kolibri
