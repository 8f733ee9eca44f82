#include "core/widgets/application.h"
#include "lists/dayplan/day_plan_cell.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kThird = u"09:55 - 10:40"_s;
const QString kFifth = u"11:40 - 12:25"_s;
const QString kSixth = u"12:30 - 13:15"_s;

/// An offering in a unit; its key is the short name behind the unit.
PlanOffering offering(const QString& unit, const QString& kurzname) {
    return {unit, unit + u' ' + kurzname, kurzname};
}

PlanNote note(int group, const QString& unit, const QString& kurzname, const QString& text) {
    return {group, unit + u' ' + kurzname, text};
}

/// A pupil who holds these keys ("" for none) in the groups from GR1 on.
PlanDay pupil(const QString& ende, const std::vector<QString>& keys,
              const std::vector<PlanNote>& notes = {}) {
    PlanDay day;
    day.unterrichtsende = ende;
    day.notes = notes;
    for (std::size_t i = 0; i < keys.size(); ++i)
        day.cells[i] = keys[i];
    return day;
}

DayOfferings offeringsOf(const std::vector<std::pair<int, PlanOffering>>& entries) {
    DayOfferings offerings;
    for (const auto& [gr, entry] : entries)
        offerings[static_cast<std::size_t>(gr - 1)].push_back(entry);
    return offerings;
}

const auto kMensaFifth = std::pair{1, offering(kFifth, u"ME1"_s)};
const auto kMensaSixth = std::pair{1, offering(kSixth, u"ME2"_s)};

} // namespace

Q_DECLARE_METATYPE(DayOfferings)
Q_DECLARE_METATYPE(PlanDay)

class DayPlanCellTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    static void row(const char* name, const DayOfferings& offerings, const PlanDay& day, const QString& unit,
                    const QString& cell) {
        QTest::newRow(name) << offerings << day << unit << cell;
    }

    static void columns() {
        QTest::addColumn<DayOfferings>("offerings");
        QTest::addColumn<PlanDay>("day");
        QTest::addColumn<QString>("unit");
        QTest::addColumn<QString>("cell");
    }

private Q_SLOTS:
    void teachingHangsOnTheMensaTimes_data() {
        columns();
        const auto mensa = offeringsOf({kMensaSixth});
        row("before the end", mensa, pupil(u"12:25"_s, {}), kThird, u"U"_s);
        row("at the end", mensa, pupil(u"12:25"_s, {}), kFifth, u"U"_s);
        row("one minute longer", mensa, pupil(u"12:24"_s, {}), kFifth, QString());
        row("after the end", mensa, pupil(u"11:30"_s, {}), kFifth, QString());
        row("no end known", mensa, pupil(QString(), {}), kThird, QString());
        row("a unit that is the Mensa time", mensa, pupil(u"13:15"_s, {}), kSixth, QString());
        row("such a unit through another Mensa", offeringsOf({kMensaFifth, kMensaSixth}),
            pupil(u"13:15"_s, {}), kSixth, u"U"_s);
        row("a day without Mensa", {}, pupil(u"13:15"_s, {}), kThird, QString());
        row("other groups mark nothing", offeringsOf({{2, offering(kSixth, u"LZ"_s)}}), pupil(u"13:15"_s, {}),
            kThird, QString());
        row("a unit without a time", mensa, pupil(u"12:25"_s, {}), QString(), u"U"_s);
    }
    void teachingHangsOnTheMensaTimes() { check(); }

    void anOfferingShowsWhereItIsHeld_data() {
        columns();
        const auto mensa = offeringsOf({kMensaSixth});
        row("held", mensa, pupil(u"12:25"_s, {kSixth + u" ME2"_s}), kSixth, u"ME2"_s);
        row("not held", mensa, pupil(u"12:25"_s, {kFifth + u" ME2"_s}), kSixth, QString());
        row("in another case", mensa, pupil(u"12:25"_s, {kSixth + u" me2"_s}), kSixth, QString());
        row("held, and taught through a later Mensa", offeringsOf({kMensaFifth, kMensaSixth}),
            pupil(u"13:15"_s, {kFifth + u" ME1"_s}), kFifth, u"U"_s);
        row("held in the later of two Mensa times", offeringsOf({kMensaFifth, kMensaSixth}),
            pupil(u"13:15"_s, {kSixth + u" ME2"_s}), kSixth, u"ME2"_s);
        row("Lernzeit over teaching", offeringsOf({kMensaSixth, {2, offering(kFifth, u"LZ1"_s)}}),
            pupil(u"12:25"_s, {QString(), kFifth + u" LZ1"_s}), kFifth, u"LZ1"_s);
        row("Lernzeit that is not held leaves the teaching",
            offeringsOf({kMensaSixth, {2, offering(kFifth, u"LZ1"_s)}}), pupil(u"12:25"_s, {}), kFifth,
            u"U"_s);
    }
    void anOfferingShowsWhereItIsHeld() { check(); }

    void laterGroupsOverwriteEarlierOnes_data() {
        columns();
        std::vector<std::pair<int, PlanOffering>> all;
        std::vector<QString> keys;
        for (int gr = 1; gr <= kGroups; ++gr) {
            all.push_back({gr, offering(kSixth, u"G%1"_s.arg(gr))});
            keys.push_back(kSixth + u" G%1"_s.arg(gr));
        }
        for (std::size_t held = 1; held <= keys.size(); ++held) {
            const std::vector<QString> some(keys.begin(), keys.begin() + static_cast<std::ptrdiff_t>(held));
            row(qPrintable(u"held up to GR%1"_s.arg(held)), offeringsOf(all), pupil(u"12:25"_s, some), kSixth,
                u"G%1"_s.arg(held));
        }
        row("a key of another group", offeringsOf(all), pupil(u"12:25"_s, {keys[1], keys[0]}), kSixth,
            QString());
    }
    void laterGroupsOverwriteEarlierOnes() { check(); }

    void aNoteStandsForAnOfferingThatIsNotTaken_data() {
        columns();
        const auto mensa = offeringsOf({kMensaSixth});
        const auto sick = note(0, kSixth, u"ME2"_s, u"krank"_s);
        row("not held", mensa, pupil(u"12:25"_s, {}, {sick}), kSixth, u"krank"_s);
        row("held", mensa, pupil(u"12:25"_s, {kSixth + u" ME2"_s}, {sick}), kSixth, u"ME2"_s);
        row("the later of two", mensa, pupil(u"12:25"_s, {}, {sick, note(0, kSixth, u"ME2"_s, u"fort"_s)}),
            kSixth, u"fort"_s);
        row("another offering", mensa, pupil(u"12:25"_s, {}, {note(0, kSixth, u"ME1"_s, u"x"_s)}), kSixth,
            QString());
        row("another group", mensa, pupil(u"12:25"_s, {}, {note(1, kSixth, u"ME2"_s, u"x"_s)}), kSixth,
            QString());
        row("no group", mensa, pupil(u"12:25"_s, {}, {note(-1, kSixth, u"ME2"_s, u"x"_s)}), kSixth,
            QString());
        row("another unit", mensa, pupil(u"12:25"_s, {}, {sick}), kThird, u"U"_s);
        row("of a later group over a held Mensa", offeringsOf({kMensaSixth, {3, offering(kSixth, u"AG"_s)}}),
            pupil(u"12:25"_s, {kSixth + u" ME2"_s}, {note(2, kSixth, u"AG"_s, u"heute nicht"_s)}), kSixth,
            u"heute nicht"_s);
        row("an empty note empties the cell", offeringsOf({kMensaSixth, {3, offering(kSixth, u"AG"_s)}}),
            pupil(u"12:25"_s, {kSixth + u" ME2"_s}, {note(2, kSixth, u"AG"_s, QString())}), kSixth,
            QString());
    }
    void aNoteStandsForAnOfferingThatIsNotTaken() { check(); }

private:
    static void check() {
        QFETCH(const DayOfferings, offerings);
        QFETCH(const PlanDay, day);
        QFETCH(const QString, unit);
        QTEST(dayPlanCell(offerings, day, unit), "cell");
    }
};

KOLIBRI_TEST_MAIN(DayPlanCellTest)
#include "day_plan_cell_test.moc"
