#pragma once

#include "core/store/connection.h"
#include "maintenance/sample_calendar.h"
#include "maintenance/sample_families.h"
#include "maintenance/sample_school.h"

#include <QDate>
#include <QString>

#include <array>
#include <vector>

namespace kolibri {

/// Fees of a pupil, and the place of their sum behind them.
inline constexpr int kSampleFees = 7;

/// A pupil's cells: slot by day, the place of the offering among those of the slot's kind, -1 for none.
using SampleCells = std::array<std::array<int, kSchoolDays>, kSampleSlots>;

struct SamplePupil {
    std::size_t family = 0;
    QString surname;
    QString firstName;
    QDate birth;
    /// Place of the class in the calendar; -1 for a school starter.
    int classIndex = -1;
    QString klasse;
    int grade = 0;
    bool active = true;
    bool isNew = false;
    /// Takes no part in the all-day care (NichtOG).
    bool outside = false;
    bool swims = false;
    /// Place of the care module in the material; -1 for none.
    int module = -1;
    QString mark;
    QString remark;
    SampleCells cells;
    std::array<int, kSampleFees> cents{};
    /// Key in Stammdaten, once the pupil is written.
    qint64 id = 0;

    bool isStarter() const { return classIndex < 0; }
    /// Cells that name an offering.
    int assignments() const;
};

/// Everything in the sample school that stands in more than one table.
struct SampleSchool {
    SampleCalendar calendar;
    std::vector<SampleFamily> families;
    std::vector<SamplePupil> pupils;
};

/// Fills families and pupils of a school whose calendar stands, still without assignments and fees. The order
/// is that in which the office entered them, and follows neither class nor name.
void makeSamplePupils(SampleSchool& school, const SampleCounts& counts, const SampleMaterial& material,
                      SampleRandom& random);

/// Fees from the care module and the lunches a week of each pupil.
void setSampleFees(SampleSchool& school, const SampleMaterial& material, SampleRandom& random);

/// Writes Stammdaten and keeps each pupil's key.
void writeSamplePupils(Connection& conn, SampleSchool& school, const SampleMaterial& material);

} // namespace kolibri
