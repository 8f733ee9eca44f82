#pragma once

#include <QString>
#include <QVariant>

#include <map>

namespace kolibri {

class Connection;

/// A new row of a table, written field by field. A field that is set twice has its last value.
class NewRow {
public:
    /// @throws StoreError when the table has no such field (Programming) or it does not take the value
    /// (Value)
    NewRow& Set(const QString& field, const QVariant& value);
    /// Like Set, but a field that the table lacks or a value that the field does not take is passed over.
    NewRow& SetIfPossible(const QString& field, const QVariant& value);
    /// Writes the row. Returns its key where the table has an AutoNumber: the written one, else the engine's.
    /// @throws StoreError, KeyTaken among others
    qint64 Update();

private:
    friend class Connection;
    NewRow(Connection& connection, const QString& table) : m_connection(&connection), m_table(table) {}

    Connection* m_connection;
    QString m_table;
    /// Stored values by the column's place in the table, so that rows set in another order share a statement.
    std::map<int, QVariant> m_values;
};

} // namespace kolibri
