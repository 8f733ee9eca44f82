#include "calendar/frmStundenplan.h"
#include "calendar/teaching_units.h"
#include "core/widgets/application.h"
#include "core/widgets/form_layout.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class FrmStundenplanTest : public TestBase {
    Q_OBJECT

private:
    static FormWindow& form() {
        {
            const DbSession session(u"Test"_s);
            KlassenListenLaden();
        }
        auto& result = Form<frmStundenplan>();
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    void useSchool(int units) {
        useEmptyDatabase();
        for (const auto& klasse : {u"1a"_s, u"2b"_s})
            addRow(u"Klassen"_s, {{u"Klasse"_s, klasse}, {u"Tag"_s, u"MO"_s}});
        for (int i = 1; i <= units; ++i)
            addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, i},
                                               {u"Zeit"_s, u"%1:00 - %1:45"_s.arg(i + 6, 2, 10, QChar(u'0'))},
                                               {u"Sort_NR"_s, i}});
    }

    static void addLine(const QString& klasse, const QString& unit, const QString& monday) {
        addRow(u"Stundenplan"_s, {{u"ID"_s, 0}, {u"Klasse"_s, klasse}, {u"UE"_s, unit}, {u"MO"_s, monday}});
    }

    static void chooseClass(FormWindow& window, const QString& klasse) {
        auto& box = control<QComboBox>(window, u"cmbKlasse"_s);
        box.setCurrentIndex(box.findText(klasse));
    }

    static int visibleLines(FormWindow& window) {
        int lines = 0;
        for (int index = 1; index <= kTimetableLines; ++index)
            lines += control<QLabel>(window, indexedName(u"lblÜ"_s, index)).isVisible() ? 1 : 0;
        return lines;
    }

private Q_SLOTS:
    void showsCaptionsClassesAndALineForEachUnit() {
        useSchool(3);
        auto& window = form();
        QCOMPARE(window.windowTitle(), u"Stundenplan"_s);
        QCOMPARE(window.findChild<QGroupBox*>()->title(), u"STUNDENPLAN"_s);
        QCOMPARE(control<QPushButton>(window, u"cmdAbbrechen"_s).text(), u"ABBRECHEN"_s);
        auto& classes = control<QComboBox>(window, u"cmbKlasse"_s);
        QCOMPARE(classes.count(), 2);
        QCOMPARE(classes.currentText(), u"1a"_s);
        QCOMPARE(visibleLines(window), 3);
        QCOMPARE(control<QLabel>(window, u"lblÜ(1)"_s).text(), u"07:00 - 07:45"_s);
        QCOMPARE(control<QLabel>(window, u"lblÜ(3)"_s).text(), u"09:00 - 09:45"_s);
        QVERIFY(!control<QLineEdit>(window, u"txtFR(4)"_s).isVisible());
        QVERIFY(!control<QLabel>(window, u"lblHinweis"_s).isVisible());
    }

    void theDaysHaveTheirLabels() {
        useSchool(1);
        auto& window = form();
        QStringList texts;
        for (const auto& name : {u"lblMO"_s, u"lbDI"_s, u"lbMI"_s, u"lblDO"_s, u"lblFR"_s})
            texts << control<QLabel>(window, name).text();
        QCOMPARE(texts, QStringList({u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s}));
    }

    void whatIsTypedIsStoredAndReadAgain() {
        useSchool(2);
        auto& window = form();
        type(window, u"txtMO(1)"_s, u"Deutsch"_s);
        type(window, u"txtFR(2)"_s, u"Musik"_s);
        press(window);
        QVERIFY(window.isVisible());
        QCOMPARE(rowsOf(u"Stundenplan"_s),
                 QStringList({u"ID=0; Klasse=1a; UE=07:00 - 07:45; MO=Deutsch; DI=; MI=; DO=; FR="_s,
                              u"ID=1; Klasse=1a; UE=08:00 - 08:45; MO=; DI=; MI=; DO=; FR=Musik"_s}));
        window.hide();
        window.show();
        QCOMPARE(textOf(window, u"txtMO(1)"_s), u"Deutsch"_s);
        QCOMPARE(textOf(window, u"txtFR(2)"_s), u"Musik"_s);
    }

    void savingTwiceChangesNothingAndAddsNoRows() {
        useSchool(3);
        auto& window = form();
        type(window, u"txtDI(2)"_s, u"Kunst"_s);
        press(window);
        const auto before = wholeDatabase();
        press(window);
        QCOMPARE(wholeDatabase(), before);
    }

    void anotherClassShowsItsOwnPlan() {
        useSchool(2);
        addLine(u"1a"_s, u"07:00 - 07:45"_s, u"Deutsch"_s);
        addLine(u"2b"_s, u"08:00 - 08:45"_s, u"Sport"_s);
        auto& window = form();
        QCOMPARE(textOf(window, u"txtMO(1)"_s), u"Deutsch"_s);
        QCOMPARE(textOf(window, u"txtMO(2)"_s), QString());
        chooseClass(window, u"2b"_s);
        QCOMPARE(textOf(window, u"txtMO(1)"_s), QString());
        QCOMPARE(textOf(window, u"txtMO(2)"_s), u"Sport"_s);
    }

    void aNullLeavesItsBoxEmpty() {
        useSchool(1);
        addLine(u"1a"_s, u"07:00 - 07:45"_s, u"Deutsch"_s);
        auto& window = form();
        QCOMPARE(textOf(window, u"txtDI(1)"_s), QString());
    }

    /// The old rows are the office's only copy of what stood there, so nothing throws them away.
    void aRowOfACorrectedUnitIsShownNoLongerAndStays() {
        useSchool(1);
        addLine(u"1a"_s, u"07:00 - 07:45"_s, u"Deutsch"_s);
        {
            const DbSession session(u"Test"_s);
            Unterrichtseinheiten_Daten_Korrektur(1, u"07:05 - 07:50"_s, u"07:00 - 07:45"_s);
        }
        auto& window = form();
        QCOMPARE(control<QLabel>(window, u"lblÜ(1)"_s).text(), u"07:05 - 07:50"_s);
        QCOMPARE(textOf(window, u"txtMO(1)"_s), QString());
        press(window);
        QCOMPARE(columnOf(u"Stundenplan"_s, u"UE"_s), QStringList({u"07:00 - 07:45"_s, u"07:05 - 07:50"_s}));
        QCOMPARE(columnOf(u"Stundenplan"_s, u"MO"_s), QStringList({u"Deutsch"_s, u""_s}));
    }

    void moreThanTenUnitsShowTheFirstTenAndSaySo() {
        useSchool(12);
        auto& window = form();
        QCOMPARE(visibleLines(window), 10);
        QCOMPARE(control<QLabel>(window, u"lblÜ(10)"_s).text(), u"16:00 - 16:45"_s);
        const auto& hint = control<QLabel>(window, u"lblHinweis"_s);
        QVERIFY(hint.isVisible());
        QCOMPARE(hint.text(), u"Es gibt 12 Unterrichtseinheiten. Der Stundenplan zeigt die ersten 10."_s);
        press(window);
        QCOMPARE(rowsOf(u"Stundenplan"_s).size(), 10);
    }

    void withoutUnitsThereIsNothingToSave() {
        useSchool(0);
        auto& window = form();
        QCOMPARE(visibleLines(window), 0);
        QVERIFY(control<QLabel>(window, u"lblHinweis"_s).isVisible());
        press(window);
        QCOMPARE(rowsOf(u"Stundenplan"_s), QStringList());
    }

    void withoutClassesThereIsNothingToSave() {
        useEmptyDatabase();
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 1}, {u"Zeit"_s, u"07:00 - 07:45"_s}, {u"Sort_NR"_s, 1}});
        auto& window = form();
        QCOMPARE(control<QLabel>(window, u"lblHinweis"_s).text(), u"Es ist noch keine Klasse angelegt."_s);
        press(window);
        QCOMPARE(rowsOf(u"Stundenplan"_s), QStringList());
    }

    void anApostropheBreaksTheUpdateAndTheFormGoesOn() {
        useSchool(1);
        addLine(u"1a"_s, u"07:00 - 07:45"_s, u"Deutsch"_s);
        const auto before = wholeDatabase();
        auto& window = form();
        type(window, u"txtMO(1)"_s, u"AG's"_s);
        doorsOfTest.expectBeginning(u"Stundenplan speichern"_s);
        press(window);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(window, u"txtMO(1)"_s), u"AG's"_s);
    }

    void aLongTextIsReadFromItsBeginning() {
        useSchool(1);
        addLine(u"1a"_s, u"07:00 - 07:45"_s, u"Heimat- und Sachunterricht bei Frau Weiß in der Lehrküche"_s);
        QCOMPARE(control<QLineEdit>(form(), u"txtMO(1)"_s).cursorPosition(), 0);
    }

    void twoUnitsWithOneTimeShareOneRowAndTheLowerLineStays() {
        useEmptyDatabase();
        addRow(u"Klassen"_s, {{u"Klasse"_s, u"1a"_s}, {u"Tag"_s, u"MO"_s}});
        for (int i = 0; i < 2; ++i)
            addRow(u"Unterrichtseinheiten"_s,
                   {{u"ID"_s, i}, {u"Zeit"_s, u"07:00 - 07:45"_s}, {u"Sort_NR"_s, 2}});
        auto& window = form();
        type(window, u"txtMO(1)"_s, u"Deutsch"_s);
        type(window, u"txtMO(2)"_s, u"Kunst"_s);
        press(window);
        QCOMPARE(columnOf(u"Stundenplan"_s, u"MO"_s), QStringList{u"Kunst"_s});
    }

    void afterSavingArrowDownLeadsToTheNextClass() {
        useSchool(1);
        auto& window = form();
        type(window, u"txtMO(1)"_s, u"Deutsch"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        auto& classes = control<QComboBox>(window, u"cmbKlasse"_s);
        QVERIFY(classes.hasFocus());
        QTest::keyClick(&classes, Qt::Key_Down);
        QCOMPARE(classes.currentText(), u"2b"_s);
        QCOMPARE(textOf(window, u"txtMO(1)"_s), QString());
    }

    void escClosesWithoutSaving() {
        useSchool(1);
        auto& window = form();
        type(window, u"txtMO(1)"_s, u"Deutsch"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        QVERIFY(!window.isVisible());
        QCOMPARE(rowsOf(u"Stundenplan"_s), QStringList());
    }

    void abbrechenClosesWithoutSaving() {
        useSchool(1);
        auto& window = form();
        type(window, u"txtMO(1)"_s, u"Deutsch"_s);
        press(window, u"cmdAbbrechen"_s);
        QVERIFY(!window.isVisible());
        QCOMPARE(rowsOf(u"Stundenplan"_s), QStringList());
    }

    void enterSavesAndTabGoesLineByLine() {
        useSchool(2);
        auto& window = form();
        QVERIFY(control<QComboBox>(window, u"cmbKlasse"_s).hasFocus());
        QStringList order;
        for (int i = 0; i < 7; ++i) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
            order << window.focusWidget()->objectName();
        }
        QCOMPARE(order, QStringList({u"txtMO(1)"_s, u"txtDI(1)"_s, u"txtMI(1)"_s, u"txtDO(1)"_s,
                                     u"txtFR(1)"_s, u"txtMO(2)"_s, u"txtDI(2)"_s}));
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        QCOMPARE(rowsOf(u"Stundenplan"_s).size(), 2);
    }
};

KOLIBRI_TEST_MAIN(FrmStundenplanTest)
#include "frmStundenplan_test.moc"
