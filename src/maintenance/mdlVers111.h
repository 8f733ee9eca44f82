#pragma once

#include <QString>

namespace kolibri {

class Connection;

/// Name of the protocol of notes that have lost their offering.
inline const QString kRepairProtocol = QStringLiteral("Protokoll_Aktualisierung_SCH_Notiz.txt");

/// Rewrites the links to Mensa and Lernzeit offerings, which were the bare time before version 1.1.1, to the
/// key Zeit_K_Name, so that two offerings with the same time can be told apart. Safe to run twice: what has a
/// key is left alone. Each step is a transaction. The protocol goes into the folder.
/// @throws StoreError, and RuntimeError 75 when the protocol cannot be written; the steps before stay done
void repairLinks(Connection& conn, const QString& protocolFolder);

/// Repairs the database in DB_Pfad, after a safety copy. The protocol goes into the folder.
/// @returns the path of the copy
/// @throws as repairLinks, with the place of the copy; StoreError when the copy cannot be made
QString repairDatabase(const QString& protocolFolder);

/// The hidden menu entry for administrators. Says nothing at the end.
void DatenbankAktualisieren();

} // namespace kolibri
