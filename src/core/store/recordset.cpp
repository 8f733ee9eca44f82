#include "core/store/recordset.h"

#include "core/store/store_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void Recordset::Content::addField(const QString& name) {
    const int position = static_cast<int>(names.size());
    names.push_back(name);
    for (const QString& spelling : {name, name.toLower()})
        if (!index.contains(spelling))
            index.insert(spelling, position);
}

int Recordset::RecordCount() const {
    return m_content ? m_content->rows : 0;
}

int Recordset::FieldCount() const {
    return m_content ? static_cast<int>(m_content->names.size()) : 0;
}

QString Recordset::FieldName(int field) const {
    return m_content->names.at(static_cast<std::size_t>(field));
}

int Recordset::FieldIndex(QStringView field) const {
    if (!m_content)
        return -1;
    const QString name = field.toString();
    const auto exact = m_content->index.constFind(name);
    if (exact != m_content->index.constEnd())
        return *exact;
    return m_content->index.value(name.toLower(), -1);
}

QVariant Recordset::Value(QStringView field) const {
    const int index = FieldIndex(field);
    if (index < 0)
        throw StoreError(StoreError::Kind::Programming,
                         u"Das Feld \"%1\" gibt es in der Datenbank nicht."_s.arg(field));
    return Value(index);
}

QVariant Recordset::Value(int field) const {
    if (Eof())
        throw StoreError(StoreError::Kind::Programming, u"Es gibt keinen weiteren Datensatz."_s);
    return m_content->cells.at(static_cast<std::size_t>(m_row) * m_content->names.size()
                               + static_cast<std::size_t>(field));
}

QString Recordset::Text(QStringView field) const {
    return toGermanText(Value(field));
}

QString Recordset::Text(int field) const {
    return toGermanText(Value(field));
}

} // namespace kolibri
