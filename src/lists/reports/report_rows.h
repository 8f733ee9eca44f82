#pragma once

#include "lists/list_state.h"

#include <QStringList>

namespace kolibri {

/// Fills the rows of a report one below the other.
class ReportRows {
public:
    /// Empties the list for a report with so many columns.
    ReportRows(ListState& liste, int columns);

    /// Adds a row with these cells, from the first column on. Returns its number.
    /// @throws RuntimeError 9 for the thousandth row
    int add(const QString& code, const QStringList& cells = {});

private:
    ListState& m_liste;
};

} // namespace kolibri
