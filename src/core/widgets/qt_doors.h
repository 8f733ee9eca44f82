#pragma once

namespace kolibri {

/// Puts the real doors in: Qt's message boxes, input boxes, file dialogs, and the clock of the machine.
void openQtDoors();

} // namespace kolibri
