#include "core/widgets/rich_text_box.h"

#include <QAction>
#include <QBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QToolButton>

#include <functional>

using namespace Qt::StringLiterals;

namespace kolibri {

RichTextBox::RichTextBox(const QString& objectName) {
    setObjectName(objectName);
    setTabChangesFocus(true);
}

void RichTextBox::setRichText(const RichText& text) {
    setCurrentCharFormat({});
    fillDocument(*document(), text);
    document()->setModified(false);
}

RichText RichTextBox::richText() const {
    return richTextFrom(*document());
}

bool RichTextBox::isTouched() const {
    return document()->isModified();
}

int RichTextBox::heightOf(int lines) const {
    const int margin = static_cast<int>(document()->documentMargin());
    return lines * fontMetrics().lineSpacing() + 2 * (frameWidth() + margin);
}

QSize RichTextBox::sizeHint() const {
    QSize size = QTextEdit::sizeHint();
    if (m_lines > 0)
        size.setHeight(heightOf(m_lines));
    return size;
}

QSize RichTextBox::minimumSizeHint() const {
    constexpr int kFewestLines = 3;
    QSize size = QTextEdit::minimumSizeHint();
    if (m_lines > 0)
        size.setHeight(heightOf(std::min(m_lines, kFewestLines)));
    return size;
}

void RichTextBox::insertFromMimeData(const QMimeData* source) {
    if (!source->hasHtml()) {
        QTextEdit::insertFromMimeData(source);
        return;
    }
    QTextDocument foreign;
    foreign.setHtml(source->html());
    QTextCursor cursor = textCursor();
    insertRichText(cursor, richTextFrom(foreign));
    setTextCursor(cursor);
}

QWidget* formatButtons(RichTextBox& box) {
    auto* bar = new QWidget;
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins({});
    // Actions rather than shortcuts of the buttons: those press their button only after a moment, and the
    // next letter would miss it.
    const auto add = [&](const QString& letter, const QString& words, const QKeySequence& keys,
                         const std::function<void(QFont&)>& look, const std::function<void(bool)>& apply) {
        auto* action = new QAction(letter, &box);
        action->setCheckable(true);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        action->setToolTip(words + u" ("_s + keys.toString(QKeySequence::NativeText) + u')');
        box.addAction(action);
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setAccessibleName(words);
        QFont font = button->font();
        look(font);
        button->setFont(font);
        QObject::connect(action, &QAction::triggered, &box, [&box, apply](bool on) {
            apply(on);
            box.setFocus();
        });
        line->addWidget(button);
        return action;
    };
    auto* bold = add(
        u"F"_s, u"Fett"_s, QKeySequence::Bold, [](QFont& font) { font.setBold(true); },
        [&box](bool on) { box.setFontWeight(on ? QFont::Bold : QFont::Normal); });
    auto* italic = add(
        u"K"_s, u"Kursiv"_s, QKeySequence::Italic, [](QFont& font) { font.setItalic(true); },
        [&box](bool on) { box.setFontItalic(on); });
    auto* underline = add(
        u"U"_s, u"Unterstrichen"_s, QKeySequence::Underline, [](QFont& font) { font.setUnderline(true); },
        [&box](bool on) { box.setFontUnderline(on); });
    QObject::connect(&box, &QTextEdit::currentCharFormatChanged, &box,
                     [bold, italic, underline](const QTextCharFormat& format) {
                         bold->setChecked(format.fontWeight() > QFont::Medium);
                         italic->setChecked(format.fontItalic());
                         underline->setChecked(format.fontUnderline());
                     });
    return bar;
}

QWidget* captioned(const QString& caption, RichTextBox& box) {
    auto* area = new QWidget;
    auto* column = new QVBoxLayout(area);
    column->setContentsMargins({});
    auto* head = new QHBoxLayout;
    auto* label = new QLabel(caption);
    label->setBuddy(&box);
    head->addWidget(label);
    head->addStretch();
    head->addWidget(formatButtons(box));
    column->addLayout(head);
    column->addWidget(&box, 1);
    return area;
}

} // namespace kolibri
