#include "core/store/engine.h"
#include "core/store/german_order.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlResult>
#include <QtEndian>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

struct Declaration {
    ColumnKind kind;
    QLatin1StringView text;
};

// The collation is part of the declaration so that any comparison, also one made by another tool, ignores
// case.
constexpr Declaration kDeclarations[] = {
    {ColumnKind::Text, "TEXT(255) COLLATE NOCASE"_L1},
    {ColumnKind::Memo, "MEMO TEXT COLLATE NOCASE"_L1},
    {ColumnKind::Long, "INTEGER"_L1},
    {ColumnKind::AutoNumber, "INTEGER PRIMARY KEY AUTOINCREMENT"_L1},
    {ColumnKind::Boolean, "BOOLEAN NOT NULL DEFAULT 0"_L1},
    {ColumnKind::Currency, "CURRENCY"_L1},
    {ColumnKind::DateTime, "DATETIME"_L1},
};

std::optional<ColumnKind> kindOf(const QString& declared) {
    for (const auto& declaration : kDeclarations) {
        if (declaration.kind == ColumnKind::AutoNumber)
            continue;
        if (declared.startsWith(declaration.text.left(declaration.text.indexOf(u' ')), Qt::CaseInsensitive)
            || declared.compare(declaration.text, Qt::CaseInsensitive) == 0)
            return declaration.kind;
    }
    return std::nullopt;
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

QString quoted(const QString& name) {
    return u'"' + QString(name).replace(u'"', u"\"\""_s) + u'"';
}

/// The first hundred bytes of a database file say what it is and how long it ought to be.
class FileHeader {
public:
    explicit FileHeader(const QByteArray& bytes) : m_bytes(bytes) {}

    static constexpr int kSize = 100;

    bool isDatabase() const { return m_bytes.startsWith(QByteArrayView("SQLite format 3\0", 16)); }
    bool isComplete() const { return m_bytes.size() == kSize; }
    /// Bytes the file must have; 0 when the header does not vouch for its own count of pages.
    qint64 expectedSize() const {
        if (number(24) != number(92))
            return 0;
        const quint32 raw = qFromBigEndian<quint16>(m_bytes.constData() + 16);
        const qint64 pageSize = raw == 1 ? 65536 : raw;
        return pageSize * number(28);
    }

private:
    quint32 number(int offset) const { return qFromBigEndian<quint32>(m_bytes.constData() + offset); }

    QByteArray m_bytes;
};

void run(QSqlDatabase& database, const QString& statement, const Engine& engine) {
    QSqlQuery query(database);
    if (!query.exec(statement))
        throw engine.explain(query.lastError(), {});
}

class SqliteEngine final : public Engine {
public:
    QString driver() const override { return u"QSQLITE"_s; }

    QString connectOptions(int busyWait) const override { return u"QSQLITE_BUSY_TIMEOUT=%1"_s.arg(busyWait); }

    void checkFile(const QString& name) const override {
        const QFileInfo info(name);
        if (!info.exists() || info.isDir())
            throw StoreError(StoreError::Kind::Missing,
                             u"Die Datenbank %1 wurde nicht gefunden."_s.arg(name));
        QFile file(name);
        if (!file.open(QIODevice::ReadOnly))
            throw StoreError(StoreError::Kind::Missing,
                             u"Die Datenbank %1 kann nicht gelesen werden."_s.arg(name), {},
                             file.errorString());
        const FileHeader header(file.read(FileHeader::kSize));
        if (!header.isDatabase())
            throw StoreError(
                StoreError::Kind::Foreign,
                u"Die Datei %1 ist keine Datenbank dieses Programms. Sie wurde nicht verändert."_s.arg(name));
        // While a journal lies beside the file, its last writer did not get through; the engine brings the
        // old state back by itself, and until then the length says nothing.
        const bool unfinished = QFile::exists(name + u"-journal"_s);
        if (!header.isComplete() || (!unfinished && info.size() < header.expectedSize()))
            throw StoreError(
                StoreError::Kind::Damaged,
                u"Die Datenbank %1 ist unvollständig; ihr Ende fehlt. Sie wurde nicht verändert."_s.arg(
                    name));
    }

    void createFile(const QString& name) const override {
        QFile file(name);
        if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
            throw StoreError(file.exists() ? StoreError::Kind::KeyTaken : StoreError::Kind::ReadOnly,
                             file.exists() ? u"Die Datei %1 gibt es bereits."_s.arg(name)
                                           : u"Die Datei %1 kann nicht angelegt werden."_s.arg(name),
                             {}, file.errorString());
    }

    void prepare(QSqlDatabase& database) const override {
        sqlite3* handle = handleOf(database);
        if (!handle
            || sqlite3_create_collation_v2(handle, "NOCASE", SQLITE_UTF8, nullptr, compareGerman, nullptr)
                   != SQLITE_OK)
            throw StoreError(StoreError::Kind::Programming,
                             u"Die deutsche Sortierung der Datenbank ist nicht verfügbar."_s);
        run(database, u"PRAGMA synchronous=FULL"_s, *this);
        QSqlQuery mode(database);
        // The file may lie on a network share, where write-ahead logging destroys it.
        if (mode.exec(u"PRAGMA journal_mode"_s) && mode.next() && mode.value(0).toString() == u"wal"_s)
            run(database, u"PRAGMA journal_mode=DELETE"_s, *this);
    }

    void copyTo(QSqlDatabase& database, const QString& target) const override {
        sqlite3* copy = nullptr;
        int result = sqlite3_open_v2(target.toUtf8().constData(), &copy,
                                     SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
        if (result == SQLITE_OK) {
            if (sqlite3_backup* backup = sqlite3_backup_init(copy, "main", handleOf(database), "main")) {
                sqlite3_backup_step(backup, -1);
                sqlite3_backup_finish(backup);
            }
            result = sqlite3_errcode(copy);
        }
        const QString words = QString::fromUtf8(copy ? sqlite3_errmsg(copy) : "out of memory");
        sqlite3_close(copy);
        if (result != SQLITE_OK) {
            QFile::remove(target);
            throw StoreError(StoreError::Kind::ReadOnly,
                             u"Die Sicherheitskopie %1 kann nicht geschrieben werden."_s.arg(target), {},
                             words);
        }
    }

    QStringList integrityProblems(QSqlDatabase& database) const override {
        QSqlQuery query(database);
        if (!query.exec(u"PRAGMA integrity_check"_s))
            return {query.lastError().databaseText()};
        QStringList lines;
        while (query.next())
            lines << query.value(0).toString();
        return lines == QStringList{u"ok"_s} ? QStringList() : lines;
    }

    QString beginWriting() const override { return u"BEGIN IMMEDIATE"_s; }

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
        if (!query.exec(u"PRAGMA table_info(%1)"_s.arg(quoted(table))))
            throw explain(query.lastError(), table);
        constexpr int kName = 1, kType = 2, kPrimaryKey = 5;
        std::vector<ColumnInfo> result;
        while (query.next()) {
            auto kind = kindOf(query.value(kType).toString()).value_or(ColumnKind::Text);
            if (kind == ColumnKind::Long && query.value(kPrimaryKey).toInt() > 0)
                kind = ColumnKind::AutoNumber;
            result.push_back({query.value(kName).toString(), kind});
        }
        return result;
    }

    QString declaration(ColumnKind kind) const override {
        for (const auto& declaration : kDeclarations)
            if (declaration.kind == kind)
                return declaration.text;
        Q_UNREACHABLE();
    }

    std::vector<std::optional<ColumnKind>> resultKinds(const QSqlQuery& query) const override {
        const QVariant handle = query.result()->handle();
        if (qstrcmp(handle.typeName(), "sqlite3_stmt*") != 0)
            return {};
        sqlite3_stmt* statement = *static_cast<sqlite3_stmt* const*>(handle.constData());
        std::vector<std::optional<ColumnKind>> kinds;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) {
            const char* declared = sqlite3_column_decltype(statement, i);
            kinds.push_back(declared ? kindOf(QString::fromUtf8(declared)) : std::nullopt);
        }
        return kinds;
    }

    StoreError explain(const QSqlError& error, const QString& table) const override {
        using Kind = StoreError::Kind;
        const QString words = error.databaseText() + u" ("_s + error.nativeErrorCode() + u')';
        const auto make = [&](Kind kind, const QString& text) {
            return StoreError(kind, text, table, words);
        };
        switch (error.nativeErrorCode().toInt() & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return make(Kind::Busy,
                        u"Die Datenbank wird gerade von einem anderen Arbeitsplatz benutzt. Bitte "
                        "versuchen Sie es in einem Augenblick noch einmal."_s);
        case SQLITE_READONLY:
        case SQLITE_CANTOPEN:
        case SQLITE_PERM:
            return make(Kind::ReadOnly,
                        u"In die Datenbank kann nicht geschrieben werden. Bitte prüfen Sie, ob Sie in ihrem "
                        "Ordner Dateien ändern dürfen."_s);
        case SQLITE_FULL:
        case SQLITE_IOERR:
            return make(Kind::Full,
                        u"Der Datenträger der Datenbank ist voll oder nicht mehr erreichbar. Es wurde "
                        "nichts geändert."_s);
        case SQLITE_CORRUPT:
            return make(Kind::Damaged,
                        u"Die Datenbank ist beschädigt. Bitte arbeiten Sie nicht weiter und holen "
                        "Sie die letzte Sicherung zurück."_s);
        case SQLITE_NOTADB:
            return make(Kind::Foreign, u"Die Datei ist keine Datenbank dieses Programms."_s);
        case SQLITE_CONSTRAINT:
            return make(Kind::KeyTaken, u"Die Nummer des Datensatzes ist bereits vergeben."_s);
        default:
            return make(Kind::Syntax, u"Die Datenbank hat die Anweisung nicht angenommen."_s);
        }
    }
};

} // namespace

const Engine& sqliteEngine() {
    static const SqliteEngine engine;
    return engine;
}

} // namespace kolibri
