#include "maintenance/jet_copy.h"

#include "core/store/connection.h"
#include "core/store/schema.h"
#include "maintenance/jet_columns.h"
#include "maintenance/jet_file.h"
#include "maintenance/jet_header.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

void checkIsSchool(const QStringList& tables, const QString& file) {
    for (const auto& table : schema())
        if (!table.later && !tables.contains(table.name, Qt::CaseInsensitive))
            throw StoreError(
                StoreError::Kind::Foreign,
                u"Die Datei %1 ist keine Datenbank dieses Programms. Sie wurde nicht verändert."_s.arg(file),
                table.name);
}

/// The name of a table as the schema spells it.
QString newName(const QString& name) {
    for (const auto& table : schema())
        if (table.name.compare(name, Qt::CaseInsensitive) == 0)
            return table.name;
    return name;
}

/// A key that was given to a row once must not be given again, also when that row is gone: its notes may
/// still be there, and would belong to the next pupil who got it.
void continueKeys(Connection& conn, const QString& table, const std::vector<ColumnInfo>& columns,
                  qint64 lastAutoNumber) {
    for (const auto& column : columns) {
        if (column.kind != ColumnKind::AutoNumber)
            continue;
        const QString key = u'"' + column.name + u'"';
        const qint64 highest =
            conn.Open(u"SELECT MAX(%1) AS Letzte FROM \"%2\""_s.arg(key, table)).Number(u"Letzte");
        if (lastAutoNumber <= highest)
            return;
        // The engine counts on from the highest key that it has ever seen.
        conn.AddNew(table).Set(column.name, lastAutoNumber).Update();
        conn.Delete(table, key + u" = ?"_s, {lastAutoNumber});
    }
}

void copyTable(Connection& conn, const JetTable& table, const std::function<void()>& tick) {
    const QString name = newName(table.name);
    const auto columns = columnsFor(table);
    conn.CreateTable(name, columns);
    for (const auto& values : table.rows) {
        NewRow row = conn.AddNew(name);
        for (std::size_t i = 0; i < columns.size(); ++i)
            row.Set(columns[i].name, takenValue(columns[i], values[i]));
        row.Update();
        tick();
    }
    continueKeys(conn, name, columns, table.lastAutoNumber);
}

void copyTables(Connection& conn, JetFile& jet, const JetProgress& progress) {
    // Each row is read once and written once.
    constexpr qint64 kTimes = 2;
    qint64 total = 0;
    for (const auto& name : jet.tables())
        total += kTimes * jet.rowsOf(name);
    qint64 done = 0;
    const auto tick = [&] { progress(++done, total); };
    for (const auto& name : jet.tables())
        copyTable(conn, jet.read(name, tick), tick);
}

} // namespace

void copyJetFile(const QString& jetFile, const QString& newFile, const JetProgress& progress) {
    checkJetFile(jetFile);
    JetFile jet(jetFile);
    checkIsSchool(jet.tables(), jetFile);
    Connection conn;
    conn.SetPurpose(u"Datenbank übernehmen"_s);
    conn.CreateFile(newFile);
    try {
        Transaction transaction(conn);
        copyTables(conn, jet, progress);
        transaction.Commit();
    } catch (...) {
        conn.Close();
        QFile::remove(newFile);
        throw;
    }
}

} // namespace kolibri
