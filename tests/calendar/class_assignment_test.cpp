#include "calendar/class_assignment.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/expected_state.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kPupils = u"Stammdaten"_s;
const QString kKey = u"13:00 - 13:45 ME1"_s;

constexpr auto kMensa = OfferingKind::Mensa;
constexpr auto kLernzeit = OfferingKind::Lernzeit;
constexpr auto kGroup = OfferingKind::Arbeitsgruppe;

void addPupil(const QString& name, const QVariant& klasse, const FieldValues& values = {}) {
    FieldValues all{{u"SCH_Name"_s, name}, {u"Klasse"_s, klasse}, {u"aktiv"_s, true}};
    all.insert(all.end(), values.begin(), values.end());
    addRow(kPupils, all);
}

/// 3a: 1 has other lunch, 2 has no all-day care, 3 is not active. 4 is in another class, 5 is a school starter
/// without a class, 6 has never had one.
void makeClasses() {
    addPupil(u"Arnold"_s, u"3a"_s, {{u"GR1_MO"_s, u"12:00 - 12:45 ME9"_s}, {u"GR4_MO"_s, kKey}});
    addPupil(u"Berger"_s, u"3a"_s, {{u"NichtOG"_s, true}});
    addPupil(u"Conrad"_s, u"3a"_s, {{u"aktiv"_s, false}});
    addPupil(u"Dreher"_s, u"10b"_s);
    addPupil(u"Ebert"_s, u""_s);
    addPupil(u"Fuchs"_s, {});
    addRow(u"SCH_Notiz"_s, {{u"SCH_ID"_s, 1}, {u"GR"_s, u"GR1"_s}, {u"Tag"_s, u"MO"_s}});
    addRow(u"Klassen"_s, {{u"Klasse"_s, u"4c"_s}, {u"Tag"_s, u"MO"_s}});
}

bool assign(OfferingKind kind, const QString& klasse, const QString& tag, const QString& einheit) {
    const DbSession session(u"Test"_s);
    return Klasse_ME_LZ_AG_Zuordnen(kind, klasse, tag, einheit);
}

} // namespace

class ClassAssignmentTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        makeClasses();
    }

    /// A class of which no pupil is left or has come yet is not offered.
    void onlyClassesWithAPupilAreOffered() {
        const DbSession session(u"Test"_s);
        QCOMPARE(KlassenMitSchülern(), QStringList({u""_s, u"10b"_s, u"3a"_s}));
    }

    void theOfferingsOfADayAreWrittenAsPupilsHoldThem() {
        for (const auto& day : {u"MO"_s, u"DI"_s}) {
            // The stored key is not asked.
            addRow(u"GR2"_s, {{u"Zeit"_s, u"14:00 - 15:00"_s},
                              {u"K_Name"_s, u"LZ2"_s},
                              {u"Tag"_s, day},
                              {u"Zeit_K_Name"_s, u"alt"_s}});
            addRow(u"GR1"_s, {{u"Zeit"_s, u"13:00 - 13:45"_s}, {u"K_Name"_s, u"ME1"_s}, {u"Tag"_s, day}});
        }
        addRow(u"GR2"_s, {{u"Zeit"_s, u"13:00 - 14:00"_s}, {u"K_Name"_s, u"LZ1"_s}, {u"Tag"_s, u"MO"_s}});
        const DbSession session(u"Test"_s);
        QCOMPARE(ME_LZ_AG_ZeitenEintragen(kLernzeit, u"MO"_s),
                 QStringList({u"14:00 - 15:00 LZ2"_s, u"13:00 - 14:00 LZ1"_s}));
        QCOMPARE(ME_LZ_AG_ZeitenEintragen(kMensa, u"DI"_s), QStringList{kKey});
        QCOMPARE(ME_LZ_AG_ZeitenEintragen(kMensa, u"SA"_s), QStringList());
    }

    /// Whatever stood in the cell is gone; notes on it stay.
    void aMensaGoesToAllOfTheClassButThoseWithoutCare() {
        ExpectedState expected;
        QVERIFY(assign(kMensa, u"3a"_s, u"MO"_s, kKey));
        for (const int pupil : {1, 3})
            expected.change(kPupils, pupil, {{u"GR1_MO"_s, kKey}});
        COMPARE_STATE(expected);
    }

    void aLernzeitGoesToAllOfTheClassButThoseWithoutCare() {
        ExpectedState expected;
        QVERIFY(assign(kLernzeit, u"3a"_s, u"FR"_s, kKey));
        for (const int pupil : {1, 3})
            expected.change(kPupils, pupil, {{u"GR2_FR"_s, kKey}});
        COMPARE_STATE(expected);
    }

    /// A pupil who has the group in another slot already holds it twice then.
    void aGroupGoesIntoTheFirstSlotOfTheWholeClass() {
        ExpectedState expected;
        QVERIFY(assign(kGroup, u"3a"_s, u"MO"_s, kKey));
        for (const int pupil : {1, 2, 3})
            expected.change(kPupils, pupil, {{u"GR3_MO"_s, kKey}});
        COMPARE_STATE(expected);
    }

    void schoolStartersWithoutAClassAreOneAsWell() {
        ExpectedState expected;
        QVERIFY(assign(kGroup, u""_s, u"DO"_s, kKey));
        expected.change(kPupils, 5, {{u"GR3_DO"_s, kKey}});
        COMPARE_STATE(expected);
    }

    void anEmptyOfferingEmptiesTheCellsOfTheClass() {
        ExpectedState expected;
        QVERIFY(assign(kMensa, u"3a"_s, u"MO"_s, u""_s));
        for (const int pupil : {1, 3})
            expected.change(kPupils, pupil, {{u"GR1_MO"_s, u""_s}});
        COMPARE_STATE(expected);
    }

    void repeatingTheAssignmentChangesNothingFurther() {
        QVERIFY(assign(kMensa, u"3a"_s, u"MO"_s, kKey));
        const ExpectedState expected;
        QVERIFY(assign(kMensa, u"3a"_s, u"MO"_s, kKey));
        COMPARE_STATE(expected);
    }

    void whatTheStoreRefusesIsPassedOver() {
        const ExpectedState expected;
        QVERIFY(!assign(kMensa, u"3a"_s, u"SA"_s, kKey));
        QVERIFY(!assign(kGroup, u"3'a"_s, u"MO"_s, kKey));
        COMPARE_STATE(expected);
    }
};

KOLIBRI_TEST_MAIN(ClassAssignmentTest)
#include "class_assignment_test.moc"
