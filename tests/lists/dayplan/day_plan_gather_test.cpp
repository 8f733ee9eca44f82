#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kThird = u"09:55 - 10:40"_s;
const QString kFifth = u"11:40 - 12:25"_s;
const QString kMensaUnit = u"12:30 - 13:15"_s;
const QString kMensa = u"12:30 - 13:15 ME1"_s;

void choose(const QString& letter, const QString& tag, const QString& grade = kAlleSchulstufen) {
    WochenplanOptions& options = Liste().Wochenplan;
    options.cmbKlasse = letter;
    options.cmbTag = tag;
    options.chk2Tage = tag.contains(u'/');
    options.cmbSchulstufe = grade;
}

/// The rows without the marks that stand below each cell of the plan of one day.
QStringList plan() {
    QStringList rows;
    for (auto row : gathered(kTagesplan))
        rows << row.replace(u" <br &> "_s, QString());
    return rows;
}

QStringList pupilsOfPlan() {
    QStringList rows;
    for (const auto& row : plan())
        if (row.startsWith(u"1: "_s))
            rows << row;
    return rows;
}

QStringList codes() {
    QStringList result;
    for (int row = 1; row <= Liste().ZeilenAnzahl; ++row)
        result << Liste().ZeilenCode(row);
    return result;
}

int failure() {
    try {
        prepareList(kTagesplan);
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

void addMany(int pupils) {
    const DbSession session(u"Test"_s);
    Transaction transaction(Global().Conn);
    for (int i = 0; i < pupils; ++i)
        Global()
            .Conn.AddNew(u"Stammdaten"_s)
            .Set(u"aktiv"_s, true)
            .Set(u"Klasse"_s, u"2a"_s)
            .Set(u"Schulstufe"_s, 2)
            .Set(u"Kl_Nr"_s, u"a"_s)
            .Update();
    transaction.Commit();
}

} // namespace

class DayPlanGatherTest : public TestBase {
    Q_OBJECT

private:
    void usePlan() {
        useEmptyDatabase();
        Global().NameKurz.fill(u"Nachname gekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        addUnits({kThird, kFifth, kMensaUnit});
        for (const auto& tag : {u"MO"_s, u"DI"_s, u"FR"_s})
            addOffering(u"GR1"_s, u"Mensa"_s, u"ME1"_s, tag, kMensaUnit, kMensaUnit);
    }

private Q_SLOTS:
    void theColumnsAreTheTeachingUnitsByTime() {
        useEmptyDatabase();
        addUnits({kMensaUnit, kThird, kFifth});
        choose(u"A"_s, u"MO"_s);
        prepareList(kTagesplan);
        const auto& liste = Liste();
        QCOMPARE(liste.SpaltenAnzahl, 5);
        QStringList texts;
        for (int column = 1; column <= 5; ++column) {
            texts << liste.SpaltenText(column);
            QCOMPARE(liste.SpaltenKey(column), liste.SpaltenText(column));
        }
        QCOMPARE(texts, QStringList({u"NAME"_s, u"KL"_s, kThird, kFifth, kMensaUnit}));
        QCOMPARE(liste.SpaltenGewicht(1), qint16(11));
        QCOMPARE(liste.SpaltenGewicht(2), qint16(3));
        QCOMPARE(liste.SpaltenGewicht(5), qint16(8));
        QCOMPARE(liste.SpaltenAusrichtung(1), quint8(kLinks));
        QCOMPARE(liste.SpaltenAusrichtung(2), quint8(kMitte));
        QCOMPARE(liste.SpaltenAusrichtung(5), quint8(kMitte));
        choose(u"A"_s, u"MO/DI"_s);
        prepareList(kTagesplan);
        QCOMPARE(liste.SpaltenAnzahl, 8);
        QCOMPARE(liste.SpaltenText(6), kThird);
        QCOMPARE(liste.SpaltenText(8), kMensaUnit);
    }

    void oneDayShowsTeachingAndOfferings() {
        usePlan();
        addTeaching(u"2a"_s, u"MO"_s, u"12:25"_s);
        addTeaching(u"2a"_s, u"DI"_s, u"09:00"_s);
        addPupil(u"Zander"_s, u"Anna"_s, u"2a"_s, {{u"GR1_MO"_s, kMensa}});
        addPupil(u"Abel"_s, u"Berta"_s, u"2a"_s, {{u"GR1_DI"_s, kMensa}});
        choose(u"A"_s, u"MO"_s);
        QCOMPARE(plan(), QStringList({u"1: Berta A. | 2a | U | U | "_s, u"1: Anna Z. | 2a | U | U | ME1"_s,
                                      u"29:  |  |  |  | "_s}));
    }

    void aCellWithoutAnythingStillHoldsTheBreak() {
        usePlan();
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s);
        choose(u"A"_s, u"MO"_s);
        prepareList(kTagesplan);
        QCOMPARE(Liste().Daten(3, 1), u" <br &> "_s);
    }

    void theNoteOfTheUnitStandsBelowTheCell() {
        usePlan();
        addTeaching(u"2a"_s, u"MO"_s, u"12:25"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s);
        addDayPlanNote(1, kThird, u"MO"_s, u"Logopädie"_s);
        addDayPlanNote(1, kThird, u"MO"_s, u"die zweite"_s);
        addDayPlanNote(1, kFifth, u"DI"_s, u"anderer Tag"_s);
        addDayPlanNote(2, kFifth, u"MO"_s, u"anderes Kind"_s);
        choose(u"A"_s, u"MO"_s);
        prepareList(kTagesplan);
        QCOMPARE(Liste().Daten(3, 1), u"U <br &> Logopädie"_s);
        QCOMPARE(Liste().Daten(4, 1), u"U <br &> "_s);
    }

    void anOfferingWithoutAUnitIsNotLookedAt() {
        useEmptyDatabase();
        addUnits({kThird});
        addOffering(u"GR1"_s, u"Mensa"_s, u"ME1"_s, u"MO"_s, kMensaUnit, QString());
        addTeaching(u"2a"_s, u"MO"_s, u"12:25"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s);
        choose(u"A"_s, u"MO"_s);
        QVERIFY(!plan().first().contains(u"U"_s));
    }

    void aClassWithoutARowKeepsTheEndOfThePupilAbove() {
        usePlan();
        addTeaching(u"1a"_s, u"MO"_s, u"12:25"_s);
        addTeaching(u"3a"_s, u"MO"_s, QVariant());
        addTeaching(u"4a"_s, u"MO"_s, u"10:40"_s);
        for (const auto& klasse : {u"1a"_s, u"2a"_s, u"3a"_s, u"4a"_s})
            addPupil(u"Abel"_s, u"Anna"_s, klasse);
        choose(u"A"_s, u"MO"_s);
        QCOMPARE(pupilsOfPlan(),
                 QStringList({u"1: Anna A. | 1a | U | U | "_s, u"1: Anna A. | 2a | U | U | "_s,
                              u"1: Anna A. | 3a | U | U | "_s, u"1: Anna A. | 4a | U |  | "_s}));
    }

    void aClassWithoutARowInFrontOfAllShowsNoTeaching() {
        usePlan();
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s);
        choose(u"A"_s, u"MO"_s);
        QCOMPARE(plan().first(), u"1: Anna A. | 1a |  |  | "_s);
    }

    void anEndAtMidnightIsAnEnd() {
        usePlan();
        addTeaching(u"1a"_s, u"MO"_s, u"12:25"_s);
        addTeaching(u"2a"_s, u"MO"_s, u"00:00"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s);
        choose(u"A"_s, u"MO"_s);
        QCOMPARE(plan().value(3), u"1: Anna A. | 2a |  |  | "_s);
    }

    void aClassChangeAlwaysGivesThreeRowsOfCodes() {
        usePlan();
        for (const auto& klasse : {u"1a"_s, u"2a"_s, u"3a"_s})
            addPupil(u"Abel"_s, u"Anna"_s, klasse);
        choose(u"A"_s, u"MO"_s);
        prepareList(kTagesplan);
        QCOMPARE(codes(), QStringList({u"1"_s, u"29"_s, u"21"_s, u"1"_s, u"29"_s, u"23"_s, u"1"_s, u"29"_s}));
    }

    void onlyTheLastGradeOfAFullPlanDoesNotEndItsSheet() {
        usePlan();
        for (const auto& klasse : {u"3a"_s, u"3A"_s})
            addPupil(klasse, u"Anna"_s, klasse);
        choose(u"A"_s, u"MO"_s, u"3"_s);
        prepareList(kTagesplan);
        QCOMPARE(codes().value(2), u"21"_s);
        choose(u"A"_s, u"MO"_s);
        prepareList(kTagesplan);
        QCOMPARE(codes().value(2), u"23"_s);
        // A higher grade anywhere in the school, even of a deactivated pupil, is the last one.
        addPupil(u"Abel"_s, u"Anna"_s, u"4b"_s, {{u"aktiv"_s, false}});
        prepareList(kTagesplan);
        QCOMPARE(codes().value(2), u"21"_s);
    }

    void classesOfOneGradeThatMixAreSeparatedAtEachChange() {
        usePlan();
        addPupil(u"A"_s, u"A"_s, u"1a"_s);
        addPupil(u"B"_s, u"B"_s, u"10a"_s);
        addPupil(u"C"_s, u"C"_s, u"1a"_s);
        choose(u"A"_s, u"MO"_s);
        prepareList(kTagesplan);
        QCOMPARE(codes(), QStringList({u"1"_s, u"29"_s, u"23"_s, u"1"_s, u"29"_s, u"23"_s, u"1"_s, u"29"_s}));
    }

    void thePlanOfOneDayLeavesOutWhoTakesNoPartInTheCare() {
        usePlan();
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s);
        addPupil(u"Bär"_s, u"Ben"_s, u"2a"_s, {{u"NichtOG"_s, true}});
        addPupil(u"Cohn"_s, u"Can"_s, u"2a"_s, {{u"aktiv"_s, false}});
        addPupil(u"Dorn"_s, u"Dana"_s, u"0a"_s);
        addPupil(u"Ernst"_s, u"Eda"_s, u"2b"_s);
        choose(u"a"_s, u"MO"_s);
        QCOMPARE(pupilsOfPlan(), QStringList{u"1: Anna A. | 2a |  |  | "_s});
        choose(u"a"_s, u"MO/DI"_s);
        QCOMPARE(pupilsOfPlan(), QStringList({u"1: Abel Anna | 2a |  |  |  |  |  | "_s,
                                              u"1: Bär Ben | 2a |  |  |  |  |  | "_s}));
    }

    void oneGradeAlone() {
        usePlan();
        for (const auto& klasse : {u"1a"_s, u"2a"_s, u"0a"_s})
            addPupil(u"Abel"_s, u"Anna"_s, klasse);
        choose(u"A"_s, u"MO"_s, u"2"_s);
        QCOMPARE(pupilsOfPlan(), QStringList{u"1: Anna A. | 2a |  |  | "_s});
        choose(u"A"_s, u"MO"_s, u"0"_s);
        QCOMPARE(pupilsOfPlan(), QStringList{u"1: Anna A. | 0a |  |  | "_s});
    }

    void twoDaysStandSideBySideWithTheirOwnEnds() {
        usePlan();
        addTeaching(u"2a"_s, u"MO"_s, u"12:25"_s);
        addTeaching(u"2a"_s, u"DI"_s, u"10:40"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s, {{u"GR1_DI"_s, kMensa}});
        choose(u"A"_s, u"MO/DI"_s);
        QCOMPARE(plan().first(), u"1: Abel Anna | 2a | U | U |  | U |  | ME1"_s);
    }

    void fridayWithTwoDaysLeavesTheSecondHalfEmpty() {
        usePlan();
        addTeaching(u"2a"_s, u"FR"_s, u"12:25"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s, {{u"GR1_FR"_s, kMensa}});
        choose(u"A"_s, u"FR"_s);
        Liste().Wochenplan.chk2Tage = true;
        QCOMPARE(plan().first(), u"1: Abel Anna | 2a | U | U | ME1 |  |  | "_s);
    }

    void withTwoDaysTheNotesOnAssignmentsTellWhyNot() {
        usePlan();
        addPupil(u"Abel"_s, u"Anna"_s, u"2a"_s);
        addAssignmentNote(1, u"GR1"_s, u"MO"_s, u"Mensa"_s, kMensaUnit, u"ME1"_s, u"isst zu Hause"_s);
        addAssignmentNote(1, u"GR1"_s, u"DI"_s, u"Mensa"_s, kMensaUnit, u"ME1"_s, u"früher"_s);
        addAssignmentNote(1, u"GR1"_s, u"DI"_s, u"Mensa"_s, kMensaUnit, u"ME1"_s, u"später"_s);
        addDayPlanNote(1, kThird, u"MO"_s, u"nur an einem Tag"_s);
        choose(u"A"_s, u"MO/DI"_s);
        QCOMPARE(plan().first(), u"1: Abel Anna | 2a |  |  | isst zu Hause |  |  | später"_s);
        choose(u"A"_s, u"MO"_s);
        QCOMPARE(plan().first(), u"1: Anna A. | 2a | nur an einem Tag |  | "_s);
    }

    void noPupilSelectedLeavesTheEndRow() {
        usePlan();
        choose(u"D"_s, u"MO"_s);
        QCOMPARE(plan(), QStringList{u"29:  |  |  |  | "_s});
    }

    void thePlanHoldsNineHundredNinetyNineRows() {
        usePlan();
        addMany(998);
        choose(u"A"_s, u"MO"_s);
        QCOMPARE(failure(), 0);
        QCOMPARE(Liste().ZeilenAnzahl, 999);
        addMany(1);
        QCOMPARE(failure(), 9);
    }

    void twentyRowsAreLeftForTheChangesOfClass() {
        usePlan();
        const auto addMixed = [](int number) {
            addPupil(QString(QChar(u'A' + number)), u"N"_s, number % 2 == 0 ? u"1a"_s : u"10a"_s);
        };
        for (int i = 0; i <= 10; ++i)
            addMixed(i);
        choose(u"A"_s, u"MO"_s);
        QCOMPARE(failure(), 0);
        addMixed(11);
        QCOMPARE(failure(), 9);
    }
};

KOLIBRI_TEST_MAIN(DayPlanGatherTest)
#include "day_plan_gather_test.moc"
