#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;

namespace kolibri {

/// The first bytes of a database file, which say what it is and how long it ought to be.
class SqliteHeader {
public:
    static constexpr int kSize = 100;

    /// Reads the beginning of the file behind an open connection, without a lock and without changing it.
    /// The engine's own handle is used: a second one on the same file would, when closed, take this process's
    /// locks away from every other connection.
    explicit SqliteHeader(sqlite3* handle);

    bool operator==(const SqliteHeader&) const = default;

    bool isDatabase() const;
    bool isComplete() const { return m_bytes.size() == kSize; }
    /// The file is in write-ahead mode.
    bool isWriteAhead() const { return isComplete() && m_bytes.at(kReadVersion) == kWriteAhead; }
    /// The file is shorter than its header says.
    bool lacksItsEnd() const { return m_fileSize < expectedSize(); }

private:
    static constexpr int kReadVersion = 19;
    static constexpr char kWriteAhead = 2;

    quint32 number(int offset) const;
    /// Bytes the file must have; 0 when the header does not vouch for its own count of pages.
    qint64 expectedSize() const;

    QByteArray m_bytes;
    long long m_fileSize = 0;
};

/// Looks at the file behind an open connection without changing it.
/// @throws StoreError (Foreign, Damaged) when it is no database or its end is missing
SqliteHeader checkedSqliteHeader(sqlite3* handle, const QString& name);

} // namespace kolibri
