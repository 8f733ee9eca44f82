#include "core/next_id.h"

using namespace Qt::StringLiterals;

namespace kolibri {

qint64 NextId(Connection& conn, const QString& table) {
    const QVariant largest = conn.Open(u"SELECT MAX(ID) FROM \"%1\""_s.arg(table)).Value(0);
    return largest.isNull() ? 0 : largest.toLongLong() + 1;
}

} // namespace kolibri
