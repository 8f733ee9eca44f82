// The ten blocks, each at and beside each of its boundaries, and beside the check of the pupil form.

#include "core/widgets/application.h"
#include "lists/overlaps/teaching_overlap.h"
#include "students/overlap_check.h"
#include "support/test_base.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// 08:00 and 12:00, 14:00 and 15:30.
constexpr qint16 kAcht = 480;
constexpr qint16 kZwoelf = 720;
constexpr qint16 kVierzehn = 840;
constexpr qint16 kHalbVier = 930;

constexpr TeachingMinutes kMorning{kAcht, kZwoelf, 0, 0};
constexpr TeachingMinutes kAfternoon{0, 0, kVierzehn, kHalbVier};
constexpr TeachingMinutes kOnlyEnd{0, kZwoelf, 0, 0};
constexpr TeachingMinutes kOnlyEndNM{0, 0, 0, kHalbVier};

bool found(int block, const TeachingMinutes& teaching, int von, int bis) {
    const auto blocks = conflictingBlocks(teaching, static_cast<qint16>(von), static_cast<qint16>(bis));
    return std::find(blocks.begin(), blocks.end(), block) != blocks.end();
}

bool inReport(const TeachingMinutes& teaching, int von, int bis) {
    return overlapsTeaching(teaching, static_cast<qint16>(von), static_cast<qint16>(bis));
}

QString clock(int minutes) {
    return u"%1:%2"_s.arg(minutes / 60, 2, 10, QChar(u'0')).arg(minutes % 60, 2, 10, QChar(u'0'));
}

/// The form leaves the box of a time empty that is not set.
QString box(qint16 minutes) {
    return minutes == 0 ? QString() : clock(minutes);
}

/// What the lamp of the pupil form says to the same day.
bool onForm(const TeachingMinutes& teaching, int von, int bis, bool waived = false) {
    PruefWoche woche;
    woche[0].GR[0] = u"%1 - %2 ME"_s.arg(clock(von), clock(bis));
    woche[0].U_Beginn = box(teaching.U_Beginn);
    woche[0].U_Ende = box(teaching.U_Ende);
    woche[0].U_BeginnNM = box(teaching.U_BeginnNM);
    woche[0].U_EndeNM = box(teaching.U_EndeNM);
    woche[0].Ü_Nein = waived;
    return Check_ZeitÜberschneidungen_Vor_Datenübernahme(woche).ZeitKonflikt;
}

} // namespace

Q_DECLARE_METATYPE(TeachingMinutes)

class TeachingOverlapTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    /// Rows for a block: begin, end, and whether it finds them.
    struct Sample {
        int von;
        int bis;
        bool found;
    };

    static void addSamples(int block, const TeachingMinutes& teaching, const std::vector<Sample>& samples) {
        for (const auto& [von, bis, found] : samples)
            QTest::addRow("block %d: %d to %d", block, von, bis) << block << teaching << von << bis << found;
    }

private Q_SLOTS:
    void aBlockAtAndBesideItsBoundaries_data() {
        QTest::addColumn<int>("block");
        QTest::addColumn<TeachingMinutes>("teaching");
        QTest::addColumn<int>("von");
        QTest::addColumn<int>("bis");
        QTest::addColumn<bool>("expected");
        // Begins before or with teaching, and ends after its begin.
        addSamples(1, kMorning,
                   {{479, 500, true},
                    {480, 500, true},
                    {481, 500, false},
                    {400, 479, false},
                    {400, 480, false},
                    {400, 481, true}});
        // Begins before or with teaching, and ends with it or later.
        addSamples(2, kMorning,
                   {{479, 800, true},
                    {480, 800, true},
                    {481, 800, false},
                    {400, 719, false},
                    {400, 720, true},
                    {400, 721, true}});
        // Lies within teaching.
        addSamples(3, kMorning,
                   {{479, 600, false},
                    {480, 600, true},
                    {481, 600, true},
                    {600, 719, true},
                    {600, 720, true},
                    {600, 721, false}});
        // Without a morning begin: begins before the end, and ends with it or later.
        addSamples(4, kOnlyEnd,
                   {{719, 800, true},
                    {720, 800, false},
                    {721, 800, false},
                    {400, 719, false},
                    {400, 720, true},
                    {400, 721, true}});
        // Without a morning begin: begins before the end, and ends with it or earlier.
        addSamples(5, kOnlyEnd,
                   {{719, 720, true},
                    {720, 720, false},
                    {721, 720, false},
                    {400, 719, true},
                    {400, 720, true},
                    {400, 721, false}});
        // The afternoon as the morning.
        addSamples(6, kAfternoon,
                   {{839, 850, true},
                    {840, 850, true},
                    {841, 850, false},
                    {800, 839, false},
                    {800, 840, false},
                    {800, 841, true}});
        addSamples(7, kAfternoon,
                   {{839, 960, true},
                    {840, 960, true},
                    {841, 960, false},
                    {800, 929, false},
                    {800, 930, true},
                    {800, 931, true}});
        addSamples(8, kAfternoon,
                   {{839, 900, false},
                    {840, 900, true},
                    {841, 900, true},
                    {900, 929, true},
                    {900, 930, true},
                    {900, 931, false}});
        // Without a morning begin, against the end of the afternoon.
        addSamples(9, kOnlyEndNM,
                   {{929, 960, true},
                    {930, 960, false},
                    {931, 960, false},
                    {800, 929, false},
                    {800, 930, true},
                    {800, 931, true}});
        // Without an afternoon begin.
        addSamples(10, kOnlyEndNM,
                   {{929, 930, true},
                    {930, 930, false},
                    {931, 930, false},
                    {800, 929, true},
                    {800, 930, true},
                    {800, 931, false}});
    }

    void aBlockAtAndBesideItsBoundaries() {
        QFETCH(const int, block);
        QFETCH(const TeachingMinutes, teaching);
        QFETCH(const int, von);
        QFETCH(const int, bis);
        QFETCH(const bool, expected);
        QCOMPARE(found(block, teaching, von, bis), expected);
    }

    void aBlockAppliesOnlyToTheTeachingItIsMadeFor_data() {
        QTest::addColumn<int>("block");
        QTest::addColumn<TeachingMinutes>("teaching");
        QTest::addColumn<int>("von");
        QTest::addColumn<int>("bis");
        QTest::addColumn<bool>("expected");
        const auto row = [](int block, const TeachingMinutes& teaching, int von, int bis, bool expected) {
            QTest::addRow("block %d with %d %d %d %d", block, teaching.U_Beginn, teaching.U_Ende,
                          teaching.U_BeginnNM, teaching.U_EndeNM)
                << block << teaching << von << bis << expected;
        };
        // One minute past midnight is a set time, midnight is none.
        for (const int block : {1, 2}) {
            row(block, {1, 1, 0, 0}, 0, 2, true);
            row(block, {0, 1, 0, 0}, 0, 2, false);
            row(block, {1, 0, 0, 0}, 0, 2, false);
        }
        row(3, {1, 9, 0, 0}, 1, 9, true);
        row(3, {0, 9, 0, 0}, 1, 9, false);
        row(3, {1, 0, 0, 0}, 1, 0, false);
        row(4, {0, 1, 0, 0}, 0, 2, true);
        row(4, {1, 1, 0, 0}, 0, 2, false);
        row(4, {0, 0, 0, 0}, -1, 2, false);
        row(5, {0, 1, 0, 0}, 0, 1, true);
        row(5, {1, 1, 0, 0}, 0, 1, false);
        row(5, {0, 0, 0, 0}, -1, 0, false);
        for (const int block : {6, 7}) {
            row(block, {0, 0, 1, 1}, 0, 2, true);
            row(block, {0, 0, 0, 1}, 0, 2, false);
            row(block, {0, 0, 1, 0}, 0, 2, false);
        }
        row(8, {0, 0, 1, 9}, 1, 9, true);
        row(8, {0, 0, 0, 9}, 1, 9, false);
        row(8, {0, 0, 1, 0}, 1, 0, false);
        row(9, {0, 0, 0, 1}, 0, 2, true);
        row(9, {1, 0, 0, 1}, 0, 2, false);
        row(9, {0, 0, 0, 0}, -1, 2, false);
        row(10, {0, 0, 0, 1}, 0, 1, true);
        row(10, {0, 0, 1, 1}, 0, 1, false);
        row(10, {0, 0, 0, 0}, -1, 0, false);
    }

    void aBlockAppliesOnlyToTheTeachingItIsMadeFor() { aBlockAtAndBesideItsBoundaries(); }

    void blockNineLooksAtTheMorningBeginAndNotAtThatOfTheAfternoon() {
        // With an afternoon begin it still applies, and without one it does not if there is a morning.
        QVERIFY(found(9, {0, 0, kVierzehn, kHalbVier}, 850, 940));
        QVERIFY(!found(9, {kAcht, kZwoelf, 0, kHalbVier}, 850, 940));
        // So an afternoon with teaching alone finds what ends behind it, which a morning hides.
        QVERIFY(inReport({0, 0, kVierzehn, kHalbVier}, 850, 940));
        QVERIFY(!inReport({kAcht, kZwoelf, kVierzehn, kHalbVier}, 850, 940));
    }

    void whatBeginsInsideTeachingAndEndsBehindItIsNoConflictHereButRedOnTheForm() {
        QVERIFY(!inReport(kMorning, 700, 800));
        QVERIFY(onForm(kMorning, 700, 800));
    }

    void whatEndsWithTheBeginOfTeachingPassesOnBoth() {
        QVERIFY(!inReport(kMorning, 400, kAcht));
        QVERIFY(!onForm(kMorning, 400, kAcht));
    }

    void whatBeginsWithTheEndOfTeachingPassesOnBoth() {
        QVERIFY(!inReport(kMorning, kZwoelf, 800));
        QVERIFY(!onForm(kMorning, kZwoelf, 800));
    }

    void whatBeginsWithTeachingIsAConflictOnBoth() {
        for (const int bis : {600, 720, 800}) {
            QVERIFY(inReport(kMorning, kAcht, bis));
            QVERIFY(onForm(kMorning, kAcht, bis));
        }
    }

    void withoutAMorningBeginAllThatBeginsBeforeTheEndIsAConflict() {
        for (const int bis : {600, 719, 720, 721, 900}) {
            QVERIFY(inReport(kOnlyEnd, 500, bis));
            QVERIFY(inReport(kOnlyEndNM, 500, bis));
        }
        QVERIFY(!inReport(kOnlyEnd, 720, 900));
        QVERIFY(!inReport(kOnlyEndNM, 930, 960));
    }

    void anAfternoonWithoutMorningIsLookedAtHereAndNotOnTheForm() {
        QVERIFY(inReport(kAfternoon, 850, 900));
        QVERIFY(!onForm(kAfternoon, 850, 900));
    }

    void theWaiverOfADayHasNoEffectHere() {
        QVERIFY(!onForm(kMorning, 500, 600, true));
        QVERIFY(onForm(kMorning, 500, 600));
        QVERIFY(inReport(kMorning, 500, 600));
    }

    void aClassWithoutTeachingHasNoConflict() { QVERIFY(conflictingBlocks({}, 0, 1439).empty()); }
};

KOLIBRI_TEST_MAIN(TeachingOverlapTest)
#include "teaching_overlap_test.moc"
