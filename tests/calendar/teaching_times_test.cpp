#include "calendar/teaching_times.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class TeachingTimesTest : public TestBase {
    Q_OBJECT

private:
    static void addDay(const QString& klasse, int day) {
        addRow(u"Klassen"_s, {{u"Klasse"_s, klasse},
                              {u"Tag"_s, TagCode(day)},
                              {u"Tag_Zahl"_s, day},
                              {u"Schulstufe"_s, u"3"_s}});
    }

    static void write(const QString& klasse, const QString& tag, const TeachingTimes& times) {
        const DbSession session(u"Test"_s);
        UnterrichtsBeginnEnde_Daten_Übergeben(klasse, tag, times);
    }

private Q_SLOTS:
    void theFourTimesOfOneClassAndDayAreWrittenAndNothingElse() {
        useEmptyDatabase();
        for (int day = 0; day < 2; ++day) {
            addDay(u"3a"_s, day);
            addDay(u"3b"_s, day);
        }
        const auto before = wholeDatabase();
        write(u"3a"_s, u"DI"_s, {u"08:00"_s, u"12:45"_s, u"14:00"_s, u"15:30"_s});
        auto expected = before;
        expected[u"Klassen"_s][2] =
            u"ID=3; Klasse=3a; Tag=DI; Tag_Zahl=1; Unterrichtsbeginn=08:00; "
            "Unterrichtsende=12:45; UnterrichtsbeginnNM=14:00; UnterrichtsendeNM=15:30; "
            "Schulstufe=3; KlassenNR=<null>"_s;
        QCOMPARE(wholeDatabase(), expected);
    }

    void aTimeThatIsNotSetIsStoredAsMidnightAndReadAsEmpty() {
        useEmptyDatabase();
        addDay(u"3a"_s, 0);
        write(u"3a"_s, u"MO"_s, {QString(), u"12:45"_s, QString(), QString()});
        QCOMPARE(columnOf(u"Klassen"_s, u"Unterrichtsbeginn"_s), QStringList{u"00:00"_s});
        QCOMPARE(columnOf(u"Klassen"_s, u"UnterrichtsendeNM"_s), QStringList{u"00:00"_s});
        const DbSession session(u"Test"_s);
        const auto days = Unterrichtsende_DatenEinlesen();
        QCOMPARE(days.size(), std::size_t(1));
        QCOMPARE(days[0].Zeiten, (TeachingTimes{QString(), u"12:45"_s, QString(), QString()}));
    }

    void timesThatWereNeverSetAreEmpty() {
        useEmptyDatabase();
        addDay(u"3a"_s, 0);
        const DbSession session(u"Test"_s);
        QCOMPARE(Unterrichtsende_DatenEinlesen()[0].Zeiten, TeachingTimes());
    }

    void theListIsInOrderOfClassAndWeekday() {
        useEmptyDatabase();
        addDay(u"3b"_s, 1);
        addDay(u"3a"_s, 4);
        addDay(u"3b"_s, 0);
        addDay(u"3a"_s, 0);
        const DbSession session(u"Test"_s);
        QStringList order;
        for (const auto& day : Unterrichtsende_DatenEinlesen())
            order << day.Klasse + u' ' + day.Tag;
        QCOMPARE(order, QStringList({u"3a MO"_s, u"3a FR"_s, u"3b MO"_s, u"3b DI"_s}));
    }

    void aFailureHalfWayWritesNothing() {
        useEmptyDatabase();
        addDay(u"3a"_s, 0);
        const auto before = wholeDatabase();
        QVERIFY_THROWS_EXCEPTION(StoreError,
                                 write(u"3a"_s, u"MO"_s, {u"08:00"_s, u"12:45"_s, u"keine"_s, QString()}));
        QCOMPARE(wholeDatabase(), before);
    }

    void theEmptyClassNameChangesNothing() {
        useEmptyDatabase();
        addDay(u"3a"_s, 0);
        const auto before = wholeDatabase();
        write({}, {}, {});
        QCOMPARE(wholeDatabase(), before);
    }

    void theHelpTellsTheThreeVariants() {
        QCOMPARE(
            Unterrichtszeiten_Erläuterung(),
            u"Tragen Sie hier BEGINN und ENDE des Unterrichts je Klasse ein.\r\n\r\n"
            "Diese Daten werden für die Überprüfung von Zeitüberschneidungen der Unterrichtszeiten zu "
            "Betreuungszeiten verwendet. \r\n\r\n"
            "Folgende Varianten sind möglich:\r\n\r\n"
            "1. Unterricht nur Vormittag: Betreuung (Mensa, Lernzeit oder Arbeitsgruppe) nur im Anschluss an "
            "den Unterricht:\r\nEs wird nur das Unterrichtsende für den Vormittag benötigt!\r\n\r\n"
            "2. Unterricht nur Vormittag: Betreuung vor und nach dem Unterricht:\r\nEs wird der "
            "Unterrichtsbeginn und das Unterrichtsende für den Vormittag benötigt!\r\n\r\n"
            "3. Unterricht am Vormittag und Nachmittag\r\nEs werden Unterrichtsbeginn und Unterrichtsende "
            "für "
            "den Vormittag und den Nachmittag benötigt!"_s);
    }
};

KOLIBRI_TEST_MAIN(TeachingTimesTest)
#include "teaching_times_test.moc"
