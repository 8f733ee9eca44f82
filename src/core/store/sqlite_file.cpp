#include "core/store/sqlite_file.h"

#include "core/store/store_error.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// A journal beside the file belongs to a writer that is at work or did not get through. The engine brings
/// the old state back by itself, and until then the length of the file says nothing.
bool isBeingWritten(const QString& name) {
    return QFile::exists(name + u"-journal"_s) || QFile::exists(name + u"-wal"_s);
}

} // namespace

SqliteHeader::SqliteHeader(sqlite3* handle) {
    sqlite3_file* file = nullptr;
    if (sqlite3_file_control(handle, "main", SQLITE_FCNTL_FILE_POINTER, &file) != SQLITE_OK
        || !file->pMethods)
        return;
    if (file->pMethods->xFileSize(file, &m_fileSize) != SQLITE_OK)
        return;
    QByteArray bytes(std::min<qint64>(m_fileSize, kSize), '\0');
    if (file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), 0) == SQLITE_OK)
        m_bytes = bytes;
}

bool SqliteHeader::isDatabase() const {
    return m_bytes.startsWith(QByteArrayView("SQLite format 3\0", 16));
}

quint32 SqliteHeader::number(int offset) const {
    return qFromBigEndian<quint32>(m_bytes.constData() + offset);
}

qint64 SqliteHeader::expectedSize() const {
    constexpr int kPageSize = 16, kPages = 28, kChanges = 24, kChangesAtPages = 92;
    if (number(kChanges) != number(kChangesAtPages))
        return 0;
    const qint64 raw = qFromBigEndian<quint16>(m_bytes.constData() + kPageSize);
    constexpr qint64 kLargestPage = 65536;
    return (raw == 1 ? kLargestPage : raw) * number(kPages);
}

SqliteHeader checkedSqliteHeader(sqlite3* handle, const QString& name) {
    const SqliteHeader header(handle);
    if (!header.isDatabase())
        throw StoreError(
            StoreError::Kind::Foreign,
            u"Die Datei %1 ist keine Datenbank dieses Programms. Sie wurde nicht verändert."_s.arg(name));
    if (header.isComplete() && !header.lacksItsEnd())
        return header;
    // Another workstation may have been writing between the looks at header and length; only a file that
    // lies still is judged.
    const bool atWork = isBeingWritten(name);
    const SqliteHeader again(handle);
    if (!atWork && again == header)
        throw StoreError(
            StoreError::Kind::Damaged,
            u"Die Datenbank %1 ist unvollständig; ihr Ende fehlt. Sie wurde nicht verändert."_s.arg(name));
    return again;
}

} // namespace kolibri
