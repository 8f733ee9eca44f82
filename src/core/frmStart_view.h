#pragma once

class QScrollArea;
class QSize;
class QString;
class QWidget;

namespace kolibri {

// The parts of which the main window is put together; they hold no behaviour.

/// The band at the top: program name, the school as far as it is known, and the picture.
QWidget* buildHead();
/// Shows the school's name and address of the shared state in the band; lines that are empty take no room.
void showSchool(QWidget* head);

/// The box that tells, while there is no database, what was looked for and what can be done.
QWidget* buildNotice();
/// Tells in the notice which file was looked for.
void showMissingFile(QWidget* notice, const QString& file);

/// The large buttons in their groups, each under its heading.
QWidget* buildLargeButtons();

/// All parts together, scrolled where the window is too small for them. The picture takes what room the other
/// parts leave free.
QScrollArea* scrolled(QWidget* content);
/// The size in which `content` looks best.
QSize usualSize(QWidget* content);

} // namespace kolibri
