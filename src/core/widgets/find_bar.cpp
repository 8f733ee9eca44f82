#include "core/widgets/find_bar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QToolButton* barButton(const QString& name, const QString& caption, const QString& hint) {
    auto* button = new QToolButton;
    button->setObjectName(name);
    button->setText(caption);
    button->setToolTip(hint);
    button->setAccessibleName(hint);
    button->setAutoRaise(true);
    return button;
}

} // namespace

FindBar::FindBar(Search search) : m_search(std::move(search)), m_text(new QLineEdit), m_places(new QLabel) {
    setObjectName(u"Suchleiste"_s);
    m_text->setObjectName(u"txtSuchen"_s);
    m_text->setClearButtonEnabled(true);
    m_places->setObjectName(u"lblTreffer"_s);
    auto* caption = new QLabel(u"&Suchen:"_s);
    caption->setBuddy(m_text);
    auto* back = barButton(u"cmdZurück"_s, u"◀"_s, u"Vorige Stelle (Umschalt+F3)"_s);
    auto* on = barButton(u"cmdWeiter"_s, u"▶"_s, u"Nächste Stelle (F3)"_s);
    auto* leave = barButton(u"cmdSucheSchließen"_s, u"✕"_s, u"Suche schließen (Esc)"_s);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins({});
    line->addWidget(caption);
    line->addWidget(m_text, 1);
    for (auto* button : {back, on})
        line->addWidget(button);
    line->addWidget(m_places, 1);
    line->addWidget(leave);
    connect(m_text, &QLineEdit::textChanged, this, [this] { next(false); });
    connect(back, &QToolButton::clicked, this, [this] { next(true); });
    connect(on, &QToolButton::clicked, this, [this] { next(false); });
    connect(leave, &QToolButton::clicked, this, [this] { close(); });
    hide();
}

void FindBar::open() {
    show();
    m_text->selectAll();
    m_text->setFocus();
    next(false);
}

void FindBar::close() {
    hide();
    m_search({}, false);
}

void FindBar::next(bool backward) {
    if (isHidden())
        return open();
    if (m_text->text().isEmpty())
        m_places->clear();
    m_search(m_text->text(), backward);
}

void FindBar::setPlaces(int places) {
    if (m_text->text().isEmpty())
        m_places->clear();
    else
        m_places->setText(places == 0   ? u"Nicht gefunden"_s
                          : places == 1 ? u"1 Stelle"_s
                                        : u"%1 Stellen"_s.arg(places));
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return next(event->modifiers().testFlag(Qt::ShiftModifier));
    case Qt::Key_Escape:
        return close();
    default:
        QWidget::keyPressEvent(event);
    }
}

} // namespace kolibri
