#include "calendar/offering_check.h"
#include "core/widgets/application.h"
#include "support/driving.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const OfferingMode kMensaNeu = offeringMode(u"MensaNeu");
const OfferingMode kMensaKorrektur = offeringMode(u"MensaKorrektur");
const OfferingMode kMensaLöschen = offeringMode(u"MensaLöschen");
const OfferingMode kGruppeKorrektur = offeringMode(u"ArbeitsgruppeKorrektur");

Offering mensa(const QStringList& days = {u"MO"_s}) {
    return {{u"ME1"_s, u"Mensa 1"_s, u""_s, u"13:00"_s, u"14:00"_s, u""_s, u""_s}, u""_s, days};
}

Offering existing(const QString& day) {
    Offering offering = mensa({});
    offering[kBoxTag] = day;
    return offering;
}

void addOffering(const QString& table, const QString& day, const QString& von = u"13:00"_s,
                 const QString& bis = u"14:00"_s) {
    addRow(table, {{u"K_Name"_s, u"ME1"_s},
                   {u"L_Name"_s, u"Mensa 1"_s},
                   {u"Tag"_s, day},
                   {u"Zeit_von"_s, von},
                   {u"Zeit_bis"_s, bis},
                   {u"Zeit"_s, von + u" - "_s + bis}});
}

} // namespace

class OfferingCheckTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aFullEntryPasses() {
        useEmptyDatabase();
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, mensa());
        QVERIFY(!check.fehler);
        QCOMPARE(check.meldungen, QStringList());
        QCOMPARE(check.marks[kBoxKName], BoxMark::Passed);
        QCOMPARE(check.marks[kBoxTag], BoxMark::AsItWas);
        QCOMPARE(check.marks[kBoxOrt], BoxMark::AsItWas);
    }

    void emptyMandatoryBoxesAreMarkedAndEndTheCheck() {
        useEmptyDatabase();
        Offering offering = mensa({});
        offering[kBoxLName].clear();
        offering[kBoxVon] = u"7:30"_s;
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering);
        QVERIFY(check.fehler);
        QCOMPARE(check.meldungen, QStringList{u"Bitte die gekennzeichneten Felder füllen!"_s});
        QCOMPARE(check.marks[kBoxLName], BoxMark::Faulty);
        QCOMPARE(check.marks[kBoxKName], BoxMark::Passed);
        QCOMPARE(check.marks[kBoxVon], BoxMark::Passed);
    }

    void anExistingRowNeedsItsDayToo() {
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaKorrektur, existing({}));
        QCOMPARE(check.marks[kBoxTag], BoxMark::Faulty);
        QCOMPARE(check.meldungen, QStringList{u"Bitte die gekennzeichneten Felder füllen!"_s});
    }

    void deletingWithoutAClickedRowEndsAtTheMandatoryBoxes() {
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaLöschen, {});
        QVERIFY(check.fehler);
        QCOMPARE(check.meldungen, QStringList{u"Bitte die gekennzeichneten Felder füllen!"_s});
    }

    void aShortNameOfSixIsMarkedWithoutAMessageAndOneOfFivePasses() {
        useEmptyDatabase();
        Offering offering = mensa();
        offering[kBoxKName] = u"MENSA1"_s;
        auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering);
        QVERIFY(check.fehler);
        QCOMPARE(check.meldungen, QStringList());
        QCOMPARE(check.marks[kBoxKName], BoxMark::Faulty);
        offering[kBoxKName] = u"MENSA"_s;
        check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering);
        QVERIFY(!check.fehler);
    }

    void badTimesAreMarkedWithoutAMessage() {
        useEmptyDatabase();
        Offering offering = mensa();
        offering[kBoxVon] = u"7:30"_s;
        offering[kBoxBis] = u"ab:cd"_s;
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering);
        QVERIFY(check.fehler);
        QCOMPARE(check.meldungen, QStringList());
        QCOMPARE(check.marks[kBoxVon], BoxMark::Faulty);
        QCOMPARE(check.marks[kBoxBis], BoxMark::Faulty);
        QCOMPARE(check.marks[kBoxKName], BoxMark::Passed);
    }

    void midnightAtTheEndIsATimeAndAnythingLaterIsNot() {
        useEmptyDatabase();
        Offering offering = mensa();
        offering[kBoxBis] = u"24:00"_s;
        QVERIFY(!Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering).fehler);
        for (const auto& time : {u"24:30"_s, u"23:60"_s}) {
            offering[kBoxBis] = time;
            QVERIFY(Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering).fehler);
        }
    }

    /// The office has entered care over midnight on trips, and no editor has ever compared the two.
    void theEndIsNotComparedWithTheStart() {
        useEmptyDatabase();
        Offering offering = mensa();
        offering[kBoxVon] = u"14:00"_s;
        offering[kBoxBis] = u"13:00"_s;
        QVERIFY(!Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering).fehler);
    }

    void withoutAWeekdayTheMessageShowsAndTheOtherChecksStillRun() {
        useEmptyDatabase();
        addOffering(u"GR1"_s, u"MO"_s);
        Offering offering = mensa({});
        offering[kBoxKName] = u"MENSA1"_s;
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering);
        QCOMPARE(check.meldungen,
                 QStringList{u"Es wurde kein Tag ausgewählt. Korrigieren Sie Ihre Eingabe"_s});
        QVERIFY(check.fehler);
        QCOMPARE(check.marks[kBoxKName], BoxMark::Faulty);
    }

    void withoutAWeekdayTheStoreIsStillAskedForExistingDays() {
        useEmptyDatabase();
        Offering offering = mensa({});
        offering[kBoxLName] = u"Oma's Mensa"_s;
        QVERIFY_THROWS_EXCEPTION(StoreError, Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering));
    }

    /// The office knows the message in just this form, with the plus behind the last day and two blanks.
    void doubledDaysAreToldWithTheirTrailingPlus() {
        useEmptyDatabase();
        addOffering(u"GR1"_s, u"MO"_s);
        addOffering(u"GR1"_s, u"DI"_s);
        addOffering(u"GR1"_s, u"MO"_s);
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, mensa({u"MO"_s, u"DI"_s, u"FR"_s}));
        QVERIFY(check.fehler);
        QCOMPARE(
            check.meldungen,
            QStringList{
                u"Eintrag für folgende Tage * MO + DI +  * bereits vorhanden. Überprüfen Sie Ihre Eingabe"_s});
    }

    void onlyTheVerySameNamesDayAndTimesAreRefused() {
        useEmptyDatabase();
        addOffering(u"GR1"_s, u"MO"_s);
        QVERIFY(Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, mensa()).fehler);
        Offering otherTime = mensa();
        otherTime[kBoxBis] = u"14:05"_s;
        QVERIFY(!Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, otherTime).fehler);
        Offering otherName = mensa();
        otherName[kBoxLName] = u"Mensa eins"_s;
        QVERIFY(!Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, otherName).fehler);
        QVERIFY(!Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, mensa({u"DI"_s})).fehler);
        QVERIFY(!Eingaben_ME_LZ_AG_überprüfen(offeringMode(u"LernzeitNeu"), mensa()).fehler);
    }

    void aWorkingGroupIsLookedForInAllFiveTables_data() {
        QTest::addColumn<QString>("table");
        for (const auto& table : tablesOf(OfferingKind::Arbeitsgruppe))
            QTest::newRow(qPrintable(table)) << table;
    }

    void aWorkingGroupIsLookedForInAllFiveTables() {
        QFETCH(QString, table);
        useEmptyDatabase();
        addOffering(table, u"MO"_s);
        const auto check = Eingaben_ME_LZ_AG_überprüfen(offeringMode(u"ArbeitsgruppeNeu"), mensa());
        QCOMPARE(check.meldungen.size(), 1);
        QVERIFY(check.meldungen.first().startsWith(u"Eintrag für folgende Tage * MO +  *"_s));
    }

    void aTextThatIsNoTimeEqualsNoRow() {
        useEmptyDatabase();
        addRow(u"GR1"_s, {{u"K_Name"_s, u"ME1"_s}, {u"L_Name"_s, u"Mensa 1"_s}, {u"Tag"_s, u"MO"_s}});
        addOffering(u"GR1"_s, u"MO"_s, u"00:00"_s, u"00:00"_s);
        Offering offering = mensa();
        offering[kBoxVon] = u"ab:cd"_s;
        offering[kBoxBis] = u"ab:cd"_s;
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering);
        QCOMPARE(check.meldungen, QStringList());
        QVERIFY(check.fehler);
    }

    void aMissingLeadingZeroIsTheSameTimeWhereExistingDaysAreLookedFor() {
        useEmptyDatabase();
        addOffering(u"GR1"_s, u"MO"_s, u"08:00"_s, u"08:45"_s);
        Offering offering = mensa();
        offering[kBoxVon] = u"8:00"_s;
        offering[kBoxBis] = u"08:45"_s;
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaNeu, offering);
        QCOMPARE(check.meldungen.size(), 1);
        QCOMPARE(check.marks[kBoxVon], BoxMark::Faulty);
    }

    void theWeekendPassesForAWorkingGroup_data() {
        QTest::addColumn<QString>("day");
        QTest::addColumn<bool>("passes");
        for (const auto& day : {u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s, u"SA"_s, u"SO"_s})
            QTest::newRow(qPrintable(day)) << day << true;
        for (const auto& day : {u"XX"_s, u"mo"_s, u"Montag"_s})
            QTest::newRow(qPrintable(day)) << day << false;
    }

    void theWeekendPassesForAWorkingGroup() {
        QFETCH(QString, day);
        QFETCH(bool, passes);
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kGruppeKorrektur, existing(day));
        QCOMPARE(check.fehler, !passes);
        QCOMPARE(check.marks[kBoxTag], passes ? BoxMark::Passed : BoxMark::Faulty);
        QCOMPARE(check.meldungen, QStringList());
    }

    /// The row that is found is the corrected one itself where only its teaching unit or supervisor changes.
    void aCorrectionThatKeepsTheTimeOfAnExistingRowPasses() {
        useEmptyDatabase();
        addOffering(u"GR1"_s, u"MO"_s);
        const auto check = Eingaben_ME_LZ_AG_überprüfen(kMensaKorrektur, existing(u"MO"_s));
        QVERIFY(!check.fehler);
        QCOMPARE(check.meldungen, QStringList());
    }
};

KOLIBRI_TEST_MAIN(OfferingCheckTest)
#include "offering_check_test.moc"
