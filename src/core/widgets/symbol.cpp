#include "core/widgets/symbol.h"

#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

using namespace Qt::StringLiterals;

namespace kolibri {

QPixmap symbolPixmap(const QString& name, int size, const QColor& colour, qreal dotsPerPoint) {
    const int dots = qRound(size * dotsPerPoint);
    const QString key = u"kolibri/%1/%2/%3"_s.arg(name, QString::number(dots), colour.name(QColor::HexArgb));
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    pixmap = QPixmap(dots, dots);
    pixmap.fill(Qt::transparent);
    {
        QSvgRenderer drawing(u":/kolibri/symbole/%1.svg"_s.arg(name));
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        drawing.render(&painter, QRectF(0, 0, dots, dots));
        // The drawing gives the shape only; its lines take the colour.
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(pixmap.rect(), colour);
    }
    pixmap.setDevicePixelRatio(dotsPerPoint);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

} // namespace kolibri
