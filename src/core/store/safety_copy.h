#pragma once

#include <QString>

class QDateTime;

namespace kolibri {

class Connection;

/// How many safety copies stay beside the database; older ones make room.
inline constexpr int kSafetyCopiesKept = 10;

/// Copies the open database beside itself before something that may stop half-way, for example into
/// "KOLIBRI_Daten-Sicherheitskopie-20261120-143000.mdb", and removes the oldest copies beyond the newest ten.
/// A damaged database is not copied, so that no sound copy makes room for a broken one.
/// @returns the path of the copy
/// @throws StoreError when the copy cannot be written or the database is damaged
QString makeSafetyCopy(Connection& connection, const QDateTime& now);

} // namespace kolibri
