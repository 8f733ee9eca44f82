#pragma once

#include "core/store/column_kind.h"
#include "core/store/store_error.h"

#include <QStringList>

#include <optional>
#include <vector>

class QSqlDatabase;
class QSqlError;
class QSqlQuery;

namespace kolibri {

/// What differs from one database engine to the next. Everything else in the store is standard SQL.
class Engine {
public:
    virtual ~Engine() = default;

    /// Qt's name of the driver.
    virtual QString driver() const = 0;

    /// Opens an existing database with the German sort order and the engine's safe settings. While other
    /// workstations hold it, every statement waits up to `busyWait` milliseconds.
    /// @throws StoreError when it is missing or cannot be a database of this engine; it is untouched then
    virtual void open(QSqlDatabase& database, const QString& file, int busyWait) const = 0;
    /// Makes an empty database and opens it. @throws StoreError when it exists already or cannot be written
    virtual void create(QSqlDatabase& database, const QString& file, int busyWait) const = 0;
    /// Copies the open database, as it stands now, into a new file.
    virtual void copyTo(QSqlDatabase& database, const QString& target) const = 0;
    /// Empty when the whole file is sound, else the engine's complaints.
    virtual QStringList integrityProblems(QSqlDatabase& database) const = 0;

    /// Statement that begins a transaction which will write.
    virtual QString beginWriting() const = 0;
    /// False once the engine has ended a transaction by itself, as it does when the disk is full.
    virtual bool inTransaction(QSqlDatabase& database) const = 0;

    /// Tables, in the order in which they were made.
    virtual QStringList tables(QSqlDatabase& database) const = 0;
    /// Columns of a table, in their order; empty when there is no such table.
    virtual std::vector<ColumnInfo> columns(QSqlDatabase& database, const QString& table) const = 0;
    /// How a column of this kind is declared.
    virtual QString declaration(ColumnKind kind) const = 0;
    /// Kinds of the columns of a running query; no value for a computed column.
    virtual std::vector<std::optional<ColumnKind>> resultKinds(const QSqlQuery& query) const = 0;

    /// The engine's error in the office's words.
    virtual StoreError explain(const QSqlError& error, const QString& table) const = 0;
};

/// The engine behind the office's database file.
const Engine& sqliteEngine();

} // namespace kolibri
