#include "core/frmMsgBox.h"

#include "core/widgets/form_layout.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace kolibri {

frmMsgBox::frmMsgBox() : FormWindow(u"frmMsgBox"_s), m_text(new QLabel) {
    constexpr int kCharacters = 80;
    auto* column = new QVBoxLayout(this);
    m_text->setObjectName(u"lblText"_s);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_text->setMinimumWidth(kCharacters * fontMetrics().averageCharWidth());
    column->addWidget(m_text, 1);
    QPushButton* ok = leaveButton(*this, u"cmdOK"_s, u"OK"_s);
    ok->setDefault(true);
    column->addWidget(ok, 0, Qt::AlignRight);
}

void frmMsgBox::zeigen(const QString& titel, const QString& text) {
    setWindowTitle(titel);
    m_text->setText(text);
    // Left to itself, the window would take two thirds of a small screen and cut the text off.
    layout()->invalidate();
    layout()->activate();
    const int width = layout()->totalSizeHint().width();
    resize(QSize(width, layout()->totalHeightForWidth(width)).boundedTo(roomOnScreen(*this)));
    ShowOver(nullptr);
}

} // namespace kolibri
