#pragma once

#include <QString>

#include <vector>

namespace kolibri {

/// What the cell of a pupil's Mensa shows, from the rows of GR1, read once for a page.
class MensaCells {
public:
    /// Reads the open store.
    explicit MensaCells(bool mitZeit);

    /// The short name of the Mensa that a pupil's cell holds, below its time where that is wanted; empty for
    /// a cell that no Mensa bears.
    QString MensaZelle(const QString& value) const;

private:
    struct Row {
        QString zeitKName;
        QString cell;
    };
    std::vector<Row> m_rows;
};

} // namespace kolibri
