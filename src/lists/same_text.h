#pragma once

#include <QString>

namespace kolibri {

/// Equality of texts as the store has it, which knows no case: for what is read once and looked up in memory.
inline bool sameText(QStringView a, QStringView b) {
    return a.compare(b, Qt::CaseInsensitive) == 0;
}

} // namespace kolibri
