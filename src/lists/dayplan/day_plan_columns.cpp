#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "lists/column_builder.h"
#include "lists/dayplan/day_plan.h"

using namespace Qt::StringLiterals;

namespace kolibri {

void buildDayPlanColumns(ColumnBuilder& builder) {
    const DbSession session(u"Unterrichtseinheiten lesen"_s);
    builder.add(u"NAME"_s, 11, kLinks);
    builder.add(u"KL"_s, 3, kMitte);
    Recordset rs = Global().Conn.Open(u"SELECT * FROM Unterrichtseinheiten ORDER BY Zeit"_s);
    const int days = Liste().Wochenplan.chk2Tage ? 2 : 1;
    for (int day = 0; day < days; ++day)
        for (rs.MoveFirst(); !rs.Eof(); rs.MoveNext())
            builder.add(rs.Text(u"Zeit"), 8, kMitte);
}

} // namespace kolibri
