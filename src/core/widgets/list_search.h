#pragma once

#include <QLineEdit>

namespace kolibri {

class ListView;

/// The search box in the corner of a list: what is typed marks the first row that shows it. F3, arrow down
/// and Ctrl+F go on to the next such row and begin again behind the last, Enter chooses the marked row, Esc
/// gives up. Whoever leaves the box without Enter finds the row selected again whose data stand in the form,
/// so that nobody changes or deletes another row than the one that is marked.
class ListSearch : public QLineEdit {
public:
    explicit ListSearch(ListView& list);

    /// Shows the box with a text and searches for it; goes on to the next row when it is shown already.
    void start(const QString& text);
    /// Puts the box into its corner of the list.
    void place();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// Marks the first fitting row from a row on, else the first from the top.
    void markFrom(int row);
    void leave();
    /// Selects the row again that was selected before the search.
    void putBack();

    ListView& m_list;
    /// Key of that row; empty when there was none.
    QString m_before;
    bool m_marking = false;
};

} // namespace kolibri
