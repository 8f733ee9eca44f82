#include "maintenance/mdlVers111.h"

#include "core/doors.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/office_settings.h"
#include "core/platform/places.h"
#include "core/progress.h"
#include "core/runtime_error.h"
#include "core/startup.h"
#include "core/store/safety_copy.h"
#include "core/windows1252.h"

#include <QDateTime>
#include <QDir>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kKey = u"Zeit_K_Name"_s;
const QString kById = u"ID = ?"_s;

void addIfMissing(Connection& conn, const QString& table, const QString& column) {
    if (!conn.HasColumn(table, column))
        conn.AddColumn(table, {column, ColumnKind::Text});
}

QString keyOf(const Recordset& rs) {
    return rs.Text(u"Zeit") + u' ' + rs.Text(u"K_Name");
}

void keysOfOfferings(Connection& conn) {
    for (const auto& table : {u"GR1"_s, u"GR2"_s})
        addIfMissing(conn, table, kKey);
    for (const auto& table : {u"GR1"_s, u"GR2"_s})
        for (Recordset rs = conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext())
            conn.Change(table, {{kKey, keyOf(rs)}}, kById, {rs.Value(u"ID")});
}

/// The first offering found wins where two have the same time.
void cellsOfPupils(Connection& conn) {
    for (Recordset rs = conn.Open(u"SELECT * FROM Stammdaten"_s); !rs.Eof(); rs.MoveNext())
        for (const auto& table : {u"GR1"_s, u"GR2"_s})
            for (int day = 0; day < kSchoolDays; ++day) {
                const QString column = table + u'_' + TagCode(day);
                const QString cell = rs.Text(column);
                if (cell.isEmpty())
                    continue;
                const Recordset offering = conn.Open(
                    u"SELECT * FROM "_s + table + u" WHERE Tag = ? AND Zeit = ?"_s, {TagCode(day), cell});
                if (!offering.Eof())
                    conn.Change(u"Stammdaten"_s, {{column, offering.Value(kKey)}}, kById, {rs.Value(u"ID")});
            }
}

/// A list text of Mensa or Lernzeit takes names and key of the offering with its time, or none.
QString keyOfCareText(Connection& conn, const QString& table, const Recordset& text) {
    const Recordset offering =
        conn.Open(u"SELECT * FROM "_s + table + u" WHERE Zeit = ?"_s, {text.Text(u"Zeit")});
    const auto value = [&](QStringView field) { return offering.Eof() ? u""_s : offering.Text(field); };
    conn.Change(u"ME_LZ_AG_Notizen"_s, {{u"L_Name"_s, value(u"L_Name")}, {u"K_Name"_s, value(u"K_Name")}},
                kById, {text.Value(u"ID")});
    return value(kKey);
}

QString keyOfGroupText(Connection& conn, const Recordset& text) {
    const Recordset offering =
        conn.Open(u"SELECT * FROM GR3 WHERE Zeit = ? AND Tag = ? AND L_Name = ? AND K_Name = ?"_s,
                  {text.Text(u"Zeit"), text.Text(u"Tag"), text.Text(u"L_Name"), text.Text(u"K_Name")});
    return offering.Eof() ? u""_s : offering.Text(kKey);
}

void listTexts(Connection& conn) {
    const QString table = u"ME_LZ_AG_Notizen"_s;
    addIfMissing(conn, table, kKey);
    // Kept from row to row on purpose: a text of another type takes the key of the one before it.
    QString key;
    for (Recordset rs = conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext()) {
        const QString type = rs.Text(u"Typ");
        if (type == u"Mensa"_s)
            key = keyOfCareText(conn, u"GR1"_s, rs);
        else if (type == u"Lernzeit"_s)
            key = keyOfCareText(conn, u"GR2"_s, rs);
        else if (type == u"Arbeitsgruppe"_s)
            key = keyOfGroupText(conn, rs);
        conn.Change(table, {{kKey, key}}, kById, {rs.Value(u"ID")});
    }
}

/// Notes of pupils before the first and behind the last one; those of a pupil missing in between stay.
void orphanNotes(Connection& conn) {
    Recordset rs = conn.Open(u"SELECT ID FROM Stammdaten"_s);
    if (rs.Eof())
        return;
    conn.Delete(u"SCH_Notiz"_s, u"SCH_ID < ?"_s, {rs.Value(u"ID")});
    rs.MoveLast();
    conn.Delete(u"SCH_Notiz"_s, u"SCH_ID > ?"_s, {rs.Value(u"ID")});
}

bool isOfferingTable(Connection& conn, const QString& name) {
    return !Typwort(name).isEmpty() && conn.HasTable(name);
}

QString protocolLine(const Recordset& note) {
    QStringList values;
    for (const auto* field :
         {u"ID", u"SCH_ID", u"GR", u"L_Name", u"Tag", u"Zeit", u"Zeit_K_Name", u"Notiz", u"WP_Notiz"})
        values << (note.HasField(field) ? note.Text(field) : QString());
    return values.join(u';') + u"\r\n"_s;
}

/// Gives each note without a key that of its offering. Returns the protocol of the notes that have none.
QString notes(Connection& conn) {
    const QString table = u"SCH_Notiz"_s;
    addIfMissing(conn, table, kKey);
    QString protocol = u"ID;SCH_ID;GR;L_NAME;TAG;ZEIT;ZEIT_K_NAME;NOTIZ;WP_NOTIZ\r\n"_s;
    // Kept from row to row on purpose: a note without an offering takes the key of the one before it.
    QString key = u""_s;
    for (Recordset rs = conn.Open(u"SELECT * FROM "_s + table); !rs.Eof(); rs.MoveNext()) {
        if (!rs.Text(kKey).isEmpty())
            continue;
        const QString offerings = rs.Text(u"GR");
        Recordset offering;
        if (isOfferingTable(conn, offerings))
            offering =
                conn.Open(u"SELECT * FROM "_s + offerings + u" WHERE L_Name = ? AND Tag = ? AND Zeit = ?"_s,
                          {rs.Text(u"L_Name"), rs.Text(u"Tag"), rs.Text(u"Zeit")});
        if (offering.Eof())
            protocol += protocolLine(rs);
        else
            key = keyOf(offering);
        conn.Change(table, {{kKey, key}}, kById, {rs.Value(u"ID")});
    }
    return protocol;
}

void writeProtocol(const QString& folder, const QString& text) {
    const QByteArray bytes = toTextFile(text);
    QSaveFile file(folder + u'/' + kRepairProtocol);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        throw RuntimeError::fileAccess(QDir::toNativeSeparators(file.fileName()) + u'\n'
                                       + file.errorString());
}

void thirdGroupSlot(Connection& conn) {
    for (int day = 0; day < kSchoolDays; ++day)
        addIfMissing(conn, u"Stammdaten"_s, u"GR5_"_s + TagCode(day));
}

} // namespace

void repairLinks(Connection& conn, const QString& protocolFolder) {
    const auto writeNotes = [&](Connection& c) { writeProtocol(protocolFolder, notes(c)); };
    const std::vector<std::function<void(Connection&)>> steps{keysOfOfferings, cellsOfPupils, listTexts,
                                                              orphanNotes,     writeNotes,    thirdGroupSlot};
    for (const auto& step : steps) {
        Transaction transaction(conn);
        step(conn);
        transaction.Commit();
    }
}

QString repairDatabase(const QString& protocolFolder) {
    const Progress progress(u"Die Datenbank wird aktualisiert..."_s, 1);
    const DbSession session(u"Datenbank aktualisieren"_s);
    auto& conn = Global().Conn;
    SchuldatenbankPruefen();
    conn.AllowApostrophes(ApostropheErlaubt(conn));
    const QString copy = makeSafetyCopy(conn, doors().clock->now());
    try {
        repairLinks(conn, protocolFolder);
    } catch (OfficeError& error) {
        error.addNote(u"Der Stand vor der Aktualisierung liegt in der Sicherheitskopie %1."_s.arg(
            QDir::toNativeSeparators(copy)));
        throw;
    }
    return copy;
}

void DatenbankAktualisieren() {
    repairDatabase(baseFolder());
}

} // namespace kolibri
