#include "maintenance/sample_pupils.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The school year in which the sample school stands; nothing in it depends on the clock.
constexpr int kSchoolYear = 2026;
constexpr int kAgeAtSchoolStart = 6;

/// Children who become six by the end of June start school that summer.
QDate birthDate(int grade, SampleRandom& random) {
    const QDate first(kSchoolYear - kAgeAtSchoolStart - grade, 7, 1);
    return first.addDays(random.below(static_cast<int>(first.daysTo(first.addYears(1)))));
}

void setPerson(SamplePupil& pupil, SampleFamilies& families, const SampleMaterial& material,
               SampleRandom& random) {
    const SampleChild child = families.addChild(pupil.grade);
    pupil.family = child.family;
    pupil.firstName = child.firstName;
    pupil.birth = birthDate(pupil.grade, random);
    pupil.swims = random.chance(10 + 20 * pupil.grade);
    if (random.chance(40))
        pupil.mark = random.pick(material.marks);
    if (random.chance(25)) {
        const QString& remark = random.pick(material.remarks);
        pupil.remark = random.chance(70) ? sampleRichText(remark) : remark;
    }
    for (auto& slot : pupil.cells)
        slot.fill(-1);
}

void setSchool(SamplePupil& pupil, const SampleCalendar& calendar, int classIndex, SampleRandom& random) {
    const SampleClass& klasse = calendar.classes[static_cast<std::size_t>(classIndex)];
    pupil.classIndex = classIndex;
    pupil.klasse = klasse.name;
    pupil.grade = klasse.grade;
    pupil.isNew = klasse.grade == 1 || random.chance(4);
    pupil.outside = random.chance(7);
}

/// Most pupils of the all-day care have booked one of the first three modules; a few have another or none.
void setModule(SamplePupil& pupil, const SampleMaterial& material, SampleRandom& random) {
    constexpr int kUsualModules = 3;
    if (pupil.outside || random.chance(6))
        return;
    pupil.module =
        random.below(random.chance(90) ? kUsualModules : static_cast<int>(material.modules.size()));
}

} // namespace

int SamplePupil::assignments() const {
    int count = 0;
    for (const auto& slot : cells)
        for (const int offering : slot)
            count += offering >= 0 ? 1 : 0;
    return count;
}

void makeSamplePupils(SampleSchool& school, const SampleCounts& counts, const SampleMaterial& material,
                      SampleRandom& random) {
    SampleFamilies families(material, random);
    const int classes = static_cast<int>(school.calendar.classes.size());
    for (int i = 0; i < counts.active + counts.deactivated; ++i) {
        SamplePupil pupil;
        pupil.active = i < counts.active;
        const int classIndex =
            pupil.active ? static_cast<int>(qint64(i) * classes / counts.active) : random.below(classes);
        setSchool(pupil, school.calendar, classIndex, random);
        setModule(pupil, material, random);
        setPerson(pupil, families, material, random);
        school.pupils.push_back(pupil);
    }
    const QStringList starterClasses{QString(), u"0a"_s, u"0b"_s};
    for (int i = 0; i < counts.starters; ++i) {
        SamplePupil pupil;
        pupil.klasse = starterClasses.at(i % starterClasses.size());
        pupil.isNew = true;
        setPerson(pupil, families, material, random);
        school.pupils.push_back(pupil);
    }
    random.shuffle(school.pupils);
    school.families = families.takeFamilies();
    for (auto& pupil : school.pupils)
        pupil.surname = school.families[pupil.family].surname;
}

void setSampleFees(SampleSchool& school, const SampleMaterial& material, SampleRandom& random) {
    enum Fee : std::size_t { kMembership, kCare, kLunch };
    constexpr int kMembershipCents = 1250;
    constexpr int kReducedCents = 625;
    constexpr int kLunchCents = 345;
    constexpr int kWeeksInMonth = 4;
    for (auto& pupil : school.pupils) {
        if (pupil.isStarter())
            continue;
        pupil.cents[kMembership] = random.chance(80) ? kMembershipCents : kReducedCents;
        if (pupil.module >= 0)
            pupil.cents[kCare] = material.modules[static_cast<std::size_t>(pupil.module)].cents;
        for (const int lunch : pupil.cells[kSampleMensa])
            pupil.cents[kLunch] += lunch >= 0 ? kLunchCents * kWeeksInMonth : 0;
    }
}

} // namespace kolibri
