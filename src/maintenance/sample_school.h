#pragma once

#include <QString>

namespace kolibri {

/// What the sample school is like. The same numbers give the same school, row for row.
struct SampleSchoolOptions {
    int pupils = 320;
    quint32 seed = 1;
};

inline constexpr int kFewestSamplePupils = 1;
inline constexpr int kMostSamplePupils = 100'000;

/// How the pupils of a sample school divide. Of 320 are 290 active pupils of the fourteen classes 1a to 4d,
/// 20 school starters and 10 deactivated pupils.
struct SampleCounts {
    int active = 0;
    int deactivated = 0;
    int starters = 0;
};
SampleCounts sampleCounts(int pupils);

/// Days on which an active pupil of a sample school is meant to be in two places at once: one for forty
/// pupils, eight at most. The pupil form and the overlap report find the same ones; nothing else overlaps.
int sampleOverlaps(int pupils);

/// Makes a database with an invented school in a folder, for trying the program out.
///
/// The classes grow with the school: fourteen for up to 462 pupils, of whom 420 are in classes, then about
/// 28 pupils a class as far as 4z. The program's own bounds stay: from about 500 pupils on the reports by
/// class meet more than the twenty classes they have room for, and no form takes a pupil whose key is above
/// 32767.
/// @returns the path of the file
/// @throws StoreError as createDatabase does, and (Value) for fewer than 1 or more than 100,000 pupils
QString createSampleSchool(const QString& folder, const SampleSchoolOptions& options);

} // namespace kolibri
