#include "calendar/offering_writes.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

Offering offering(const QStringList& days) {
    return {{u"M1"_s, u"Mensa 1"_s, u""_s, u"08:00"_s, u"08:45"_s, u"Frau Weiß"_s, u"Aula"_s},
            u"08:00 - 08:45"_s,
            days};
}

void write(OfferingKind kind, const Offering& what) {
    const DbSession session(u"Test"_s);
    ME_LZ_AG_Daten_NEU(kind, what);
}

/// A row of a working group as the table keeps it.
QString groupRow(const QString& table, const QString& id, const QString& day) {
    return u"ID=%1; NR=<null>; K_Name=M1; L_Name=Mensa 1; Tag=%2; Zeit_von=08:00; Zeit_bis=08:45; "
           "Zeit=08:00 - 08:45; Zeit_K_Name=08:00 - 08:45 M1; Betreuer=Frau Weiß; Ort=Aula; "
           "%3Anmerkung_V=<null>; "
           "Anmerkung_N=<null>; UE_Zeit=08:00 - 08:45"_s.arg(
               id, day, table == u"GR3"_s ? u"Anmerkung=<null>; "_s : u""_s);
}

const QStringList kGroupTables = tablesOf(OfferingKind::Arbeitsgruppe);

} // namespace

class OfferingWritesTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void threeWeekdaysOfAMensaGiveThreeRowsAndOneCapacityRow_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("word");
        QTest::newRow("Mensa") << 0 << u"GR1"_s << u"ME"_s;
        QTest::newRow("Lernzeit") << 1 << u"GR2"_s << u"LZ"_s;
    }

    void threeWeekdaysOfAMensaGiveThreeRowsAndOneCapacityRow() {
        QFETCH(int, kind);
        QFETCH(QString, table);
        QFETCH(QString, word);
        useEmptyDatabase();
        auto expected = wholeDatabase();
        write(static_cast<OfferingKind>(kind), offering({u"MO"_s, u"MI"_s, u"FR"_s}));
        const QString row =
            u"ID=%1; NR=<null>; K_Name=M1; L_Name=Mensa 1; Tag=%2; Zeit_von=08:00; Zeit_bis=08:45; "
            "Zeit=08:00 - 08:45; Zeit_K_Name=08:00 - 08:45 M1; Betreuer=<null>; Ort=<null>; "
            "Anmerkung_V=<null>; Anmerkung_N=<null>; UE_Zeit=08:00 - 08:45"_s;
        expected[table] = {row.arg(1).arg(u"MO"_s), row.arg(2).arg(u"MI"_s), row.arg(3).arg(u"FR"_s)};
        QString parameter =
            u"ID=<null>; Bezeichnung=M1; Feld1=%1; Feld2=08:00 - 08:45; Feld3=08:00 - 08:45 M1"_s.arg(word);
        for (int i = 4; i <= 10; ++i)
            parameter += u"; Feld%1=<null>"_s.arg(i);
        expected[u"Parameter"_s] = {parameter};
        QCOMPARE(wholeDatabase(), expected);
    }

    void theCapacityRowIsAddedEvenIfThereIsOne() {
        useEmptyDatabase();
        write(OfferingKind::Mensa, offering({u"MO"_s}));
        write(OfferingKind::Mensa, offering({u"DI"_s}));
        QCOMPARE(columnOf(u"Parameter"_s, u"Bezeichnung"_s), QStringList({u"M1"_s, u"M1"_s}));
    }

    void anOfferingWithoutATeachingUnitHasAnEmptyOne() {
        useEmptyDatabase();
        Offering without = offering({u"MO"_s});
        without.UE_Zeit = u""_s;
        write(OfferingKind::Mensa, without);
        QCOMPARE(columnOf(u"GR1"_s, u"UE_Zeit"_s), QStringList{u""_s});
    }

    void threeWeekdaysOfAGroupGiveFifteenRowsWithEqualIdsForEachDay() {
        useEmptyDatabase();
        auto expected = wholeDatabase();
        write(OfferingKind::Arbeitsgruppe, offering({u"MO"_s, u"MI"_s, u"FR"_s}));
        for (const auto& table : kGroupTables)
            expected[table] = {groupRow(table, u"1"_s, u"MO"_s), groupRow(table, u"2"_s, u"MI"_s),
                               groupRow(table, u"3"_s, u"FR"_s)};
        QCOMPARE(wholeDatabase(), expected);
    }

    void theKeyOfTheFirstRowInTheListIsTold() {
        useEmptyDatabase();
        addRow(u"GR2"_s, {{u"ID"_s, 6}});
        addRow(u"GR3"_s, {{u"ID"_s, 11}});
        const DbSession session(u"Test"_s);
        QCOMPARE(ME_LZ_AG_Daten_NEU(OfferingKind::Lernzeit, offering({u"MO"_s, u"DI"_s})), 7);
        QCOMPARE(ME_LZ_AG_Daten_NEU(OfferingKind::Arbeitsgruppe, offering({u"MO"_s, u"DI"_s})), 12);
        QCOMPARE(ME_LZ_AG_Daten_NEU(OfferingKind::Mensa, offering({})), 0);
    }

    void idsAreEqualAlsoWhereTheFirstTableCountsAheadOfTheOthers() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.AddNew(u"GR3"_s).Set(u"ID"_s, 40).Set(u"L_Name"_s, u"Alte AG"_s).Update();
            Global().Conn.Delete(u"GR3"_s);
        }
        write(OfferingKind::Arbeitsgruppe, offering({u"MO"_s, u"DI"_s}));
        for (const auto& table : kGroupTables)
            QCOMPARE(columnOf(table, u"ID"_s), QStringList({u"41"_s, u"42"_s}));
    }

    /// The key is read back by long name and day, so it is the first row's; a table that numbers by itself
    /// does not take it twice, the two others do. Files of the office hold such keys, and what corrects and
    /// deletes groups counts on them.
    void aSecondTimeOfAGroupOnOneDayGetsTheKeyOfTheFirstWhereItCan() {
        useEmptyDatabase();
        {
            // Other groups were there once, so the tables count apart.
            const DbSession session(u"Test"_s);
            Global().Conn.AddNew(u"GR4"_s).Set(u"ID"_s, 10).Update();
            Global().Conn.AddNew(u"GR5"_s).Set(u"ID"_s, 20).Update();
            Global().Conn.Delete(u"GR4"_s);
            Global().Conn.Delete(u"GR5"_s);
        }
        write(OfferingKind::Arbeitsgruppe, offering({u"MO"_s}));
        Offering second = offering({u"MO"_s});
        second[kBoxVon] = u"09:00"_s;
        second[kBoxBis] = u"09:45"_s;
        write(OfferingKind::Arbeitsgruppe, second);
        const QMap<QString, QStringList> ids{{u"GR3"_s, {u"1"_s, u"2"_s}},
                                             {u"GR4"_s, {u"1"_s, u"11"_s}},
                                             {u"GR5"_s, {u"1"_s, u"21"_s}},
                                             {u"GR6"_s, {u"1"_s, u"1"_s}},
                                             {u"GR7"_s, {u"1"_s, u"1"_s}}};
        for (const auto& table : kGroupTables) {
            QCOMPARE(columnOf(table, u"ID"_s), ids.value(table));
            QCOMPARE(columnOf(table, u"Zeit"_s), QStringList({u"08:00 - 08:45"_s, u"09:00 - 09:45"_s}));
            QCOMPARE(columnOf(table, u"Zeit_K_Name"_s),
                     QStringList({u"08:00 - 08:45 M1"_s, u"09:00 - 09:45 M1"_s}));
        }
    }

    void aGroupHasNoCapacityRow() {
        useEmptyDatabase();
        write(OfferingKind::Arbeitsgruppe, offering({u"MO"_s}));
        QCOMPARE(rowsOf(u"Parameter"_s), QStringList());
    }

    void aValueThatItsColumnDoesNotTakeIsLeftOut() {
        useEmptyDatabase();
        Offering tooLong = offering({u"MO"_s});
        tooLong[kBoxOrt] = QString(256, u'x');
        write(OfferingKind::Arbeitsgruppe, tooLong);
        QCOMPARE(columnOf(u"GR3"_s, u"Ort"_s), QStringList{u"<null>"_s});
        QCOMPARE(columnOf(u"GR7"_s, u"Betreuer"_s), QStringList{u"Frau Weiß"_s});
    }

    void aKeyAbove16BitsWritesNothing() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.AddNew(u"GR3"_s).Set(u"ID"_s, 32767).Update();
        }
        const auto before = wholeDatabase();
        QVERIFY_THROWS_EXCEPTION(RuntimeError, write(OfferingKind::Arbeitsgruppe, offering({u"MO"_s})));
        QCOMPARE(wholeDatabase(), before);
    }

    void supervisorsMayHaveAnApostrophe() {
        useEmptyDatabase();
        Offering group = offering({u"MO"_s});
        group[kBoxBetreuer] = u"Frau O'Neill"_s;
        write(OfferingKind::Arbeitsgruppe, group);
        QCOMPARE(columnOf(u"GR5"_s, u"Betreuer"_s), QStringList{u"Frau O'Neill"_s});
    }
};

KOLIBRI_TEST_MAIN(OfferingWritesTest)
#include "offering_writes_test.moc"
