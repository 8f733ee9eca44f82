#pragma once

#include <QString>

namespace kolibri {

/// How the program stands after its start.
enum class StartState {
    Ready,          ///< everything can be done
    WithoutDatabase ///< only settings and help; the path must be corrected and the program started anew
};

/// The start of the program up to the first moment in which the user can do something: settings file,
/// database, settings kept in memory. `programFolder` is the folder of the executable, in which an older copy
/// of the settings file may lie.
/// @throws RuntimeError, StoreError for everything but a missing database
StartState startUp(const QString& programFolder);

/// Reads what the school calls the ten contact fields into the shared state; the database is open.
void KontaktBezeichnungenLesen();

/// "Version   1.2.0"
QString versionLine();

} // namespace kolibri
