#include "students/edit_guard.h"

#include "core/doors.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kDateLength = 10;

/// Time behind the date of a stamp. Other programs of the office leave it out at midnight.
QTime timeOf(const QString& stempel) {
    const QString text = stempel.mid(kDateLength).trimmed();
    return text.isEmpty() ? QTime(0, 0) : QTime::fromString(text, u"h:mm:ss"_s);
}

} // namespace

QString StempelText(const QDateTime& zeit) {
    return zeit.toString(u"dd.MM.yyyy hh:mm:ss"_s);
}

bool StempelGilt(const QString& stempel, const QDateTime& jetzt) {
    const QDate date = QDate::fromString(stempel.left(kDateLength), u"dd.MM.yyyy"_s);
    const QTime time = timeOf(stempel);
    if (!date.isValid() || !time.isValid())
        throw RuntimeError::typeMismatch(u"Zeitstempel: %1"_s.arg(stempel));
    const int now = QTime(0, 0).secsTo(jetzt.time());
    return date == jetzt.date() && std::abs(now - QTime(0, 0).secsTo(time)) < kStempelSekunden;
}

void ZeitStempelSchreiben(const QString& stempel, const QString& pc) {
    auto& global = Global();
    global.Conn.Change(u"Stammdaten"_s, {{u"ZeitStempel"_s, stempel}, {u"PC_Name"_s, pc}}, u"ID = ?"_s,
                       {global.AktuelleSchuelerID});
}

void StempelFreigeben() {
    auto& global = Global();
    if (global.AktuelleSchuelerID <= 0)
        return;
    const Recordset rs =
        global.Conn.Open(u"SELECT ID, PC_Name FROM Stammdaten WHERE ID = ?"_s, {global.AktuelleSchuelerID});
    if (!rs.Eof() && rs.Text(u"PC_Name") == global.ComputerName)
        ZeitStempelSchreiben({}, {});
}

std::optional<QString> DatensatzBeanspruchen(qint16 id) {
    auto& global = Global();
    const QDateTime now = doors().clock->now();
    // One writing transaction around looking and stamping: two workstations cannot both find the record free.
    Transaction transaction(global.Conn);
    StempelFreigeben();
    global.AktuelleSchuelerID = id;
    const Recordset rs =
        global.Conn.Open(u"SELECT ID, ZeitStempel, PC_Name FROM Stammdaten WHERE ID = ?"_s, {id});
    std::optional<QString> holder;
    if (!rs.Eof()) {
        const QString stempel = rs.Text(u"ZeitStempel");
        const QString pc = rs.Text(u"PC_Name");
        try {
            if (!stempel.isEmpty() && !pc.isEmpty() && StempelGilt(stempel, now))
                holder = pc;
        } catch (const RuntimeError&) {
            // The record held before is free all the same.
            transaction.Commit();
            throw;
        }
        if (!holder)
            ZeitStempelSchreiben(StempelText(now), global.ComputerName);
    }
    transaction.Commit();
    return holder;
}

QString BelegtMeldung(const QString& pc) {
    return u"Der Datensatz kann nicht bearbeitet werden. Er wird gerade von "_s + pc + u" bearbeitet!"_s;
}

} // namespace kolibri
