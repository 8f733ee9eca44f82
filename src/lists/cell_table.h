#pragma once

#include <QString>

#include <vector>

namespace kolibri {

/// @throws RuntimeError 9 naming the array when the index is not between 1 and the bound
void checkListBound(int index, int bound, QStringView array);

/// An array of a list, counted from 1 to its bound.
template <typename T> class ListArray {
public:
    ListArray(int bound, QStringView name) : m_values(static_cast<std::size_t>(bound)), m_name(name) {}

    T& operator()(int index) { return m_values[place(index)]; }
    const T& operator()(int index) const { return m_values[place(index)]; }
    int bound() const { return static_cast<int>(m_values.size()); }
    /// Empties all places, and changes their number.
    void redimension(int bound) { m_values.assign(static_cast<std::size_t>(bound), T()); }
    void clear() { redimension(bound()); }

private:
    std::size_t place(int index) const {
        checkListBound(index, bound(), m_name);
        return static_cast<std::size_t>(index - 1);
    }

    std::vector<T> m_values;
    QStringView m_name;
};

/// The cells of a list, column by row, both counted from 1. It has no cells until it gets its bounds; memory
/// is taken only for the rows in use.
class CellTable {
public:
    /// Empty cells with these bounds.
    void redimension(int columns, int rows);
    void erase() { redimension(0, 0); }
    int columns() const { return m_columns; }
    int rows() const { return m_rows; }

    QString& operator()(int column, int row);
    const QString& operator()(int column, int row) const;

private:
    std::size_t place(int column, int row) const;

    int m_columns = 0;
    int m_rows = 0;
    std::vector<QString> m_cells;
};

} // namespace kolibri
