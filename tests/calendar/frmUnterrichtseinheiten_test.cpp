#include "calendar/frmUnterrichtseinheiten.h"
#include "calendar/offerings.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

using Mode = bool mdlGlobal::*;
constexpr Mode kNeu = &mdlGlobal::ModusUE_Neu;
constexpr Mode kKorrektur = &mdlGlobal::ModusUE_Korrektur;
constexpr Mode kLöschen = &mdlGlobal::ModusUE_Loeschen;

const QString kEmpty = u"Feld Zeit Von und Feld Zeit Bis dürfen nicht leer sein!"_s;
const QString kQuestion =
    u"Unterrichtseinheit wirklich löschen? Es wird diese Unterrichtseinheit, wenn vorhanden, auch bei Mensa, Lernzeit oder Arbeitsgruppe gelöscht!"_s;

} // namespace

Q_DECLARE_METATYPE(Mode)

class FrmUnterrichtseinheitenTest : public TestBase {
    Q_OBJECT

private:
    /// The form in a mode, over the units of the store.
    static FormWindow& form(Mode mode) {
        ModiZuruecksetzen();
        Global().*mode = true;
        auto& result = Form<frmUnterrichtseinheiten>();
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    static void addUnit(int id, const QString& zeit, int number) {
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, id}, {u"Zeit"_s, zeit}, {u"Sort_NR"_s, number}});
    }

    static ListView& list(FormWindow& window) {
        return *static_cast<ListView*>(&control<QTreeWidget>(window, u"lvwUE"_s));
    }

    static void enter(FormWindow& window, const QString& von, const QString& bis) {
        type(window, u"txtZeitVon"_s, von);
        type(window, u"txtZeitBis"_s, bis);
        press(window);
    }

private Q_SLOTS:
    void captionsFollowTheMode_data() {
        QTest::addColumn<Mode>("mode");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<QString>("ok");
        QTest::newRow("Neu") << kNeu << u"Unterrichtseinheit Neueingabe"_s << u"O K"_s;
        QTest::newRow("Korrektur") << kKorrektur << u"Unterrichtseinheit Korrigieren"_s << u"KORREKTUR"_s;
        QTest::newRow("Löschen") << kLöschen << u"Unterrichtseinheit Löschen"_s << u"LÖSCHEN"_s;
    }

    void captionsFollowTheMode() {
        QFETCH(Mode, mode);
        QFETCH(QString, caption);
        QFETCH(QString, ok);
        useEmptyDatabase();
        auto& window = form(mode);
        QCOMPARE(window.windowTitle(), caption);
        QCOMPARE(control<QPushButton>(window, u"cmdOK"_s).text(), ok);
        QCOMPARE(control<QPushButton>(window, u"cmdBeenden"_s).text(), u"BEENDEN"_s);
        QCOMPARE(window.findChild<QGroupBox*>()->title(), u"ZEIT"_s);
        QCOMPARE(headingsOf(list(window)), QStringList({u"ID"_s, u"Zeit"_s}));
        QCOMPARE(
            control<QLabel>(window, u"lblText1"_s).text(),
            u"Mit den hier eingegebenen Unterrichtseinheiten (Unterrichtsstunden) werden die Spalten im Tagesplan gebildet. Tragen Sie auch zusätzlich 'fiktive' Unterrichtseinheiten für Mensa, Lernzeit und AG's ein, in denen kein Unterricht stattfindet. Ordnen Sie die Unterrichtseinheiten im Anschluss Mensa, Lernzeiten und AG's zu. Z.B. unter 'Bearbeiten -> Mensa -> Korrektur'."_s);
    }

    void closingTheFormResetsTheModes() {
        useEmptyDatabase();
        for (const Mode mode : {kNeu, kKorrektur, kLöschen}) {
            form(mode).hide();
            QVERIFY(!(Global().*mode));
        }
    }

    void theFirstUnitGetsId0AndNumber1AndTheNextEntryBeginsAtTheStart() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        enter(window, u"08:00"_s, u"08:45"_s);
        QCOMPARE(rowsOf(u"Unterrichtseinheiten"_s), QStringList{u"ID=0; Zeit=08:00 - 08:45; Sort_NR=1"_s});
        QCOMPARE(list(window).itemText(1), u"00000"_s);
        QCOMPARE(list(window).key(1), u"A0000"_s);
        QCOMPARE(cellsOf(list(window), 1), QStringList{u"08:00 - 08:45"_s});
        QCOMPARE(textOf(window, u"txtZeitVon"_s), QString());
        QCOMPARE(textOf(window, u"txtZeitBis"_s), QString());
        QVERIFY(control<QLineEdit>(window, u"txtZeitVon"_s).hasFocus());
    }

    void aNewUnitBetweenTwoOldIsNumberedByTime() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        enter(window, u"08:00"_s, u"08:45"_s);
        enter(window, u"09:50"_s, u"10:35"_s);
        enter(window, u"08:50"_s, u"09:35"_s);
        QCOMPARE(cellsOf(list(window), 1),
                 QStringList({u"08:00 - 08:45"_s, u"08:50 - 09:35"_s, u"09:50 - 10:35"_s}));
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"Sort_NR"_s), QStringList({u"1"_s, u"3"_s, u"2"_s}));
    }

    void anEmptyStartColoursOnlyTheStart() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        doorsOfTest.expect(kEmpty);
        enter(window, {}, u"08:45"_s);
        QVERIFY(isFaulty(window, u"txtZeitVon"_s));
        QVERIFY(!isFaulty(window, u"txtZeitBis"_s));
        QCOMPARE(rowsOf(u"Unterrichtseinheiten"_s), QStringList());
    }

    void twoEmptyBoxesAreBothColoured() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        doorsOfTest.expect(kEmpty);
        press(window);
        QVERIFY(isFaulty(window, u"txtZeitVon"_s));
        QVERIFY(isFaulty(window, u"txtZeitBis"_s));
    }

    void aBadTimeIsToldForTheStartFirst() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        doorsOfTest.expect(u"Zeit Von entspricht nicht dem Format hh:mm!"_s);
        enter(window, u"8:00"_s, u"8:45"_s);
        QVERIFY(isFaulty(window, u"txtZeitVon"_s));
        QVERIFY(!isFaulty(window, u"txtZeitBis"_s));
        doorsOfTest.expect(u"Zeit Bis entspricht nicht dem Format hh:mm!"_s);
        enter(window, u"08:00"_s, u"8:45"_s);
        QVERIFY(!isFaulty(window, u"txtZeitVon"_s));
        QVERIFY(isFaulty(window, u"txtZeitBis"_s));
        enter(window, u"08:00"_s, u"08:45"_s);
        QVERIFY(!isFaulty(window, u"txtZeitBis"_s));
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"Zeit"_s), QStringList{u"08:00 - 08:45"_s});
    }

    void aFilledAndAnEmptyBoxIsTheMessageAboutEmptyFields() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        doorsOfTest.expect(kEmpty);
        enter(window, u"8:00"_s, {});
        QVERIFY(!isFaulty(window, u"txtZeitVon"_s));
        QVERIFY(isFaulty(window, u"txtZeitBis"_s));
    }

    void inNeuAClickLeavesTheBoxesAsTheyAre() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        auto& window = form(kNeu);
        type(window, u"txtZeitVon"_s, u"09:0"_s);
        clickRow(list(window), 1);
        QCOMPARE(textOf(window, u"txtZeitVon"_s), u"09:0"_s);
        QCOMPARE(textOf(window, u"txtZeitBis"_s), QString());
    }

    void aClickFillsStartAndEnd() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        auto& window = form(kKorrektur);
        clickRow(list(window), 1);
        QCOMPARE(textOf(window, u"txtZeitVon"_s), u"08:00"_s);
        QCOMPARE(textOf(window, u"txtZeitBis"_s), u"08:45"_s);
    }

    void aCorrectedUnitMovesTheOfferingsOfAllSevenTables() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        addUnit(1, u"08:50 - 09:35"_s, 2);
        for (const auto& table : offeringTables()) {
            addRow(table, {{u"ID"_s, 1}, {u"UE_Zeit"_s, u"08:00 - 08:45"_s}});
            addRow(table, {{u"ID"_s, 2}, {u"UE_Zeit"_s, u"08:50 - 09:35"_s}});
        }
        auto& window = form(kKorrektur);
        clickRow(list(window), 1);
        enter(window, u"08:05"_s, u"08:50"_s);
        for (const auto& table : offeringTables())
            QCOMPARE(columnOf(table, u"UE_Zeit"_s), QStringList({u"08:05 - 08:50"_s, u"08:50 - 09:35"_s}));
        QCOMPARE(cellsOf(list(window), 1), QStringList({u"08:05 - 08:50"_s, u"08:50 - 09:35"_s}));
    }

    void aCorrectionThatPassesAnotherUnitRenumbersBoth() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        addUnit(1, u"08:50 - 09:35"_s, 2);
        auto& window = form(kKorrektur);
        clickRow(list(window), 1);
        enter(window, u"09:50"_s, u"10:35"_s);
        QCOMPARE(rowsOf(u"Unterrichtseinheiten"_s), QStringList({u"ID=0; Zeit=09:50 - 10:35; Sort_NR=2"_s,
                                                                 u"ID=1; Zeit=08:50 - 09:35; Sort_NR=1"_s}));
    }

    /// The office lays two courses into one period now and then, and both are columns of the Tagesplan.
    void twoUnitsWithOneTimeCanExist() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        enter(window, u"08:00"_s, u"08:45"_s);
        enter(window, u"08:00"_s, u"08:45"_s);
        QCOMPARE(rowsOf(u"Unterrichtseinheiten"_s), QStringList({u"ID=0; Zeit=08:00 - 08:45; Sort_NR=2"_s,
                                                                 u"ID=1; Zeit=08:00 - 08:45; Sort_NR=2"_s}));
    }

    /// The two times are not compared, as in no editor of times.
    void aUnitThatEndsBeforeItBeginsIsTaken() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        enter(window, u"14:00"_s, u"13:00"_s);
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"Zeit"_s), QStringList{u"14:00 - 13:00"_s});
    }

    void aUnitThatAnotherWorkstationDeletedIsNotChosen() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        addUnit(1, u"08:50 - 09:35"_s, 2);
        addRow(u"GR1"_s, {{u"L_Name"_s, u"ohne Einheit"_s}, {u"UE_Zeit"_s, u""_s}});
        auto& window = form(kKorrektur);
        clickRow(list(window), 1);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"Unterrichtseinheiten"_s, u"ID = ?"_s, {1});
        }
        const auto before = wholeDatabase();
        clickRow(list(window), 2);
        QCOMPARE(textOf(window, u"txtZeitVon"_s), QString());
        doorsOfTest.expect(u"Bitte wählen Sie zuerst eine Zeile aus!"_s);
        enter(window, u"09:00"_s, u"09:45"_s);
        QCOMPARE(wholeDatabase(), before);
    }

    void aFailureWhileNumberingLeavesTheUnitsAsTheyWere() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Execute(u"CREATE TRIGGER keine_Nummer BEFORE UPDATE OF Sort_NR ON "
                                  "Unterrichtseinheiten BEGIN SELECT RAISE(ABORT, 'voll'); END"_s);
        }
        const auto before = wholeDatabase();
        auto& window = form(kNeu);
        doorsOfTest.expectBeginning(u"Unterrichtseinheit speichern"_s);
        enter(window, u"09:00"_s, u"09:45"_s);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(window, u"txtZeitVon"_s), u"09:00"_s);
    }

    void afterADeletionTheRestIsNumberedFrom1() {
        useEmptyDatabase();
        for (int i = 0; i < 3; ++i)
            addUnit(i, u"0%1:00 - 0%1:45"_s.arg(i + 7), i + 1);
        auto& window = form(kLöschen);
        clickRow(list(window), 2);
        doorsOfTest.expect(kQuestion, kAnswerYes);
        press(window);
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"ID"_s), QStringList({u"0"_s, u"2"_s}));
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"Sort_NR"_s), QStringList({u"1"_s, u"2"_s}));
    }

    void aDeletedUnitLeavesOfferingsWithAnEmptyUnit() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        addUnit(1, u"08:50 - 09:35"_s, 2);
        addRow(u"GR7"_s, {{u"ID"_s, 1}, {u"UE_Zeit"_s, u"08:00 - 08:45"_s}});
        auto& window = form(kLöschen);
        clickRow(list(window), 1);
        doorsOfTest.expect(kQuestion, kAnswerYes);
        press(window);
        QCOMPARE(doorsOfTest.boxes().back().code, 20);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Unterrichtseinheit löschen"_s);
        QCOMPARE(rowsOf(u"Unterrichtseinheiten"_s), QStringList{u"ID=1; Zeit=08:50 - 09:35; Sort_NR=1"_s});
        QCOMPARE(columnOf(u"GR7"_s, u"UE_Zeit"_s), QStringList{u""_s});
        QCOMPARE(cellsOf(list(window), 1), QStringList{u"08:50 - 09:35"_s});
    }

    void noLeavesEverythingAsItIs() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        const auto before = wholeDatabase();
        auto& window = form(kLöschen);
        clickRow(list(window), 1);
        doorsOfTest.expect(kQuestion, kAnswerNo);
        press(window);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(window, u"txtZeitVon"_s), u"08:00"_s);
        doorsOfTest.expect(kQuestion, kAnswerYes);
        press(window);
        QCOMPARE(rowsOf(u"Unterrichtseinheiten"_s), QStringList());
    }

    void withoutAClickedRowNothingIsWritten_data() {
        QTest::addColumn<Mode>("mode");
        QTest::newRow("Korrektur") << kKorrektur;
        QTest::newRow("Löschen") << kLöschen;
    }

    void withoutAClickedRowNothingIsWritten() {
        QFETCH(Mode, mode);
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        const auto before = wholeDatabase();
        auto& window = form(mode);
        doorsOfTest.expect(u"Bitte wählen Sie zuerst eine Zeile aus!"_s);
        enter(window, u"09:00"_s, u"09:45"_s);
        QCOMPARE(wholeDatabase(), before);
    }

    void afterACorrectionTheNextOneNeedsANewClick() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        auto& window = form(kKorrektur);
        clickRow(list(window), 1);
        enter(window, u"08:05"_s, u"08:50"_s);
        doorsOfTest.expect(u"Bitte wählen Sie zuerst eine Zeile aus!"_s);
        enter(window, u"09:00"_s, u"09:45"_s);
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"Zeit"_s), QStringList{u"08:05 - 08:50"_s});
    }

    void bothBoxesSelectTheirWholeTextOnReceivingTheFocus() {
        useEmptyDatabase();
        addUnit(0, u"08:00 - 08:45"_s, 1);
        auto& window = form(kKorrektur);
        clickRow(list(window), 1);
        for (const auto& name : {u"txtZeitVon"_s, u"txtZeitBis"_s}) {
            auto& box = control<QLineEdit>(window, name);
            box.setFocus(Qt::TabFocusReason);
            QCOMPARE(box.selectedText(), box.text());
        }
    }

    void enterSavesAndTabLeadsFromStartToEndToOk() {
        useEmptyDatabase();
        auto& window = form(kNeu);
        keys(*window.focusWidget(), u"08:00"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        QCOMPARE(window.focusWidget()->objectName(), u"txtZeitBis"_s);
        keys(*window.focusWidget(), u"08:45"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        QCOMPARE(columnOf(u"Unterrichtseinheiten"_s, u"Zeit"_s), QStringList{u"08:00 - 08:45"_s});
        QStringList order;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
            order << window.focusWidget()->objectName();
        }
        QCOMPARE(order, QStringList({u"txtZeitBis"_s, u"cmdOK"_s, u"cmdBeenden"_s, u"lvwUE"_s}));
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }
};

KOLIBRI_TEST_MAIN(FrmUnterrichtseinheitenTest)
#include "frmUnterrichtseinheiten_test.moc"
