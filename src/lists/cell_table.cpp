#include "lists/cell_table.h"

#include "core/runtime_error.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void checkListBound(int index, int bound, QStringView array) {
    if (index < 1 || index > bound)
        throw RuntimeError::outOfRange(u"%1(%2), Grenze %3"_s.arg(array).arg(index).arg(bound));
}

void CellTable::redimension(int columns, int rows) {
    m_columns = columns;
    m_rows = rows;
    m_cells.clear();
}

QString& CellTable::operator()(int column, int row) {
    const std::size_t cell = place(column, row);
    if (cell >= m_cells.size())
        m_cells.resize(static_cast<std::size_t>(row) * static_cast<std::size_t>(m_columns));
    return m_cells[cell];
}

const QString& CellTable::operator()(int column, int row) const {
    static const QString empty;
    const std::size_t cell = place(column, row);
    return cell < m_cells.size() ? m_cells[cell] : empty;
}

std::size_t CellTable::place(int column, int row) const {
    checkListBound(column, m_columns, u"Daten, Spalte");
    checkListBound(row, m_rows, u"Daten, Zeile");
    return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(m_columns)
           + static_cast<std::size_t>(column - 1);
}

} // namespace kolibri
