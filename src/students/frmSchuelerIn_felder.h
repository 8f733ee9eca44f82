#pragma once

#include "core/widgets/entry_box.h"

#include <QComboBox>
#include <QToolButton>

#include <functional>

class QLabel;

namespace kolibri {

/// A text box of the pupil form. Typing takes its error mark away; something can be done when it is left.
class RecordBox : public EntryBox {
public:
    explicit RecordBox(const QString& objectName);
    RecordBox(const QString& objectName, int characters);

    /// Runs when the user goes on to another input, not when a menu, a box or another program comes in front.
    void onLeft(std::function<void()> handler) { m_left = std::move(handler); }
    /// Does what leaving the box does; Enter presses the form's button without leaving it.
    void leave() const;

protected:
    void focusOutEvent(QFocusEvent* event) override;

private:
    void clearMarkOnTyping();

    std::function<void()> m_left;
};

/// A choice of the pupil form. It takes no more room than it is given, and the wheel, which scrolls the form,
/// does not change it.
class RecordChoice : public QComboBox {
public:
    explicit RecordChoice(const QString& objectName);

    /// Puts entries in the place of those there are and selects the first.
    void setEntries(const QStringList& entries);
    /// Selects the entry with exactly this text; without one the first.
    void selectText(const QString& text);

protected:
    void wheelEvent(QWheelEvent* event) override;
    void showPopup() override;
};

/// A caption whose letter behind "&" leads to the input.
QLabel* captionOf(const QString& text, QWidget* input);
/// A small button with a drawing of data/symbole.
QToolButton* drawnButton(const QString& objectName, const QString& drawing, const QString& words,
                         const QColor& colour);

} // namespace kolibri
