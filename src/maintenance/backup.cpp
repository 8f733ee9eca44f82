#include "maintenance/backup.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/progress.h"
#include "core/runtime_error.h"
#include "core/windows1252.h"

#include <QDir>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kLineEnd = u"\r\n"_s;
constexpr QChar kSeparator = u'|';

void refuseMoreThan(int most, qsizetype count, const QString& what) {
    if (count > most)
        throw RuntimeError::outOfRange(u"%1: %2, höchstens %3"_s.arg(what).arg(count).arg(most));
}

QString valueText(const QVariant& value, ColumnKind kind) {
    const QString text = toGermanText(value);
    return kind == ColumnKind::DateTime && !text.isEmpty() ? text + u":00"_s : text;
}

void appendRow(QString& text, const Recordset& rs, const std::vector<ColumnInfo>& columns) {
    text += u"<dat>"_s;
    for (int i = 0; i < rs.FieldCount(); ++i) {
        if (i > 0)
            text += kSeparator;
        text += valueText(rs.Value(i), columns.at(static_cast<std::size_t>(i)).kind);
    }
    text += u"</dat>"_s + kLineEnd;
}

void appendTable(QString& text, Connection& conn, const QString& table) {
    text += u"<tbl>"_s + table + u"</tbl>"_s + kLineEnd;
    text += u"<col>"_s + Spalten_Auflisten(conn, table).join(kSeparator) + u"</col>"_s + kLineEnd;
    const auto columns = conn.Columns(table);
    for (Recordset rs = conn.Open(u"SELECT * FROM \"%1\""_s.arg(QString(table).replace(u'"', u"\"\""_s)));
         !rs.Eof(); rs.MoveNext())
        appendRow(text, rs, columns);
}

} // namespace

QStringList Tabellen_Auflisten(Connection& conn) {
    QStringList TabellenNamen;
    for (const auto& name : conn.Tables())
        if (!name.startsWith(u"MSys"_s))
            TabellenNamen << name;
    refuseMoreThan(kMostBackupTables, TabellenNamen.size(), u"Tabellen"_s);
    return TabellenNamen;
}

QStringList Spalten_Auflisten(Connection& conn, const QString& tabelle) {
    QStringList SpaltenNamen;
    for (const auto& column : conn.Columns(tabelle))
        SpaltenNamen << column.name;
    refuseMoreThan(kMostBackupColumns, SpaltenNamen.size(), u"Spalten der Tabelle %1"_s.arg(tabelle));
    return SpaltenNamen;
}

QString backupFileName(const QDateTime& now) {
    return u"Backup-KLB-"_s + now.toString(u"yyyyMMdd-HHmmss"_s) + u".txt"_s;
}

QString backupPath(const QString& folder, const QDateTime& now) {
    return folder + u'/' + backupFileName(now);
}

QString backupText(Connection& conn) {
    const QStringList tables = Tabellen_Auflisten(conn);
    Progress progress(u"Die Daten werden gesichert..."_s, tables.size());
    QString text;
    for (qsizetype i = 0; i < tables.size(); ++i) {
        appendTable(text, conn, tables.at(i));
        progress.Reach(i + 1);
    }
    return text;
}

void writeBackup(Connection& conn, const QString& file) {
    const QByteArray bytes = toTextFile(backupText(conn));
    QSaveFile target(file);
    if (!target.open(QIODevice::WriteOnly) || target.write(bytes) != bytes.size() || !target.commit())
        throw RuntimeError::fileAccess(QDir::toNativeSeparators(file) + u'\n' + target.errorString());
}

void DatensicherungErstellen() {
    MsgBox(
        u"Wählen Sie im nächsten Schritt Verzeichnis und Ordner aus, in dem die Sicherungsdatei gespeichert "
        "werden soll!"_s);
    const QString folder =
        doors().files->chooseFolder(u"Bitte wählen Sie einen Ordner aus..."_s, Global().DB_Pfad);
    const QDateTime now = doors().clock->now();
    {
        const DbSession session(u"Datensicherung"_s);
        writeBackup(Global().Conn, backupPath(folder, now));
    }
    MsgBox(u"Sicherungsdatei "_s + backupFileName(now) + u" wurde erstellt."_s);
}

} // namespace kolibri
