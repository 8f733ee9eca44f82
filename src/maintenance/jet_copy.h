#pragma once

#include <QString>

#include <functional>

namespace kolibri {

/// Told after each row how much of how much has been done.
using JetProgress = std::function<void(qint64 done, qint64 total)>;

/// Copies every table of a Jet file, value by value, into a new database file. Keys stay as they are, and new
/// ones go on where the old file would have gone on. All or nothing: after an error no file is left.
/// @throws StoreError when the Jet file is damaged, is no school's, or the new file exists or cannot be
/// written
void copyJetFile(const QString& jetFile, const QString& newFile, const JetProgress& progress);

} // namespace kolibri
