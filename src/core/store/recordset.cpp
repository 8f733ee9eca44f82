#include "core/store/recordset.h"

#include "core/store/column_kind.h"
#include "core/store/store_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

int Recordset::RecordCount() const {
    return m_content ? m_content->rows : 0;
}

int Recordset::FieldCount() const {
    return m_content ? m_content->fields->count() : 0;
}

QString Recordset::FieldName(int field) const {
    return field >= 0 && field < FieldCount() ? m_content->fields->name(field) : QString();
}

int Recordset::FieldIndex(QStringView field) const {
    return m_content ? m_content->fields->indexOf(field) : -1;
}

QVariant Recordset::Value(QStringView field) const {
    const int index = FieldIndex(field);
    if (index < 0 && !Eof())
        Fail(u"Das Feld \"%1\" gibt es in der Datenbank nicht."_s.arg(field));
    return Value(index);
}

QVariant Recordset::Value(int field) const {
    if (Eof())
        Fail(u"Es gibt keinen weiteren Datensatz."_s);
    if (field < 0 || field >= FieldCount())
        Fail(u"Ein Feld mit der Nummer %1 gibt es in der Abfrage nicht."_s.arg(field));
    return m_content->cells.at(qsizetype{m_row} * FieldCount() + field);
}

QString Recordset::Text(QStringView field) const {
    return toGermanText(Value(field));
}

QString Recordset::Text(int field) const {
    return toGermanText(Value(field));
}

void Recordset::Fail(const QString& words) const {
    StoreError error(StoreError::Kind::Programming, words);
    if (m_content)
        error.setPurpose(m_content->purpose);
    throw error;
}

} // namespace kolibri
