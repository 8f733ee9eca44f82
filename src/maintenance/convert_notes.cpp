#include "core/doors.h"
#include "core/platform/places.h"
#include "core/store/connection.h"
#include "maintenance/conversions.h"
#include "maintenance/protocol_file.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QStringList kLogFields{u"ID"_s,       u"SCH_ID"_s, u"GR"_s,          u"L_Name"_s, u"Tag"_s,
                             u"Tag_Zahl"_s, u"Zeit"_s,   u"Zeit_K_Name"_s, u"Notiz"_s};

/// The three files that say what became of each note.
class NoteLogs {
public:
    explicit NoteLogs(const QString& stamp)
        : tagesplan(path(u"WP"_s, stamp)), stale(path(u"Fehler"_s, stamp)), kept(path(u"OK"_s, stamp)) {
        for (ProtocolFile* file : {&tagesplan, &stale, &kept})
            file->writeLine(kLogFields.join(u", "_s));
    }

    ProtocolFile tagesplan;
    ProtocolFile stale;
    ProtocolFile kept;

private:
    static QString path(const QString& kind, const QString& stamp) {
        return baseFolder() + u"/DB_Konvert_"_s + kind + u'_' + stamp + u".txt"_s;
    }
};

/// Semicolon behind the first value and commas behind the others: offices have kept these files for years,
/// and whoever compares them must find the lines alike.
QString logLine(const Recordset& note) {
    QStringList values;
    for (const auto& field : kLogFields)
        values << note.Text(field);
    const QString first = values.takeFirst();
    return first + u';' + values.join(u',');
}

qint64 nextKey(Connection& conn) {
    if (conn.Open(u"SELECT ID FROM WP_Notiz"_s).RecordCount() == 0)
        return 1;
    return conn.Open(u"SELECT MAX(ID) AS Letzte FROM WP_Notiz"_s).Number(u"Letzte") + 1;
}

/// The teaching unit of a note's offering; the unit of the note before it where the offering is gone.
class UnitOfNote {
public:
    QString of(Connection& conn, const Recordset& note) {
        const Recordset offering = conn.Open(u"SELECT * FROM "_s + offeringTable(note.Text(u"GR"))
                                                 + u" WHERE Tag = ? AND Zeit_K_Name = ?"_s,
                                             {note.Text(u"Tag"), note.Text(u"Zeit_K_Name")});
        if (!offering.Eof())
            m_unit = offering.Text(u"UE_Zeit");
        return m_unit;
    }

private:
    static QString offeringTable(const QString& name) {
        static const QStringList tables{u"GR1"_s, u"GR2"_s, u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s};
        if (!tables.contains(name, Qt::CaseInsensitive))
            throw StoreError(StoreError::Kind::Programming,
                             u"Eine Notiz nennt die Tabelle \"%1\", die es nicht gibt."_s.arg(name), name);
        return name;
    }

    QString m_unit;
};

void moveToTagesplan(Connection& conn, const Recordset& note, const QString& unit) {
    conn.AddNew(u"WP_Notiz"_s)
        .Set(u"ID"_s, nextKey(conn))
        .Set(u"SCH_ID"_s, note.Value(u"SCH_ID"))
        .Set(u"UE"_s, unit)
        .Set(u"Tag"_s, note.Value(u"Tag"))
        .Set(u"Tag_Zahl"_s, note.Value(u"Tag_Zahl"))
        .Set(u"Notiz"_s, note.Value(u"Notiz"))
        .Update();
}

} // namespace

void convertNotes(Connection& conn) {
    Recordset note = conn.Open(u"SELECT * FROM SCH_Notiz"_s);
    if (note.RecordCount() == 0)
        return;
    NoteLogs logs(doors().clock->now().toString(u"yyyyMMdd-HHmm"_s));
    UnitOfNote unit;
    for (; !note.Eof(); note.MoveNext()) {
        const qint64 id = note.Number(u"ID");
        const Recordset pupil =
            conn.Open(u"SELECT * FROM Stammdaten WHERE ID = ?"_s, {note.Number(u"SCH_ID")});
        const QString cell = pupil.Text(QString(note.Text(u"GR") + u'_' + note.Text(u"Tag")));
        if (!cell.isEmpty() && cell == note.Text(u"Zeit_K_Name")) {
            logs.kept.writeLine(logLine(note));
            continue;
        }
        (cell.isEmpty() ? logs.tagesplan : logs.stale).writeLine(logLine(note));
        if (cell.isEmpty())
            moveToTagesplan(conn, note, unit.of(conn, note));
        conn.Delete(u"SCH_Notiz"_s, u"ID = ?"_s, {id});
    }
}

} // namespace kolibri
