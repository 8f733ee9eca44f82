#pragma once

#include <QString>

namespace kolibri {

/// What the sample school is like. The same numbers give the same school, row for row.
struct SampleSchoolOptions {
    int pupils = 320;
    quint32 seed = 1;
};

/// Makes a database with an invented school in a folder, for trying the program out.
/// @returns the path of the file
/// @throws StoreError as createDatabase does
QString createSampleSchool(const QString& folder, const SampleSchoolOptions& options);

} // namespace kolibri
