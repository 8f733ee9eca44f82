#include "core/widgets/card_button.h"

#include "core/widgets/symbol.h"
#include "core/widgets/theme.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// Ground and edge of the button as it stands now.
struct CardColours {
    QColor ground;
    QColor edge;
};

CardColours cardColours(const QPalette& palette, bool enabled, bool hovered, bool down) {
    constexpr qreal kEdge = 0.22;
    constexpr qreal kRestingEdge = 0.12;
    constexpr qreal kHovered = 0.1;
    constexpr qreal kDown = 0.22;
    const QColor window = palette.color(QPalette::Window);
    const QColor text = palette.color(QPalette::Active, QPalette::WindowText);
    const QColor accent = accentColour(palette);
    if (!enabled)
        return {window, blended(window, text, kRestingEdge)};
    const QColor base = isDark(palette) ? blended(window, Qt::white, 0.07) : palette.color(QPalette::Base);
    if (down)
        return {blended(base, accent, kDown), accent};
    if (hovered)
        return {blended(base, accent, kHovered), accent};
    return {base, blended(window, text, kEdge)};
}

/// Styles give disabled text so little contrast that one cannot read what it would be.
QPalette readableWhenDisabled(QPalette palette) {
    constexpr qreal kShare = 0.55;
    palette.setColor(QPalette::Disabled, QPalette::WindowText,
                     blended(palette.color(QPalette::Window),
                             palette.color(QPalette::Active, QPalette::WindowText), kShare));
    return palette;
}

} // namespace

CardButton::CardButton(const QString& caption, const QString& symbol, QWidget* parent)
    : QPushButton(caption, parent), m_symbol(symbol) {
    setAutoDefault(true);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

int CardButton::symbolSize() const {
    return qRound(fontMetrics().height() * 1.4);
}

int CardButton::margin() const {
    return qRound(fontMetrics().height() * 0.6);
}

QSize CardButton::minimumSizeHint() const {
    const int text = fontMetrics().size(Qt::TextShowMnemonic, this->text()).width();
    return {text + symbolSize() + 3 * margin(), symbolSize() + 2 * margin()};
}

QSize CardButton::sizeHint() const {
    constexpr int kUsualLength = 27;
    const QSize least = minimumSizeHint();
    return {qMax(least.width(), fontMetrics().averageCharWidth() * kUsualLength),
            least.height() + margin() / 2};
}

void CardButton::paintEvent(QPaintEvent*) {
    QStyleOptionButton option;
    initStyleOption(&option);
    const bool hovered = option.state.testFlag(QStyle::State_MouseOver);
    const auto colours = cardColours(palette(), isEnabled(), hovered, isDown());
    const QPalette colourOfWords = readableWhenDisabled(palette());
    const QColor accent =
        isEnabled() ? accentColour(colourOfWords) : colourOfWords.color(QPalette::WindowText);

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal edge = hasFocus() ? 2 : 1;
    const qreal radius = margin() * 0.6;
    painter.setPen(QPen(hasFocus() ? accent : colours.edge, edge));
    painter.setBrush(colours.ground);
    painter.drawRoundedRect(QRectF(rect()).adjusted(edge / 2, edge / 2, -edge / 2, -edge / 2), radius,
                            radius);

    const int size = symbolSize();
    const QRect place =
        QStyle::visualRect(layoutDirection(), rect(), {margin(), (height() - size) / 2, size, size});
    painter.drawPixmap(place.topLeft(), symbolPixmap(m_symbol, size, accent, devicePixelRatioF()));

    const QRect words =
        QStyle::visualRect(layoutDirection(), rect(), rect().adjusted(2 * margin() + size, 0, -margin(), 0));
    int flags = Qt::AlignVCenter | Qt::AlignLeading | Qt::TextShowMnemonic;
    if (!style()->styleHint(QStyle::SH_UnderlineShortcut, &option, this))
        flags |= Qt::TextHideMnemonic;
    style()->drawItemText(&painter, words, flags, colourOfWords, isEnabled(), this->text(),
                          QPalette::WindowText);
}

} // namespace kolibri
