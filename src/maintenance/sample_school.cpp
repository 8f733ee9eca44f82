#include "maintenance/sample_school.h"

#include "maintenance/new_database.h"

namespace kolibri {
QString createSampleSchool(const QString& folder, const SampleSchoolOptions&) {
    return createDatabase(folder);
}
} // namespace kolibri
