#pragma once

#include "core/mdlAllgemein.h"
#include "core/store/connection.h"
#include "maintenance/sample_material.h"

#include <QString>
#include <QStringList>

#include <array>
#include <vector>

namespace kolibri {

/// A piece of a day in minutes since midnight. One that ends at 0 is not there.
struct SampleTime {
    int from = 0;
    int to = 0;

    bool isSet() const { return to > 0; }
    bool overlaps(const SampleTime& other) const { return from < other.to && to > other.from; }
    bool liesWithin(const SampleTime& other) const { return from >= other.from && to <= other.to; }
    bool operator==(const SampleTime&) const = default;
    /// "hh:mm - hh:mm"
    QString text() const;
};

/// Teaching of a class on a day. A morning from 0 is one of which the office entered the end alone.
struct SampleTeaching {
    SampleTime morning;
    SampleTime afternoon;
};

struct SampleClass {
    QString name;
    int grade = 0;
    QChar letter;
    std::array<SampleTeaching, kSchoolDays> week;
};

/// Mensa, Lernzeit and Arbeitsgruppen.
enum SampleKind { kSampleMensa, kSampleLernzeit, kSampleArbeitsgruppe };
inline constexpr int kSampleKinds = 3;
/// Assignments that a pupil can have on a day: one Mensa, one Lernzeit, five Arbeitsgruppen.
inline constexpr int kSampleSlots = 7;
/// The kind of the offerings of a slot, which are numbered from 0.
constexpr SampleKind sampleKindOfSlot(int slot) {
    return static_cast<SampleKind>(slot < kSampleArbeitsgruppe ? slot : kSampleArbeitsgruppe);
}

/// An offering on one day of the week: a row of GR1, of GR2, or of each of GR3 to GR7.
struct SampleOffering {
    QString shortName;
    QString longName;
    int day = 0;
    SampleTime time;
    QString unit;
    QString supervisor;
    QString place;
    QString remark;
    /// Zeit_K_Name, by which a pupil holds the offering.
    QString key;
};

/// The week of the sample school.
struct SampleCalendar {
    std::vector<SampleClass> classes;
    /// Teaching units in the order in which the office entered them.
    QStringList units;
    std::array<std::vector<SampleOffering>, kSampleKinds> offerings;

    const SampleOffering& offering(int slot, int index) const {
        return offerings[sampleKindOfSlot(slot)][static_cast<std::size_t>(index)];
    }
};

/// A week with classes for so many pupils: fourteen of them (1a to 1d, 2a to 2d, 3a to 3c, 4a to 4c) for up
/// to 420 pupils, and beyond that as many in each of the four grades as give 28 pupils a class, but none
/// behind the letter z.
SampleCalendar makeSampleCalendar(const SampleMaterial& material, int pupilsInClasses);

/// Writes Klassen, Unterrichtseinheiten and GR1 to GR7.
void writeSampleCalendar(Connection& conn, const SampleCalendar& calendar);

} // namespace kolibri
