#pragma once

#include <QGroupBox>

#include <vector>

class QBoxLayout;
class QDialog;
class QFormLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QSplitter;

namespace kolibri {

/// The name of an element of a control array: "txtZeit(2)".
QString indexedName(const QString& name, int index);

/// A captioned frame with one labelled input in each line.
class FieldFrame : public QGroupBox {
public:
    explicit FieldFrame(const QString& caption);

    /// A line "label input hint"; the label's letter behind "&" leads to the input.
    QLabel* addLine(const QString& label, QWidget* input, const QString& hint = {});
    /// A line of buttons below the inputs.
    void addButtons(const std::vector<QPushButton*>& buttons);
    /// A widget over the whole width.
    void addWide(QWidget* widget);
    /// Shows or hides a line, by the input that was given for it.
    void setLineVisible(QWidget* input, bool visible);

private:
    QFormLayout* m_lines;
};

/// A button of a form.
QPushButton* formButton(const QString& name, const QString& caption);
/// A form's button that closes it, as Esc does.
QPushButton* leaveButton(QDialog& form, const QString& name, const QString& caption);
/// The lower edge of a form, its buttons at the right.
void addButtonLine(QBoxLayout& column, const std::vector<QPushButton*>& buttons);

/// The lower edge of an editor: cmdOK, which Enter presses, and cmdBeenden, which closes. @returns cmdOK
QPushButton* addEditorButtons(QDialog& form, QBoxLayout& column);

/// Frames and texts below each other, as high as they need.
QWidget* fieldColumn(const std::vector<QWidget*>& parts);
/// Fields that are scrolled on a small screen or with a large font; they want to be seen as a whole.
QScrollArea* fieldArea(QWidget* fields);
/// A list with the fields of the chosen row beside it; the user can move the border, and the list takes what
/// room there is more.
QSplitter* listBesideFields(QWidget* list, QWidget* fields);

/// What a window may take of the screen, so that the edges and the title that the desktop adds stay on it.
QSize roomOnScreen(const QWidget& form);
/// Gives a form its first size: as wide as its content asks for, so many lines high, and with its edges
/// within the screen.
void setFirstSize(QWidget& form, int lines);

} // namespace kolibri
