#include "core/store/connection.h"

#include "core/store/engine.h"

#include <QSqlError>
#include <QSqlRecord>

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QString quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

constexpr QLatin1StringView kRowStatements[] = {"INSERT"_L1, "UPDATE"_L1, "DELETE"_L1};

QString whereClause(const QString& condition) {
    return condition.isEmpty() ? QString() : u" WHERE "_s + condition;
}

/// True for a statement after which tables and columns are what they were.
bool changesOnlyRows(const QString& statement) {
    const QString trimmed = statement.trimmed();
    return std::any_of(std::begin(kRowStatements), std::end(kRowStatements),
                       [&](QLatin1StringView word) { return trimmed.startsWith(word, Qt::CaseInsensitive); });
}

/// A text without content is the empty text, whichever way it came about; the driver would write a null for
/// some.
QVariant bindable(const QVariant& value) {
    return value.typeId() == QMetaType::QString && value.toString().isNull() ? QVariant(u""_s) : value;
}

/// SQLite has no type of its own for true and false, and hands a sum of money without cents out as a whole
/// number.
QVariant asKind(QVariant raw, std::optional<ColumnKind> kind) {
    if (raw.isNull())
        return {};
    if (kind == ColumnKind::Boolean)
        return raw.toBool();
    if (kind == ColumnKind::Currency)
        return raw.toDouble();
    return raw;
}

} // namespace

template <typename Work> auto Connection::Explained(const Work& work) const {
    try {
        return work();
    } catch (StoreError& error) {
        error.setPurpose(m_purpose);
        throw;
    }
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
        m_engine.open(m_database, file, m_busyWait);
    } catch (const StoreError& error) {
        Close();
        Fail(error);
    }
}

void Connection::CreateFile(const QString& file) {
    Close();
    try {
        m_engine.create(m_database, file, m_busyWait);
    } catch (const StoreError& error) {
        Close();
        Fail(error);
    }
}

void Connection::Close() noexcept {
    ForgetCatalogue();
    m_transactionDepth = 0;
    m_transactionFate = Fate::Open;
    m_database.close();
}

Recordset Connection::Open(const QString& select, const QVariantList& values) {
    RefuseApostrophes(values, {});
    Prepared& prepared = Run(select, values, {});
    QSqlQuery& query = prepared.query;
    if (!prepared.fields) {
        const QSqlRecord record = query.record();
        std::vector<QString> names;
        for (int i = 0; i < record.count(); ++i)
            names.push_back(record.fieldName(i));
        prepared.fields = std::make_shared<const FieldNames>(std::move(names));
        prepared.kinds = m_engine.resultKinds(query);
    }
    Recordset::Content content{prepared.fields, {}, 0, m_purpose};
    while (query.next()) {
        ++content.rows;
        for (int i = 0; i < prepared.fields->count(); ++i)
            content.cells.append(asKind(query.value(i), prepared.kinds[static_cast<std::size_t>(i)]));
    }
    const QSqlError error = query.lastError();
    query.finish();
    if (error.isValid())
        Fail(m_engine.explain(error, {}));
    Recordset result;
    result.m_content = std::make_shared<const Recordset::Content>(std::move(content));
    return result;
}

int Connection::Change(const QString& table, const FieldValues& values, const QString& condition,
                       const QVariantList& conditionValues) {
    QStringList settings;
    QVariantList bound;
    for (const auto& each : values) {
        const StoredValue stored = Stored(table, each);
        settings << Catalogue(table).quotedNames.at(stored.column) + u" = ?"_s;
        bound << stored.value;
    }
    bound += conditionValues;
    RefuseApostrophes(bound, table);
    return Write(u"UPDATE "_s + quoted(table) + u" SET "_s + settings.join(u", "_s) + whereClause(condition),
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
    if (!changesOnlyRows(statement))
        ForgetCatalogue();
    return rows;
}

qint64 Connection::Insert(const QString& table, const std::map<int, QVariant>& values) {
    QStringList names;
    QVariantList bound;
    for (const auto& [column, value] : values) {
        names << Catalogue(table).quotedNames.at(column);
        bound << value;
    }
    const QString marks = QStringList(names.size(), u"?"_s).join(u", "_s);
    const QString content =
        names.isEmpty() ? u"DEFAULT VALUES"_s : u'(' + names.join(u", "_s) + u") VALUES ("_s + marks + u')';
    return Write(u"INSERT INTO "_s + quoted(table) + u' ' + content, bound, table).key;
}

Connection::Prepared& Connection::Run(const QString& statement, const QVariantList& values,
                                      const QString& table) {
    RequireOpen(table);
    if (m_transactionFate == Fate::TakenBack)
        FailTakenBack();
    ++m_statements;
    Prepared& prepared = Prepare(statement, values.size(), table);
    for (int i = 0; i < values.size(); ++i)
        prepared.query.bindValue(i, bindable(values.at(i)));
    if (prepared.query.exec())
        return prepared;
    const StoreError error = m_engine.explain(prepared.query.lastError(), table);
    m_prepared.erase(statement);
    if (m_transactionDepth > 0 && !m_engine.inTransaction(m_database))
        m_transactionFate = Fate::TakenBack;
    Fail(error);
}

Connection::Prepared& Connection::Prepare(const QString& statement, qsizetype values, const QString& table) {
    const auto found = m_prepared.find(statement);
    if (found != m_prepared.end() && found->second.values == values)
        return found->second;
    QSqlQuery query(m_database);
    query.setForwardOnly(true);
    if (!query.prepare(statement))
        Fail(m_engine.explain(query.lastError(), table));
    return m_prepared.insert_or_assign(statement, Prepared{std::move(query), values}).first->second;
}

Connection::Written Connection::Write(const QString& statement, const QVariantList& values,
                                      const QString& table) {
    QSqlQuery& query = Run(statement, values, table).query;
    const Written written{query.numRowsAffected(), query.lastInsertId().toLongLong()};
    // A statement that is not finished holds its lock, and the other workstations wait.
    query.finish();
    return written;
}

void Connection::RefuseApostrophes(const QVariantList& values, const QString& table) const {
    if (m_apostrophesAllowed)
        return;
    for (const auto& value : values) {
        constexpr int kShown = 60;
        if (value.typeId() == QMetaType::QString && value.toString().contains(u'\''))
            Fail({StoreError::Kind::Syntax,
                  u"Syntaxfehler: Der Text \"%1\" enthält einen Apostroph. Bitte schreiben Sie ihn ohne "
                  "Apostroph."_s.arg(value.toString().left(kShown)),
                  table});
    }
}

QStringList Connection::Tables() {
    RequireOpen({});
    return Explained([this] { return m_engine.tables(m_database); });
}

bool Connection::HasTable(const QString& table) {
    return !Catalogue(table).columns.empty();
}

std::vector<ColumnInfo> Connection::Columns(const QString& table) {
    return Catalogue(table).columns;
}

bool Connection::HasColumn(const QString& table, const QString& column) {
    return Catalogue(table).names.indexOf(column) >= 0;
}

const Connection::Table& Connection::Catalogue(const QString& table) {
    const auto found = m_tables.find(table);
    if (found != m_tables.end())
        return found->second;
    RequireOpen(table);
    ++m_statements;
    Table read;
    read.columns = Explained([&] { return m_engine.columns(m_database, table); });
    std::vector<QString> names;
    for (const auto& column : read.columns) {
        names.push_back(column.name);
        read.quotedNames << quoted(column.name);
    }
    read.names = FieldNames(std::move(names));
    return m_tables.emplace(table, std::move(read)).first->second;
}

Connection::StoredValue Connection::Stored(const QString& table, const FieldValue& written) {
    const Table& known = Catalogue(table);
    if (known.columns.empty())
        Fail({StoreError::Kind::Programming,
              u"Die Tabelle \"%1\" gibt es in der Datenbank nicht."_s.arg(table), table});
    const int column = known.names.indexOf(written.field);
    if (column < 0)
        Fail({StoreError::Kind::Programming,
              u"Das Feld \"%1\" gibt es in der Tabelle \"%2\" nicht."_s.arg(written.field, table), table});
    return Explained([&]() -> StoredValue {
        return {column, toStored(known.columns.at(static_cast<std::size_t>(column)), written.value, table)};
    });
}

void Connection::CreateTable(const QString& table, const std::vector<ColumnInfo>& columns) {
    QStringList parts;
    for (const auto& column : columns)
        parts << quoted(column.name) + u' ' + m_engine.declaration(column.kind);
    Execute(u"CREATE TABLE "_s + quoted(table) + u" ("_s + parts.join(u", "_s) + u')');
}

void Connection::AddColumn(const QString& table, const ColumnInfo& column) {
    Execute(u"ALTER TABLE "_s + quoted(table) + u" ADD COLUMN "_s + quoted(column.name) + u' '
            + m_engine.declaration(column.kind));
}

void Connection::CopyTo(const QString& target) {
    RequireOpen({});
    Explained([&] { m_engine.copyTo(m_database, target); });
}

QStringList Connection::IntegrityProblems() {
    RequireOpen({});
    return Explained([this] { return m_engine.integrityProblems(m_database); });
}

void Connection::ForgetCatalogue() {
    m_tables.clear();
    m_prepared.clear();
}

void Connection::RequireOpen(const QString& table) const {
    if (!IsOpen())
        Fail({StoreError::Kind::Programming, u"Die Datenbank ist nicht geöffnet."_s, table});
}

void Connection::Fail(StoreError error) const {
    error.setPurpose(m_purpose);
    throw error;
}

void Connection::FailTakenBack() const {
    Fail({StoreError::Kind::Programming,
          u"Die Änderungen wurden zurückgenommen; es wurde nichts gespeichert."_s});
}

} // namespace kolibri
