#pragma once

#include "lists/reports/occupancy_plan.h"

#include <QStringList>

namespace kolibri {

/// Pupils by weekday.
using WeekCounts = std::array<int, kSchoolDays>;

/// A class with the pupils of each offering, in the order in which the offerings were asked for.
struct ClassCounts {
    QString klasse;
    std::vector<WeekCounts> offerings;
};

/// An Arbeitsgruppe on one weekday, by its key.
struct GroupMeeting {
    QString tag;
    QString zeitKName;
};

// Each of these counts with one statement for the whole report. The keys of the offerings are values of the
// statement, so the store compares them as it compares everything, and refuses one with an apostrophe. The
// database is open. `gr` is "GR1" or "GR2".

/// Active pupils of each offering, with or without the school starters.
std::vector<WeekCounts> countOfferings(const QString& gr, const QStringList& keys, bool withStarters);

/// The classes that any pupil is in, active or not, in their order, with the active pupils of each offering.
/// Without school starters the classes are left out in which nobody else is; of the others all pupils count.
std::vector<ClassCounts> countByClass(const QString& gr, const QStringList& keys, bool withStarters);

/// Active pupils of each offering by class letter, of all grades; school starters have no part in it, nor has
/// a letter beyond d. The last column is the sum.
std::vector<PlanWeek> countByLetter(const QString& gr, const QStringList& keys);

/// Active pupils of each meeting, in whichever of the five slots they hold it: one who holds it in two slots
/// counts twice. @throws StoreError when a meeting is on no school day
std::vector<int> countGroups(const std::vector<GroupMeeting>& meetings);

} // namespace kolibri
