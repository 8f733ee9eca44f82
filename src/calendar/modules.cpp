#include "calendar/modules.h"

#include "core/mdlGlobal.h"
#include "core/next_id.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"Bausteine"_s;

void movePupils(const QString& from, const QString& to) {
    // A damaged module without a text is not what the pupils hold who have booked none.
    if (from.isEmpty())
        return;
    Global().Conn.Change(u"Stammdaten"_s, {{u"Baustein"_s, to}}, u"Baustein = ?"_s, {from});
}

} // namespace

std::vector<CareModule> Bausteine_DatenEinlesen() {
    std::vector<CareModule> modules;
    for (Recordset rs = Global().Conn.Open(u"SELECT * FROM Bausteine ORDER BY ID"_s); !rs.Eof();
         rs.MoveNext())
        modules.push_back({rs.Number(u"ID"), rs.Text(u"Bausteine")});
    return modules;
}

std::optional<QString> Baustein_Text(int id) {
    const Recordset rs = Global().Conn.Open(u"SELECT * FROM Bausteine WHERE ID = ?"_s, {id});
    return rs.Eof() ? std::nullopt : std::optional(rs.Text(u"Bausteine"));
}

qint64 Bausteine_Daten_Neu(const QString& baustein) {
    const qint64 id = NextId(Global().Conn, kTable);
    Global().Conn.AddNew(kTable).Set(u"ID"_s, id).Set(u"Bausteine"_s, baustein).Update();
    return id;
}

void Bausteine_Daten_Korrektur(int id, const QString& baustein, const QString& baustein_alt) {
    Transaction transaction(Global().Conn);
    Global().Conn.Change(kTable, {{u"Bausteine"_s, baustein}}, u"ID = ?"_s, {id});
    movePupils(baustein_alt, baustein);
    transaction.Commit();
}

void Bausteine_Daten_Löschen(int id, const QString& baustein_alt) {
    Transaction transaction(Global().Conn);
    Global().Conn.Delete(kTable, u"ID = ?"_s, {id});
    movePupils(baustein_alt, u""_s);
    transaction.Commit();
}

} // namespace kolibri
