#include "maintenance/sample_lists.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

/// The cell of a pupil that holds the assignment of a running number, as slot and day.
std::pair<int, int> cellOf(const SamplePupil& pupil, int assignment) {
    for (int slot = 0; slot < kSampleSlots; ++slot)
        for (int day = 0; day < kSchoolDays; ++day)
            if (pupil.cells[static_cast<std::size_t>(slot)][static_cast<std::size_t>(day)] >= 0
                && assignment-- == 0)
                return {slot, day};
    Q_UNREACHABLE();
}

void writeNote(Connection& conn, const SamplePupil& pupil, const SampleCalendar& calendar, int assignment,
               const QString& text, bool inDayPlan) {
    const auto [slot, day] = cellOf(pupil, assignment);
    const int cell = pupil.cells[static_cast<std::size_t>(slot)][static_cast<std::size_t>(day)];
    const SampleOffering& offering = calendar.offering(slot, cell);
    conn.AddNew(u"SCH_Notiz"_s)
        .Set(u"SCH_ID"_s, pupil.id)
        .Set(u"GR"_s, u"GR%1"_s.arg(slot + 1))
        .Set(u"L_Name"_s, offering.longName)
        .Set(u"Tag"_s, TagCode(day))
        .Set(u"Tag_Zahl"_s, day)
        .Set(u"Zeit"_s, offering.time.text())
        .Set(u"Zeit_K_Name"_s, offering.key)
        .Set(u"Notiz"_s, text)
        .Set(u"WP_Notiz"_s, inDayPlan ? u"1"_s : u""_s)
        .Update();
}

/// The first pupil with notes has the long one, so that every list meets a text of several lines.
void writeAssignmentNotes(Connection& conn, const SampleSchool& school, const SampleMaterial& material,
                          SampleRandom& random) {
    constexpr int kPercentWithNote = 30;
    constexpr int kPercentWithSecondNote = 20;
    constexpr int kPercentInDayPlan = 20;
    QString longNote = material.longNote;
    for (const auto& pupil : school.pupils) {
        const int assignments = pupil.assignments();
        if (!pupil.active || assignments == 0 || !random.chance(kPercentWithNote))
            continue;
        const auto write = [&](int assignment) {
            const QString text =
                longNote.isEmpty() ? random.pick(material.notes) : std::exchange(longNote, QString());
            const bool inDayPlan = random.chance(kPercentInDayPlan);
            writeNote(conn, pupil, school.calendar, assignment, text, inDayPlan);
        };
        const int first = random.below(assignments);
        write(first);
        if (assignments > 1 && random.chance(kPercentWithSecondNote))
            write((first + 1) % assignments);
    }
}

void writeDayPlanNotes(Connection& conn, const SampleSchool& school, const SampleMaterial& material,
                       SampleRandom& random) {
    constexpr int kPercentWithNote = 9;
    constexpr int kMostNotes = 2;
    int id = 0;
    for (const auto& pupil : school.pupils) {
        if (!pupil.active || pupil.isStarter() || !random.chance(kPercentWithNote))
            continue;
        // On days that follow each other, since a pupil has one note in a unit of a day.
        const int firstDay = random.below(kSchoolDays);
        const int notes = 1 + random.below(kMostNotes);
        for (int number = 0; number < notes; ++number) {
            const int day = (firstDay + number) % kSchoolDays;
            conn.AddNew(u"WP_Notiz"_s)
                .Set(u"ID"_s, ++id)
                .Set(u"SCH_ID"_s, pupil.id)
                .Set(u"UE"_s, random.pick(school.calendar.units))
                .Set(u"Tag"_s, TagCode(day))
                .Set(u"Tag_Zahl"_s, day)
                .Set(u"Notiz"_s, random.pick(material.dayPlanNotes))
                .Update();
        }
    }
}

} // namespace

void writeSampleNotes(Connection& conn, const SampleSchool& school, const SampleMaterial& material,
                      SampleRandom& random) {
    writeAssignmentNotes(conn, school, material, random);
    writeDayPlanNotes(conn, school, material, random);
}

} // namespace kolibri
