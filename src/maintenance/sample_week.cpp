#include "maintenance/sample_week.h"

#include <algorithm>
#include <optional>

namespace kolibri {
namespace {

/// What takes up a pupil's day.
class PupilDay {
public:
    void addTeaching(const SampleTeaching& teaching) {
        for (const SampleTime& time : {teaching.morning, teaching.afternoon})
            if (time.isSet())
                m_teaching.push_back(time);
    }
    void addAssignment(const SampleTime& time) { m_assignments.push_back(time); }

    bool isFree(const SampleTime& time) const {
        const auto overlaps = [&](const SampleTime& other) { return time.overlaps(other); };
        return std::none_of(m_teaching.begin(), m_teaching.end(), overlaps)
               && std::none_of(m_assignments.begin(), m_assignments.end(), overlaps);
    }
    /// Whether a further assignment is an overlap by the rules of the pupil form and of the overlap report
    /// alike: the report lets one pass that begins within the teaching and ends after it.
    bool clearlyOverlaps(const SampleTime& time) const {
        return std::any_of(m_assignments.begin(), m_assignments.end(),
                           [&](const SampleTime& other) { return time.overlaps(other); })
               || std::any_of(m_teaching.begin(), m_teaching.end(),
                              [&](const SampleTime& other) { return time.liesWithin(other); });
    }

private:
    std::vector<SampleTime> m_teaching;
    std::vector<SampleTime> m_assignments;
};

/// A school starter has no class yet. The overlap report tests one against the class that it has read last,
/// whichever that is, so all classes count.
PupilDay emptyDay(const SampleCalendar& calendar, const SamplePupil& pupil, int day) {
    const auto weekday = static_cast<std::size_t>(day);
    PupilDay result;
    if (pupil.isStarter())
        for (const auto& klasse : calendar.classes)
            result.addTeaching(klasse.week[weekday]);
    else
        result.addTeaching(calendar.classes[static_cast<std::size_t>(pupil.classIndex)].week[weekday]);
    return result;
}

/// Places of the offerings of a slot on a day that pass a test.
template <typename Test>
std::vector<int> offeringsWith(const SampleCalendar& calendar, int slot, int day, const Test& test) {
    const auto& offerings = calendar.offerings[sampleKindOfSlot(slot)];
    std::vector<int> result;
    for (std::size_t i = 0; i < offerings.size(); ++i)
        if (offerings[i].day == day && test(offerings[i].time))
            result.push_back(static_cast<int>(i));
    return result;
}

class WeekMaker {
public:
    WeekMaker(const SampleCalendar& calendar, SampleRandom& random)
        : m_calendar(calendar), m_random(random) {}

    /// How likely (percent) a pupil takes what a day offers, and the number of Arbeitsgruppen tried.
    struct Wishes {
        int days = 0;
        int mensa = 0;
        int lernzeit = 0;
        int groups = 0;
        int group = 0;
    };

    void makeWeek(SamplePupil& pupil, const Wishes& wishes) {
        std::array<int, kSchoolDays> days{0, 1, 2, 3, 4};
        m_random.shuffle(days);
        for (int i = 0; i < std::min(wishes.days, kSchoolDays); ++i)
            makeDay(pupil, days[static_cast<std::size_t>(i)], wishes);
    }

private:
    void makeDay(SamplePupil& pupil, int day, const Wishes& wishes) {
        PupilDay plan = emptyDay(m_calendar, pupil, day);
        if (m_random.chance(wishes.mensa))
            place(pupil, kSampleMensa, day, plan);
        if (m_random.chance(wishes.lernzeit))
            place(pupil, kSampleLernzeit, day, plan);
        // Most fill the five slots from the first; some offices use the others as they like.
        const int firstSlot = kSampleArbeitsgruppe + (m_random.chance(10) ? m_random.below(4) : 0);
        for (int slot = firstSlot; slot < std::min(firstSlot + wishes.groups, kSampleSlots); ++slot)
            if (m_random.chance(wishes.group))
                place(pupil, slot, day, plan);
    }

    /// Lunch is taken as early as the teaching allows, for the most part.
    void place(SamplePupil& pupil, int slot, int day, PupilDay& plan) {
        const auto fitting =
            offeringsWith(m_calendar, slot, day, [&](const SampleTime& time) { return plan.isFree(time); });
        if (fitting.empty())
            return;
        const bool earliest = slot == kSampleMensa && m_random.chance(75);
        const int chosen = earliest ? fitting.front() : m_random.pick(fitting);
        pupil.cells[static_cast<std::size_t>(slot)][static_cast<std::size_t>(day)] = chosen;
        plan.addAssignment(m_calendar.offering(slot, chosen).time);
    }

    const SampleCalendar& m_calendar;
    SampleRandom& m_random;
};

/// The slot in which an overlap of a kind can be made: that of the Mensa or of the Lernzeit, which may be
/// taken, or the first free one of the Arbeitsgruppen.
std::optional<int> slotForOverlap(const SamplePupil& pupil, SampleKind kind, int day) {
    if (kind != kSampleArbeitsgruppe)
        return kind;
    for (int slot = kSampleArbeitsgruppe; slot < kSampleSlots; ++slot)
        if (pupil.cells[static_cast<std::size_t>(slot)][static_cast<std::size_t>(day)] < 0)
            return slot;
    return std::nullopt;
}

/// The day of a pupil without the cell of one slot; no value when something overlaps in it already.
std::optional<PupilDay> cleanDayWithout(const SampleCalendar& calendar, const SamplePupil& pupil, int day,
                                        int leftOut) {
    PupilDay plan = emptyDay(calendar, pupil, day);
    bool clean = true;
    for (int slot = 0; slot < kSampleSlots; ++slot) {
        const int cell = pupil.cells[static_cast<std::size_t>(slot)][static_cast<std::size_t>(day)];
        if (cell < 0)
            continue;
        const SampleTime time = calendar.offering(slot, cell).time;
        clean = clean && plan.isFree(time);
        if (slot != leftOut)
            plan.addAssignment(time);
    }
    return clean ? std::optional(plan) : std::nullopt;
}

bool addOverlap(const SampleCalendar& calendar, SamplePupil& pupil, SampleKind kind, SampleRandom& random) {
    std::array<int, kSchoolDays> days{0, 1, 2, 3, 4};
    random.shuffle(days);
    for (const int day : days) {
        const auto slot = slotForOverlap(pupil, kind, day);
        if (!slot)
            continue;
        const auto plan = cleanDayWithout(calendar, pupil, day, *slot);
        if (!plan)
            continue;
        const auto overlapping = offeringsWith(
            calendar, *slot, day, [&](const SampleTime& time) { return plan->clearlyOverlaps(time); });
        if (overlapping.empty())
            continue;
        pupil.cells[static_cast<std::size_t>(*slot)][static_cast<std::size_t>(day)] =
            random.pick(overlapping);
        return true;
    }
    return false;
}

} // namespace

void assignSampleWeeks(SampleSchool& school, const SampleMaterial& material, SampleRandom& random) {
    constexpr WeekMaker::Wishes kOutside{2, 0, 0, 1, 40};
    constexpr WeekMaker::Wishes kStarter{2, 100, 0, 0, 0};
    // By care module: lunch alone, lunch and study time, the whole afternoon; any other module like the
    // first.
    constexpr std::array<WeekMaker::Wishes, 3> kByModule{
        {{2, 95, 0, 1, 12}, {3, 95, 80, 1, 20}, {4, 97, 85, 3, 45}}};
    WeekMaker maker(school.calendar, random);
    for (auto& pupil : school.pupils) {
        if (pupil.isStarter()) {
            if (random.chance(50))
                maker.makeWeek(pupil, kStarter);
            continue;
        }
        const bool usual = pupil.module >= 0 && pupil.module < static_cast<int>(kByModule.size());
        WeekMaker::Wishes wishes =
            pupil.outside ? kOutside : kByModule[usual ? static_cast<std::size_t>(pupil.module) : 0];
        if (pupil.module >= 0)
            wishes.days = material.modules[static_cast<std::size_t>(pupil.module)].days;
        wishes.days += random.chance(40) ? 1 : 0;
        maker.makeWeek(pupil, wishes);
    }
}

void addSampleOverlaps(SampleSchool& school, int overlaps, SampleRandom& random) {
    const auto pupils = school.pupils.size();
    for (int made = 0; made < overlaps; ++made) {
        const auto kind = static_cast<SampleKind>(made % kSampleKinds);
        // Spread over the whole list, from there on the first one whose week allows it.
        std::size_t next = static_cast<std::size_t>(made) * pupils / static_cast<std::size_t>(overlaps);
        bool done = false;
        for (std::size_t tried = 0; tried < pupils && !done; ++tried, next = (next + 1) % pupils) {
            SamplePupil& pupil = school.pupils[next];
            done = pupil.active && !pupil.isStarter() && !pupil.outside
                   && addOverlap(school.calendar, pupil, kind, random);
        }
    }
}

} // namespace kolibri
