#pragma once

class QString;

namespace kolibri {

/// The whole program from its start until the main window is closed. `programFolder` is the folder of the
/// executable.
/// @returns the exit code: 0, or 1 when the start failed, which the user has been told then
int runProgram(const QString& programFolder);

} // namespace kolibri
