#include "core/store/new_row.h"

#include "core/store/connection.h"

namespace kolibri {

NewRow& NewRow::Set(const QString& field, const QVariant& value) {
    const auto [column, stored] = m_connection->Stored(m_table, {field, value});
    m_values[column] = stored;
    return *this;
}

NewRow& NewRow::SetIfPossible(const QString& field, const QVariant& value) {
    if (!m_connection->HasColumn(m_table, field))
        return *this;
    try {
        return Set(field, value);
    } catch (const StoreError& error) {
        if (error.kind() != StoreError::Kind::Value)
            throw;
        return *this;
    }
}

qint64 NewRow::Update() {
    return m_connection->Insert(m_table, m_values);
}

} // namespace kolibri
