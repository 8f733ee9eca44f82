#include "calendar/class_assignment.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {

QStringList KlassenMitSchülern() {
    QStringList classes;
    Recordset rs = Global().Conn.Open(u"SELECT DISTINCT Klasse FROM Stammdaten ORDER BY Klasse"_s);
    for (; !rs.Eof(); rs.MoveNext())
        // A pupil whose class was never set cannot be reached by its name.
        if (!rs.IsNull(u"Klasse"))
            classes << rs.Text(u"Klasse");
    return classes;
}

const QStringList& zuweisungTage() {
    static const QStringList days{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s, u"SA"_s};
    return days;
}

QStringList ME_LZ_AG_ZeitenEintragen(OfferingKind kind, const QString& tag) {
    QStringList entries;
    Recordset rs =
        Global().Conn.Open(u"SELECT Zeit, K_Name FROM %1 WHERE Tag = ?"_s.arg(listTableOf(kind)), {tag});
    for (; !rs.Eof(); rs.MoveNext())
        entries << rs.Text(u"Zeit") + u' ' + rs.Text(u"K_Name");
    return entries;
}

bool Klasse_ME_LZ_AG_Zuordnen(OfferingKind kind, const QString& klasse, const QString& tag,
                              const QString& einheit) {
    const QString column = listTableOf(kind) + u'_' + tag;
    QString pupils = u"Klasse = ?"_s;
    if (kind != OfferingKind::Arbeitsgruppe)
        pupils += u" AND NichtOG = FALSE"_s;
    try {
        Global().Conn.Change(u"Stammdaten"_s, {{column, einheit}}, pupils, {klasse});
    } catch (const StoreError&) {
        return false;
    }
    return true;
}

} // namespace kolibri
