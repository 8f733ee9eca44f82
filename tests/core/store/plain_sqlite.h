#pragma once

#include <QString>
#include <QStringList>

#include <sqlite3.h>

namespace kolibri::test {

/// A connection of some other tool: the same engine without anything that the program adds to it.
class PlainSqlite {
public:
    explicit PlainSqlite(const QString& file) { sqlite3_open(file.toUtf8().constData(), &m_handle); }
    ~PlainSqlite() { sqlite3_close(m_handle); }
    PlainSqlite(const PlainSqlite&) = delete;
    PlainSqlite& operator=(const PlainSqlite&) = delete;

    /// The rows of a statement, cells separated by "|"; an error is one row that says so.
    QStringList rows(const QString& statement) {
        QStringList result;
        const auto addRow = [](void* list, int count, char** cells, char**) {
            QStringList texts;
            for (int i = 0; i < count; ++i)
                texts << QString::fromUtf8(cells[i]);
            static_cast<QStringList*>(list)->append(texts.join(u'|'));
            return 0;
        };
        if (sqlite3_exec(m_handle, statement.toUtf8().constData(), addRow, &result, nullptr) != SQLITE_OK)
            result << QStringLiteral("error: ") + QString::fromUtf8(sqlite3_errmsg(m_handle));
        return result;
    }

private:
    sqlite3* m_handle = nullptr;
};

inline QStringList plainRows(const QString& file, const QString& statement) {
    return PlainSqlite(file).rows(statement);
}

} // namespace kolibri::test
