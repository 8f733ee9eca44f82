#pragma once

#include "core/store/column_kind.h"
#include "core/store/recordset.h"
#include "core/store/store_error.h"

#include <QHash>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>

#include <map>
#include <vector>

namespace kolibri {

class Connection;
class Engine;

/// One "column = value" of a write.
struct FieldValue {
    QString field;
    QVariant value;
};
using FieldValues = std::vector<FieldValue>;

/// How long a connection waits for another workstation before it gives up, in milliseconds.
inline constexpr int kBusyWait = 10'000;

/// A new row of a table, written field by field.
class NewRow {
public:
    /// @throws StoreError (Value) when the column does not take the value
    NewRow& Set(const QString& field, const QVariant& value);
    /// Like Set, but a field that the table lacks or a value that the column does not take is passed over.
    NewRow& SetIfPossible(const QString& field, const QVariant& value);
    /// Writes the row. Returns its key where the table has an AutoNumber: the written one, else the engine's.
    qint64 Update();

private:
    friend class Connection;
    NewRow(Connection& connection, const QString& table) : m_connection(&connection), m_table(table) {}

    Connection* m_connection;
    QString m_table;
    FieldValues m_values;
};

/// The connection to the database file. Opened for one operation and closed at its end, so that the file lies
/// closed in its network folder for most of the time.
///
/// Values in `Open`, `Execute`, `Change` and `Delete` stand for `?` in the statement. A text with an
/// apostrophe among them is refused before anything is executed, unless the office allowed apostrophes;
/// `AddNew` takes it.
class Connection {
public:
    Connection();
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Opens the file; an open connection is closed first. @throws StoreError, also when the file is missing
    void OpenFile(const QString& file);
    /// Makes an empty database file and opens it. @throws StoreError when it exists or cannot be written
    void CreateFile(const QString& file);
    /// Closes the connection; a transaction that is still open is taken back.
    void Close() noexcept;
    bool IsOpen() const { return m_database.isOpen(); }
    QString FileName() const;

    /// The rows of a SELECT.
    Recordset Open(const QString& select, const QVariantList& values = {});
    /// A new row of the table.
    NewRow AddNew(const QString& table) { return {*this, table}; }
    /// UPDATE table SET ... WHERE condition, each value converted to its column's kind. Returns the rows
    /// changed.
    int Change(const QString& table, const FieldValues& values, const QString& condition = {},
               const QVariantList& conditionValues = {});
    /// DELETE FROM table WHERE condition. Returns the rows deleted.
    int Delete(const QString& table, const QString& condition = {}, const QVariantList& conditionValues = {});
    /// Any other statement. Returns the rows it touched.
    int Execute(const QString& statement, const QVariantList& values = {});

    /// Tables of the open file in the order in which they were made.
    QStringList Tables();
    bool HasTable(const QString& table);
    /// Columns of a table in their order; empty when there is no such table. Names are found without regard
    /// to case.
    const std::vector<ColumnInfo>& Columns(const QString& table);
    bool HasColumn(const QString& table, const QString& column);
    void CreateTable(const QString& table, const std::vector<ColumnInfo>& columns);
    void AddColumn(const QString& table, const ColumnInfo& column);

    /// Copies the open file as it stands into a new one. @throws StoreError when it cannot be written
    void CopyTo(const QString& target);
    /// Empty when the whole file is sound, else what is wrong with it.
    QStringList IntegrityProblems();

    /// What the present operation is about; stands in front of every error it meets.
    void SetPurpose(const QString& purpose) { m_purpose = purpose; }
    /// Lifts the refusal of apostrophes, as the office can in the settings.
    void AllowApostrophes(bool allow) { m_apostrophesAllowed = allow; }
    /// Waits so long (milliseconds) for other workstations, from the next OpenFile on.
    void SetBusyWait(int milliseconds) { m_busyWait = milliseconds; }
    /// Number of statements since the connection was made; for measurements.
    qint64 StatementCount() const { return m_statements; }

private:
    friend class NewRow;
    friend class Transaction;

    void Connect(const QString& file);
    qint64 Insert(const QString& table, const FieldValues& values);
    ColumnInfo FindColumn(const QString& table, const QString& field);
    QSqlQuery& Run(const QString& statement, const QVariantList& values, const QString& table);
    /// What a writing statement left: the rows it touched and the key of the row it added.
    struct Written {
        int rows;
        qint64 key;
    };
    Written Write(const QString& statement, const QVariantList& values, const QString& table);
    QVariantList Converted(const QString& table, const FieldValues& values, QStringList& names);
    void RefuseApostrophes(const QVariantList& values, const QString& table) const;
    void ForgetCatalogue();
    [[noreturn]] void Fail(StoreError error) const;

    const Engine& m_engine;
    QSqlDatabase m_database;
    QString m_name;
    QString m_purpose;
    std::map<QString, QSqlQuery> m_prepared;
    QHash<QString, std::vector<ColumnInfo>> m_columns;
    int m_busyWait = kBusyWait;
    int m_transactionDepth = 0;
    bool m_transactionLost = false;
    bool m_apostrophesAllowed = false;
    qint64 m_statements = 0;
};

/// All or nothing: what is written while it lives counts only after `Commit`. A transaction inside another
/// one takes part in it, and one that is given up takes the outer one with it.
class Transaction {
public:
    explicit Transaction(Connection& connection);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();

private:
    Connection& m_connection;
    bool m_done = false;
};

} // namespace kolibri
