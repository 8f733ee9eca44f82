#include "core/widgets/application.h"
#include "support/offering_form.h"

#include <QHeaderView>
#include <QLabel>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kFill = u"Bitte die gekennzeichneten Felder füllen!"_s;

} // namespace

/// What the form shows in its modes, and what clicks and keys do.
class FrmME_LZ_AGTest : public OfferingFormTest {
    Q_OBJECT

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
