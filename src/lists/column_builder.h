#pragma once

#include "lists/list_state.h"

namespace kolibri {

/// Adds column after column to a list that is being defined.
class ColumnBuilder {
public:
    /// Empties the texts and keys of the list before, and forgets its contact and fee columns.
    explicit ColumnBuilder(ListState& liste);

    /// A column with its heading, weight and alignment; its key is the heading unless another is given.
    /// @throws RuntimeError 9 for the hundredth column
    void add(const QString& text, qint16 weight, Ausrichtung alignment, const QString& key = {});
    int count() const { return m_count; }

private:
    ListState& m_liste;
    int m_count = 0;
};

} // namespace kolibri
