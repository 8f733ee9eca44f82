#pragma once

#include <QString>

#include <functional>

namespace kolibri {

/// How the program stands after its start.
enum class StartState {
    Ready,          ///< everything can be done
    WithoutDatabase ///< only settings and help; the path must be corrected and the program started anew
};

/// Steps of the start that belong to other parts of the program.
struct StartSteps {
    /// Looks at the database file before it is opened. False when it is none that can be opened, which the
    /// user knows by then.
    std::function<bool(const QString& file)> beforeOpening = {};
    /// Brings the file up to the current shape, before anything else touches its data.
    std::function<void()> bringUpToDate = {};
    /// What remains to be done for an old file once everything is read.
    std::function<void()> finishUpgrade = {};
};

/// The start of the program up to the first moment in which the user can do something: settings file,
/// database, settings kept in memory. `programFolder` is the folder of the executable, in which an older copy
/// of the settings file may lie.
/// @throws RuntimeError, StoreError for everything but a missing database
StartState startUp(const QString& programFolder, const StartSteps& steps = {});

/// Ends the operation when the open database is that of another program.
/// @throws StoreError (Foreign)
void SchuldatenbankPruefen();

/// Reads what the school calls the ten contact fields into the shared state; the database is open.
void KontaktBezeichnungenLesen();

/// "Version   1.2.0"
QString versionLine();

} // namespace kolibri
