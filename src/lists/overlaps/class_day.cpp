#include "lists/overlaps/class_day.h"

#include "core/mdlGlobal.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

constexpr int kFirstTimeField = 2;

ClassWeek readWeek(const QString& klasse) {
    ClassWeek week;
    Recordset rs = Global().Conn.Open(
        u"SELECT Tag_Zahl, Tag, Unterrichtsbeginn, Unterrichtsende, UnterrichtsbeginnNM, UnterrichtsendeNM "
        "FROM Klassen WHERE Klasse = ?"_s,
        {klasse});
    for (; !rs.Eof(); rs.MoveNext()) {
        const QVariant day = rs.Value(0);
        const qint64 number = day.toLongLong();
        if (day.isNull() || number < 0 || number >= kSchoolDays)
            continue;
        auto& entry = week.at(static_cast<std::size_t>(number));
        // Of two rows for a day the first counts.
        if (entry)
            continue;
        entry.emplace();
        entry->Tag = rs.Text(1);
        for (int i = 0; i < kClassTimes; ++i) {
            const QString time = rs.Text(kFirstTimeField + i);
            entry->Zeiten.at(static_cast<std::size_t>(i)) = time.isEmpty() ? u"00:00"_s : time;
        }
    }
    return week;
}

} // namespace

const ClassWeek& ClassWeeks::of(const QString& klasse) {
    if (const auto known = m_weeks.constFind(klasse); known != m_weeks.constEnd())
        return *known;
    ClassWeek week;
    try {
        week = readWeek(klasse);
    } catch (const StoreError& error) {
        // An apostrophe in the class of one pupil must not keep the office from the list of all the others.
        if (error.kind() != StoreError::Kind::Syntax)
            throw;
    }
    return *m_weeks.insert(klasse, week);
}

} // namespace kolibri
