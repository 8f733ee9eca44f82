#include "students/frmSchuelerIn_anmerkung.h"

#include "core/mdlAllgemein.h"
#include "core/widgets/theme.h"
#include "students/frmSchuelerIn_felder.h"
#include "students/remark_text.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMimeData>
#include <QTextEdit>
#include <QToolButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// A text box that takes from other programs only what a remark can keep.
class RemarkEdit : public QTextEdit {
protected:
    void insertFromMimeData(const QMimeData* source) override {
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
};

} // namespace

SchuelerAnmerkung::SchuelerAnmerkung() : rtfAnmerkung(new RemarkEdit), lblZeichen(new QLabel) {
    rtfAnmerkung->setObjectName(u"rtfAnmerkung"_s);
    rtfAnmerkung->setTabChangesFocus(true);
    lblZeichen->setObjectName(u"lblAnmerkungZeichen"_s);
    lblZeichen->setToolTip(u"Zeichen mit Auszeichnungen / höchstens möglich"_s);
    auto* column = new QVBoxLayout(this);
    auto* head = new QHBoxLayout;
    head->addWidget(captionOf(u"An&merkung:"_s, rtfAnmerkung));
    head->addWidget(formatButtons());
    head->addStretch();
    head->addWidget(lblZeichen);
    column->addLayout(head);
    column->addWidget(rtfAnmerkung, 1);
    connect(rtfAnmerkung, &QTextEdit::textChanged, this, [this] { zaehlen(); });
    zaehlen();
}

QWidget* SchuelerAnmerkung::formatButtons() {
    auto* bar = new QWidget;
    auto* line = new QHBoxLayout(bar);
    line->setContentsMargins({});
    // Actions rather than shortcuts of the buttons: those press their button only after a moment, and the
    // next letter would miss it.
    const auto add = [&](const QString& letter, const QString& words, const QKeySequence& keys,
                         const std::function<void(QFont&)>& look, const std::function<void(bool)>& apply) {
        auto* action = new QAction(letter, this);
        action->setCheckable(true);
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        action->setToolTip(words + u" ("_s + keys.toString(QKeySequence::NativeText) + u')');
        addAction(action);
        auto* button = new QToolButton;
        button->setDefaultAction(action);
        button->setAccessibleName(words);
        QFont font = button->font();
        look(font);
        button->setFont(font);
        connect(action, &QAction::triggered, this, [this, apply](bool on) {
            apply(on);
            rtfAnmerkung->setFocus();
        });
        line->addWidget(button);
        return action;
    };
    auto* bold = add(
        u"F"_s, u"Fett"_s, QKeySequence::Bold, [](QFont& font) { font.setBold(true); },
        [this](bool on) { rtfAnmerkung->setFontWeight(on ? QFont::Bold : QFont::Normal); });
    auto* italic = add(
        u"K"_s, u"Kursiv"_s, QKeySequence::Italic, [](QFont& font) { font.setItalic(true); },
        [this](bool on) { rtfAnmerkung->setFontItalic(on); });
    auto* underline = add(
        u"U"_s, u"Unterstrichen"_s, QKeySequence::Underline, [](QFont& font) { font.setUnderline(true); },
        [this](bool on) { rtfAnmerkung->setFontUnderline(on); });
    connect(rtfAnmerkung, &QTextEdit::currentCharFormatChanged, this,
            [bold, italic, underline](const QTextCharFormat& format) {
                bold->setChecked(format.fontWeight() > QFont::Medium);
                italic->setChecked(format.fontItalic());
                underline->setChecked(format.fontUnderline());
            });
    return bar;
}

void SchuelerAnmerkung::leeren() {
    zeigen({});
}

void SchuelerAnmerkung::zeigen(const QString& speicherform) {
    rtfAnmerkung->setCurrentCharFormat({});
    fillDocument(*rtfAnmerkung->document(), richTextFrom(speicherform));
    zaehlen();
}

QString SchuelerAnmerkung::speicherform() const {
    return AnmerkungSpeicherform(richTextFrom(*rtfAnmerkung->document()));
}

bool SchuelerAnmerkung::pruefen() {
    const QString form = speicherform();
    if (AnmerkungPasst(form))
        return true;
    rtfAnmerkung->setFocus();
    MsgBox(AnmerkungZuLang(form));
    return false;
}

void SchuelerAnmerkung::zaehlen() {
    const QString form = speicherform();
    lblZeichen->setText(AnmerkungZaehler(form));
    setErrorColour(rtfAnmerkung, !AnmerkungPasst(form), AnmerkungZuLang(form));
}

} // namespace kolibri
