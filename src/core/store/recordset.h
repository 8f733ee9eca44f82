#pragma once

#include "core/store/column_kind.h"

#include <QHash>
#include <QString>
#include <QVariant>

#include <memory>
#include <vector>

namespace kolibri {

/// The rows of a query as they were when it ran. Standing on its first row when it is made. Field names are
/// found without regard to case, umlauts included.
class Recordset {
public:
    Recordset() = default;

    int RecordCount() const;
    /// True behind the last row, and at once when there are no rows. (Not named as in the old engine: the C
    /// library has a macro of that name.)
    bool Eof() const { return m_row >= RecordCount(); }
    void MoveFirst() { m_row = 0; }
    void MoveLast() { m_row = RecordCount() > 0 ? RecordCount() - 1 : 0; }
    void MoveNext() { ++m_row; }

    /// Index of a field, for loops over many rows; -1 when the query has no such field.
    int FieldIndex(QStringView field) const;
    bool HasField(QStringView field) const { return FieldIndex(field) >= 0; }
    int FieldCount() const;
    QString FieldName(int field) const;

    /// Value of the current row as the store keeps it: text, qint64, double, bool, "hh:mm", or null.
    /// @throws StoreError (Programming) behind the last row or for an unknown field
    QVariant Value(QStringView field) const;
    QVariant Value(int field) const;
    bool IsNull(QStringView field) const { return Value(field).isNull(); }
    /// German text form; a null is the empty text.
    QString Text(QStringView field) const;
    QString Text(int field) const;
    /// Whole number; 0 for a null or a text that is none.
    qint64 Number(QStringView field) const { return Value(field).toLongLong(); }
    double Amount(QStringView field) const { return Value(field).toDouble(); }
    bool Bool(QStringView field) const { return Value(field).toBool(); }

private:
    friend class Connection;

    struct Content {
        std::vector<QString> names;
        QHash<QString, int> index;
        std::vector<QVariant> cells;
        int rows = 0;

        void addField(const QString& name);
    };

    std::shared_ptr<const Content> m_content;
    int m_row = 0;
};

} // namespace kolibri
