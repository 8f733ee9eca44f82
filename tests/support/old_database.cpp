#include "support/old_database.h"

#include "core/startup.h"
#include "core/store/connection.h"
#include "core/store/schema.h"
#include "maintenance/upgrade.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace kolibri::test {

void dropTable(Connection& conn, const QString& table) {
    conn.Execute(u"DROP TABLE \"%1\""_s.arg(table));
}

void dropColumn(Connection& conn, const QString& table, const QString& column) {
    conn.Execute(u"ALTER TABLE \"%1\" DROP COLUMN \"%2\""_s.arg(table, column));
}

void makeFirstVersion(Connection& conn) {
    conn.Execute(u"DELETE FROM Einstellungen WHERE Feld NOT IN ('TabelleKopfZeile', 'TabelleZeile', "
                 "'TabelleSummenZeile')"_s);
    for (const auto& table : schema()) {
        if (table.later) {
            dropTable(conn, table.name);
            continue;
        }
        for (const auto& column : table.columns)
            if (column.later)
                dropColumn(conn, table.name, column.info.name);
    }
}

void OldDatabaseTest::start() {
    startUp(home(), {.bringUpToDate = bringUpToDate, .finishUpgrade = fillNewSlots});
}

QStringList OldDatabaseTest::safetyCopies() const {
    return QDir(home()).entryList({u"KOLIBRI_Daten-Sicherheitskopie-*"_s}, QDir::Files);
}

} // namespace kolibri::test
