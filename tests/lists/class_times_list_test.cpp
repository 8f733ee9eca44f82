#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/class_times_list.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// A weekday of a class; times that are null are not set.
void addDay(const QString& klasse, int day, const QVariantList& times = {}) {
    const DbSession session(u"Test"_s);
    Global()
        .Conn.AddNew(u"Klassen"_s)
        .Set(u"Klasse"_s, klasse)
        .Set(u"Tag"_s, TagCode(day))
        .Set(u"Tag_Zahl"_s, day)
        .Set(u"Unterrichtsbeginn"_s, times.value(0))
        .Set(u"Unterrichtsende"_s, times.value(1))
        .Set(u"UnterrichtsbeginnNM"_s, times.value(2))
        .Set(u"UnterrichtsendeNM"_s, times.value(3))
        .Update();
}

} // namespace

class ClassTimesListTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void fiveRowsOfAClassAreOneRowOfTheList() {
        useEmptyDatabase();
        for (int day = 4; day >= 0; --day) {
            addDay(u"2b"_s, day, {u"08:00"_s, u"11:%1"_s.arg(30 + day)});
            addDay(u"1a"_s, day, {u"08:15"_s, u"12:%1"_s.arg(10 + day)});
        }
        QCOMPARE(gathered(kUnterrichtszeiten),
                 QStringList({u"1: 1a | 08:15 - 12:10 | 08:15 - 12:11 | 08:15 - 12:12 | 08:15 - 12:13 | "
                              u"08:15 - 12:14"_s,
                              u"1: 2b | 08:00 - 11:30 | 08:00 - 11:31 | 08:00 - 11:32 | 08:00 - 11:33 | "
                              u"08:00 - 11:34"_s}));
    }

    void theAfternoonStandsWhenItsBeginningOrItsEndIsSet_data() {
        QTest::addColumn<QVariantList>("times");
        QTest::addColumn<QString>("expected");
        const QVariant none;
        QTest::newRow("morning only")
            << QVariantList{u"08:00"_s, u"12:00"_s, none, none} << u"08:00 - 12:00"_s;
        QTest::newRow("both") << QVariantList{u"08:00"_s, u"12:00"_s, u"14:00"_s, u"15:30"_s}
                              << u"08:00 - 12:00<br />14:00 - 15:30"_s;
        QTest::newRow("beginning only") << QVariantList{u"08:00"_s, u"12:00"_s, u"14:00"_s, none}
                                        << u"08:00 - 12:00<br />14:00 - 00:00"_s;
        QTest::newRow("end only") << QVariantList{u"08:00"_s, u"12:00"_s, none, u"15:30"_s}
                                  << u"08:00 - 12:00<br />00:00 - 15:30"_s;
        QTest::newRow("midnight is not set")
            << QVariantList{u"08:00"_s, u"12:00"_s, u"00:00"_s, u"00:00"_s} << u"08:00 - 12:00"_s;
        QTest::newRow("a missing time reads 00:00")
            << QVariantList{none, u"12:00"_s, none, none} << u"00:00 - 12:00"_s;
        QTest::newRow("nothing set") << QVariantList{none, none, none, none} << u"00:00 - 00:00"_s;
    }
    void theAfternoonStandsWhenItsBeginningOrItsEndIsSet() {
        QFETCH(const QVariantList, times);
        useEmptyDatabase();
        for (int day = 0; day < 5; ++day)
            addDay(u"1a"_s, day, times);
        gathered(kUnterrichtszeiten);
        for (int column = 2; column <= 6; ++column)
            QTEST(Liste().Daten(column, 1), "expected");
    }

    void aClassThatLacksADayDoesNotShiftTheNext() {
        useEmptyDatabase();
        for (int day = 0; day < 5; ++day) {
            if (day != 2)
                addDay(u"1a"_s, day, {u"08:00"_s, u"12:00"_s});
            addDay(u"1b"_s, day, {u"08:00"_s, u"13:00"_s});
        }
        QCOMPARE(gathered(kUnterrichtszeiten),
                 QStringList({u"1: 1a | 08:00 - 12:00 | 08:00 - 12:00 |  | 08:00 - 12:00 | 08:00 - 12:00"_s,
                              u"1: 1b | 08:00 - 13:00 | 08:00 - 13:00 | 08:00 - 13:00 | 08:00 - 13:00 | "
                              u"08:00 - 13:00"_s}));
    }

    void withoutClassesThereIsNoRow() {
        useEmptyDatabase();
        QCOMPARE(gathered(kUnterrichtszeiten), QStringList());
    }

    void thePageHasAHeadingAndAlternatingRows() {
        useEmptyDatabase();
        for (const auto& klasse : {u"1a"_s, u"1b"_s})
            for (int day = 0; day < 5; ++day)
                addDay(klasse, day, {u"08:00"_s, u"12:00"_s});
        const QStringList body = produced(kUnterrichtszeiten);
        QCOMPARE(body.mid(4, 9),
                 QStringList({u"<h1>UNTERRICHTSZEITEN DER KLASSEN</h1><BR>"_s, u"</div>"_s,
                              u"<div id='box_table'>"_s, u"<TABLE class=\"Tpt\">"_s, u"<THEAD>"_s,
                              u"<TR class=\"KopfZeile\">"_s, u"<TD WIDTH=120pt ALIGN=center>KLASSE</TD>"_s,
                              u"<TD WIDTH=80pt ALIGN=center>MO</TD>"_s,
                              u"<TD WIDTH=80pt ALIGN=center>DI</TD>"_s}));
        QCOMPARE(rowClasses(body), QStringList({u"Stammdaten1"_s, u"Stammdaten2"_s}));
        QVERIFY(body.contains(u"<TD WIDTH=80pt ALIGN=center>08:00 - 12:00</TD>"_s));
    }
};

KOLIBRI_TEST_MAIN(ClassTimesListTest)
#include "class_times_list_test.moc"
