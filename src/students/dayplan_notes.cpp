#include "students/dayplan_notes.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/next_id.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

const QString kTable = u"WP_Notiz"_s;
const QString kThere = u"SCH_ID = ? AND UE = ? AND Tag = ?"_s;

QVariantList there(const TagesplanOrt& ort) {
    return {Global().AktuelleSchuelerID, ort.UE, ort.Tag};
}

Recordset notesAt(const TagesplanOrt& ort) {
    return Global().Conn.Open(u"SELECT * FROM WP_Notiz WHERE "_s + kThere, there(ort));
}

} // namespace

QStringList UnterrichtseinheitenLesen() {
    QStringList units;
    Recordset rs = Global().Conn.Open(u"SELECT Zeit FROM Unterrichtseinheiten ORDER BY Zeit"_s);
    for (; !rs.Eof(); rs.MoveNext())
        units << rs.Text(0);
    return units;
}

std::optional<TagesplanNotiz> ErsteTagesplanNotizLesen() {
    const Recordset rs =
        Global().Conn.Open(u"SELECT * FROM WP_Notiz WHERE SCH_ID = ?"_s, {Global().AktuelleSchuelerID});
    if (rs.Eof())
        return std::nullopt;
    return TagesplanNotiz{{rs.Text(u"UE"), rs.Text(u"Tag")}, rs.Text(u"Notiz")};
}

QString TagesplanNotizLesen(const TagesplanOrt& ort) {
    const Recordset rs = notesAt(ort);
    return rs.Eof() ? QString() : rs.Text(u"Notiz");
}

bool NotizEinfuegen(const TagesplanNotiz& notiz) {
    auto& conn = Global().Conn;
    // Two workstations must not give out the same key.
    Transaction transaction(conn);
    const qint64 next = NextId(conn, kTable);
    if (!notesAt(notiz.ort).Eof())
        return false;
    conn.AddNew(kTable)
        // The notes are counted from 1.
        .Set(u"ID"_s, next == 0 ? 1 : next)
        .Set(u"SCH_ID"_s, Global().AktuelleSchuelerID)
        .Set(u"UE"_s, notiz.ort.UE)
        .Set(u"Tag"_s, notiz.ort.Tag)
        .Set(u"Tag_Zahl"_s, TagZahl(notiz.ort.Tag))
        .Set(u"Notiz"_s, notiz.Notiz)
        .Update();
    transaction.Commit();
    return true;
}

bool NotizKorrigieren(const TagesplanNotiz& notiz) {
    auto& conn = Global().Conn;
    Transaction transaction(conn);
    if (notesAt(notiz.ort).Eof())
        return false;
    conn.Change(kTable, {{u"Notiz"_s, notiz.Notiz}}, kThere, there(notiz.ort));
    transaction.Commit();
    return true;
}

void NotizLoeschen(const TagesplanOrt& ort) {
    Global().Conn.Delete(kTable, kThere, there(ort));
}

} // namespace kolibri
