#include "core/widgets/picture.h"

#include <QPainter>

namespace kolibri {

Picture::Picture(const QString& file, int lines, QWidget* parent)
    : QWidget(parent), m_renderer(file), m_lines(lines) {}

void Picture::setLines(int lines) {
    if (lines == m_lines)
        return;
    m_lines = lines;
    updateGeometry();
}

int Picture::linesForWidth(int width) const {
    const QSize drawing = m_renderer.defaultSize();
    return width * drawing.height() / drawing.width() / fontMetrics().height();
}

QSize Picture::sizeHint() const {
    const int height = m_lines * fontMetrics().height();
    const QSize drawing = m_renderer.defaultSize();
    return {drawing.width() * height / drawing.height(), height};
}

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QSizeF fitting = QSizeF(m_renderer.defaultSize()).scaled(size(), Qt::KeepAspectRatio);
    m_renderer.render(&painter,
                      QRectF({(width() - fitting.width()) / 2, height() - fitting.height()}, fitting));
}

} // namespace kolibri
