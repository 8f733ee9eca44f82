#include "lists/reports/occupancy_plan.h"

using namespace Qt::StringLiterals;

namespace kolibri {

const std::array<QString, kPlanColumns>& planColumnNames() {
    static const std::array<QString, kPlanColumns> names{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"GES"_s};
    return names;
}

int OccupancyPlan::taken(std::size_t offering, int day, int column) const {
    return Belegt.at(offering).at(static_cast<std::size_t>(day)).at(static_cast<std::size_t>(column));
}

bool OccupancyPlan::overfull(std::size_t offering, int day, int column) const {
    return taken(offering, day, column) > Angebote.at(offering).Plaetze.at(static_cast<std::size_t>(column));
}

const std::array<QString, kSchoolDays>& dayNames() {
    static const std::array<QString, kSchoolDays> names{u"Montag"_s, u"Dienstag"_s, u"Mittwoch"_s,
                                                        u"Donnerstag"_s, u"Freitag"_s};
    return names;
}

} // namespace kolibri
