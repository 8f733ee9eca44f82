#include "calendar/teaching_units.h"

#include "calendar/offerings.h"
#include "core/mdlGlobal.h"
#include "core/next_id.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"Unterrichtseinheiten"_s;

void moveOfferings(const QString& from, const QString& to) {
    // A damaged unit without a time is not the one of the offerings that have none.
    if (from.isEmpty())
        return;
    for (const auto& table : offeringTables())
        Global().Conn.Change(table, {{u"UE_Zeit"_s, to}}, u"UE_Zeit = ?"_s, {from});
}

} // namespace

std::vector<TeachingUnit> Unterrichtseinheiten_DatenEinlesen() {
    std::vector<TeachingUnit> units;
    for (Recordset rs = Global().Conn.Open(u"SELECT * FROM Unterrichtseinheiten ORDER BY Zeit"_s); !rs.Eof();
         rs.MoveNext())
        units.push_back({rs.Number(u"ID"), rs.Text(u"Zeit")});
    return units;
}

std::optional<QString> Unterrichtseinheit_Zeit(int id) {
    const Recordset rs = Global().Conn.Open(u"SELECT * FROM Unterrichtseinheiten WHERE ID = ?"_s, {id});
    return rs.Eof() ? std::nullopt : std::optional(rs.Text(u"Zeit"));
}

qint64 Unterrichtseinheiten_Daten_Neu(const QString& zeit) {
    const qint64 id = NextId(Global().Conn, kTable);
    Global().Conn.AddNew(kTable).Set(u"ID"_s, id).Set(u"Zeit"_s, zeit).Update();
    return id;
}

void Unterrichtseinheiten_Daten_Korrektur(int id, const QString& zeit, const QString& zeit_alt) {
    Transaction transaction(Global().Conn);
    Global().Conn.Change(kTable, {{u"Zeit"_s, zeit}}, u"ID = ?"_s, {id});
    moveOfferings(zeit_alt, zeit);
    transaction.Commit();
}

void Unterrichtseinheiten_Daten_Löschen(int id, const QString& zeit_alt) {
    Transaction transaction(Global().Conn);
    Global().Conn.Delete(kTable, u"ID = ?"_s, {id});
    moveOfferings(zeit_alt, u""_s);
    transaction.Commit();
}

void Unterrichtseinheiten_Sortieren() {
    Transaction transaction(Global().Conn);
    int number = 0;
    for (const auto& unit : Unterrichtseinheiten_DatenEinlesen())
        Global().Conn.Change(kTable, {{u"Sort_NR"_s, ++number}}, u"Zeit = ?"_s, {unit.Zeit});
    transaction.Commit();
}

} // namespace kolibri
