#pragma once

#include <QString>

namespace kolibri {
class Connection;
}

namespace kolibri::test {

/// Takes from the open database everything that the first version of the program did not have: late tables,
/// late columns, and the settings rows that came with them. What is left is a file as that version wrote it.
void makeFirstVersion(Connection& conn);

void dropTable(Connection& conn, const QString& table);
void dropColumn(Connection& conn, const QString& table, const QString& column);

} // namespace kolibri::test
