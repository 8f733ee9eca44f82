#include "calendar/frmBelegungsplan_ME_LZ.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/expected_state.h"
#include "support/test_base.h"

#include <QGroupBox>
#include <QLabel>
#include <QPushButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kMensaPlan = u"BelegungME"_s;
const QString kOverflow = u"Laufzeitfehler '6': Überlauf"_s;

QString places(const QString& letter, int line) {
    return u"txtPlätze_%1(%2)"_s.arg(letter).arg(line);
}

} // namespace

class FrmBelegungsplanTest : public TestBase {
    Q_OBJECT

private:
    static void addTime(const QString& table, const QString& name, const QString& zeit) {
        addRow(table, {{u"L_Name"_s, u"Lang "_s + name},
                       {u"K_Name"_s, name},
                       {u"Tag"_s, u"MO"_s},
                       {u"Zeit"_s, zeit},
                       {u"Zeit_K_Name"_s, zeit + u' ' + name}});
    }

    static FormWindow& openForm(const QString& mode = kMensaPlan) {
        auto& form = Form<frmBelegungsplan_ME_LZ>();
        form.hide();
        form.Tag = mode;
        if (!shown(form))
            qFatal("the form is not active");
        return form;
    }

    static QString label(FormWindow& form, const QString& name) {
        return control<QLabel>(form, name).text();
    }
    static void leave(FormWindow& form) { QTest::keyClick(form.focusWidget(), Qt::Key_Tab); }

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        addTime(u"GR1"_s, u"ME1"_s, u"12:00 - 12:45"_s);
        addTime(u"GR1"_s, u"ME2"_s, u"13:00 - 13:45"_s);
        addTime(u"GR2"_s, u"LZ1"_s, u"14:00 - 15:00"_s);
        addRow(u"Parameter"_s, {{u"ID"_s, 1},
                                {u"Bezeichnung"_s, u"ME2"_s},
                                {u"Feld1"_s, u"ME"_s},
                                {u"Feld4"_s, u"5"_s},
                                {u"Feld6"_s, u"4"_s},
                                {u"Feld8"_s, u"70"_s}});
    }

    void theHeadsSayWhatStandsBelow() {
        auto& form = openForm();
        QStringList heads;
        for (int i = 0; i < 7; ++i)
            heads << label(form, u"lblUE(%1)"_s.arg(i));
        QCOMPARE(heads, QStringList({u"MENSA"_s, u"ZEIT"_s, u"Klasse A"_s, u"Klasse B"_s, u"Klasse C"_s,
                                     u"Klasse D"_s, u"Gesamt"_s}));
        QCOMPARE(form.windowTitle(), u"Belegungsplan"_s);
        QCOMPARE(control<QGroupBox>(form, u"frmBelegungMax"_s).title(), u"MAXIMALE BELEGUNGEN"_s);
        QCOMPARE(control<QPushButton>(form, u"cmdBeenden"_s).text(), u"BEENDEN"_s);
        QCOMPARE(label(openForm(u"BelegungLZ"_s), u"lblUE(0)"_s), u"LERNZEIT"_s);
    }

    void eachOfferingIsALineBelowTheOneBefore() {
        auto& form = openForm();
        QStringList texts;
        for (const auto& name : {u"lblME_LZ"_s, u"lblZeit"_s, u"lblK_Name"_s, u"lblZeit_K_Name"_s})
            texts << label(form, name + u"(1)"_s);
        QCOMPARE(texts, QStringList({u"Lang ME2"_s, u"13:00 - 13:45"_s, u"ME2"_s, u"13:00 - 13:45 ME2"_s}));
        for (const auto& letter : {u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"G"_s}) {
            const auto& first = control<QWidget>(form, places(letter, 0));
            const auto& second = control<QWidget>(form, places(letter, 1));
            QVERIFY(first.isVisible() && second.isVisible());
            QCOMPARE(second.height(), first.height());
            QVERIFY(second.y() >= first.y() + first.height());
            QCOMPARE(second.x(), first.x());
        }
    }

    /// The stored total is wrong; it only says that the line was counted once.
    void storedPlacesShowWithTheirSum() {
        auto& form = openForm();
        QStringList texts;
        for (const auto& letter : {u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"G"_s})
            texts << textOf(form, places(letter, 1));
        QCOMPARE(texts, QStringList({u"5"_s, u""_s, u"4"_s, u""_s, u"9"_s}));
    }

    void theFormGrowsWithItsLines() {
        const int few = openForm().height();
        for (int i = 3; i < 8; ++i)
            addTime(u"GR1"_s, u"ME%1"_s.arg(i), u"13:00 - 13:45"_s);
        auto& form = openForm();
        QVERIFY(form.height() > few);
        QCOMPARE(label(form, u"lblK_Name(6)"_s), u"ME7"_s);
        // Lines of an earlier opening are not seen where there are fewer now.
        auto& lernzeit = openForm(u"BelegungLZ"_s);
        QVERIFY(control<QWidget>(lernzeit, places(u"A"_s, 0)).isVisible());
        QVERIFY(!control<QWidget>(lernzeit, places(u"A"_s, 1)).isVisible());
        QCOMPARE(textOf(lernzeit, places(u"A"_s, 1)), QString());
    }

    void fiveInEachBoxShowTwentyOnLeaving() {
        auto& form = openForm();
        for (const auto& letter : {u"A"_s, u"B"_s, u"C"_s, u"D"_s})
            type(form, places(letter, 0), u"5"_s);
        leave(form);
        QCOMPARE(textOf(form, places(u"G"_s, 0)), u"20"_s);
    }

    void leavingAnEmptyLineShowsNought() {
        auto& form = openForm();
        QCOMPARE(textOf(form, places(u"G"_s, 0)), QString());
        control<QWidget>(form, places(u"B"_s, 0)).setFocus();
        leave(form);
        QCOMPARE(textOf(form, places(u"G"_s, 0)), u"0"_s);
        QCOMPARE(textOf(form, places(u"G"_s, 1)), u"9"_s);
    }

    void aBoxSelectsItsWholeTextOnReceivingTheFocus() {
        auto& form = openForm();
        control<QWidget>(form, places(u"A"_s, 0)).setFocus();
        auto& box = control<QLineEdit>(form, places(u"A"_s, 1));
        box.setFocus(Qt::TabFocusReason);
        QCOMPARE(box.selectedText(), u"5"_s);
    }

    void okSavesEveryLineAndCloses() {
        auto& form = openForm();
        type(form, places(u"A"_s, 0), u"7"_s);
        type(form, places(u"D"_s, 1), u"2"_s);
        press(form);
        QVERIFY(!form.isVisible());
        QCOMPARE(columnOf(u"Parameter"_s, u"Bezeichnung"_s), QStringList({u"ME2"_s, u"ME1"_s}));
        QCOMPARE(columnOf(u"Parameter"_s, u"ID"_s), QStringList({u"1"_s, u"2"_s}));
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld1"_s), QStringList({u"ME"_s, u"ME"_s}));
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld2"_s), QStringList({u"13:00 - 13:45"_s, u"12:00 - 12:45"_s}));
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld4"_s), QStringList({u"5"_s, u"7"_s}));
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld7"_s), QStringList({u"2"_s, u""_s}));
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld8"_s), QStringList({u"11"_s, u"7"_s}));
    }

    /// Enter presses the button while the box still has the keyboard; the total must not be that of before.
    void enterInABoxSavesTheNewTotal() {
        auto& form = openForm();
        type(form, places(u"A"_s, 1), u"30"_s);
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        QVERIFY(!form.isVisible());
        QCOMPARE(columnOf(u"Parameter"_s, u"Feld8"_s).first(), u"34"_s);
    }

    void aPlanThatNobodyFilledIsSavedWithEmptyPlaces() {
        auto& form = openForm();
        press(form);
        for (const auto& field : {u"Feld4"_s, u"Feld5"_s, u"Feld6"_s, u"Feld7"_s, u"Feld8"_s})
            QCOMPARE(columnOf(u"Parameter"_s, field).last(), QString());
    }

    void beendenClosesWithoutSaving() {
        auto& form = openForm();
        const ExpectedState before;
        type(form, places(u"A"_s, 0), u"7"_s);
        press(form, u"cmdBeenden"_s);
        QVERIFY(!form.isVisible());
        COMPARE_STATE(before);
    }

    void aTextThatIsNoNumberColoursItsBoxAndIsNotSaved() {
        auto& form = openForm();
        const ExpectedState before;
        type(form, places(u"B"_s, 1), u"viele"_s);
        leave(form);
        QVERIFY(isFaulty(form, places(u"B"_s, 1)));
        QVERIFY(!isFaulty(form, places(u"A"_s, 1)));
        QCOMPARE(textOf(form, places(u"G"_s, 1)), u"9"_s);
        auto& hint = control<QLabel>(form, u"lblHinweis"_s);
        QVERIFY(hint.isVisible());
        QCOMPARE(hint.text(), u"Lang ME2 13:00 - 13:45, Klasse B: \"viele\" ist keine Zahl."_s);
        doorsOfTest.expect(u"Bitte geben Sie in die gekennzeichneten Felder Zahlen ein!"_s);
        press(form);
        QVERIFY(form.isVisible());
        QCOMPARE(form.focusWidget()->objectName(), places(u"B"_s, 1));
        COMPARE_STATE(before);
        type(form, places(u"B"_s, 1), u"1"_s);
        leave(form);
        QVERIFY(!isFaulty(form, places(u"B"_s, 1)));
        QVERIFY(!hint.isVisible());
        QCOMPARE(textOf(form, places(u"G"_s, 1)), u"10"_s);
    }

    void aNumberAbove32767EndsInTheOverflowBox() {
        auto& form = openForm();
        const ExpectedState before;
        type(form, places(u"A"_s, 0), u"32768"_s);
        doorsOfTest.expect(kOverflow);
        leave(form);
        doorsOfTest.expect(kOverflow);
        press(form);
        QVERIFY(form.isVisible());
        COMPARE_STATE(before);
    }

    void aKeyAbove255EndsInTheOverflowBox() {
        addRow(u"Parameter"_s, {{u"ID"_s, 255}, {u"Bezeichnung"_s, u"alt"_s}});
        auto& form = openForm();
        const ExpectedState before;
        doorsOfTest.expect(kOverflow);
        press(form);
        QVERIFY(form.isVisible());
        COMPARE_STATE(before);
    }

    void aStoredNumberThatIsTooLargeShowsAndCanBeCorrected() {
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"Parameter"_s, {{u"Feld5"_s, u"40000"_s}});
        }
        doorsOfTest.expect(kOverflow);
        auto& form = openForm();
        QCOMPARE(textOf(form, places(u"B"_s, 1)), u"40000"_s);
        type(form, places(u"B"_s, 1), u"40"_s);
        leave(form);
        QCOMPARE(textOf(form, places(u"G"_s, 1)), u"49"_s);
    }

    void withoutOfferingsThePlanIsEmpty() {
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"GR1"_s);
        }
        auto& form = openForm();
        QVERIFY(form.isVisible());
        QVERIFY(!control<QWidget>(form, places(u"A"_s, 0)).isVisible());
        QCOMPARE(label(form, u"lblHinweis"_s), u"Es ist noch keine Mensazeit eingetragen."_s);
        const ExpectedState before;
        press(form);
        QVERIFY(!form.isVisible());
        COMPARE_STATE(before);
    }

    void tabGoesThroughTheBoxesLineByLine() {
        auto& form = openForm();
        QStringList order;
        for (int i = 0; i < 9; ++i) {
            leave(form);
            order << form.focusWidget()->objectName();
        }
        QStringList expected;
        for (int line = 0; line < 2; ++line)
            for (const auto& letter : {u"A"_s, u"B"_s, u"C"_s, u"D"_s})
                expected << places(letter, line);
        QCOMPARE(order, expected << u"cmdOK"_s);
    }
};

KOLIBRI_TEST_MAIN(FrmBelegungsplanTest)
#include "frmBelegungsplan_ME_LZ_test.moc"
