#pragma once

#include <QString>

namespace kolibri {

class Progress;

/// The verb with which the tool kolibri-db reads a Jet file for another process. Not meant for people.
inline const QString kReadJetVerb = QStringLiteral("jet-lesen");

/// The tool beside the running program.
QString toolPath();

/// Copies a Jet file into a new database file, in a process of its own: the library that reads Jet files may
/// crash on a damaged one, and the program must not go down with it. The process is ended when it gives no
/// sign of life for `patience` milliseconds. After an error no new file is left.
/// @throws StoreError in words for whatever goes wrong
void readJetInOwnProcess(const QString& tool, const QString& jetFile, const QString& newFile, int patience,
                         Progress& progress);

/// The other side: copies the file and tells on the standard output how far it is, or what is wrong.
/// @throws StoreError as copyJetFile does, after telling it
void serveJetReading(const QString& jetFile, const QString& newFile);

} // namespace kolibri
