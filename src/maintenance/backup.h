#pragma once

#include <QDateTime>
#include <QString>
#include <QStringList>

namespace kolibri {

class Connection;

/// The most tables of a backup, and the most columns of one of its tables.
inline constexpr int kMostBackupTables = 100;
inline constexpr int kMostBackupColumns = 1000;

/// Names of all tables of the open database but those of the engine itself ("MSys...").
/// @throws RuntimeError 9 beyond a hundred
QStringList Tabellen_Auflisten(Connection& conn);
/// Names of the columns of a table, in their order. @throws RuntimeError 9 beyond a thousand
QStringList Spalten_Auflisten(Connection& conn, const QString& tabelle);

/// "Backup-KLB-20240131-174502.txt"
QString backupFileName(const QDateTime& now);
/// The file of a backup in a folder. The empty folder of a dialog that was given up means the root of the
/// drive.
QString backupPath(const QString& folder, const QDateTime& now);

/// The open database as the tagged text of a backup: a line `<tbl>`, a line `<col>` and the rows `<dat>` of
/// each table, lines ended by CR LF, values as a German machine writes them. A null and an empty text look
/// the same, and nothing in a value is escaped.
QString backupText(Connection& conn);
/// Writes the open database into a backup file, whole or not at all: Windows-1252, or UTF-8 behind a byte
/// order mark when a character would be lost otherwise.
/// @throws RuntimeError 75 when the file cannot be written
void writeBackup(Connection& conn, const QString& file);

/// The menu entry: asks for the folder and writes the backup.
void DatensicherungErstellen();

} // namespace kolibri
