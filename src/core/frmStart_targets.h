#pragma once

#include <QString>

#include <functional>
#include <map>

class QWidget;

namespace kolibri {

struct MenuTask;
struct StartSteps;

/// Opens a form or runs a command of the menu; `window` is the main window.
using MenuTarget = std::function<void(QWidget* window, const MenuTask& task)>;

/// What the targets of the menu table do. The one place that knows all forms.
const std::map<QString, MenuTarget>& menuTargets();

/// What the other parts of the program do while it starts.
StartSteps startSteps();

} // namespace kolibri
