#pragma once

#include <QColor>
#include <QFont>

class QPalette;
class QString;
class QWidget;

namespace kolibri {

/// Ground of an input that did not pass its check, on a light and on a dark desktop.
inline constexpr QRgb kErrorGround = 0xffffe0c0;
/// Ground of an input that passed.
inline constexpr QRgb kPassedGround = 0xffffffff;

/// Gives the application the look of the house: the style where the desktop brings none, and the house's
/// colour for headings, links and selections. Called again whenever the desktop changes its colours.
void applyTheme();

/// True where light text stands on a dark ground.
bool isDark(const QPalette& palette);
/// The house's blue, in a shade that can be read on the window ground of the palette.
QColor accentColour(const QPalette& palette);
/// The amber of notices, in a shade that goes with the window ground of the palette.
QColor noticeColour(const QPalette& palette);
/// The sky behind the picture of the main window.
QColor skyColour(const QPalette& palette);
/// The first colour with so much of the second in it, from 0 to 1.
QColor blended(const QColor& ground, const QColor& over, qreal share);
/// Contrast of two colours as screens are judged by, 1 to 21; text needs 4.5.
qreal contrast(const QColor& a, const QColor& b);
/// The font in another size and weight.
QFont scaledFont(QFont font, qreal factor, QFont::Weight weight = QFont::Normal);

/// Marks an input that did not pass its check, or takes the mark away. The reason stands in the tool tip and
/// is read out, so that the colour is not the only sign; an input's own tool tip comes back with the mark's
/// end.
void setErrorColour(QWidget* input, bool error, const QString& reason = {});

} // namespace kolibri
