#pragma once

#include <QString>

namespace kolibri {

/// How a click on a column's heading sorts a list view.
enum class SortKind {
    None = -1,       ///< the column does not sort
    Text = 0,        ///< as a German dictionary does
    Number = 1,      ///< German number
    Date = 2,        ///< dd.mm.yyyy
    Time = 3,        ///< hh:mm
    TimeSeconds = 4, ///< hh:mm:ss
    DateTime = 5     ///< dd.mm.yyyy hh:mm:ss
};

/// A text that sorts as the value of the cell does: numbers, dates and times in a fixed width. A cell that
/// holds no such value stands as it is, and so sorts as text among the others.
QString SortText(const QString& cell, SortKind kind);

} // namespace kolibri
