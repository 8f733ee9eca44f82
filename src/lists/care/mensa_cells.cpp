#include "lists/care/mensa_cells.h"

#include "core/mdlGlobal.h"
#include "lists/same_text.h"

using namespace Qt::StringLiterals;

namespace kolibri {

MensaCells::MensaCells(bool mitZeit) {
    Recordset rs =
        Global().Conn.Open(u"SELECT Zeit_K_Name, Zeit, K_Name FROM GR1 WHERE Zeit_K_Name IS NOT NULL"_s);
    for (; !rs.Eof(); rs.MoveNext()) {
        QString cell = rs.Text(2);
        if (mitZeit)
            cell.prepend(rs.Text(1).remove(u' ') + u"<br /> "_s);
        m_rows.push_back({rs.Text(0), cell});
    }
}

QString MensaCells::MensaZelle(const QString& value) const {
    for (const auto& row : m_rows)
        if (sameText(row.zeitKName, value))
            return row.cell;
    return {};
}

} // namespace kolibri
