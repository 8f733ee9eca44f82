#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace kolibri {

class Connection;
class Progress;

/// Reads the lines of a backup and puts what they hold into the open database, table by table. A table that
/// the file names is emptied; tables that are not in the file keep their rows, and tables that the database
/// lacks are passed over.
class BackupReader {
public:
    explicit BackupReader(Connection& conn);

    /// Takes the next line, without its end.
    /// @throws RuntimeError 5, 9 for a line that is cut or has more fields than columns
    /// @throws StoreError when a column does not take its value
    void TakeLine(const QString& line);

private:
    void TakeTable(const QString& line);
    void TakeColumns(const QString& line);
    void TakeRow(const QString& text);
    void DatenInDB_schreiben();

    Connection& m_conn;
    QStringList m_tables;
    QString AktuelleTabelle;
    bool TabelleBekannt = false;
    QStringList SpaltenNamen;
    QStringList Werte;
    std::vector<bool> m_columnExists;
    QString m_buffer;
};

/// Puts the content of a backup into the open database. A line ends at CR LF or CR: a line feed alone belongs
/// to a value. `progress` counts the characters.
void restoreText(Connection& conn, const QString& text, Progress& progress);

/// The menu entry: asks for the file, makes a safety copy and restores. There is no further question.
void DatenWiederherstellen();

} // namespace kolibri
