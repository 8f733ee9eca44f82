#pragma once

#include <QPalette>
#include <QWidget>

namespace kolibri {

/// Marks an input that did not pass its check, or takes the mark away.
inline void setErrorColour(QWidget* input, bool error, const QString& reason = {}) {
    QPalette palette = input->palette();
    palette.setColor(QPalette::Base, error ? QColor(0xff, 0xe0, 0xc0) : QColor(Qt::white));
    palette.setColor(QPalette::Text, Qt::black);
    input->setPalette(palette);
    input->setToolTip(error ? reason : QString());
}

} // namespace kolibri
