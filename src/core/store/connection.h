#pragma once

#include "core/store/column_kind.h"
#include "core/store/new_row.h"
#include "core/store/recordset.h"
#include "core/store/store_error.h"
#include "core/store/transaction.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QStringList>

#include <map>
#include <unordered_map>
#include <vector>

namespace kolibri {

class Engine;

/// One "column = value" of a write.
struct FieldValue {
    QString field;
    QVariant value;
};
using FieldValues = std::vector<FieldValue>;

/// How long a connection waits for another workstation before it gives up, in milliseconds.
inline constexpr int kBusyWait = 10'000;

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
    /// Any other statement. Returns the rows that an INSERT, UPDATE or DELETE touched.
    int Execute(const QString& statement, const QVariantList& values = {});

    /// Tables of the open file in the order in which they were made.
    QStringList Tables();
    bool HasTable(const QString& table);
    /// Columns of a table in their order; empty when there is no such table. Names are found without regard
    /// to case.
    std::vector<ColumnInfo> Columns(const QString& table);
    bool HasColumn(const QString& table, const QString& column);
    void CreateTable(const QString& table, const std::vector<ColumnInfo>& columns);
    void AddColumn(const QString& table, const ColumnInfo& column);
    /// Gives an existing column another kind and brings its values along, all or nothing.
    void ChangeColumn(const QString& table, const ColumnInfo& column);

    /// Copies the open file as it stands into a new one. @throws StoreError when it cannot be written
    void CopyTo(const QString& target);
    /// Empty when the whole file is sound, else what is wrong with it.
    QStringList IntegrityProblems();

    /// What the present operation is about; stands in front of every error it meets.
    void SetPurpose(const QString& purpose) { m_purpose = purpose; }
    const QString& Purpose() const { return m_purpose; }
    /// Lifts the refusal of apostrophes, as the office can in the settings.
    void AllowApostrophes(bool allow) { m_apostrophesAllowed = allow; }
    bool ApostrophesAllowed() const { return m_apostrophesAllowed; }
    /// Waits so long (milliseconds) for other workstations, from the next OpenFile on.
    void SetBusyWait(int milliseconds) { m_busyWait = milliseconds; }
    /// Number of statements since the connection was made; for measurements.
    qint64 StatementCount() const { return m_statements; }

private:
    friend class NewRow;
    friend class Transaction;

    struct Table {
        std::vector<ColumnInfo> columns;
        FieldNames names;
        QStringList quotedNames;
    };
    /// A value as its column keeps it, with the column's place in the table.
    struct StoredValue {
        int column;
        QVariant value;
    };
    /// A statement that has run on this connection; a SELECT with its fields and their kinds.
    struct Prepared {
        QSqlQuery query;
        qsizetype values = 0;
        std::shared_ptr<const FieldNames> fields = {};
        std::vector<std::optional<ColumnKind>> kinds = {};
    };
    /// What a writing statement left: the rows it touched and the key of the row it added.
    struct Written {
        int rows;
        qint64 key;
    };
    /// What becomes of the running transaction: it can still be committed, an inner one was given up, or the
    /// engine has taken it back by itself.
    enum class Fate { Open, GivenUp, TakenBack };

    Prepared& Run(const QString& statement, const QVariantList& values, const QString& table);
    Prepared& Prepare(const QString& statement, qsizetype values, const QString& table);
    Written Write(const QString& statement, const QVariantList& values, const QString& table);
    qint64 Insert(const QString& table, const std::map<int, QVariant>& values);

    const Table& Catalogue(const QString& table);
    StoredValue Stored(const QString& table, const FieldValue& written);
    void ForgetCatalogue();

    void RefuseApostrophes(const QVariantList& values, const QString& table) const;
    void RequireOpen(const QString& table) const;
    [[noreturn]] void Fail(StoreError error) const;
    [[noreturn]] void FailTakenBack() const;
    template <typename Work> auto Explained(const Work& work) const;

    const Engine& m_engine;
    QSqlDatabase m_database;
    QString m_name;
    QString m_purpose;
    std::unordered_map<QString, Prepared> m_prepared;
    std::unordered_map<QString, Table, NameHash, SameName> m_tables;
    int m_busyWait = kBusyWait;
    int m_transactionDepth = 0;
    Fate m_transactionFate = Fate::Open;
    bool m_apostrophesAllowed = false;
    qint64 m_statements = 0;
};

} // namespace kolibri
