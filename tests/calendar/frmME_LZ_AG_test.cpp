#include "calendar/frmME_LZ_AG.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kFill = u"Bitte die gekennzeichneten Felder füllen!"_s;
const QString kQuestion = u"Wollen Sie die Daten wirklich löschen?"_s;
const QString kUnit = u"13:00 - 13:45"_s;

QString box(int i) {
    return u"txtME_LZ_AG(%1)"_s.arg(i);
}

FieldValues row(const QString& kName, const QString& day) {
    return {{u"K_Name"_s, kName},
            {u"L_Name"_s, u"Lang "_s + kName},
            {u"Tag"_s, day},
            {u"Zeit_von"_s, u"13:00"_s},
            {u"Zeit_bis"_s, u"13:45"_s},
            {u"Zeit"_s, u"13:00 - 13:45"_s},
            {u"Zeit_K_Name"_s, u"13:00 - 13:45 "_s + kName},
            {u"UE_Zeit"_s, kUnit}};
}

FieldValues groupRow(const QString& kName, const QString& day) {
    FieldValues values = row(kName, day);
    values.push_back({u"Betreuer"_s, u"Frau Weiß"_s});
    values.push_back({u"Ort"_s, u"Aula"_s});
    return values;
}

} // namespace

class FrmME_LZ_AGTest : public TestBase {
    Q_OBJECT

private:
    /// An empty school with one teaching unit.
    void useSchool() {
        useEmptyDatabase();
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 0}, {u"Zeit"_s, kUnit}, {u"Sort_NR"_s, 1}});
    }

    static FormWindow& form(const QString& mode) {
        auto& result = Form<frmME_LZ_AG>();
        result.Tag = mode;
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    static ListView& list(FormWindow& window) {
        return *static_cast<ListView*>(&control<QTreeWidget>(window, u"lvwME_LZ_AG"_s));
    }
    static QListWidget& days(FormWindow& window) { return control<QListWidget>(window, u"lstME_LZ_AG"_s); }
    static QComboBox& unit(FormWindow& window) { return control<QComboBox>(window, u"cmbUE"_s); }

    static void fill(FormWindow& window, const QString& kName, const QStringList& dayCodes) {
        type(window, box(0), kName);
        type(window, box(1), u"Lang "_s + kName);
        type(window, box(3), u"13:00"_s);
        type(window, box(4), u"13:45"_s);
        for (const auto& day : dayCodes)
            clickEntry(days(window), day);
    }

    static QStringList boxes(FormWindow& window) {
        QStringList texts;
        for (int i = 0; i < kOfferingBoxes; ++i)
            texts << textOf(window, box(i));
        return texts;
    }

    static QStringList selectedDays(FormWindow& window) {
        QStringList texts;
        for (int i = 0; i < days(window).count(); ++i)
            if (days(window).item(i)->isSelected())
                texts << days(window).item(i)->text();
        return texts;
    }

private Q_SLOTS:
    void eachModeHasItsStates_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("ok");
        QTest::addColumn<QList<bool>>("enabled");
        const QList<bool> all{true, true, true, true, true};
        const QList<bool> none{false, false, false, false, false};
        const QList<bool> times{false, false, false, true, true};
        const QList<bool> dayAndTimes{false, false, true, true, true};
        QTest::newRow("MensaNeu") << u"MensaNeu"_s << u"O K"_s << all;
        QTest::newRow("MensaKorrektur") << u"MensaKorrektur"_s << u"KORREKTUR"_s << times;
        QTest::newRow("MensaLöschen") << u"MensaLöschen"_s << u"LÖSCHEN"_s << none;
        QTest::newRow("LernzeitNeu") << u"LernzeitNeu"_s << u"O K"_s << all;
        QTest::newRow("LernzeitKorrektur") << u"LernzeitKorrektur"_s << u"KORREKTUR"_s << times;
        QTest::newRow("LernzeitLöschen") << u"LernzeitLöschen"_s << u"LÖSCHEN"_s << none;
        QTest::newRow("ArbeitsgruppeNeu") << u"ArbeitsgruppeNeu"_s << u"O K"_s << all;
        QTest::newRow("ArbeitsgruppeKorrektur")
            << u"ArbeitsgruppeKorrektur"_s << u"KORREKTUR"_s << dayAndTimes;
        QTest::newRow("ArbeitsgruppeLöschen") << u"ArbeitsgruppeLöschen"_s << u"LÖSCHEN"_s << none;
    }

    void eachModeHasItsStates() {
        QFETCH(QString, mode);
        QFETCH(QString, ok);
        QFETCH(QList<bool>, enabled);
        useSchool();
        // The form was open in the mode that differs most.
        form(mode == u"ArbeitsgruppeNeu"_s ? u"MensaLöschen"_s : u"ArbeitsgruppeNeu"_s).hide();
        auto& window = form(mode);
        const bool isNew = mode.endsWith(u"Neu"_s);
        const bool isGroup = mode.startsWith(u"Arbeitsgruppe"_s);
        QCOMPARE(control<QPushButton>(window, u"cmdOK"_s).text(), ok);
        for (int i = 0; i < enabled.size(); ++i)
            QCOMPARE(control<QWidget>(window, box(i)).isEnabled(), enabled.at(i));
        QVERIFY(control<QWidget>(window, box(5)).isEnabled());
        QCOMPARE(days(window).isVisible(), isNew);
        QCOMPARE(control<QWidget>(window, box(2)).isVisible(), !isNew);
        for (const auto& image : {u"imgAuswahlAlle"_s, u"imgAuswahlKeine"_s})
            QCOMPARE(control<QToolButton>(window, image).isEnabled(), isNew);
        for (const int i : {5, 6})
            QCOMPARE(control<QWidget>(window, box(i)).isVisible(), isGroup);
        QVERIFY(!control<QLabel>(window, u"lblTag"_s).isVisible());
        QCOMPARE(window.focusWidget()->objectName(), isNew ? box(0) : u"lvwME_LZ_AG"_s);
    }

    void theWeekdayListHasTheFiveDays() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        QStringList texts;
        for (int i = 0; i < days(window).count(); ++i)
            texts << days(window).item(i)->text();
        QCOMPARE(texts, QStringList({u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s}));
        clickEntry(days(window), u"MO"_s);
        clickEntry(days(window), u"FR"_s);
        QCOMPARE(selectedDays(window), QStringList({u"MO"_s, u"FR"_s}));
    }

    void theImagesSelectAllDaysAndNone() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        press(window, u"imgAuswahlAlle"_s);
        QCOMPARE(selectedDays(window).size(), 5);
        press(window, u"imgAuswahlKeine"_s);
        QCOMPARE(selectedDays(window), QStringList());
    }

    void teachingUnitsBeginWithAnEmptyEntry() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        QCOMPARE(unit(window).count(), 2);
        QCOMPARE(unit(window).itemText(0), QString());
        QCOMPARE(unit(window).itemText(1), kUnit);
        QCOMPARE(unit(window).currentIndex(), 0);
    }

    void theListHasTheColumnsOfTheKind() {
        useSchool();
        const QStringList care{u"ID"_s,       u"K_Name"_s,   u"L_Name"_s, u"Tag"_s,
                               u"Zeit_von"_s, u"Zeit_bis"_s, u"Zeit"_s,   u"Unterrichtseinheit"_s};
        QStringList group = care;
        group.insert(7, u"Anmerkung"_s);
        group.insert(7, u"Ort"_s);
        group.insert(7, u"Betreuer/in"_s);
        QCOMPARE(headingsOf(list(form(u"MensaNeu"_s))), care);
        Form<frmME_LZ_AG>().hide();
        QCOMPARE(headingsOf(list(form(u"ArbeitsgruppeNeu"_s))), group);
        Form<frmME_LZ_AG>().hide();
        QCOMPARE(headingsOf(list(form(u"LernzeitLöschen"_s))), care);
    }

    void theListSortsByTheColumnsThatSort() {
        useSchool();
        for (const auto& name : {u"ME2"_s, u"ME10"_s, u"ME1"_s})
            addRow(u"GR1"_s, row(name, u"MO"_s));
        auto& window = form(u"MensaKorrektur"_s);
        auto& view = list(window);
        QCOMPARE(cellsOf(view, 1), QStringList({u"ME1"_s, u"ME10"_s, u"ME2"_s}));
        const auto click = [&](int column) { Q_EMIT view.header()->sectionClicked(column); };
        click(0);
        QCOMPARE(cellsOf(view, 0), QStringList({u"00001"_s, u"00002"_s, u"00003"_s}));
        click(1);
        QCOMPARE(cellsOf(view, 1), QStringList({u"ME2"_s, u"ME10"_s, u"ME1"_s}));
        const QStringList before = cellsOf(view, 0);
        click(7);
        QCOMPARE(cellsOf(view, 0), before);
    }

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

    void aClickFillsTheBoxesAndTheUnit() {
        useSchool();
        addRow(u"GR3"_s, groupRow(u"CHOR"_s, u"MO"_s));
        auto& window = form(u"ArbeitsgruppeKorrektur"_s);
        clickRow(list(window), 1);
        QCOMPARE(boxes(window), QStringList({u"CHOR"_s, u"Lang CHOR"_s, u"MO"_s, u"13:00"_s, u"13:45"_s,
                                             u"Frau Weiß"_s, u"Aula"_s}));
        QCOMPARE(unit(window).currentText(), kUnit);
    }

    void inNeuAClickFillsTheBoxesAsAPatternForTheNewOffering() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        auto& window = form(u"MensaNeu"_s);
        clickEntry(days(window), u"FR"_s);
        clickRow(list(window), 1);
        QCOMPARE(boxes(window).first(5),
                 QStringList({u"ME1"_s, u"Lang ME1"_s, u"MO"_s, u"13:00"_s, u"13:45"_s}));
        QCOMPARE(selectedDays(window), QStringList());
        clickEntry(days(window), u"DI"_s);
        press(window);
        QCOMPARE(columnOf(u"GR1"_s, u"Tag"_s), QStringList({u"MO"_s, u"DI"_s}));
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

    void enterSavesAndEscClosesWithoutSaving() {
        useSchool();
        auto& window = form(u"MensaNeu"_s);
        fill(window, u"ME1"_s, {u"MO"_s});
        control<QLineEdit>(window, box(4)).setFocus();
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        QCOMPARE(columnOf(u"GR1"_s, u"K_Name"_s), QStringList{u"ME1"_s});
        fill(window, u"ME2"_s, {u"MO"_s});
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        QVERIFY(!window.isVisible());
        QCOMPARE(columnOf(u"GR1"_s, u"K_Name"_s), QStringList{u"ME1"_s});
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

    void aUnitThatIsGoneOrUnsetShowsTheEmptyEntry() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        FieldValues gone = row(u"ME2"_s, u"MO"_s);
        gone.back().value = u"07:00 - 08:00"_s;
        addRow(u"GR1"_s, gone);
        FieldValues unset = row(u"ME3"_s, u"MO"_s);
        unset.pop_back();
        addRow(u"GR1"_s, unset);
        auto& window = form(u"MensaKorrektur"_s);
        for (const int number : {2, 3}) {
            clickRow(list(window), 1);
            QCOMPARE(unit(window).currentIndex(), 1);
            clickRow(list(window), number);
            QCOMPARE(unit(window).currentIndex(), 0);
        }
    }

    void aNullFieldLeavesItsBoxEmptyAndTheOthersAreFilled() {
        useSchool();
        addRow(u"GR1"_s, {{u"K_Name"_s, u"ME1"_s}, {u"Tag"_s, u"MO"_s}, {u"Zeit_bis"_s, u"13:45"_s}});
        auto& window = form(u"MensaKorrektur"_s);
        clickRow(list(window), 1);
        QCOMPARE(boxes(window).first(5), QStringList({u"ME1"_s, u""_s, u"MO"_s, u""_s, u"13:45"_s}));
    }

    void aClickClearsTheColoursOfTheLastCheck() {
        useSchool();
        addRow(u"GR1"_s, row(u"ME1"_s, u"MO"_s));
        auto& window = form(u"MensaKorrektur"_s);
        doorsOfTest.expect(kFill);
        press(window);
        QVERIFY(isFaulty(window, box(3)));
        clickRow(list(window), 1);
        QVERIFY(!isFaulty(window, box(3)));
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

    void textBoxesSelectTheirWholeTextOnReceivingTheFocus() {
        useSchool();
        auto& window = form(u"ArbeitsgruppeNeu"_s);
        for (const int i : {0, 1, 3, 4, 5, 6}) {
            auto& input = control<QLineEdit>(window, box(i));
            input.setText(u"Text"_s);
            window.setFocus();
            input.setFocus(Qt::TabFocusReason);
            QCOMPARE(input.selectedText(), u"Text"_s);
        }
    }

    void tabGoesFromBoxToBoxAndOnToTheButtons() {
        useSchool();
        auto& window = form(u"ArbeitsgruppeNeu"_s);
        QStringList order;
        for (int i = 0; i < 12; ++i) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
            order << window.focusWidget()->objectName();
        }
        QCOMPARE(order, QStringList({box(1), u"lstME_LZ_AG"_s, u"imgAuswahlAlle"_s, u"imgAuswahlKeine"_s,
                                     box(3), box(4), box(5), box(6), u"cmbUE"_s, u"cmdOK"_s, u"cmdBeenden"_s,
                                     u"lvwME_LZ_AG"_s}));
    }
};

KOLIBRI_TEST_MAIN(FrmME_LZ_AGTest)
#include "frmME_LZ_AG_test.moc"
