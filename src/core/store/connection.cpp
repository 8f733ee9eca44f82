#include "core/store/connection.h"

#include "core/store/engine.h"

#include <QSqlError>
#include <QSqlRecord>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QString quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

QString whereClause(const QString& condition) {
    return condition.isEmpty() ? QString() : u" WHERE "_s + condition;
}

/// A text without content is the empty text, whichever way it came about; the driver would write a null for
/// some.
QVariant bindable(const QVariant& value) {
    if (value.typeId() == QMetaType::QString && value.toString().isEmpty())
        return u""_s;
    return value;
}

/// SQLite has no type of its own for true and false, and hands a sum of money without cents out as a whole
/// number.
QVariant asKind(const QVariant& raw, std::optional<ColumnKind> kind) {
    if (!kind || raw.isNull())
        return raw.isNull() ? QVariant() : raw;
    if (*kind == ColumnKind::Boolean)
        return raw.toBool();
    if (*kind == ColumnKind::Currency)
        return raw.toDouble();
    return raw;
}

} // namespace

NewRow& NewRow::Set(const QString& field, const QVariant& value) {
    m_values.push_back({field, value});
    return *this;
}

NewRow& NewRow::SetIfPossible(const QString& field, const QVariant& value) {
    try {
        toStored(m_connection->FindColumn(m_table, field), value, m_table);
    } catch (const StoreError&) {
        return *this;
    }
    return Set(field, value);
}

qint64 NewRow::Update() {
    return m_connection->Insert(m_table, m_values);
}

Connection::Connection() : m_engine(sqliteEngine()) {
    static int number = 0;
    m_name = u"kolibri-%1"_s.arg(++number);
    m_database = QSqlDatabase::addDatabase(m_engine.driver(), m_name);
}

Connection::~Connection() {
    Close();
    m_database = {};
    QSqlDatabase::removeDatabase(m_name);
}

QString Connection::FileName() const {
    return m_database.databaseName();
}

void Connection::OpenFile(const QString& file) {
    Close();
    try {
        m_engine.checkFile(file);
        Connect(file);
    } catch (const StoreError& error) {
        Close();
        Fail(error);
    }
}

void Connection::CreateFile(const QString& file) {
    Close();
    try {
        m_engine.createFile(file);
        Connect(file);
    } catch (const StoreError& error) {
        Close();
        Fail(error);
    }
}

void Connection::Connect(const QString& file) {
    m_database.setDatabaseName(file);
    m_database.setConnectOptions(m_engine.connectOptions(m_busyWait));
    if (!m_database.open())
        throw m_engine.explain(m_database.lastError(), {});
    m_engine.prepare(m_database);
}

void Connection::Close() noexcept {
    m_prepared.clear();
    ForgetCatalogue();
    m_transactionDepth = 0;
    m_transactionLost = false;
    m_database.close();
}

Recordset Connection::Open(const QString& select, const QVariantList& values) {
    RefuseApostrophes(values, {});
    QSqlQuery& query = Run(select, values, {});
    auto content = std::make_shared<Recordset::Content>();
    const QSqlRecord record = query.record();
    const int fields = record.count();
    for (int i = 0; i < fields; ++i)
        content->addField(record.fieldName(i));
    const auto kinds = m_engine.resultKinds(query);
    while (query.next()) {
        ++content->rows;
        for (int i = 0; i < fields; ++i)
            content->cells.push_back(asKind(query.value(i), kinds.at(static_cast<std::size_t>(i))));
    }
    const QSqlError error = query.lastError();
    query.finish();
    if (error.isValid())
        Fail(m_engine.explain(error, {}));
    Recordset result;
    result.m_content = std::move(content);
    return result;
}

int Connection::Change(const QString& table, const FieldValues& values, const QString& condition,
                       const QVariantList& conditionValues) {
    QStringList names;
    QVariantList bound = Converted(table, values, names);
    bound += conditionValues;
    RefuseApostrophes(bound, table);
    return Write(u"UPDATE "_s + quoted(table) + u" SET "_s + names.join(u" = ?, "_s) + u" = ?"_s
                     + whereClause(condition),
                 bound, table)
        .rows;
}

int Connection::Delete(const QString& table, const QString& condition, const QVariantList& conditionValues) {
    RefuseApostrophes(conditionValues, table);
    return Write(u"DELETE FROM "_s + quoted(table) + whereClause(condition), conditionValues, table).rows;
}

int Connection::Execute(const QString& statement, const QVariantList& values) {
    RefuseApostrophes(values, {});
    const int rows = Write(statement, values, {}).rows;
    ForgetCatalogue();
    return rows;
}

qint64 Connection::Insert(const QString& table, const FieldValues& values) {
    QStringList names;
    const QVariantList bound = Converted(table, values, names);
    const QString marks = QStringList(names.size(), u"?"_s).join(u", "_s);
    const QString content = names.isEmpty() ? u"DEFAULT VALUES"_s
                                            : u"("_s + names.join(u", "_s) + u") VALUES ("_s + marks + u")"_s;
    return Write(u"INSERT INTO "_s + quoted(table) + u' ' + content, bound, table).key;
}

QVariantList Connection::Converted(const QString& table, const FieldValues& values, QStringList& names) {
    QVariantList bound;
    try {
        for (const auto& [field, value] : values) {
            const ColumnInfo column = FindColumn(table, field);
            names << quoted(column.name);
            const QVariant stored = toStored(column, value, table);
            bound << (stored.typeId() == QMetaType::Bool ? QVariant(stored.toBool() ? 1 : 0) : stored);
        }
    } catch (const StoreError& error) {
        Fail(error);
    }
    return bound;
}

ColumnInfo Connection::FindColumn(const QString& table, const QString& field) {
    for (const auto& column : Columns(table))
        if (column.name.compare(field, Qt::CaseInsensitive) == 0)
            return column;
    Fail(StoreError(StoreError::Kind::Programming,
                    u"Das Feld \"%1\" gibt es in der Tabelle \"%2\" nicht."_s.arg(field, table), table));
}

QSqlQuery& Connection::Run(const QString& statement, const QVariantList& values, const QString& table) {
    if (!IsOpen())
        Fail(StoreError(StoreError::Kind::Programming, u"Die Datenbank ist nicht geöffnet."_s, table));
    ++m_statements;
    auto found = m_prepared.find(statement);
    if (found == m_prepared.end()) {
        QSqlQuery query(m_database);
        query.setForwardOnly(true);
        if (!query.prepare(statement))
            Fail(m_engine.explain(query.lastError(), table));
        found = m_prepared.emplace(statement, std::move(query)).first;
    }
    QSqlQuery& query = found->second;
    for (int i = 0; i < values.size(); ++i)
        query.bindValue(i, bindable(values.at(i)));
    if (!query.exec()) {
        const StoreError error = m_engine.explain(query.lastError(), table);
        m_prepared.erase(found);
        Fail(error);
    }
    return query;
}

Connection::Written Connection::Write(const QString& statement, const QVariantList& values,
                                      const QString& table) {
    QSqlQuery& query = Run(statement, values, table);
    const Written written{query.numRowsAffected(), query.lastInsertId().toLongLong()};
    // A statement that is not finished holds its lock, and the other workstations wait.
    query.finish();
    return written;
}

void Connection::RefuseApostrophes(const QVariantList& values, const QString& table) const {
    if (m_apostrophesAllowed)
        return;
    for (const auto& value : values) {
        if (value.typeId() != QMetaType::QString || !value.toString().contains(u'\''))
            continue;
        Fail(
            StoreError(StoreError::Kind::Syntax,
                       u"Syntaxfehler: Der Text \"%1\" enthält einen Apostroph. Bitte schreiben Sie ihn ohne "
                       "Apostroph."_s.arg(value.toString().left(60)),
                       table));
    }
}

QStringList Connection::Tables() {
    try {
        return m_engine.tables(m_database);
    } catch (const StoreError& error) {
        Fail(error);
    }
}

bool Connection::HasTable(const QString& table) {
    return !Columns(table).empty();
}

const std::vector<ColumnInfo>& Connection::Columns(const QString& table) {
    const QString key = table.toLower();
    auto found = m_columns.find(key);
    if (found == m_columns.end()) {
        if (!IsOpen())
            Fail(StoreError(StoreError::Kind::Programming, u"Die Datenbank ist nicht geöffnet."_s, table));
        try {
            found = m_columns.insert(key, m_engine.columns(m_database, table));
        } catch (const StoreError& error) {
            Fail(error);
        }
    }
    return *found;
}

bool Connection::HasColumn(const QString& table, const QString& column) {
    const auto& columns = Columns(table);
    return std::any_of(columns.begin(), columns.end(), [&](const ColumnInfo& info) {
        return info.name.compare(column, Qt::CaseInsensitive) == 0;
    });
}

void Connection::CreateTable(const QString& table, const std::vector<ColumnInfo>& columns) {
    QStringList parts;
    for (const auto& column : columns)
        parts << quoted(column.name) + u' ' + m_engine.declaration(column.kind);
    Execute(u"CREATE TABLE "_s + quoted(table) + u" ("_s + parts.join(u", "_s) + u")"_s);
}

void Connection::AddColumn(const QString& table, const ColumnInfo& column) {
    Execute(u"ALTER TABLE "_s + quoted(table) + u" ADD COLUMN "_s + quoted(column.name) + u' '
            + m_engine.declaration(column.kind));
}

void Connection::CopyTo(const QString& target) {
    try {
        m_engine.copyTo(m_database, target);
    } catch (const StoreError& error) {
        Fail(error);
    }
}

QStringList Connection::IntegrityProblems() {
    return m_engine.integrityProblems(m_database);
}

void Connection::ForgetCatalogue() {
    m_columns.clear();
}

void Connection::Fail(StoreError error) const {
    error.setPurpose(m_purpose);
    throw error;
}

Transaction::Transaction(Connection& connection) : m_connection(connection) {
    if (m_connection.m_transactionDepth == 0)
        m_connection.Write(m_connection.m_engine.beginWriting(), {}, {});
    ++m_connection.m_transactionDepth;
}

Transaction::~Transaction() {
    if (m_done || m_connection.m_transactionDepth == 0)
        return;
    m_connection.m_transactionLost = true;
    if (--m_connection.m_transactionDepth > 0)
        return;
    m_connection.m_transactionLost = false;
    try {
        m_connection.Write(u"ROLLBACK"_s, {}, {});
    } catch (const StoreError&) {
        // The engine has taken the transaction back by itself; closing settles whatever is left of it.
        m_connection.Close();
    }
}

void Transaction::Commit() {
    if (m_connection.m_transactionDepth == 0 || m_connection.m_transactionLost)
        m_connection.Fail(
            StoreError(StoreError::Kind::Programming,
                       u"Die Änderungen wurden zurückgenommen; es wurde nichts gespeichert."_s));
    if (m_connection.m_transactionDepth == 1)
        m_connection.Write(u"COMMIT"_s, {}, {});
    --m_connection.m_transactionDepth;
    m_done = true;
}

} // namespace kolibri
