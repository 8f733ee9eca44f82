#pragma once

#include <QString>

namespace kolibri {

/// The largest key of a row that an editor can take up; the office's files have always kept them in 16 bits.
inline constexpr int kLargestRowId = 32767;

/// A key of the store as an editor keeps it. @throws RuntimeError 6 above kLargestRowId
qint16 RowId(qint64 id);
/// The key that an editor's list shows as the text of a row: "00012".
QString ItemText(qint64 id);
/// The name under which an editor's list knows the row: "A0012".
QString ItemKey(qint64 id);
/// The key in the text of a row; 0 for a text that is no number. @throws RuntimeError 6 above kLargestRowId
qint16 RowIdOf(const QString& itemText);

} // namespace kolibri
