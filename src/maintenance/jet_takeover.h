#pragma once

#include <QString>

namespace kolibri {

/// How a Jet file is taken over.
struct TakeoverOptions {
    /// The tool that reads the file; empty for the one beside the program.
    QString tool = {};
    /// The tool is ended after so many milliseconds without a sign of life.
    int patience = 10'000;
    /// Where the protocol of a repair goes.
    QString protocolFolder;
};

/// Takes a Jet file over into KOLIBRI_Daten.mdb in a folder. Where the Jet file bears this name itself, the
/// new file takes its place; in any case the old one is kept there as KOLIBRI_Daten-alt.mdb. A file of the
/// first data version has its links repaired, so that its first start succeeds. All or nothing: an error at
/// any point leaves the old file as it was, and no other.
/// @returns the path of the new database
/// @throws StoreError, RuntimeError in words
QString takeOver(const QString& jetFile, const QString& folder, const TakeoverOptions& options);

/// The start's look at the database file before it is opened: a Jet file is taken over if the user wants it.
/// False when the file is still one that cannot be opened; what went wrong has been shown.
bool offerTakeover(const QString& file, const TakeoverOptions& options);

} // namespace kolibri
