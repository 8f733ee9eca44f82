#include "core/widgets/entry_box.h"

#include <QFocusEvent>

namespace kolibri {

EntryBox::EntryBox(const QString& objectName) {
    setObjectName(objectName);
}

EntryBox::EntryBox(const QString& objectName, int characters) : m_characters(characters) {
    setObjectName(objectName);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize EntryBox::sizeHint() const {
    // The style's own hint has room for 17 letters; what it adds around them is kept.
    constexpr int kLettersOfStyle = 17;
    QSize size = QLineEdit::sizeHint();
    if (m_characters > 0) {
        const int letter = fontMetrics().horizontalAdvance(u'x');
        size.rwidth() +=
            (m_characters + 1) * fontMetrics().horizontalAdvance(u'0') - kLettersOfStyle * letter;
    }
    return size;
}

void EntryBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    m_focusByClick = event->reason() == Qt::MouseFocusReason;
    selectAll();
}

void EntryBox::mouseReleaseEvent(QMouseEvent* event) {
    QLineEdit::mouseReleaseEvent(event);
    // The click has put the cursor somewhere; unless the user drew a selection, all is selected again.
    if (m_focusByClick && !hasSelectedText())
        selectAll();
    m_focusByClick = false;
}

EntryBox* displayBox(const QString& objectName, int characters) {
    auto* box = characters > 0 ? new EntryBox(objectName, characters) : new EntryBox(objectName);
    box->setReadOnly(true);
    box->setFocusPolicy(Qt::ClickFocus);
    return box;
}

} // namespace kolibri
