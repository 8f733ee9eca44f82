#include "core/store/engine.h"
#include "core/store/german_order.h"
#include "core/store/sqlite_file.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlResult>

#include <algorithm>
#include <cstdint>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

using ErrorKind = StoreError::Kind;

struct Declaration {
    ColumnKind kind;
    const char* type;
    const char* constraint;
};

// The collation is part of the declaration so that any comparison, also one made by another tool, ignores
// case. A number comes before the AutoNumber, whose type has the same name.
constexpr Declaration kDeclarations[] = {
    {ColumnKind::Text, "TEXT(255)", " COLLATE NOCASE"},
    {ColumnKind::Memo, "MEMO TEXT", " COLLATE NOCASE"},
    {ColumnKind::Long, "INTEGER", ""},
    {ColumnKind::AutoNumber, "INTEGER", " PRIMARY KEY AUTOINCREMENT"},
    {ColumnKind::Boolean, "BOOLEAN", " NOT NULL DEFAULT 0"},
    {ColumnKind::Currency, "CURRENCY", ""},
    {ColumnKind::DateTime, "DATETIME", ""},
};

std::optional<ColumnKind> kindOf(const char* declared) {
    for (const auto& declaration : kDeclarations)
        if (qstricmp(declared, declaration.type) == 0)
            return declaration.kind;
    return std::nullopt;
}

struct Explanation {
    int code;
    ErrorKind kind;
    QStringView words;
};

constexpr QStringView kBusyWords = u"Die Datenbank wird gerade von einem anderen Arbeitsplatz benutzt. Bitte "
                                   u"versuchen Sie es in einem Augenblick noch einmal.";
constexpr QStringView kReadOnlyWords =
    u"In die Datenbank kann nicht geschrieben werden. Bitte prüfen Sie, ob "
    u"Sie in ihrem Ordner Dateien ändern dürfen.";
constexpr QStringView kFullWords = u"Der Datenträger der Datenbank ist voll oder nicht mehr erreichbar. Es "
                                   u"wurde nichts geändert.";
constexpr QStringView kKeyWords = u"Die Nummer des Datensatzes ist bereits vergeben.";
constexpr QStringView kValueWords = u"Ein Wert passt nicht in sein Feld.";

// The engine's numbers, the exact ones before the general ones.
constexpr Explanation kExplanations[] = {
    {SQLITE_CONSTRAINT_PRIMARYKEY, ErrorKind::KeyTaken, kKeyWords},
    {SQLITE_CONSTRAINT_ROWID, ErrorKind::KeyTaken, kKeyWords},
    {SQLITE_CONSTRAINT_UNIQUE, ErrorKind::KeyTaken, kKeyWords},
    {SQLITE_CONSTRAINT, ErrorKind::Value, kValueWords},
    {SQLITE_MISMATCH, ErrorKind::Value, kValueWords},
    {SQLITE_TOOBIG, ErrorKind::Value, kValueWords},
    {SQLITE_BUSY, ErrorKind::Busy, kBusyWords},
    {SQLITE_LOCKED, ErrorKind::Busy, kBusyWords},
    {SQLITE_PROTOCOL, ErrorKind::Busy, kBusyWords},
    {SQLITE_READONLY, ErrorKind::ReadOnly, kReadOnlyWords},
    {SQLITE_CANTOPEN, ErrorKind::ReadOnly, kReadOnlyWords},
    {SQLITE_PERM, ErrorKind::ReadOnly, kReadOnlyWords},
    {SQLITE_FULL, ErrorKind::Full, kFullWords},
    {SQLITE_IOERR, ErrorKind::Full, kFullWords},
    {SQLITE_CORRUPT, ErrorKind::Damaged,
     u"Die Datenbank ist beschädigt. Bitte arbeiten Sie nicht weiter und holen Sie die letzte Sicherung "
     u"zurück."},
    {SQLITE_NOTADB, ErrorKind::Foreign, u"Die Datei ist keine Datenbank dieses Programms."},
};

StoreError explained(int code, const QString& words, const QString& table) {
    constexpr int kGeneralPart = 0xff;
    const QString engineWords = u"%1 (%2)"_s.arg(words).arg(code);
    for (const auto& explanation : kExplanations)
        if (explanation.code == code || explanation.code == (code & kGeneralPart))
            return {explanation.kind, explanation.words.toString(), table, engineWords};
    if (words.startsWith(u"no such "))
        return {
            ErrorKind::Programming,
            u"In der Datenbank fehlt eine Tabelle oder ein Feld, das für diesen Vorgang gebraucht wird."_s,
            table, engineWords};
    return {ErrorKind::Syntax, u"Die Datenbank hat die Anweisung nicht angenommen."_s, table, engineWords};
}

sqlite3* handleOf(const QSqlDatabase& database) {
    const QVariant handle = database.driver()->handle();
    if (qstrcmp(handle.typeName(), "sqlite3*") != 0)
        return nullptr;
    return *static_cast<sqlite3* const*>(handle.constData());
}

int compareGerman(void*, int leftSize, const void* left, int rightSize, const void* right) {
    return germanOrder(QByteArrayView(static_cast<const char*>(left), leftSize),
                       QByteArrayView(static_cast<const char*>(right), rightSize));
}

/// The engine's own wait makes ever longer pauses, and whoever waits longest then finds the file free least
/// often. Short even ones give every workstation its turn.
int waitForOthers(void* busyWait, int pauses) {
    constexpr int kPause = 5;
    if (pauses * kPause >= reinterpret_cast<std::intptr_t>(busyWait))
        return 0;
    sqlite3_sleep(kPause);
    return 1;
}

sqlite3_stmt* statementOf(const QSqlQuery& query) {
    const QVariant handle = query.result()->handle();
    if (qstrcmp(handle.typeName(), "sqlite3_stmt*") != 0)
        return nullptr;
    return *static_cast<sqlite3_stmt* const*>(handle.constData());
}

/// The engine has no type of its own for true and false, and keeps a sum of money without cents as a whole
/// number.
QVariant wholeNumber(qint64 number, std::optional<ColumnKind> kind) {
    if (kind == ColumnKind::Boolean)
        return number != 0;
    return kind == ColumnKind::Currency ? QVariant(static_cast<double>(number)) : QVariant(number);
}

/// How the engine holds the texts of the current row: as they are in the file, or as Qt had them made.
enum class Encoding { OfFile, OfQt };

QString textOf(sqlite3_stmt* statement, int column, Encoding encoding) {
    // The text is asked for before its length, so that the length is that of the same encoding.
    if (encoding == Encoding::OfQt) {
        const void* text = sqlite3_column_text16(statement, column);
        return QString(static_cast<const QChar*>(text),
                       sqlite3_column_bytes16(statement, column) / qsizetype{sizeof(QChar)});
    }
    const void* text = sqlite3_column_text(statement, column);
    return QString::fromUtf8(static_cast<const char*>(text), sqlite3_column_bytes(statement, column));
}

QVariant cellOf(sqlite3_stmt* statement, int column, std::optional<ColumnKind> kind, Encoding encoding) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return wholeNumber(sqlite3_column_int64(statement, column), kind);
    case SQLITE_FLOAT:
        return sqlite3_column_double(statement, column);
    default:
        return textOf(statement, column, encoding);
    }
}

QString quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

void run(sqlite3* handle, const char* statement) {
    if (sqlite3_exec(handle, statement, nullptr, nullptr, nullptr) != SQLITE_OK)
        throw explained(sqlite3_extended_errcode(handle), QString::fromUtf8(sqlite3_errmsg(handle)), {});
}

class SqliteEngine final : public Engine {
public:
    QString driver() const override { return u"QSQLITE"_s; }

    void open(QSqlDatabase& database, const QString& file, int busyWait) const override {
        if (!QFileInfo(file).isFile())
            throw StoreError(ErrorKind::Missing, u"Die Datenbank %1 wurde nicht gefunden."_s.arg(file));
        sqlite3* handle = connected(database, file);
        const SqliteHeader header = checkedSqliteHeader(handle, file);
        prepare(handle, busyWait);
        // The file may lie on a network share, where write-ahead logging destroys it.
        if (header.isWriteAhead())
            run(handle, "PRAGMA journal_mode=DELETE");
    }

    void create(QSqlDatabase& database, const QString& name, int busyWait) const override {
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            throw StoreError(file.exists() ? ErrorKind::KeyTaken : ErrorKind::ReadOnly,
                             file.exists() ? u"Die Datei %1 gibt es bereits."_s.arg(name)
                                           : u"Die Datei %1 kann nicht angelegt werden."_s.arg(name),
                             {}, file.errorString());
        file.close();
        prepare(connected(database, name), busyWait);
    }

    void copyTo(QSqlDatabase& database, const QString& target) const override {
        sqlite3* copy = nullptr;
        int code = sqlite3_open_v2(target.toUtf8().constData(), &copy,
                                   SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        if (code == SQLITE_OK) {
            if (sqlite3_backup* backup = sqlite3_backup_init(copy, "main", handleOf(database), "main")) {
                sqlite3_backup_step(backup, -1);
                sqlite3_backup_finish(backup);
            }
            code = sqlite3_extended_errcode(copy);
        }
        const QString words = QString::fromUtf8(copy ? sqlite3_errmsg(copy) : "out of memory");
        sqlite3_close(copy);
        if (code == SQLITE_OK)
            return;
        QFile::remove(target);
        throw StoreError(explained(code, words, {}).kind(),
                         u"Die Sicherheitskopie %1 kann nicht geschrieben werden."_s.arg(target), {}, words);
    }

    QStringList integrityProblems(QSqlDatabase& database) const override {
        QSqlQuery query(database);
        if (!query.exec(u"PRAGMA integrity_check"_s)) {
            const StoreError error = explain(query.lastError(), {});
            if (error.kind() != ErrorKind::Damaged && error.kind() != ErrorKind::Foreign)
                throw error;
            return {query.lastError().databaseText()};
        }
        QStringList lines;
        while (query.next())
            lines << query.value(0).toString();
        return lines == QStringList{u"ok"_s} ? QStringList() : lines;
    }

    QString beginWriting() const override { return u"BEGIN IMMEDIATE"_s; }

    bool inTransaction(QSqlDatabase& database) const override {
        return sqlite3_get_autocommit(handleOf(database)) == 0;
    }

    QStringList tables(QSqlDatabase& database) const override {
        QSqlQuery query(database);
        if (!query.exec(u"SELECT name FROM sqlite_master WHERE type = 'table' "
                        "AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' ORDER BY rowid"_s))
            throw explain(query.lastError(), {});
        QStringList names;
        while (query.next())
            names << query.value(0).toString();
        return names;
    }

    std::vector<ColumnInfo> columns(QSqlDatabase& database, const QString& table) const override {
        QSqlQuery query(database);
        query.setForwardOnly(true);
        if (!query.exec(u"PRAGMA table_info(%1)"_s.arg(quoted(table))))
            throw explain(query.lastError(), table);
        constexpr int kName = 1, kType = 2, kPrimaryKey = 5;
        std::vector<ColumnInfo> result;
        while (query.next()) {
            auto kind = kindOf(query.value(kType).toString().toUtf8().constData()).value_or(ColumnKind::Text);
            if (kind == ColumnKind::Long && query.value(kPrimaryKey).toInt() > 0)
                kind = ColumnKind::AutoNumber;
            result.push_back({query.value(kName).toString(), kind});
        }
        return result;
    }

    /// The engine knows no change of a column's type: the table is made anew under another name and takes the
    /// old one's rows, keys and name.
    void changeColumn(QSqlDatabase& database, const QString& table, const ColumnInfo& column) const override {
        const QString copy = table + u"_neu"_s;
        QStringList declared;
        QStringList names;
        for (const auto& each : columns(database, table)) {
            const bool changed = each.name.compare(column.name, Qt::CaseInsensitive) == 0;
            names << quoted(each.name);
            declared << names.last() + u' ' + declaration(changed ? column.kind : each.kind);
        }
        const QString list = names.join(u", "_s);
        for (const QString& statement :
             {u"CREATE TABLE %1 (%2)"_s.arg(quoted(copy), declared.join(u", "_s)),
              u"INSERT INTO %1 (%2) SELECT %2 FROM %3"_s.arg(quoted(copy), list, quoted(table)),
              u"UPDATE sqlite_sequence SET seq = (SELECT old.seq FROM sqlite_sequence AS old WHERE old.name "
              u"= "
              "'%1') WHERE name = '%2'"_s.arg(table, copy),
              u"DROP TABLE "_s + quoted(table),
              u"ALTER TABLE %1 RENAME TO %2"_s.arg(quoted(copy), quoted(table))})
            run(handleOf(database), statement.toUtf8().constData());
    }

    QString declaration(ColumnKind kind) const override {
        const auto found = std::find_if(std::begin(kDeclarations), std::end(kDeclarations),
                                        [kind](const Declaration& each) { return each.kind == kind; });
        return QString::fromLatin1(found->type) + QString::fromLatin1(found->constraint);
    }

    std::vector<std::optional<ColumnKind>> resultKinds(const QSqlQuery& query) const override {
        sqlite3_stmt* statement = statementOf(query);
        std::vector<std::optional<ColumnKind>> kinds;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const char* declared = sqlite3_column_decltype(statement, i);
            kinds.push_back(declared ? kindOf(declared) : std::nullopt);
        }
        return kinds;
    }

    // Qt takes the first row; the rest is read from the engine itself, since Qt's own way through a wide
    // table takes three times as long.
    int readRows(QSqlQuery& query, const std::vector<std::optional<ColumnKind>>& kinds,
                 QVariantList& cells) const override {
        if (!query.next()) {
            if (query.lastError().isValid())
                throw explain(query.lastError(), {});
            return 0;
        }
        sqlite3_stmt* statement = statementOf(query);
        int rows = 0;
        int code = SQLITE_ROW;
        for (; code == SQLITE_ROW; code = sqlite3_step(statement)) {
            ++rows;
            for (std::size_t column = 0; column < kinds.size(); ++column)
                cells.append(cellOf(statement, static_cast<int>(column), kinds[column],
                                    rows == 1 ? Encoding::OfQt : Encoding::OfFile));
        }
        if (code != SQLITE_DONE)
            throw explained(code, QString::fromUtf8(sqlite3_errmsg(sqlite3_db_handle(statement))), {});
        return rows;
    }

    StoreError explain(const QSqlError& error, const QString& table) const override {
        const QString words = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
        return explained(error.nativeErrorCode().toInt(), words, table);
    }

private:
    sqlite3* connected(QSqlDatabase& database, const QString& file) const {
        database.setDatabaseName(file);
        if (!database.open())
            throw StoreError(ErrorKind::Missing, u"Die Datenbank %1 kann nicht geöffnet werden."_s.arg(file),
                             {}, database.lastError().text());
        if (sqlite3* handle = handleOf(database))
            return handle;
        throw StoreError(ErrorKind::Programming, u"Das Datenbankmodul passt nicht zu diesem Programm."_s);
    }

    void prepare(sqlite3* handle, int busyWait) const {
        // What stands in double quotes is a name; a misspelled one must not silently become a text.
        sqlite3_db_config(handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        sqlite3_busy_handler(handle, waitForOthers,
                             reinterpret_cast<void*>(static_cast<std::intptr_t>(busyWait)));
        sqlite3_create_collation_v2(handle, "NOCASE", SQLITE_UTF8, nullptr, compareGerman, nullptr);
        run(handle, "PRAGMA synchronous=FULL");
    }
};

} // namespace

const Engine& sqliteEngine() {
    static const SqliteEngine engine;
    return engine;
}

} // namespace kolibri
