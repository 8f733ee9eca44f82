#pragma once

#include <QString>

namespace kolibri {

/// The program's base folder: C:\Kolibri on Windows; elsewhere the environment variable KOLIBRI_HOME, or
/// Kolibri in the user's home. Upgrade protocols lie here.
QString baseFolder();
/// Settings file and report page lie in this folder below the base folder.
QString programDataFolder();
/// The name of this workstation: the environment variable ComputerName, else the host's name.
QString computerName();

} // namespace kolibri
