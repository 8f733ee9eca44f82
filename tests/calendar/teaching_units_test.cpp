#include "calendar/offerings.h"
#include "calendar/teaching_units.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class TeachingUnitsTest : public TestBase {
    Q_OBJECT

private:
    static qint64 newUnit(const QString& zeit) {
        const DbSession session(u"Test"_s);
        const qint64 id = Unterrichtseinheiten_Daten_Neu(zeit);
        Unterrichtseinheiten_Sortieren();
        return id;
    }

    /// Two rows in each offering table, of which one refers to the unit, and rows elsewhere that name it too.
    static void addReferences(const QString& zeit) {
        for (const auto& table : offeringTables()) {
            addRow(table, {{u"ID"_s, 1}, {u"L_Name"_s, u"mit"_s}, {u"UE_Zeit"_s, zeit}});
            addRow(table, {{u"ID"_s, 2}, {u"L_Name"_s, u"andere"_s}, {u"UE_Zeit"_s, u"10:00 - 10:45"_s}});
        }
        addRow(u"Stundenplan"_s, {{u"ID"_s, 0}, {u"Klasse"_s, u"3a"_s}, {u"UE"_s, zeit}});
        addRow(u"WP_Notiz"_s, {{u"ID"_s, 0}, {u"SCH_ID"_s, 1}, {u"UE"_s, zeit}});
    }

private Q_SLOTS:
    void theFirstUnitGetsId0AndNumber1() {
        useEmptyDatabase();
        QCOMPARE(newUnit(u"08:00 - 08:45"_s), 0);
        QCOMPARE(rowsOf(u"Unterrichtseinheiten"_s), QStringList{u"ID=0; Zeit=08:00 - 08:45; Sort_NR=1"_s});
    }

    void theNextUnitGetsOneMoreThanTheLargestId() {
        useEmptyDatabase();
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 6}, {u"Zeit"_s, u"08:00 - 08:45"_s}});
        QCOMPARE(newUnit(u"07:00 - 08:00"_s), 7);
    }

    void unitsAreNumberedByTimeAlsoWithANewOneBetweenTwoOld() {
        useEmptyDatabase();
        newUnit(u"08:00 - 08:45"_s);
        newUnit(u"10:00 - 10:45"_s);
        newUnit(u"08:50 - 09:35"_s);
        QCOMPARE(rowsOf(u"Unterrichtseinheiten"_s), QStringList({u"ID=0; Zeit=08:00 - 08:45; Sort_NR=1"_s,
                                                                 u"ID=1; Zeit=10:00 - 10:45; Sort_NR=3"_s,
                                                                 u"ID=2; Zeit=08:50 - 09:35; Sort_NR=2"_s}));
    }

    /// The number is written by the time, which is all that the Tagesplan knows of a unit.
    void twoUnitsWithOneTimeBothGetTheHigherNumber() {
        useEmptyDatabase();
        newUnit(u"08:00 - 08:45"_s);
        newUnit(u"08:00 - 08:45"_s);
        newUnit(u"10:00 - 10:45"_s);
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"Sort_NR"_s), QStringList({u"2"_s, u"2"_s, u"3"_s}));
    }

    /// Timetable and notes of the Tagesplan keep the old time: they are the office's record of how the day
    /// was.
    void aCorrectedTimeMovesTheOfferingsOfAllSevenTables() {
        useEmptyDatabase();
        newUnit(u"08:00 - 08:45"_s);
        addReferences(u"08:00 - 08:45"_s);
        auto expected = wholeDatabase();
        {
            const DbSession session(u"Test"_s);
            Unterrichtseinheiten_Daten_Korrektur(0, u"08:05 - 08:50"_s, u"08:00 - 08:45"_s);
        }
        for (const auto& table : offeringTables())
            expected[table][0].replace(u"UE_Zeit=08:00 - 08:45"_s, u"UE_Zeit=08:05 - 08:50"_s);
        expected[u"Unterrichtseinheiten"_s] = {u"ID=0; Zeit=08:05 - 08:50; Sort_NR=1"_s};
        QCOMPARE(wholeDatabase(), expected);
    }

    void aDeletedUnitLeavesItsOfferingsWithAnEmptyUnit() {
        useEmptyDatabase();
        newUnit(u"08:00 - 08:45"_s);
        newUnit(u"10:00 - 10:45"_s);
        addReferences(u"08:00 - 08:45"_s);
        auto expected = wholeDatabase();
        {
            const DbSession session(u"Test"_s);
            Unterrichtseinheiten_Daten_Löschen(0, u"08:00 - 08:45"_s);
        }
        for (const auto& table : offeringTables()) {
            expected[table][0].replace(u"UE_Zeit=08:00 - 08:45"_s, u"UE_Zeit="_s);
            QCOMPARE(columnOf(table, u"UE_Zeit"_s), QStringList({u""_s, u"10:00 - 10:45"_s}));
        }
        expected[u"Unterrichtseinheiten"_s] = {u"ID=1; Zeit=10:00 - 10:45; Sort_NR=2"_s};
        QCOMPARE(wholeDatabase(), expected);
    }

    void aUnitThatIsGoneHasNoTime() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QCOMPARE(Unterrichtseinheit_Zeit(4), std::nullopt);
    }

    void aUnitWithoutATimeIsNotThatOfOfferingsWithoutAUnit() {
        useEmptyDatabase();
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 0}});
        addRow(u"GR1"_s, {{u"L_Name"_s, u"ohne"_s}, {u"UE_Zeit"_s, u""_s}});
        const DbSession session(u"Test"_s);
        Unterrichtseinheiten_Daten_Korrektur(0, u"08:00 - 08:45"_s, *Unterrichtseinheit_Zeit(0));
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"Zeit"_s), QStringList{u"08:00 - 08:45"_s});
        QCOMPARE(columnOf(u"GR1"_s, u"UE_Zeit"_s), QStringList{u""_s});
    }
};

KOLIBRI_TEST_MAIN(TeachingUnitsTest)
#include "teaching_units_test.moc"
