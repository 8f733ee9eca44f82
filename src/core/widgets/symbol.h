#pragma once

#include <QColor>
#include <QPixmap>
#include <QString>

namespace kolibri {

/// A one-coloured drawing of data/symbole in the colour asked for, `size` points high and wide, sharp on a
/// screen with so many dots to the point.
QPixmap symbolPixmap(const QString& name, int size, const QColor& colour, qreal dotsPerPoint);

} // namespace kolibri
