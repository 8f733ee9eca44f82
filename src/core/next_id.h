#pragma once

#include "core/store/connection.h"

namespace kolibri {

/// The key of the next row of a table whose keys the program sets: one more than the largest, 0 for the first
/// row. The database is open.
qint64 NextId(Connection& conn, const QString& table);

} // namespace kolibri
