#pragma once

#include <QLineEdit>

namespace kolibri {

class ListView;

/// The search box in the corner of a list: what is typed marks the first row that shows it. F3, arrow down
/// and Ctrl+F go on to the next such row and begin again behind the last, Enter chooses the marked row, Esc
/// gives up.
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

    ListView& m_list;
    bool m_marking = false;
};

} // namespace kolibri
