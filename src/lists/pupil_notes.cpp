#include "lists/pupil_notes.h"

#include "core/mdlGlobal.h"
#include "lists/same_text.h"

using namespace Qt::StringLiterals;

namespace kolibri {

AssignmentNotes::AssignmentNotes(const QString& condition, const QVariantList& values) {
    const QString select =
        u"SELECT SCH_ID, GR, Tag, L_Name, Zeit, Zeit_K_Name, Notiz FROM SCH_Notiz WHERE %1 ORDER BY ID"_s;
    for (Recordset rs = Global().Conn.Open(select.arg(condition), values); !rs.Eof(); rs.MoveNext())
        m_notes[rs.Value(0).toLongLong()].push_back(
            {rs.Text(1), rs.Text(2), rs.Text(3), rs.Text(4), rs.Text(5), rs.Text(6)});
}

const std::vector<AssignmentNote>& AssignmentNotes::of(qint64 pupil) const {
    static const std::vector<AssignmentNote> none;
    const auto found = m_notes.constFind(pupil);
    return found == m_notes.constEnd() ? none : *found;
}

DayPlanNotes::DayPlanNotes(const QString& tag) {
    Recordset rs = Global().Conn.Open(u"SELECT SCH_ID, UE, Notiz FROM WP_Notiz WHERE Tag = ?"_s, {tag});
    for (; !rs.Eof(); rs.MoveNext())
        m_notes[rs.Value(0).toLongLong()].push_back({rs.Text(1), rs.Text(2)});
}

QString DayPlanNotes::text(qint64 pupil, const QString& unit) const {
    if (const auto found = m_notes.constFind(pupil); found != m_notes.constEnd())
        for (const auto& note : *found)
            if (sameText(note.unit, unit))
                return note.notiz;
    return {};
}

} // namespace kolibri
