#include "lists/reports/report_counts.h"

#include "core/mdlGlobal.h"
#include "lists/same_text.h"

#include <algorithm>
#include <numeric>
#include <optional>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// A SELECT that counts many things in one pass, each in a column of its own behind the first ones.
class CountingSelect {
public:
    explicit CountingSelect(const QStringList& firstColumns = {})
        : m_columns(firstColumns), m_first(static_cast<int>(firstColumns.size())) {}

    /// Counts the rows of each condition, which has one "?" for the value; a row that meets two counts twice.
    void add(const QStringList& conditions, const QString& value) {
        QStringList parts;
        for (const auto& condition : conditions) {
            parts << u"CASE WHEN %1 THEN 1 ELSE 0 END"_s.arg(condition);
            m_values << value;
        }
        m_columns << u"SUM(%1)"_s.arg(parts.join(u" + "_s));
    }
    /// For each offering a column for each weekday.
    void addWeeks(const QString& gr, const QStringList& keys, const QString& besides = {}) {
        for (const auto& key : keys)
            for (int day = 0; day < kSchoolDays; ++day)
                add({besides + u"%1_%2 = ?"_s.arg(gr, TagCode(day))}, key);
    }
    Recordset open(const QString& fromStammdaten) const {
        return Global().Conn.Open(
            u"SELECT "_s + m_columns.join(u", "_s) + u" FROM Stammdaten"_s + fromStammdaten, m_values);
    }

    /// Count `number` of the current row; no sum at all when there was no pupil.
    int count(const Recordset& rs, int number) const { return rs.Value(m_first + number).toInt(); }
    /// The counts of offering `number` of the current row.
    WeekCounts week(const Recordset& rs, int number) const {
        WeekCounts counts{};
        for (int day = 0; day < kSchoolDays; ++day)
            counts[static_cast<std::size_t>(day)] = count(rs, number * kSchoolDays + day);
        return counts;
    }
    std::vector<WeekCounts> weeks(const Recordset& rs, qsizetype offerings) const {
        std::vector<WeekCounts> result;
        for (int i = 0; i < offerings; ++i)
            result.push_back(week(rs, i));
        return result;
    }

private:
    QStringList m_columns;
    QVariantList m_values;
    int m_first;
};

/// The place of a class letter in the plan; none for a letter beyond d.
std::optional<std::size_t> letterColumn(const QString& letter) {
    for (std::size_t column = 0; column < kPlanLetters; ++column)
        if (sameText(letter, planColumnNames().at(column)))
            return column;
    return std::nullopt;
}

/// The weekday of a meeting as the columns of the pupils name it: it becomes part of a statement.
QString dayColumn(const GroupMeeting& meeting) {
    for (int day = 0; day < kSchoolDays; ++day)
        if (sameText(meeting.tag, TagCode(day)))
            return TagCode(day);
    throw StoreError(
        StoreError::Kind::Programming,
        u"Die Arbeitsgruppe \"%1\" liegt auf keinem Schultag (\"%2\")."_s.arg(meeting.zeitKName, meeting.tag),
        u"GR3"_s);
}

} // namespace

std::vector<WeekCounts> countOfferings(const QString& gr, const QStringList& keys, bool withStarters) {
    if (keys.isEmpty())
        return {};
    CountingSelect select;
    select.addWeeks(gr, keys);
    const QString starters = withStarters ? QString() : u" AND Schulstufe > 0"_s;
    return select.weeks(select.open(u" WHERE aktiv = true"_s + starters), keys.size());
}

std::vector<ClassCounts> countByClass(const QString& gr, const QStringList& keys, bool withStarters) {
    CountingSelect select({u"Klasse"_s, u"MAX(Schulstufe)"_s});
    select.addWeeks(gr, keys, u"aktiv = true AND "_s);
    Recordset rs = select.open(u" GROUP BY Klasse ORDER BY Klasse"_s);
    std::vector<ClassCounts> classes;
    // A pupil without any class is looked for as one whose class is an empty text, like everywhere.
    std::vector<WeekCounts> ofEmptyText(static_cast<std::size_t>(keys.size()));
    std::optional<std::size_t> withoutClass;
    for (; !rs.Eof(); rs.MoveNext()) {
        const bool noClass = rs.Value(0).isNull();
        const auto counts = select.weeks(rs, keys.size());
        if (!noClass && rs.Text(0).isEmpty())
            ofEmptyText = counts;
        if (!withStarters && rs.Value(1).toLongLong() <= 0)
            continue;
        if (noClass)
            withoutClass = classes.size();
        classes.push_back({rs.Text(0), counts});
    }
    if (withoutClass)
        classes[*withoutClass].offerings = ofEmptyText;
    return classes;
}

std::vector<PlanWeek> countByLetter(const QString& gr, const QStringList& keys) {
    std::vector<PlanWeek> result(static_cast<std::size_t>(keys.size()));
    CountingSelect select({u"Kl_Nr"_s});
    select.addWeeks(gr, keys);
    Recordset rs = select.open(u" WHERE aktiv = true AND Schulstufe > 0 GROUP BY Kl_Nr"_s);
    for (; !rs.Eof(); rs.MoveNext()) {
        const auto column = letterColumn(rs.Text(0));
        if (!column)
            continue;
        for (std::size_t offering = 0; offering < result.size(); ++offering) {
            const WeekCounts counts = select.week(rs, static_cast<int>(offering));
            for (std::size_t day = 0; day < counts.size(); ++day) {
                result[offering][day][*column] = counts[day];
                result[offering][day][kPlanLetters] += counts[day];
            }
        }
    }
    return result;
}

std::vector<int> countGroups(const std::vector<GroupMeeting>& meetings) {
    if (meetings.empty())
        return {};
    CountingSelect select;
    for (const auto& meeting : meetings) {
        QStringList slots;
        for (int slot = 3; slot <= 7; ++slot)
            slots << u"GR%1_%2 = ?"_s.arg(slot).arg(dayColumn(meeting));
        select.add(slots, meeting.zeitKName);
    }
    const Recordset rs = select.open(u" WHERE aktiv = true"_s);
    std::vector<int> counts;
    for (int i = 0; i < static_cast<int>(meetings.size()); ++i)
        counts.push_back(select.count(rs, i));
    return counts;
}

} // namespace kolibri
