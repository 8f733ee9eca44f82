#include "core/widgets/picture.h"

#include <QPainter>

namespace kolibri {

Picture::Picture(const QString& file, QWidget* parent) : QWidget(parent), m_renderer(file) {
    m_renderer.setAspectRatioMode(Qt::KeepAspectRatio);
}

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    m_renderer.render(&painter, rect());
}

} // namespace kolibri
