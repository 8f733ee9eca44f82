#include "maintenance/jet_file.h"

#include "core/store/store_error.h"
#include "core/windows1252.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QTimeZone>
#include <QtEndian>

#include <cmath>
#include <mdbtools.h>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kListOfTables = u"MSysObjects"_s;

[[noreturn]] void damaged(const QString& table, const QString& details) {
    throw StoreError(StoreError::Kind::Damaged,
                     u"Die Datei ist beschädigt und kann nicht übernommen werden."_s, table, details);
}

/// A table of the library, with its columns.
class OpenTable {
public:
    explicit OpenTable(MdbCatalogEntry* entry)
        : m_name(QString::fromUtf8(entry->object_name)), m_table(mdb_read_table(entry)) {
        if (!m_table)
            damaged(m_name, u"Die Beschreibung der Tabelle fehlt."_s);
        // The page of the description is still in the buffer; the number stands behind that of the rows.
        m_lastAutoNumber =
            static_cast<qint32>(mdb_pg_get_int32(entry->mdb, entry->mdb->fmt->tab_num_rows_offset + 4));
        if (!mdb_read_columns(m_table)) {
            mdb_free_tabledef(m_table);
            damaged(m_name, u"Die Spalten der Tabelle fehlen."_s);
        }
    }
    ~OpenTable() { mdb_free_tabledef(m_table); }
    OpenTable(const OpenTable&) = delete;
    OpenTable& operator=(const OpenTable&) = delete;

    MdbTableDef* operator->() const { return m_table; }
    MdbTableDef* get() const { return m_table; }
    const QString& name() const { return m_name; }
    qint64 lastAutoNumber() const { return m_lastAutoNumber; }
    const MdbColumn& column(unsigned int i) const {
        return *static_cast<const MdbColumn*>(g_ptr_array_index(m_table->columns, i));
    }

private:
    QString m_name;
    MdbTableDef* m_table;
    qint64 m_lastAutoNumber = 0;
};

JetType typeOf(const MdbColumn& column) {
    switch (column.col_type) {
    case MDB_BOOL:
        return JetType::Boolean;
    case MDB_BYTE:
    case MDB_INT:
    case MDB_LONGINT:
        return JetType::Whole;
    case MDB_MONEY:
        return JetType::Money;
    case MDB_FLOAT:
    case MDB_DOUBLE:
    case MDB_NUMERIC:
        return JetType::Floating;
    case MDB_DATETIME:
        return JetType::DateTime;
    case MDB_TEXT:
        return JetType::Text;
    case MDB_MEMO:
        return JetType::Memo;
    default:
        return JetType::Binary;
    }
}

/// The values of the row that the library stands on.
class RowReader {
public:
    RowReader(const OpenTable& table, qint64 fileSize)
        : m_table(table), m_mdb(table->entry->mdb), m_fileSize(fileSize), m_fields(table->num_cols) {}

    std::vector<QVariant> read() {
        int start = 0;
        std::size_t size = 0;
        constexpr int kOffset = 0x1fff;
        if (mdb_find_row(m_mdb, static_cast<int>(m_table->cur_row) - 1, &start, &size) != 0
            || mdb_crack_row(m_table.get(), start & kOffset, size, m_fields.data()) < 0)
            damaged(m_table.name(), u"Eine Zeile ist unlesbar."_s);
        std::vector<QVariant> row;
        for (unsigned int i = 0; i < m_table->num_cols; ++i)
            row.push_back(value(m_table.column(i), m_fields[i]));
        return row;
    }

private:
    QVariant value(const MdbColumn& column, const MdbField& field) const {
        // The bit that tells null elsewhere is the value itself here.
        if (column.col_type == MDB_BOOL)
            return field.is_null == 0;
        if (field.is_null != 0)
            return {};
        const QByteArrayView bytes = page(m_mdb->pg_buf, field.start, field.siz);
        switch (column.col_type) {
        case MDB_BYTE:
            return static_cast<qint64>(number<quint8>(bytes));
        case MDB_INT:
            return static_cast<qint64>(number<qint16>(bytes));
        case MDB_LONGINT:
            return static_cast<qint64>(number<qint32>(bytes));
        case MDB_MONEY: {
            constexpr double kUnits = 10000.0;
            return static_cast<double>(number<qint64>(bytes)) / kUnits;
        }
        case MDB_FLOAT:
            // Through its shortest digits, so that 0.1 stays 0.1 in the wider number.
            return finite(QByteArray::number(number<float>(bytes), 'g', 7).toDouble());
        case MDB_DOUBLE:
            return finite(number<double>(bytes));
        case MDB_NUMERIC:
            return decimal(column, field);
        case MDB_DATETIME:
            return date(number<double>(bytes));
        case MDB_TEXT:
            return jetText(bytes, isJet4());
        case MDB_MEMO:
            return jetText(longValue(bytes), isJet4());
        case MDB_OLE:
            return longValue(bytes);
        default:
            return bytes.toByteArray();
        }
    }

    bool isJet4() const { return m_mdb->f->jet_version != MDB_VER_JET3; }

    /// A piece of a page, checked against the page's size.
    QByteArrayView page(const unsigned char* buffer, qint64 start, qint64 size) const {
        if (start < 0 || size < 0 || start + size > m_mdb->fmt->pg_size)
            damaged(m_table.name(), u"Ein Wert liegt außerhalb seiner Seite."_s);
        return {buffer + start, static_cast<qsizetype>(size)};
    }

    template <class Number> Number number(QByteArrayView bytes) const {
        if (bytes.size() != sizeof(Number))
            damaged(m_table.name(), u"Eine Zahl hat die falsche Länge."_s);
        return qFromLittleEndian<Number>(bytes.data());
    }

    double finite(double number) const {
        if (!std::isfinite(number))
            damaged(m_table.name(), u"Eine Zahl ist keine."_s);
        return number;
    }

    QVariant date(double days) const {
        constexpr double kLatest = 3'000'000;
        if (!(std::abs(days) < kLatest))
            damaged(m_table.name(), u"Ein Datum ist keines."_s);
        return jetDateTime(days);
    }

    QVariant decimal(const MdbColumn& column, const MdbField& field) const {
        char* text = mdb_numeric_to_string(m_mdb, field.start, column.col_scale, column.col_prec);
        const double number = QByteArray(text).toDouble();
        g_free(text);
        return finite(number);
    }

    /// A memo or picture: in the row itself, on one other page, or in pieces on several.
    QByteArray longValue(QByteArrayView bytes) const {
        constexpr qsizetype kHead = 12;
        constexpr quint32 kLength = 0x3fffffff;
        constexpr quint32 kInRow = 0x80000000;
        constexpr quint32 kOnOnePage = 0x40000000;
        if (bytes.isEmpty())
            return {};
        if (bytes.size() < kHead)
            damaged(m_table.name(), u"Ein langer Text ist abgeschnitten."_s);
        const auto head = qFromLittleEndian<quint32>(bytes.data());
        const qsizetype length = head & kLength;
        if (length > m_fileSize)
            damaged(m_table.name(), u"Ein langer Text ist länger als die Datei."_s);
        QByteArray content;
        if ((head & kInRow) != 0)
            content = bytes.sliced(kHead).toByteArray();
        else if ((head & kOnOnePage) != 0)
            content = piece(qFromLittleEndian<quint32>(bytes.data() + 4));
        else
            content = pieces(qFromLittleEndian<quint32>(bytes.data() + 4), length);
        if (content.size() < length)
            damaged(m_table.name(), u"Ein langer Text ist abgeschnitten."_s);
        content.truncate(length);
        return content;
    }

    QByteArray piece(quint32 place) const {
        void* buffer = nullptr;
        int start = 0;
        std::size_t size = 0;
        if (mdb_find_pg_row(m_mdb, static_cast<int>(place), &buffer, &start, &size) != 0)
            damaged(m_table.name(), u"Ein langer Text fehlt."_s);
        return page(static_cast<const unsigned char*>(buffer), start, static_cast<qint64>(size))
            .toByteArray();
    }

    /// Each piece begins with the place of the next. A ring of pieces ends where the text has its length.
    QByteArray pieces(quint32 place, qsizetype length) const {
        constexpr qsizetype kPlace = 4;
        QByteArray content;
        while (content.size() < length) {
            const QByteArray next = place == 0 ? QByteArray() : piece(place);
            if (next.size() <= kPlace)
                damaged(m_table.name(), u"Ein langer Text ist abgeschnitten."_s);
            place = qFromLittleEndian<quint32>(next.constData());
            content += next.sliced(kPlace);
        }
        return content;
    }

    const OpenTable& m_table;
    MdbHandle* m_mdb;
    qint64 m_fileSize;
    std::vector<MdbField> m_fields;
};

/// Every row of a table. A table with fewer rows than it says has lost some. (One that was not closed well
/// may say too few; that loses nothing.)
void readRows(const OpenTable& table, const std::function<void()>& take) {
    qint64 count = 0;
    mdb_rewind_table(table.get());
    for (; mdb_fetch_row(table.get()) != 0; ++count)
        take();
    if (count < table->num_rows)
        damaged(table.name(), u"%1 von %2 Zeilen gefunden."_s.arg(count).arg(table->num_rows));
}

} // namespace

QString jetText(QByteArrayView bytes, bool jet4) {
    QString text = u""_s;
    if (!jet4)
        return text + fromWindows1252(bytes);
    constexpr QByteArrayView kCompressed("\xff\xfe", 2);
    const bool marked = bytes.startsWith(kCompressed);
    bool oneByte = marked;
    for (qsizetype i = marked ? kCompressed.size() : 0; i < bytes.size();) {
        const auto first = static_cast<uchar>(bytes.at(i));
        if (marked && first == 0) {
            // A zero byte switches between the two forms.
            oneByte = !oneByte;
            ++i;
        } else if (oneByte) {
            text += QChar(static_cast<char16_t>(first));
            ++i;
        } else {
            const uint second = i + 1 < bytes.size() ? static_cast<uchar>(bytes.at(i + 1)) : 0;
            text += QChar(static_cast<char16_t>(second << 8 | first));
            i += 2;
        }
    }
    return text;
}

QDateTime jetDateTime(double days) {
    constexpr double kSeconds = 86400.0;
    const double whole = std::trunc(days);
    const auto seconds = std::llround(std::abs(days - whole) * kSeconds);
    const QDateTime day(QDate(1899, 12, 30).addDays(static_cast<qint64>(whole)), QTime(0, 0), Qt::UTC);
    return day.addSecs(seconds);
}

class JetFile::Library {
public:
    explicit Library(const QString& file) : m_fileSize(QFileInfo(file).size()) {
        // The library changes its ways by these.
        for (const char* variable : {"MDBOPTS", "MDB_ICONV", "MDB_JET3_CHARSET"})
            qunsetenv(variable);
        m_mdb.reset(mdb_open(QFile::encodeName(file).constData(), MDB_NOFLAGS));
        if (!m_mdb)
            damaged({}, u"Die Datei kann nicht geöffnet werden."_s);
        if (!mdb_read_catalog(m_mdb.get(), MDB_TABLE))
            damaged({}, u"Die Liste der Tabellen fehlt."_s);
        readRows(OpenTable(entry(kListOfTables)), [] {});
    }

    qint64 fileSize() const { return m_fileSize; }

    std::vector<MdbCatalogEntry*> entries() const {
        std::vector<MdbCatalogEntry*> result;
        for (unsigned int i = 0; i < m_mdb->num_catalog; ++i)
            result.push_back(static_cast<MdbCatalogEntry*>(g_ptr_array_index(m_mdb->catalog, i)));
        return result;
    }

    MdbCatalogEntry* entry(const QString& table) const {
        for (auto* candidate : entries())
            if (QString::fromUtf8(candidate->object_name) == table)
                return candidate;
        damaged(table, u"Die Tabelle fehlt."_s);
    }

private:
    qint64 m_fileSize;
    std::unique_ptr<MdbHandle, void (*)(MdbHandle*)> m_mdb{nullptr, mdb_close};
};

JetFile::JetFile(const QString& file) : m_library(std::make_unique<Library>(file)) {}

JetFile::~JetFile() = default;

QStringList JetFile::tables() const {
    QStringList names;
    for (auto* entry : m_library->entries()) {
        const QString name = QString::fromUtf8(entry->object_name);
        // What the office's other program left behind when it deleted a table.
        const bool leftover = name.startsWith(u'~');
        if (mdb_is_user_table(entry) != 0 && !leftover)
            names << name;
    }
    return names;
}

qint64 JetFile::rowsOf(const QString& table) {
    return OpenTable(m_library->entry(table))->num_rows;
}

JetTable JetFile::read(const QString& name, const std::function<void()>& tick) {
    const OpenTable table(m_library->entry(name));
    JetTable result{name, {}, {}, table.lastAutoNumber()};
    for (unsigned int i = 0; i < table->num_cols; ++i) {
        const MdbColumn& column = table.column(i);
        result.columns.push_back({QString::fromUtf8(column.name), typeOf(column), column.is_long_auto != 0});
    }
    RowReader row(table, m_library->fileSize());
    readRows(table, [&] {
        result.rows.push_back(row.read());
        tick();
    });
    return result;
}

} // namespace kolibri
