#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/groups/group_dates.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

GroupDates dates(const QString& prefix) {
    GroupDates result;
    for (std::size_t i = 0; i < result.size(); ++i)
        result[i] = prefix + QString::number(i + 1);
    return result;
}

void save(const GroupDates& values, const QString& group) {
    const DbSession session(u"Test"_s);
    saveDates(values, group);
}

} // namespace

class GroupDatesTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theDatesFollowTheWeekdayInStepsOfAWeek_data() {
        QTest::addColumn<QString>("tag");
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("last");
        QTest::newRow("MO") << u"MO"_s << u"14.12.2026"_s << u"18.01.2027"_s;
        QTest::newRow("DI") << u"DI"_s << u"15.12.2026"_s << u"19.01.2027"_s;
        QTest::newRow("MI") << u"MI"_s << u"16.12.2026"_s << u"20.01.2027"_s;
        QTest::newRow("DO") << u"DO"_s << u"17.12.2026"_s << u"21.01.2027"_s;
        QTest::newRow("FR") << u"FR"_s << u"18.12.2026"_s << u"22.01.2027"_s;
    }
    void theDatesFollowTheWeekdayInStepsOfAWeek() {
        QFETCH(const QString, tag);
        const auto result = datesFromMonday(u"14.12.2026"_s, tag);
        QTEST(result->front(), "first");
        QTEST(result->back(), "last");
        QCOMPARE(datesFromMonday(u"14.12.26"_s, tag), result);
    }

    void anEmptyMondayLeavesTheDatesAlone() { QVERIFY(!datesFromMonday(QString(), u"DI"_s)); }

    void aMondayThatIsNoDateIsAnError() {
        try {
            datesFromMonday(u"nächste Woche"_s, u"DI"_s);
            QFAIL("the text was taken for a date");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.message(), u"Laufzeitfehler '13': Typen unverträglich"_s);
        }
    }

    void aHeadingIsShortAndATextThatIsNoDateStays_data() {
        QTest::addColumn<QString>("datum");
        QTest::addColumn<QString>("heading");
        QTest::newRow("long") << u"14.09.2026"_s << u"14.09.26"_s;
        QTest::newRow("short") << u"1.2.26"_s << u"01.02.26"_s;
        QTest::newRow("no date") << u"Ferien"_s << u"Ferien"_s;
        QTest::newRow("no such day") << u"31.02.2026"_s << u"31.02.2026"_s;
        QTest::newRow("empty") << QString() << QString();
    }
    void aHeadingIsShortAndATextThatIsNoDateStays() {
        QFETCH(const QString, datum);
        QTEST(dateHeading(datum), "heading");
    }

    void theMondayIsAddedOnceAndThenChanged() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QCOMPARE(readFirstMonday(), QString());
        saveFirstMonday(u"14.09.2026"_s);
        saveFirstMonday(u"21.09.2026"_s);
        QCOMPARE(readFirstMonday(), u"21.09.2026"_s);
        QCOMPARE(tableRows(Global().Conn, u"Liste_AG"_s),
                 QStringList{u"ID=2; Datum1=21.09.2026; Datum2=<null>; Datum3=<null>; Datum4=<null>; "
                             "Datum5=<null>; Datum6=<null>; AG=<null>"_s});
    }

    void theDatesAreKeptForAllGroupsAndForTheGroup() {
        useEmptyDatabase();
        save(dates(u"a"_s), u"Fußball"_s);
        save(dates(u"b"_s), u"Chor"_s);
        save(dates(u"c"_s), u"Fußball"_s);
        const DbSession session(u"Test"_s);
        QCOMPARE(readLastDates(), dates(u"c"_s));
        QCOMPARE(readDatesOf(u"Fußball"_s), dates(u"c"_s));
        QCOMPARE(readDatesOf(u"Chor"_s), dates(u"b"_s));
        QVERIFY(!readDatesOf(u"Kochen"_s));
        QCOMPARE(tableRows(Global().Conn, u"Liste_AG"_s).size(), 3);
    }

    void emptyDatesAreKeptAsEmptyTexts() {
        useEmptyDatabase();
        save(dates(u"a"_s), u"Chor"_s);
        save({u"x"_s}, u"Chor"_s);
        const DbSession session(u"Test"_s);
        QCOMPARE(readDatesOf(u"Chor"_s), (GroupDates{u"x"_s}));
    }

    void withoutAGroupOnlyTheLastUsedDatesAreKept() {
        useEmptyDatabase();
        save(dates(u"a"_s), QString());
        QCOMPARE(rowsOf(u"Liste_AG"_s).size(), 1);
    }
};

KOLIBRI_TEST_MAIN(GroupDatesTest)
#include "group_dates_test.moc"
