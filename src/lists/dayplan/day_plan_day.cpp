#include "lists/dayplan/day_plan_day.h"

#include "core/mdlGlobal.h"
#include "lists/same_text.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The group of a note, 0 for "GR1" to 6 for "GR7"; -1 for any other word.
int groupNumber(const QString& gr) {
    const bool named = gr.size() == 3 && gr.startsWith(u"GR") && gr.back() >= u'1' && gr.back() <= u'7';
    return named ? gr.back().unicode() - u'1' : -1;
}

} // namespace

DayPlanDay::DayPlanDay(const QString& tag, bool zweiTage) : m_tag(tag) {
    readOfferings();
    readEndsOfTeaching();
    if (zweiTage)
        m_assignmentNotes.emplace(u"Tag = ?"_s, QVariantList{tag});
    else
        m_dayPlanNotes.emplace(tag);
}

void DayPlanDay::readOfferings() {
    for (int group = 0; group < kGroups; ++group) {
        const QString select =
            u"SELECT UE_Zeit, Zeit_K_Name, K_Name FROM GR%1 WHERE Tag = ? ORDER BY UE_Zeit"_s.arg(group + 1);
        for (Recordset rs = Global().Conn.Open(select, {m_tag}); !rs.Eof(); rs.MoveNext())
            if (!rs.Text(0).isEmpty())
                m_offerings[static_cast<std::size_t>(group)].push_back({rs.Text(0), rs.Text(1), rs.Text(2)});
    }
}

void DayPlanDay::readEndsOfTeaching() {
    Recordset rs =
        Global().Conn.Open(u"SELECT Klasse, Unterrichtsende FROM Klassen WHERE Tag = ?"_s, {m_tag});
    for (; !rs.Eof(); rs.MoveNext())
        m_ends.push_back({rs.Text(0), rs.Text(1)});
}

QString DayPlanDay::endOfTeaching(const QString& klasse) const {
    constexpr int kTimeLength = 5;
    for (const auto& [name, ende] : m_ends)
        if (sameText(name, klasse))
            return ende.left(kTimeLength);
    return {};
}

void DayPlanDay::setPupil(qint64 id, const QString& klasse, std::array<QString, kGroups>&& cells) {
    m_pupil = id;
    m_day.cells = std::move(cells);
    if (const QString ende = endOfTeaching(klasse); !ende.isEmpty())
        m_day.unterrichtsende = ende;
    m_day.notes.clear();
    if (m_assignmentNotes)
        for (const auto& note : m_assignmentNotes->of(id))
            if (note.tag == m_tag)
                m_day.notes.push_back({groupNumber(note.gr), note.zeitKName, note.notiz});
}

QString DayPlanDay::cell(const QString& unit) const {
    const QString cell = dayPlanCell(m_offerings, m_day, unit);
    // The odd tag is what the sheets have always had; a browser breaks the line there.
    return m_dayPlanNotes ? cell + u" <br &> "_s + m_dayPlanNotes->text(m_pupil, unit) : cell;
}

} // namespace kolibri
