#include "calendar/timetable.h"

#include "core/mdlGlobal.h"
#include "core/next_id.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"Stundenplan"_s;

FieldValues cellsOf(const TimetableLine& line) {
    FieldValues values;
    for (int day = 0; day < kSchoolDays; ++day)
        values.push_back({TagCode(day), line.Tage[static_cast<std::size_t>(day)]});
    return values;
}

void addLine(qint64 id, const QString& klasse, const TimetableLine& line) {
    NewRow row = Global().Conn.AddNew(kTable);
    row.Set(u"ID"_s, id).Set(u"Klasse"_s, klasse).Set(u"UE"_s, line.UE);
    for (const auto& [field, value] : cellsOf(line))
        row.Set(field, value);
    row.Update();
}

} // namespace

TimetableUnits UE_feststellen() {
    TimetableUnits units;
    for (Recordset rs = Global().Conn.Open(u"SELECT * FROM Unterrichtseinheiten ORDER BY Sort_NR"_s);
         !rs.Eof(); rs.MoveNext())
        units.zeiten << rs.Text(u"Zeit");
    return units;
}

std::vector<TimetableLine> Stundenplan_lesen(const QString& klasse) {
    std::vector<TimetableLine> lines;
    Recordset rs = Global().Conn.Open(u"SELECT * FROM Stundenplan WHERE Klasse = ? ORDER BY UE"_s, {klasse});
    for (; !rs.Eof(); rs.MoveNext()) {
        TimetableLine line{rs.Text(u"UE"), {}};
        for (int day = 0; day < kSchoolDays; ++day)
            line.Tage[static_cast<std::size_t>(day)] = rs.Text(TagCode(day));
        lines.push_back(line);
    }
    return lines;
}

void Stundenplan_schreiben(const QString& klasse, const std::vector<TimetableLine>& lines) {
    auto& conn = Global().Conn;
    Transaction transaction(conn);
    qint64 nextId = NextId(conn, kTable);
    const QString thisLine = u"Klasse = ? AND UE = ?"_s;
    for (const auto& line : lines) {
        const QVariantList key{klasse, line.UE};
        if (conn.Open(u"SELECT * FROM Stundenplan WHERE "_s + thisLine, key).Eof())
            addLine(nextId++, klasse, line);
        else
            conn.Change(kTable, cellsOf(line), thisLine, key);
    }
    transaction.Commit();
}

void MeldungVorbereitung(TimetableError error, const QString& klasse) {
    // The title has always been spelled so.
    const QString title = u"Fehler Stundeplan"_s;
    const QString begin = u"Für Klasse "_s + klasse;
    switch (error) {
    case TimetableError::None:
        return;
    case TimetableError::NoEntry:
        MsgBox(begin + u" ist kein Eintrag vorhanden!"_s, 0, title);
        return;
    case TimetableError::NoBegin:
        MsgBox(begin + u" ist kein Unterrichtsbeginn eingetragen!"_s, 0, title);
        return;
    case TimetableError::NoEnd:
        MsgBox(begin + u" ist kein Unterrichtsende eingetragen!"_s, 0, title);
        return;
    }
}

} // namespace kolibri
