#include "lists/dayplan/day_plan_cell.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// An offering of the unit itself: its short name for a pupil who holds it, else the last note on it.
void applyOffering(const PlanOffering& offering, const PlanDay& day, int group, QString& cell) {
    if (day.cells[static_cast<std::size_t>(group)] == offering.zeitKName) {
        cell = offering.kurzname;
        return;
    }
    for (const auto& note : day.notes)
        if (note.group == group && note.zeitKName == offering.zeitKName)
            cell = note.notiz;
}

} // namespace

QString dayPlanCell(const DayOfferings& offerings, const PlanDay& day, const QString& unit) {
    constexpr int kTimeLength = 5;
    QString cell;
    const bool taught = unit.right(kTimeLength) <= day.unterrichtsende;
    for (int group = 0; group < kGroups; ++group)
        for (const auto& offering : offerings[static_cast<std::size_t>(group)]) {
            if (offering.unit == unit)
                applyOffering(offering, day, group, cell);
            else if (group == 0 && taught)
                cell = u"U"_s;
        }
    return cell;
}

} // namespace kolibri
