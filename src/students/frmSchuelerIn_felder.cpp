#include "students/frmSchuelerIn_felder.h"

#include "core/widgets/symbol.h"
#include "core/widgets/theme.h"

#include <QAbstractItemView>
#include <QFocusEvent>
#include <QLabel>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace kolibri {

RecordBox::RecordBox(const QString& objectName) : EntryBox(objectName) {
    clearMarkOnTyping();
}

RecordBox::RecordBox(const QString& objectName, int characters) : EntryBox(objectName, characters) {
    clearMarkOnTyping();
}

void RecordBox::clearMarkOnTyping() {
    connect(this, &QLineEdit::textEdited, this, [this] { setErrorColour(this, false); });
}

void RecordBox::leave() const {
    if (m_left)
        m_left();
}

void RecordBox::focusOutEvent(QFocusEvent* event) {
    EntryBox::focusOutEvent(event);
    switch (event->reason()) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        return;
    default:
        leave();
    }
}

RecordChoice::RecordChoice(const QString& objectName) {
    constexpr int kLetters = 6;
    setObjectName(objectName);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(kLetters);
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QComboBox::currentTextChanged, this, [this](const QString& text) { setToolTip(text); });
}

void RecordChoice::setEntries(const QStringList& entries) {
    clear();
    addItems(entries);
    setCurrentIndex(entries.isEmpty() ? -1 : 0);
}

void RecordChoice::selectText(const QString& text) {
    const int index = findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
    setCurrentIndex(index < 0 && count() > 0 ? 0 : index);
}

void RecordChoice::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void RecordChoice::showPopup() {
    // The entries are longer than the box is wide.
    view()->setMinimumWidth(view()->sizeHintForColumn(0)
                            + 2 * view()->verticalScrollBar()->sizeHint().width());
    QComboBox::showPopup();
}

QLabel* captionOf(const QString& text, QWidget* input) {
    auto* label = new QLabel(text);
    label->setBuddy(input);
    return label;
}

QToolButton* drawnButton(const QString& objectName, const QString& drawing, const QString& words,
                         const QColor& colour) {
    auto* button = new QToolButton;
    button->setObjectName(objectName);
    const int size = button->fontMetrics().height();
    button->setIcon(symbolPixmap(drawing, size, colour, button->devicePixelRatioF()));
    button->setIconSize({size, size});
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolTip(words);
    button->setAccessibleName(words);
    return button;
}

} // namespace kolibri
