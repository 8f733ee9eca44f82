#pragma once

#include "core/startup.h"

#include <QLoggingCategory>
#include <QMainWindow>

class QScrollArea;

namespace kolibri {

struct MenuTask;

/// Steps of the start, to find out where a slow one takes its time. Off unless asked for by
/// QT_LOGGING_RULES="kolibri.start.debug=true".
Q_DECLARE_LOGGING_CATEGORY(startLog)

/// The main window: the menu tree and the eight large buttons. It holds no data; each entry opens a form in a
/// mode or asks for a list.
class frmStart : public QMainWindow {
public:
    frmStart();

    /// Rests what needs a database, says so and offers to make one; or has everything work.
    void setState(StartState state);

protected:
    /// Notes in the log, where it is switched on, that the window stands on the screen for the first time.
    bool event(QEvent* event) override;
    /// The end of the program, also by the menu.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildContent();
    void connectLargeButtons();
    void run(const MenuTask& task);
    QSize startSize() const;

    QScrollArea* m_area = nullptr;
    bool m_painted = false;
    QWidget* m_head = nullptr;
    QWidget* m_notice = nullptr;
};

/// The whole program from its start until the main window is closed. `programFolder` is the folder of the
/// executable.
/// @returns the exit code: 0, or 1 when the start failed, which the user has been told then
int runProgram(const QString& programFolder);

} // namespace kolibri
