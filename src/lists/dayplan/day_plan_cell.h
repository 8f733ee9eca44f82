#pragma once

#include <QString>

#include <array>
#include <vector>

namespace kolibri {

/// Assignments of a pupil on a day, and so tables of offerings: GR1 to GR7.
inline constexpr int kGroups = 7;

/// An offering of a weekday that lies in a teaching unit.
struct PlanOffering {
    /// The unit's time, "12:30 - 13:15".
    QString unit;
    QString zeitKName;
    QString kurzname;
};
/// The offerings of a weekday by group, each in the order of their units.
using DayOfferings = std::array<std::vector<PlanOffering>, kGroups>;

/// A note that stands in the place of an offering which the pupil does not take.
struct PlanNote {
    /// 0 for GR1 to 6 for GR7.
    int group = 0;
    QString zeitKName;
    QString notiz;
};

/// A pupil's weekday: the seven cells, the end of teaching of the class ("12:25"), and the notes that count.
struct PlanDay {
    std::array<QString, kGroups> cells;
    QString unterrichtsende;
    std::vector<PlanNote> notes;
};

/// What a pupil does in a teaching unit: the short name of the offering that is held, "U" for teaching, or
/// nothing. A later group overwrites an earlier one, and so does each offering in turn.
///
/// The "U" hangs on the Mensa times: each of them that lies in another unit marks a unit that ends no later
/// than the teaching. So a day without Mensa shows no teaching, and a unit that is a Mensa time itself shows
/// it only through another one. The office knows the plan that way.
QString dayPlanCell(const DayOfferings& offerings, const PlanDay& day, const QString& unit);

} // namespace kolibri
