#pragma once

#include "core/startup.h"

#include <QMainWindow>

namespace kolibri {

struct MenuTask;

/// The main window: the menu tree and the eight large buttons. It holds no data; each entry opens a form in a
/// mode or asks for a list.
class frmStart : public QMainWindow {
public:
    frmStart();

    /// Rests what needs a database, and offers to make one.
    void setState(StartState state);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    QWidget* buildButtons();
    QWidget* buildHead();
    void run(const MenuTask& task);
};

} // namespace kolibri
