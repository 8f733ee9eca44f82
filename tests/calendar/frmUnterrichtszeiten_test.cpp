#include "calendar/frmUnterrichtszeiten.h"
#include "core/frmMsgBox.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QAction>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QStringList kTimeBoxes{u"txtUnterrichtsbeginn"_s, u"txtUnterrichtsende"_s, u"txtUnterrichtsbeginnNM"_s,
                             u"txtUnterrichtsendeNM"_s};

} // namespace

class FrmUnterrichtszeitenTest : public TestBase {
    Q_OBJECT

private:
    static void addDay(const QString& klasse, int day, const QString& begin = {}, const QString& end = {}) {
        FieldValues values{{u"Klasse"_s, klasse}, {u"Tag"_s, TagCode(day)}, {u"Tag_Zahl"_s, day}};
        if (!begin.isEmpty())
            values.push_back({u"Unterrichtsbeginn"_s, begin});
        if (!end.isEmpty())
            values.push_back({u"Unterrichtsende"_s, end});
        addRow(u"Klassen"_s, values);
    }

    /// The form over the classes 3a and 3b with two days each.
    FormWindow& form() {
        useEmptyDatabase();
        addDay(u"3a"_s, 0, u"08:00"_s, u"12:45"_s);
        addDay(u"3a"_s, 1, u"00:00"_s, u"11:50"_s);
        addDay(u"3b"_s, 0, u"07:50"_s, u"12:00"_s);
        addDay(u"3b"_s, 1);
        auto& result = Form<frmUnterrichtszeiten>();
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    static ListView& list(FormWindow& window) {
        return *static_cast<ListView*>(&control<QTreeWidget>(window, u"lvwKlasse"_s));
    }

private Q_SLOTS:
    void showsCaptionsAndColumns() {
        auto& window = form();
        QCOMPARE(window.windowTitle(), u"Unterrichtszeiten"_s);
        QStringList frames;
        for (const auto* frame : window.findChildren<QGroupBox*>())
            frames << frame->title();
        QCOMPARE(frames, QStringList({u"KLASSE / TAG"_s, u"VORMITTAG"_s, u"NACHMITTAG"_s}));
        QCOMPARE(headingsOf(list(window)), QStringList({u"ID"_s, u"Klasse"_s, u"Tag"_s, u"Beginn-VM"_s,
                                                        u"Ende-VM"_s, u"Beginn-NM"_s, u"Ende-NM"_s}));
        QCOMPARE(control<QPushButton>(window, u"cmdBeenden"_s).text(), u"BEENDEN"_s);
        QVERIFY(control<QLineEdit>(window, u"txtKlasse"_s).isReadOnly());
        QVERIFY(control<QLineEdit>(window, u"txtTag"_s).isReadOnly());
    }

    void theListShowsMidnightAndUnsetTimesAsEmptyCells() {
        auto& window = form();
        QCOMPARE(cellsOf(list(window), 0), QStringList({u"00001"_s, u"00002"_s, u"00003"_s, u"00004"_s}));
        QCOMPARE(list(window).key(2), u"A0002"_s);
        QCOMPARE(cellsOf(list(window), 3), QStringList({u"08:00"_s, u""_s, u"07:50"_s, u""_s}));
        QCOMPARE(cellsOf(list(window), 4), QStringList({u"12:45"_s, u"11:50"_s, u"12:00"_s, u""_s}));
    }

    void aClickFillsTheBoxesAndLeavesMidnightEmpty() {
        auto& window = form();
        clickRow(list(window), 2);
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"3a"_s);
        QCOMPARE(textOf(window, u"txtTag"_s), u"DI"_s);
        QCOMPARE(textOf(window, u"txtUnterrichtsbeginn"_s), QString());
        QCOMPARE(textOf(window, u"txtUnterrichtsende"_s), u"11:50"_s);
        QCOMPARE(textOf(window, u"txtUnterrichtsendeNM"_s), QString());
    }

    void columnsSortAsTextOrAsTime() {
        auto& window = form();
        auto& view = list(window);
        const auto click = [&](int column) { Q_EMIT view.header()->sectionClicked(column); };
        click(3);
        QCOMPARE(cellsOf(view, 3), QStringList({u""_s, u""_s, u"07:50"_s, u"08:00"_s}));
        click(1);
        QCOMPARE(cellsOf(view, 1), QStringList({u"3b"_s, u"3b"_s, u"3a"_s, u"3a"_s}));
        click(2);
        QCOMPARE(cellsOf(view, 2), QStringList({u"DI"_s, u"DI"_s, u"MO"_s, u"MO"_s}));
        const QStringList before = cellsOf(view, 0);
        click(0);
        QCOMPARE(cellsOf(view, 0), before);
    }

    void savedTimesStandInTheListAndTheBoxesAreEmptyAgain() {
        auto& window = form();
        clickRow(list(window), 4);
        type(window, u"txtUnterrichtsbeginn"_s, u"08:00"_s);
        type(window, u"txtUnterrichtsende"_s, u"12:45"_s);
        type(window, u"txtUnterrichtsbeginnNM"_s, u"14:00"_s);
        type(window, u"txtUnterrichtsendeNM"_s, u"15:30"_s);
        press(window);
        QStringList row;
        for (int column = 1; column < 7; ++column)
            row << list(window).cell(4, column);
        QCOMPARE(row, QStringList({u"3b"_s, u"DI"_s, u"08:00"_s, u"12:45"_s, u"14:00"_s, u"15:30"_s}));
        for (const auto& box : kTimeBoxes + QStringList{u"txtKlasse"_s, u"txtTag"_s})
            QCOMPARE(textOf(window, box), QString());
        QCOMPARE(cellsOf(list(window), 3), QStringList({u"08:00"_s, u""_s, u"07:50"_s, u"08:00"_s}));
    }

    void anEmptyBeginIsStoredAsMidnightAndShownEmpty() {
        auto& window = form();
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsbeginn"_s, {});
        press(window);
        QCOMPARE(columnOf(u"Klassen"_s, u"Unterrichtsbeginn"_s).first(), u"00:00"_s);
        QCOMPARE(list(window).cell(1, 3), QString());
    }

    /// "00:00" is how a time that is not set has always been stored, so midnight is none.
    void midnightIsNoTeachingTime() {
        auto& window = form();
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsbeginn"_s, u"00:00"_s);
        press(window);
        QCOMPARE(columnOf(u"Klassen"_s, u"Unterrichtsbeginn"_s).first(), u"00:00"_s);
        QCOMPARE(list(window).cell(1, 3), QString());
        clickRow(list(window), 1);
        QCOMPARE(textOf(window, u"txtUnterrichtsbeginn"_s), QString());
    }

    void theEndOfTheDayIsATimeAndComesBackAsItWasEntered() {
        auto& window = form();
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsendeNM"_s, u"24:00"_s);
        press(window);
        QCOMPARE(list(window).cell(1, 6), u"24:00"_s);
    }

    void enterSavesAndEscClosesWithoutSaving() {
        auto& window = form();
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsende"_s, u"13:00"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        QCOMPARE(list(window).cell(1, 4), u"13:00"_s);
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsende"_s, u"14:00"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        QVERIFY(!window.isVisible());
        QCOMPARE(columnOf(u"Klassen"_s, u"Unterrichtsende"_s).first(), u"13:00"_s);
    }

    void tabGoesFromTheListThroughTheTimesToTheButtons() {
        auto& window = form();
        QVERIFY(list(window).hasFocus());
        QStringList order;
        for (int i = 0; i < 7; ++i) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
            order << window.focusWidget()->objectName();
        }
        QCOMPARE(order, kTimeBoxes + QStringList({u"cmdOK"_s, u"cmdBeenden"_s, u"lvwKlasse"_s}));
    }

    void aDayThatAnotherWorkstationDeletedLeavesTheBoxesEmpty() {
        auto& window = form();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"Klassen"_s, u"ID = ?"_s, {2});
        }
        const auto before = wholeDatabase();
        clickRow(list(window), 1);
        clickRow(list(window), 2);
        QCOMPARE(textOf(window, u"txtKlasse"_s), QString());
        QCOMPARE(textOf(window, u"txtUnterrichtsende"_s), QString());
        press(window);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(list(window).rowCount(), 3);
    }

    void arrowDownLeadsToTheNextDayAfterSaving() {
        auto& window = form();
        clickRow(list(window), 1);
        press(window);
        QVERIFY(list(window).hasFocus());
        QCOMPARE(list(window).selectedItems().size(), 0);
        QTest::keyClick(&list(window), Qt::Key_Down);
        QCOMPARE(textOf(window, u"txtTag"_s), u"DI"_s);
    }

    void aTimeWithoutLeadingZeroIsRefused() {
        auto& window = form();
        const auto before = wholeDatabase();
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsbeginn"_s, u"7:30"_s);
        doorsOfTest.expect(u"Eingabefehler. Zeit entspricht nicht dem Format hh:mm!"_s);
        press(window);
        QVERIFY(isFaulty(window, u"txtUnterrichtsbeginn"_s));
        QVERIFY(!control<QWidget>(window, u"txtUnterrichtsbeginn"_s).toolTip().isEmpty());
        QCOMPARE(textOf(window, u"txtUnterrichtsbeginn"_s), u"7:30"_s);
        QCOMPARE(wholeDatabase(), before);
    }

    void allFourBoxesAreCheckedAndOnlyTheBadOnesMarked() {
        auto& window = form();
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsende"_s, u"ab:cd"_s);
        type(window, u"txtUnterrichtsendeNM"_s, u"25:00"_s);
        doorsOfTest.expect(u"Eingabefehler. Zeit entspricht nicht dem Format hh:mm!"_s);
        press(window);
        QList<bool> faulty;
        for (const auto& box : kTimeBoxes)
            faulty << isFaulty(window, box);
        QCOMPARE(faulty, QList<bool>({false, true, false, true}));
        type(window, u"txtUnterrichtsende"_s, {});
        type(window, u"txtUnterrichtsendeNM"_s, u"24:00"_s);
        press(window);
        for (const auto& box : kTimeBoxes)
            QCOMPARE(groundOf(window, box), QColor(Qt::white));
    }

    /// Which of the times are needed depends on the class's care, so the office answers for their order.
    void noOrderOfTheTimesIsAskedFor() {
        auto& window = form();
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsbeginn"_s, u"13:00"_s);
        type(window, u"txtUnterrichtsende"_s, u"08:00"_s);
        press(window);
        QCOMPARE(list(window).cell(1, 3), u"13:00"_s);
        QCOMPARE(list(window).cell(1, 4), u"08:00"_s);
    }

    void okWithoutAClickedRowChangesNothing() {
        auto& window = form();
        const auto before = wholeDatabase();
        press(window);
        QCOMPARE(wholeDatabase(), before);
    }

    void aTimeBoxSelectsItsWholeTextOnReceivingTheFocus() {
        auto& window = form();
        clickRow(list(window), 1);
        for (const auto& name : {u"txtUnterrichtsbeginn"_s, u"txtUnterrichtsende"_s}) {
            auto& box = control<QLineEdit>(window, name);
            QTest::mouseClick(&box, Qt::LeftButton);
            QCOMPARE(box.selectedText(), box.text());
        }
    }

    void f1ShowsTheHelpAndWhatWasTypedStays() {
        auto& window = form();
        clickRow(list(window), 1);
        type(window, u"txtUnterrichtsende"_s, u"13:3"_s);
        control<QAction>(window, u"mnuErläuterung"_s).trigger();
        auto& help = Form<frmMsgBox>();
        QVERIFY(help.isVisible());
        QCOMPARE(control<QLabel>(help, u"lblText"_s).text(), Unterrichtszeiten_Erläuterung());
        QTest::keyClick(&help, Qt::Key_Return);
        QVERIFY(!help.isVisible());
        QCOMPARE(textOf(window, u"txtUnterrichtsende"_s), u"13:3"_s);
        QCOMPARE(control<QAction>(window, u"mnuErläuterung"_s).shortcut(), QKeySequence(Qt::Key_F1));
    }

    void aKeyAbove16BitsOverflowsAndTheFormGoesOn() {
        auto& window = form();
        window.hide();
        addRow(u"Klassen"_s,
               {{u"ID"_s, 32768}, {u"Klasse"_s, u"4a"_s}, {u"Tag"_s, u"MO"_s}, {u"Tag_Zahl"_s, 0}});
        QVERIFY(shown(window));
        doorsOfTest.expect(u"Laufzeitfehler '6': Überlauf"_s);
        clickRow(list(window), 5);
        QCOMPARE(textOf(window, u"txtKlasse"_s), QString());
        clickRow(list(window), 1);
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"3a"_s);
    }
};

KOLIBRI_TEST_MAIN(FrmUnterrichtszeitenTest)
#include "frmUnterrichtszeiten_test.moc"
