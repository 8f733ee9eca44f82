#pragma once

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "support/test_base.h"

#include <QString>

namespace kolibri::test {

/// Takes from the open database everything that the first version of the program did not have: late tables,
/// late columns, and the settings rows that came with them. What is left is a file as that version wrote it.
void makeFirstVersion(Connection& conn);

void dropTable(Connection& conn, const QString& table);
void dropColumn(Connection& conn, const QString& table, const QString& column);

/// Base of the tests that start the program on an older file.
class OldDatabaseTest : public TestBase {
protected:
    /// Starts the program as far as the database goes.
    void start();
    /// The safety copies beside the database.
    QStringList safetyCopies() const;

    template <class F> void inDatabase(F work) {
        const DbSession session(QStringLiteral("Test"));
        work(Global().Conn);
    }
};

} // namespace kolibri::test
