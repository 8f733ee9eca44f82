#pragma once

#include "core/store/field_names.h"

#include <QString>
#include <QVariant>

#include <memory>

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

    /// Index of a field; -1 when the query has no such field.
    int FieldIndex(QStringView field) const;
    bool HasField(QStringView field) const { return FieldIndex(field) >= 0; }
    int FieldCount() const;
    /// Name of a field as the query spells it; empty when the query has no such field.
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
        std::shared_ptr<const FieldNames> fields;
        QVariantList cells;
        int rows = 0;
        QString purpose;
    };

    [[noreturn]] void Fail(const QString& words) const;

    std::shared_ptr<const Content> m_content;
    int m_row = 0;
};

} // namespace kolibri
