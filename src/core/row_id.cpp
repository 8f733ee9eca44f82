#include "core/row_id.h"

#include "core/runtime_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

qint16 RowId(qint64 id) {
    if (id > kLargestRowId)
        throw RuntimeError::overflow(u"ID %1"_s.arg(id));
    return static_cast<qint16>(id);
}

QString ItemText(qint64 id) {
    return u"%1"_s.arg(id, 5, 10, QChar(u'0'));
}

QString ItemKey(qint64 id) {
    return u"A%1"_s.arg(id, 4, 10, QChar(u'0'));
}

qint16 RowIdOf(const QString& itemText) {
    return RowId(itemText.toLongLong());
}

} // namespace kolibri
