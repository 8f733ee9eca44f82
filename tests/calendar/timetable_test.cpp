#include "calendar/timetable.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class TimetableTest : public TestBase {
    Q_OBJECT

private:
    static const TimetableLine& first() {
        static const TimetableLine line{u"08:00 - 08:45"_s,
                                        {u"Deutsch"_s, u"Kunst"_s, u""_s, u"Sport"_s, u"Musik"_s}};
        return line;
    }
    static const TimetableLine& second() {
        static const TimetableLine line{u"08:50 - 09:35"_s, {u""_s, u""_s, u""_s, u""_s, u""_s}};
        return line;
    }

    static void write(const QString& klasse, const std::vector<TimetableLine>& lines) {
        const DbSession session(u"Test"_s);
        Stundenplan_schreiben(klasse, lines);
    }

private Q_SLOTS:
    void aNewTimetableAddsARowForEachLine() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        write(u"3a"_s, {first(), second()});
        QCOMPARE(rowsOf(u"Stundenplan"_s),
                 QStringList(
                     {u"ID=0; Klasse=3a; UE=08:00 - 08:45; MO=Deutsch; DI=Kunst; MI=; DO=Sport; FR=Musik"_s,
                      u"ID=1; Klasse=3a; UE=08:50 - 09:35; MO=; DI=; MI=; DO=; FR="_s}));
        QCOMPARE(changedTables(before, wholeDatabase()), QStringList{u"Stundenplan"_s});
    }

    void savingTwiceChangesNothingAndAddsNoRows() {
        useEmptyDatabase();
        write(u"3a"_s, {first(), second()});
        const auto before = wholeDatabase();
        write(u"3a"_s, {first(), second()});
        QCOMPARE(wholeDatabase(), before);
    }

    void aLineThatExistsIsChangedAndOtherClassesAreNot() {
        useEmptyDatabase();
        write(u"3a"_s, {first()});
        write(u"3b"_s, {first()});
        TimetableLine changed = first();
        changed.Tage[0] = u"Mathematik"_s;
        write(u"3a"_s, {changed, second()});
        QCOMPARE(columnOf(u"Stundenplan"_s, u"MO"_s), QStringList({u"Mathematik"_s, u"Deutsch"_s, u""_s}));
        QCOMPARE(columnOf(u"Stundenplan"_s, u"ID"_s), QStringList({u"0"_s, u"1"_s, u"2"_s}));
    }

    void anApostropheBreaksTheUpdateAndNothingIsWritten() {
        useEmptyDatabase();
        write(u"3a"_s, {first()});
        const auto before = wholeDatabase();
        TimetableLine changed = first();
        changed.Tage[4] = u"Theater's"_s;
        QVERIFY_THROWS_EXCEPTION(StoreError, write(u"3a"_s, {second(), changed}));
        QCOMPARE(wholeDatabase(), before);
    }

    void aNewRowMayHoldAnApostrophe() {
        useEmptyDatabase();
        TimetableLine line = first();
        line.Tage[0] = u"AG's"_s;
        write(u"3a"_s, {line});
        QCOMPARE(columnOf(u"Stundenplan"_s, u"MO"_s), QStringList{u"AG's"_s});
    }

    void unitsComeInTheirOrderAndMayBeMoreThanTen() {
        useEmptyDatabase();
        for (int i = 12; i >= 1; --i)
            addRow(u"Unterrichtseinheiten"_s,
                   {{u"ID"_s, i}, {u"Zeit"_s, u"Einheit %1"_s.arg(i)}, {u"Sort_NR"_s, i}});
        const DbSession session(u"Test"_s);
        const TimetableUnits found = UE_feststellen();
        QCOMPARE(found.fehler, TimetableError::None);
        const QStringList& units = found.zeiten;
        QCOMPARE(units.size(), 12);
        QCOMPARE(units.first(), u"Einheit 1"_s);
        QCOMPARE(units.last(), u"Einheit 12"_s);
    }

    void aRowWithoutValuesIsReadAsEmptyTexts() {
        useEmptyDatabase();
        addRow(u"Stundenplan"_s,
               {{u"ID"_s, 0}, {u"Klasse"_s, u"3a"_s}, {u"UE"_s, u"08:00 - 08:45"_s}, {u"DI"_s, u"Kunst"_s}});
        const DbSession session(u"Test"_s);
        const auto lines = Stundenplan_lesen(u"3a"_s);
        QCOMPARE(lines.size(), std::size_t(1));
        QCOMPARE(lines[0].Tage[0], QString());
        QCOMPARE(lines[0].Tage[1], u"Kunst"_s);
    }

    void eachErrorHasItsMessage_data() {
        QTest::addColumn<int>("code");
        QTest::addColumn<QString>("message");
        QTest::newRow("1") << 1 << u"Für Klasse 3a ist kein Eintrag vorhanden!"_s;
        QTest::newRow("2") << 2 << u"Für Klasse 3a ist kein Unterrichtsbeginn eingetragen!"_s;
        QTest::newRow("3") << 3 << u"Für Klasse 3a ist kein Unterrichtsende eingetragen!"_s;
    }

    void eachErrorHasItsMessage() {
        QFETCH(int, code);
        QFETCH(QString, message);
        doorsOfTest.expect(message);
        MeldungVorbereitung(static_cast<TimetableError>(code), u"3a"_s);
        QCOMPARE(doorsOfTest.boxes().front().title, u"Fehler Stundeplan"_s);
        QCOMPARE(doorsOfTest.boxes().front().code, 0);
    }

    void noErrorSaysNothing() {
        MeldungVorbereitung(TimetableError::None, u"3a"_s);
        QVERIFY(doorsOfTest.boxes().empty());
    }
};

KOLIBRI_TEST_MAIN(TimetableTest)
#include "timetable_test.moc"
