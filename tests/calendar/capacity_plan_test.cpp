#include "calendar/capacity_plan.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/expected_state.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

constexpr auto kMensa = OfferingKind::Mensa;
constexpr auto kLernzeit = OfferingKind::Lernzeit;

void addTime(const QString& table, const QString& lName, const QString& kName, const QString& tag,
             const QString& zeit) {
    addRow(table, {{u"L_Name"_s, lName},
                   {u"K_Name"_s, kName},
                   {u"Tag"_s, tag},
                   {u"Zeit"_s, zeit},
                   {u"Zeit_K_Name"_s, zeit + u' ' + kName}});
}

std::vector<CapacityLine> plan(OfferingKind kind) {
    const DbSession session(u"Test"_s);
    return Belegungsplan_lesen(kind);
}

void save(OfferingKind kind, const std::vector<CapacityLine>& lines) {
    const DbSession session(u"Test"_s);
    Belegungsplan_speichern(kind, lines);
}

QStringList textsOf(const std::vector<CapacityLine>& lines) {
    QStringList texts;
    for (const auto& line : lines) {
        QStringList cells{line.L_Name, line.Zeit, line.K_Name, line.Zeit_K_Name};
        for (const auto& places : line.Plätze)
            cells << places;
        texts << (cells << line.Gesamt).join(u" | "_s);
    }
    return texts;
}

CapacityLine line(const QString& kName, const Places& places, const QString& total,
                  const QString& zeit = u"13:00 - 13:45"_s) {
    return {u"Lang "_s + kName, zeit, kName, zeit + u' ' + kName, places, total};
}

QString errorOf(const std::function<void()>& work) {
    try {
        work();
    } catch (const RuntimeError& error) {
        return error.message();
    }
    return {};
}

const QString kOverflow = u"Laufzeitfehler '6': Überlauf"_s;

} // namespace

class CapacityPlanTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void boxesAreCounted_data() {
        QTest::addColumn<QStringList>("boxes");
        QTest::addColumn<int>("sum");
        QTest::newRow("fives") << QStringList{u"5"_s, u"5"_s, u"5"_s, u"5"_s} << 20;
        QTest::newRow("empty ones are nothing") << QStringList{u""_s, u"7"_s, u""_s, u"1"_s} << 8;
        QTest::newRow("none") << QStringList{u""_s, u""_s, u""_s, u""_s} << 0;
        QTest::newRow("blanks around") << QStringList{u" 7 "_s, u""_s, u""_s, u""_s} << 7;
        QTest::newRow("halves to the even") << QStringList{u"2,5"_s, u"3,5"_s, u""_s, u""_s} << 6;
        QTest::newRow("thousands") << QStringList{u"1.000"_s, u""_s, u""_s, u""_s} << 1000;
        QTest::newRow("largest") << QStringList{u"32767"_s, u"0"_s, u""_s, u""_s} << 32767;
        QTest::newRow("below nothing") << QStringList{u"-5"_s, u"2"_s, u""_s, u""_s} << -3;
    }

    void boxesAreCounted() {
        QFETCH(const QStringList, boxes);
        const Places places{boxes[0], boxes[1], boxes[2], boxes[3]};
        QTEST(Plätze_zählen(places).value(), "sum");
    }

    void aTextThatIsNoNumberIsAFaultOfItsBox() {
        const Places places{u"5"_s, u"viele"_s, u" "_s, u""_s};
        QCOMPARE(Plätze_prüfen(places), (PlacesFaults{false, true, true, false}));
        QVERIFY(!Plätze_zählen(places));
    }

    void aNumberOrASumBeyond16BitsOverflows_data() {
        QTest::addColumn<QStringList>("boxes");
        QTest::newRow("number") << QStringList{u"32768"_s, u""_s};
        QTest::newRow("small number") << QStringList{u"-32769"_s, u""_s};
        QTest::newRow("sum") << QStringList{u"32767"_s, u"1"_s};
    }

    void aNumberOrASumBeyond16BitsOverflows() {
        QFETCH(const QStringList, boxes);
        QCOMPARE(errorOf([&] { Plätze_zählen({boxes[0], boxes[1], u""_s, u""_s}); }), kOverflow);
    }

    /// A stored total only says that there is one; what shows is counted.
    void theTotalIsCountedAnewWhereOneIsStored() {
        const Places places{u"5"_s, u""_s, u"4"_s, u""_s};
        QCOMPARE(Gesamt_anzeigen(u"99"_s, places), u"9"_s);
        QCOMPARE(Gesamt_anzeigen(u""_s, places), QString());
        QCOMPARE(Gesamt_anzeigen(u"9"_s, {u"0"_s, u""_s, u""_s, u""_s}), QString());
        QCOMPARE(Gesamt_anzeigen(u"9"_s, {u"-1"_s, u""_s, u""_s, u""_s}), QString());
        QCOMPARE(Gesamt_anzeigen(u"9"_s, {u"viele"_s, u""_s, u""_s, u""_s}), QString());
    }

    void eachTimeOfAnOfferingIsALineWhateverItsDays() {
        useEmptyDatabase();
        for (const auto& day : {u"MO"_s, u"DI"_s})
            addTime(u"GR1"_s, u"Zweite Mensa"_s, u"ME2"_s, day, u"13:00 - 13:45"_s);
        addTime(u"GR1"_s, u"Erste Mensa"_s, u"ME1"_s, u"MO"_s, u"12:00 - 12:45"_s);
        addTime(u"GR1"_s, u"Zweite Mensa"_s, u"ME2"_s, u"MI"_s, u"14:00 - 14:45"_s);
        addTime(u"GR2"_s, u"Lernzeit"_s, u"LZ1"_s, u"MO"_s, u"15:00 - 16:00"_s);
        addRow(u"Parameter"_s, {{u"Bezeichnung"_s, u"ME2"_s}, {u"Feld4"_s, u"3"_s}, {u"Feld8"_s, u"3"_s}});
        const QStringList lines = textsOf(plan(kMensa));
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines.first(),
                 u"Erste Mensa | 12:00 - 12:45 | ME1 | 12:00 - 12:45 ME1 |  |  |  |  | "_s);
        // Both times of the short name show its one row.
        for (const auto& time : {u"13:00 - 13:45"_s, u"14:00 - 14:45"_s})
            QVERIFY(lines.contains(
                u"Zweite Mensa | %1 | ME2 | %1 ME2 | 3 |  |  |  | 3"_s.arg(time)));
        QCOMPARE(textsOf(plan(kLernzeit)),
                 QStringList{u"Lernzeit | 15:00 - 16:00 | LZ1 | 15:00 - 16:00 LZ1 |  |  |  |  | "_s});
    }

    void withoutOfferingsThePlanIsEmpty() {
        useEmptyDatabase();
        QCOMPARE(textsOf(plan(kMensa)), QStringList());
        const ExpectedState expected;
        save(kMensa, {});
        COMPARE_STATE(expected);
    }

    void theFirstSaveAddsRowsAndTheNextChangesThem() {
        useEmptyDatabase();
        save(kMensa, {line(u"ME1"_s, {u"5"_s, u"6"_s, u""_s, u"7"_s}, u"18"_s), line(u"ME2"_s, {}, u""_s)});
        const QString row = u"ID=%1; Bezeichnung=%2; Feld1=ME; Feld2=13:00 - 13:45; Feld3=13:00 - 13:45 %2; "
                            "Feld4=%3; Feld5=%4; Feld6=; Feld7=%5; Feld8=%6; Feld9=<null>; Feld10=<null>"_s;
        QCOMPARE(rowsOf(u"Parameter"_s),
                 QStringList({row.arg(1).arg(u"ME1"_s, u"5"_s, u"6"_s, u"7"_s, u"18"_s),
                              row.arg(2).arg(u"ME2"_s, u""_s, u""_s, u""_s, u""_s)}));
        ExpectedState expected;
        save(kMensa, {line(u"ME1"_s, {u"1"_s, u""_s, u"2"_s, u""_s}, u"3"_s, u"14:00 - 14:45"_s)});
        expected.change(u"Parameter"_s, 1,
                        {{u"Feld2"_s, u"14:00 - 14:45"_s},
                         {u"Feld3"_s, u"14:00 - 14:45 ME1"_s},
                         {u"Feld4"_s, u"1"_s},
                         {u"Feld5"_s, u""_s},
                         {u"Feld6"_s, u"2"_s},
                         {u"Feld7"_s, u""_s},
                         {u"Feld8"_s, u"3"_s}});
        COMPARE_STATE(expected);
    }

    /// The editor of new offerings leaves such a row.
    void aRowWithoutAKeyOrPlacesIsFilledAndKeepsItsKind() {
        useEmptyDatabase();
        addRow(u"Parameter"_s, {{u"Bezeichnung"_s, u"ME1"_s}, {u"Feld1"_s, u"LZ"_s}});
        save(kMensa, {line(u"ME1"_s, {u"5"_s, u""_s, u""_s, u""_s}, u"5"_s)});
        QCOMPARE(columnOf(u"Parameter"_s, u"ID"_s), QStringList{u"<null>"_s});
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld1"_s), QStringList{u"LZ"_s});
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld8"_s), QStringList{u"5"_s});
    }

    void ofTwoTimesOfAShortNameTheLineSavedLastDecides() {
        useEmptyDatabase();
        save(kMensa, {line(u"ME1"_s, {u"5"_s, u""_s, u""_s, u""_s}, u"5"_s),
                      line(u"ME1"_s, {u"9"_s, u""_s, u""_s, u""_s}, u"9"_s, u"14:00 - 14:45"_s)});
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld4"_s), QStringList{u"9"_s});
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld2"_s), QStringList{u"14:00 - 14:45"_s});
    }

    void aMensaAndALernzeitOfOneShortNameShareTheirRow() {
        useEmptyDatabase();
        addTime(u"GR1"_s, u"Mensa"_s, u"M1"_s, u"MO"_s, u"12:00 - 12:45"_s);
        addTime(u"GR2"_s, u"Lernzeit"_s, u"M1"_s, u"MO"_s, u"15:00 - 16:00"_s);
        save(kMensa, {line(u"M1"_s, {u"5"_s, u""_s, u""_s, u""_s}, u"5"_s)});
        QCOMPARE(textsOf(plan(kLernzeit)),
                 QStringList{u"Lernzeit | 15:00 - 16:00 | M1 | 15:00 - 16:00 M1 | 5 |  |  |  | 5"_s});
    }

    void theNextKeyFollowsTheLargest() {
        useEmptyDatabase();
        addRow(u"Parameter"_s, {{u"ID"_s, 7}, {u"Bezeichnung"_s, u"alt"_s}});
        save(kLernzeit, {line(u"LZ1"_s, {}, u""_s), line(u"LZ2"_s, {}, u""_s)});
        QCOMPARE(columnOf(u"Parameter"_s, u"ID"_s), QStringList({u"7"_s, u"8"_s, u"9"_s}));
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld1"_s), QStringList({u"<null>"_s, u"LZ"_s, u"LZ"_s}));
    }

    /// The next key is made before it is needed, so it must fit even behind the last row.
    void aKeyAbove255EndsTheSavingWithTheOldState_data() {
        QTest::addColumn<int>("largest");
        QTest::addColumn<int>("newLines");
        QTest::addColumn<bool>("saved");
        QTest::newRow("room for one") << 253 << 1 << true;
        QTest::newRow("none behind the new one") << 254 << 1 << false;
        QTest::newRow("second line") << 253 << 2 << false;
        QTest::newRow("already full") << 255 << 0 << false;
    }

    void aKeyAbove255EndsTheSavingWithTheOldState() {
        QFETCH(const int, largest);
        QFETCH(const int, newLines);
        QFETCH(const bool, saved);
        useEmptyDatabase();
        addRow(u"Parameter"_s, {{u"ID"_s, largest}, {u"Bezeichnung"_s, u"alt"_s}, {u"Feld4"_s, u"1"_s}});
        const ExpectedState before;
        std::vector<CapacityLine> lines{line(u"alt"_s, {u"2"_s, u""_s, u""_s, u""_s}, u"2"_s)};
        for (int i = 0; i < newLines; ++i)
            lines.push_back(line(u"M%1"_s.arg(i), {}, u""_s));
        QCOMPARE(errorOf([&] { save(kMensa, lines); }), saved ? QString() : kOverflow);
        if (!saved)
            COMPARE_STATE(before);
        else
            QCOMPARE(columnOf(u"Parameter"_s, u"ID"_s), QStringList({u"253"_s, u"254"_s}));
    }
};

KOLIBRI_TEST_MAIN(CapacityPlanTest)
#include "capacity_plan_test.moc"
