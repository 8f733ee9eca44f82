#include "maintenance/sample_school.h"

#include "maintenance/new_database.h"
#include "maintenance/sample_lists.h"
#include "maintenance/sample_pupils.h"
#include "maintenance/sample_week.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

SampleSchool makeSchool(const SampleSchoolOptions& options, SampleRandom& random) {
    const SampleMaterial& material = sampleMaterial();
    const SampleCounts counts = sampleCounts(options.pupils);
    SampleSchool school;
    school.calendar = makeSampleCalendar(material, counts.active);
    makeSamplePupils(school, counts, material, random);
    assignSampleWeeks(school, material, random);
    addSampleOverlaps(school, sampleOverlaps(options.pupils), random);
    setSampleFees(school, material, random);
    return school;
}

void writeSchool(Connection& conn, SampleSchool& school, SampleRandom& random) {
    const SampleMaterial& material = sampleMaterial();
    writeSampleSettings(conn);
    writeSampleCalendar(conn, school.calendar);
    writeSamplePupils(conn, school, material);
    writeSampleNotes(conn, school, material, random);
    writeSampleLists(conn, school, material, random);
}

} // namespace

SampleCounts sampleCounts(int pupils) {
    constexpr int kPupilsPerStarter = 16;
    constexpr int kPupilsPerDeactivated = 32;
    const int starters = pupils / kPupilsPerStarter;
    const int deactivated = pupils / kPupilsPerDeactivated;
    return {pupils - starters - deactivated, deactivated, starters};
}

int sampleOverlaps(int pupils) {
    constexpr int kPupilsPerOverlap = 40;
    constexpr int kMostOverlaps = 8;
    return std::min(pupils / kPupilsPerOverlap, kMostOverlaps);
}

QString createSampleSchool(const QString& folder, const SampleSchoolOptions& options) {
    if (options.pupils < kFewestSamplePupils || options.pupils > kMostSamplePupils)
        throw StoreError(
            StoreError::Kind::Value,
            u"Eine Beispielschule hat %1 bis %2 Schülerinnen und Schüler."_s.arg(kFewestSamplePupils)
                .arg(kMostSamplePupils));
    return createDatabase(folder, [&](Connection& conn) {
        SampleRandom random(options.seed);
        SampleSchool school = makeSchool(options, random);
        writeSchool(conn, school, random);
    });
}

} // namespace kolibri
