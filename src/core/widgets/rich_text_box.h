#pragma once

#include "core/rich_text.h"

#include <QTextEdit>

namespace kolibri {

/// A box for a text with bold, italic and underlined stretches. Of what is pasted from other programs it
/// takes only these. Tab leaves it.
class RichTextBox : public QTextEdit {
public:
    explicit RichTextBox(const QString& objectName);

    /// Shows a text; the box counts as untouched then.
    void setRichText(const RichText& text);
    RichText richText() const;

    /// True once the user has changed the text that was shown.
    bool isTouched() const;

    /// Wants room for that many lines, but takes what there is.
    void setWantedLines(int lines) { m_lines = lines; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void insertFromMimeData(const QMimeData* source) override;

private:
    int heightOf(int lines) const;

    int m_lines = 0;
};

/// The buttons of a box for bold, italic and underlined, with their keys.
QWidget* formatButtons(RichTextBox& box);
/// A box below its caption and its buttons; the caption's letter behind "&" leads to the box.
QWidget* captioned(const QString& caption, RichTextBox& box);

} // namespace kolibri
