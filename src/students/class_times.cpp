#include "students/class_times.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

QString timeOf(const Recordset& rs, const QString& field) {
    const QString time = rs.HasField(field) ? rs.Text(field) : QString();
    return time == u"00:00"_s ? QString() : time;
}

} // namespace

std::vector<UnterrichtTag> UnterrichtszeitenLesen(const QString& klasse) {
    std::vector<UnterrichtTag> tage;
    Recordset rs =
        Global().Conn.Open(u"SELECT * FROM Klassen WHERE Klasse = ? ORDER BY Tag_Zahl"_s, {klasse});
    for (; !rs.Eof() && tage.size() < kSchoolDays; rs.MoveNext())
        tage.push_back({timeOf(rs, u"Unterrichtsbeginn"_s), timeOf(rs, u"Unterrichtsende"_s),
                        timeOf(rs, u"UnterrichtsbeginnNM"_s), timeOf(rs, u"UnterrichtsendeNM"_s)});
    return tage;
}

} // namespace kolibri
