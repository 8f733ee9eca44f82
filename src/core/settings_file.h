#pragma once

#include <QString>

#include <optional>

namespace kolibri {

/// Name of the text file that tells in which folder the database lies.
inline const QString kSettingsFileName = QStringLiteral("einstellungen.txt");

/// The database folder in a settings file: the rest of the last line beginning "Datenbankpfad;" or
/// "Datenbankpfad="; empty when there is no such line. No value when the file does not exist.
/// @throws RuntimeError 75 when it exists but cannot be read
std::optional<QString> readDatabaseFolder(const QString& file);

/// Writes the settings file anew with the one line "Datenbankpfad;" and the folder.
/// @throws RuntimeError 75 when it cannot be written; the old file stands then
void writeDatabaseFolder(const QString& file, const QString& folder);

/// The settings file in the program data folder, the one that the program writes.
QString settingsFile();

} // namespace kolibri
