#pragma once

#include <QLineEdit>

namespace kolibri {

/// A text box whose whole text is selected when it gets the focus, so that typing replaces it.
class EntryBox : public QLineEdit {
public:
    /// A box that takes the width there is.
    explicit EntryBox(const QString& objectName);
    /// A box for a text of that many characters; it stays as wide as such a text.
    EntryBox(const QString& objectName, int characters);

    /// Wants room for that many characters, but takes what there is.
    void setWantedCharacters(int characters) { m_characters = characters; }
    QSize sizeHint() const override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    int m_characters = 0;
    /// The click under way is the one that brought the focus.
    bool m_focusByClick = false;
};

/// A box that only shows what belongs to the user's choice; its text can be copied.
EntryBox* displayBox(const QString& objectName, int characters = 0);

} // namespace kolibri
