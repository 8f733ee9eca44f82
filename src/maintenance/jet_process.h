#pragma once

#include <QString>

namespace kolibri {

class Progress;

/// The verb with which the tool kolibri-db reads a Jet file for the program. Not meant for people.
inline const QString kReadJetVerb = QStringLiteral("jet-lesen");

/// Copies a Jet file into a new database file, by the tool in a process of its own, which is ended when it
/// falls silent for `patience` milliseconds. After an error no new file is left.
/// @throws StoreError in words for whatever goes wrong
void readJetInOwnProcess(const QString& tool, const QString& jetFile, const QString& newFile, int patience,
                         Progress& progress);

/// The tool's side of it. @throws StoreError as copyJetFile does
void serveJetReading(const QString& jetFile, const QString& newFile);

} // namespace kolibri
