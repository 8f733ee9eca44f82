#include "core/widgets/list_search.h"

#include "core/widgets/list_view.h"
#include "core/widgets/theme.h"

#include <QKeyEvent>
#include <QSignalBlocker>

using namespace Qt::StringLiterals;

namespace kolibri {

ListSearch::ListSearch(ListView& list) : QLineEdit(&list), m_list(list) {
    setObjectName(u"txtSuche"_s);
    setAccessibleName(u"Suchen"_s);
    setPlaceholderText(u"Suchen"_s);
    hide();
    connect(this, &QLineEdit::textEdited, this, [this] { markFrom(1); });
}

void ListSearch::start(const QString& text) {
    if (isVisible()) {
        markFrom(m_list.currentIndex().row() + 2);
        return;
    }
    m_before = m_list.selectedItems().isEmpty() ? QString() : m_list.key(m_list.currentIndex().row() + 1);
    setText(text);
    setErrorColour(this, false);
    place();
    show();
    raise();
    setFocus();
    if (!text.isEmpty())
        markFrom(1);
}

void ListSearch::place() {
    const QRect area = m_list.viewport()->geometry();
    const QSize size = sizeHint().boundedTo(area.size());
    setGeometry(QRect(area.bottomRight() - QPoint(size.width(), size.height()), size));
}

void ListSearch::markFrom(int row) {
    int found = text().isEmpty() ? 0 : lvw_Search_NN(m_list, text(), row);
    if (found == 0 && !text().isEmpty())
        found = lvw_Search_NN(m_list, text(), 1);
    setErrorColour(this, found == 0 && !text().isEmpty(), u"Nicht gefunden"_s);
    // Marking gives the list the focus, but the user is still typing.
    m_marking = true;
    Eintrag_MARKIEREN(m_list, found);
    setFocus();
    m_marking = false;
}

void ListSearch::leave() {
    hide();
    m_list.setFocus();
}

void ListSearch::putBack() {
    const QSignalBlocker blocker(m_list);
    const int row = m_before.isEmpty() ? 0 : m_list.rowOfKey(m_before);
    if (QTreeWidgetItem* item = m_list.topLevelItem(row - 1))
        m_list.setCurrentItem(item);
    else
        m_list.clearSelection();
}

void ListSearch::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_F3:
    case Qt::Key_Down:
        markFrom(m_list.currentIndex().row() + 2);
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        m_before = m_list.key(m_list.currentIndex().row() + 1);
        leave();
        m_list.choose();
        return;
    case Qt::Key_Escape:
        leave();
        putBack();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void ListSearch::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (m_marking)
        return;
    hide();
    putBack();
}

} // namespace kolibri
