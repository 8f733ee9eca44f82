#include "core/widgets/application.h"
#include "support/offering_form.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kFill = u"Bitte die gekennzeichneten Felder füllen!"_s;
const QString kQuestion = u"Wollen Sie die Daten wirklich löschen?"_s;

} // namespace

/// What OK checks, says, writes and shows.
class FrmME_LZ_AG_okTest : public OfferingFormTest {
    Q_OBJECT

private Q_SLOTS:
    void threeWeekdaysInMensaNeuGiveThreeRowsAndOneCapacityRow() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        fill(window, u"ME1"_s, {u"MO"_s, u"MI"_s, u"FR"_s});
        unit(window).setCurrentIndex(1);
        press(window);
        QCOMPARE(columnOf(u"GR1"_s, u"Tag"_s), QStringList({u"MO"_s, u"MI"_s, u"FR"_s}));
        QCOMPARE(columnOf(u"GR1"_s, u"Zeit_K_Name"_s), QStringList(3, u"13:00 - 13:45 ME1"_s));
        QCOMPARE(columnOf(u"GR1"_s, u"UE_Zeit"_s), QStringList(3, kUnit));
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld1"_s), QStringList{u"ME"_s});
        QCOMPARE(cellsOf(list(window), 3), QStringList({u"MO"_s, u"MI"_s, u"FR"_s}));
        QCOMPARE(boxes(window), QStringList(7, QString()));
        QCOMPARE(selectedDays(window), QStringList());
        QVERIFY(control<QLineEdit>(window, box(0)).hasFocus());
    }

    void aLernzeitGoesToItsOwnTable() {
        useSchool();
        auto& window = form(u"LernzeitNeu"_s);
        fill(window, u"LZ1"_s, {u"DI"_s});
        press(window);
        QCOMPARE(columnOf(u"GR2"_s, u"K_Name"_s), QStringList{u"LZ1"_s});
        QCOMPARE(columnOf(u"GR2"_s, u"UE_Zeit"_s), QStringList{u""_s});
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld1"_s), QStringList{u"LZ"_s});
        QCOMPARE(rowsOf(u"GR1"_s), QStringList());
    }

    void threeWeekdaysInArbeitsgruppeNeuGiveFifteenRowsWithEqualIds() {
        useSchool();
        auto& window = form(u"ArbeitsgruppeNeu"_s);
        fill(window, u"CHOR"_s, {u"MO"_s, u"DI"_s, u"MI"_s});
        type(window, box(5), u"Frau Weiß"_s);
        type(window, box(6), u"Aula"_s);
        press(window);
        for (const auto& table : tablesOf(OfferingKind::Arbeitsgruppe)) {
            QCOMPARE(columnOf(table, u"ID"_s), QStringList({u"1"_s, u"2"_s, u"3"_s}));
            QCOMPARE(columnOf(table, u"Tag"_s), QStringList({u"MO"_s, u"DI"_s, u"MI"_s}));
            QCOMPARE(columnOf(table, u"Betreuer"_s), QStringList(3, u"Frau Weiß"_s));
            QCOMPARE(columnOf(table, u"Ort"_s), QStringList(3, u"Aula"_s));
        }
        QCOMPARE(rowsOf(u"Parameter"_s), QStringList());
        QCOMPARE(list(window).rowCount(), 3);
        QCOMPARE(list(window).cell(1, 7), u"Frau Weiß"_s);
    }

    void emptyBoxesAreColouredAndTold() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        type(window, box(0), u"ME1"_s);
        doorsOfTest.expect(kFill);
        press(window);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Überprüfung Eingabe"_s);
        QCOMPARE(doorsOfTest.boxes().back().code, 0);
        QVERIFY(!isFaulty(window, box(0)));
        for (const int i : {1, 3, 4})
            QVERIFY(isFaulty(window, box(i)));
        QCOMPARE(textOf(window, box(0)), u"ME1"_s);
        QCOMPARE(rowsOf(u"GR1"_s), QStringList());
    }

    void theBadBoxesAreColouredBeforeTheMessageShows() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        fill(window, u"ME1"_s, {});
        type(window, box(4), u"7:30"_s);
        doorsOfTest.expect(u"Es wurde kein Tag ausgewählt. Korrigieren Sie Ihre Eingabe"_s);
        press(window);
        QVERIFY(isFaulty(window, box(4)));
        QVERIFY(!isFaulty(window, box(3)));
    }

    void aShortNameOfSixIsRefusedWithoutAMessage() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        fill(window, u"MENSA1"_s, {u"MO"_s});
        press(window);
        QVERIFY(isFaulty(window, box(0)));
        QVERIFY(!control<QWidget>(window, box(0)).toolTip().isEmpty());
        QCOMPARE(rowsOf(u"GR1"_s), QStringList());
        type(window, box(0), u"MENSA"_s);
        press(window);
        QVERIFY(!isFaulty(window, box(0)));
        QCOMPARE(rowsOf(u"GR1"_s).size(), 1);
    }

    void theSameNamesDaysAndTimesAreRefused() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        fill(window, u"ME1"_s, {u"MO"_s, u"DI"_s});
        press(window);
        fill(window, u"ME1"_s, {u"DI"_s, u"MI"_s});
        doorsOfTest.expect(
            u"Eintrag für folgende Tage * DI +  * bereits vorhanden. Überprüfen Sie Ihre Eingabe"_s);
        press(window);
        QCOMPARE(columnOf(u"GR1"_s, u"Tag"_s), QStringList({u"MO"_s, u"DI"_s}));
        QCOMPARE(selectedDays(window), QStringList({u"DI"_s, u"MI"_s}));
    }

    /// Several offerings of one period are entered one after the other.
    void theTeachingUnitStaysForTheNextOffering() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        fill(window, u"ME1"_s, {u"MO"_s});
        unit(window).setCurrentIndex(1);
        press(window);
        QCOMPARE(unit(window).currentText(), kUnit);
    }

    void aNewRowIsShownInALongList() {
        useSchool();
        for (int i = 0; i < 60; ++i)
            addRow(u"GR1"_s, row(u"B%1"_s.arg(i), u"MO"_s));
        auto& window = form(u"MensaNeu"_s);
        fill(window, u"ZZ"_s, {u"MO"_s});
        press(window);
        auto& view = list(window);
        QCOMPARE(view.cell(61, 1), u"ZZ"_s);
        const QRect written = view.visualItemRect(view.topLevelItem(60));
        QVERIFY(written.top() >= 0 && written.bottom() <= view.viewport()->height());
        QCOMPARE(view.selectedItems().size(), 0);
        QVERIFY(control<QLineEdit>(window, box(0)).hasFocus());
    }

    void anApostropheInANameIsOneBoxAndWhatWasTypedStays() {
        useSchool();
        auto& window = form(u"ArbeitsgruppeNeu"_s);
        fill(window, u"OMA"_s, {u"MO"_s});
        type(window, box(1), u"Oma's Küche"_s);
        doorsOfTest.expectBeginning(u"Vorhandene Tage prüfen"_s);
        press(window);
        QCOMPARE(rowsOf(u"GR3"_s), QStringList());
        QCOMPARE(textOf(window, box(1)), u"Oma's Küche"_s);
        QCOMPARE(selectedDays(window), QStringList{u"MO"_s});
    }

    void aSecondTimeOfAGroupOnOneDayIsASecondRowInAllFiveTables() {
        useSchool();
        auto& window = form(u"ArbeitsgruppeNeu"_s);
        fill(window, u"CHOR"_s, {u"MO"_s});
        press(window);
        fill(window, u"CHOR"_s, {u"MO"_s});
        type(window, box(3), u"14:00"_s);
        type(window, box(4), u"14:45"_s);
        press(window);
        for (const auto& table : tablesOf(OfferingKind::Arbeitsgruppe))
            QCOMPARE(columnOf(table, u"Zeit"_s), QStringList({u"13:00 - 13:45"_s, u"14:00 - 14:45"_s}));
        QCOMPARE(columnOf(u"GR3"_s, u"ID"_s), QStringList({u"1"_s, u"2"_s}));
        QCOMPARE(columnOf(u"GR7"_s, u"ID"_s), QStringList({u"1"_s, u"1"_s}));
    }

    void deletingWithoutAClickedRowAsksForTheBoxes() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        auto& window = form(u"MensaLöschen"_s);
        doorsOfTest.expect(kFill);
        press(window);
        QCOMPARE(rowsOf(u"GR1"_s).size(), 1);
    }

    void deletingAsksFirstAndNoEndsIt() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        const auto before = wholeDatabase();
        auto& window = form(u"MensaLöschen"_s);
        clickRow(list(window), 1);
        doorsOfTest.expect(kQuestion, kAnswerNo);
        press(window);
        QCOMPARE(doorsOfTest.boxes().back().code, 36);
        QCOMPARE(doorsOfTest.boxes().back().title, u"vorhandene Zeiten löschen"_s);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(window, box(0)), u"ME1"_s);
    }

    /// A group that meets on Saturdays is kept in the list, although no pupil can be assigned to it.
    void weekendDaysPassTheCheckOfAWorkingGroup() {
        useSchool();
        addRow(u"GR3"_s, groupRow(u"CHOR"_s, u"MO"_s));
        auto& window = form(u"ArbeitsgruppeKorrektur"_s);
        clickRow(list(window), 1);
        type(window, box(2), u"XX"_s);
        press(window);
        QVERIFY(isFaulty(window, box(2)));
        type(window, box(2), u"SA"_s);
        press(window);
        QVERIFY(!isFaulty(window, box(2)));
        QCOMPARE(columnOf(u"GR3"_s, u"Tag"_s), QStringList{u"SA"_s});
    }

    void aBadTimeInACorrectionStaysColoured() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        auto& window = form(u"MensaKorrektur"_s);
        clickRow(list(window), 1);
        type(window, box(3), u"24:30"_s);
        press(window);
        QVERIFY(isFaulty(window, box(3)));
    }

    void aCorrectionOfTheUnitAlonePassesTheCheck() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        auto& window = form(u"MensaKorrektur"_s);
        clickRow(list(window), 1);
        unit(window).setCurrentIndex(0);
        press(window);
        QCOMPARE(columnOf(u"GR1"_s, u"UE_Zeit"_s), QStringList{u""_s});
        QCOMPARE(cellsOf(list(window), 7), QStringList{u""_s});
    }

    void afterACorrectionTheListIsNewAndTheBoxesAreEmpty() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        auto& window = form(u"MensaKorrektur"_s);
        clickRow(list(window), 1);
        type(window, box(3), u"13:05"_s);
        press(window);
        QCOMPARE(cellsOf(list(window), 6), QStringList{u"13:05 - 13:45"_s});
        QCOMPARE(boxes(window), QStringList(7, QString()));
        QVERIFY(window.isVisible());
        // The next one needs a new click.
        doorsOfTest.expect(kFill);
        press(window);
        QCOMPARE(columnOf(u"GR1"_s, u"Zeit"_s), QStringList{u"13:05 - 13:45"_s});
    }

    void deletingWithYesTakesTheRowAway() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        addRow(u"GR1"_s, row(u"ME2"_s, u"MO"_s));
        auto& window = form(u"MensaLöschen"_s);
        clickRow(list(window), 1);
        doorsOfTest.expect(kQuestion, kAnswerYes);
        press(window);
        QCOMPARE(columnOf(u"GR1"_s, u"K_Name"_s), QStringList{u"ME2"_s});
        QCOMPARE(cellsOf(list(window), 1), QStringList{u"ME2"_s});
        QCOMPARE(boxes(window), QStringList(7, QString()));
    }
};

KOLIBRI_TEST_MAIN(FrmME_LZ_AG_okTest)
#include "frmME_LZ_AG_ok_test.moc"
