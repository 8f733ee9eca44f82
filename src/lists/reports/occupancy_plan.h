#pragma once

#include "core/mdlAllgemein.h"

#include <QString>

#include <array>
#include <vector>

namespace kolibri {

/// Columns of places: the class letters a to d, and all of them together.
inline constexpr int kPlanLetters = 4;
inline constexpr int kPlanColumns = kPlanLetters + 1;
/// "A" to "D" and "GES", as they stand over the columns.
const std::array<QString, kPlanColumns>& planColumnNames();

/// An offering of the occupancy plan with the places that the office has for it.
struct OccupancyOffering {
    QString Bezeichnung;
    QString Zeit;
    QString Zeit_K_Name;
    /// Places by column as the office typed them; "0" where it has typed nothing.
    std::array<QString, kPlanColumns> PlaetzeText{};
    std::array<int, kPlanColumns> Plaetze{};

    bool operator==(const OccupancyOffering&) const = default;
};

/// Pupils by column.
using PlanCounts = std::array<int, kPlanColumns>;
/// Pupils of an offering by weekday and column.
using PlanWeek = std::array<PlanCounts, kSchoolDays>;

/// The occupancy plan of Mensa or Lernzeit: the places there are, and how many of them are taken.
struct OccupancyPlan {
    std::vector<OccupancyOffering> Angebote;
    /// In the order of the offerings.
    std::vector<PlanWeek> Belegt;

    /// True if more pupils come than there are places. Every place taken is not too many; where no places
    /// were entered, one pupil is.
    bool overfull(std::size_t offering, int day, int column) const;
    int taken(std::size_t offering, int day, int column) const;
};

/// "Montag" to "Freitag".
const std::array<QString, kSchoolDays>& dayNames();

} // namespace kolibri
