#pragma once

#include "core/sort_text.h"

#include <QTreeWidget>

#include <functional>
#include <vector>

namespace kolibri {

/// A column of a list view.
struct ListColumn {
    QString heading;
    /// Width in characters of the list's font; kHiddenColumn for the key, which is kept but not for reading.
    int characters = 10;
    SortKind sort = SortKind::None;
};
inline constexpr int kHiddenColumn = 0;

/// A row of a list view; the first cell is the row's own text, the others its further columns.
struct ListRow {
    QString key;
    QStringList cells;
};

class ListSearch;

/// The list of every editor: read-only rows in columns, one whole row selected at a time, sorted by a click
/// on a heading, searched with Ctrl+F. Filling, marking and sorting it by code fires no handler. Rows are
/// counted from 1 and 0 is no row, as the search tells them.
class ListView : public QTreeWidget {
public:
    ListView(const QString& objectName, const QString& accessibleName);
    ~ListView() override;

    void setColumns(const std::vector<ListColumn>& columns);
    /// Puts these rows in the place of all rows there are. The user's sort order is dropped with them.
    void setRows(const std::vector<ListRow>& rows);

    /// Runs when the user chooses a row with mouse or keyboard, also one that is chosen already.
    void onRowChosen(std::function<void(const QString& itemText)> handler) { m_chosen = std::move(handler); }

    int rowCount() const { return topLevelItemCount(); }
    QString itemText(int row) const;
    QString cell(int row, int column) const;
    QString key(int row) const;
    /// The row with a key; 0 when there is none.
    int rowOfKey(const QString& key) const;

    /// As wide as its columns, so that a form shows them all when there is room.
    QSize sizeHint() const override;
    /// Shows where a row stands without choosing it; the keyboard goes on from there.
    void showRow(int row);
    /// Lets the user search, beginning with this text.
    void startSearch(const QString& text = {});
    /// Chooses the selected row as a click on it would.
    void choose();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    /// Letters typed into the list begin a search, which looks at every column.
    void keyboardSearch(const QString& search) override { startSearch(search); }
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    friend void SortierenListView(int spalte, ListView& list, SortKind art);
    void sortByHeading(int column);
    void applyWidths();

    std::vector<ListColumn> m_columns;
    /// What the columns ask for together.
    int m_wantedWidth = 0;
    std::function<void(const QString&)> m_chosen;
    ListSearch* m_search;
    /// Direction of the last sort; a rebuilt list begins anew.
    bool m_sorted = false;
    Qt::SortOrder m_order = Qt::AscendingOrder;
};

/// Sorts a list by a column (from 0). Each call turns the order round; the first after a rebuild sorts
/// upwards. What the cells show stays as it is.
void SortierenListView(int spalte, ListView& list, SortKind art);

/// The first row from row `start` on that shows the text in any of its columns, without regard to case; 0
/// when there is none.
int lvw_Search_NN(const ListView& list, const QString& text, int start);

/// Marks a row: selects it, brings it into view and gives the list the focus. A row that the list does not
/// have is passed over. Marking does not choose the row.
void Eintrag_MARKIEREN(ListView& list, int zeile);

} // namespace kolibri
