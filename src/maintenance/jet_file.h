#pragma once

#include <QString>
#include <QVariant>

#include <functional>
#include <memory>
#include <vector>

namespace kolibri {

/// What a column of a Jet file holds.
enum class JetType {
    Boolean,
    Whole,    ///< a whole number of 8, 16 or 32 bits
    Money,    ///< four decimals
    Floating, ///< a number with a point, or one of the decimal kind
    DateTime,
    Text,
    Memo,
    Binary ///< pictures, attachments and other bytes
};

struct JetColumn {
    QString name;
    JetType type = JetType::Text;
    /// The engine assigned the numbers of this column.
    bool autoNumber = false;
};

/// A table with all its rows. A value is a bool, qint64, double, QDateTime (in UTC, so that no summer time
/// touches it), QString or QByteArray by the type of its column, or null. An empty text is not null.
struct JetTable {
    QString name;
    std::vector<JetColumn> columns;
    std::vector<std::vector<QVariant>> rows;
    /// The last number that the engine assigned; higher than any in the table when the newest rows were
    /// deleted.
    qint64 lastAutoNumber = 0;
};

/// Text of a Jet file: Windows-1252 in Jet 3; in Jet 4 two bytes a letter, or one where the engine could save
/// the other.
QString jetText(QByteArrayView bytes, bool jet4);
/// Days since the end of 1899, with the time of day behind the point, as date and time to the second.
QDateTime jetDateTime(double days);

/// Reads a Jet file. The library below it trusts its input: a damaged file may make it crash or loop, so this
/// belongs into a process of its own.
class JetFile {
public:
    /// @throws StoreError when the file cannot be opened, is cut off, or its list of tables is incomplete
    explicit JetFile(const QString& file);
    ~JetFile();
    JetFile(const JetFile&) = delete;
    JetFile& operator=(const JetFile&) = delete;

    /// Names of the tables of the office, in the order of the file's own list.
    QStringList tables() const;
    /// Rows that a table says it has, for telling how far the reading has come.
    qint64 rowsOf(const QString& table);
    /// `tick` is called for each row.
    /// @throws StoreError (Damaged) when anything of the table is missing or makes no sense
    JetTable read(const QString& table, const std::function<void()>& tick);

private:
    class Library;
    std::unique_ptr<Library> m_library;
};

} // namespace kolibri
