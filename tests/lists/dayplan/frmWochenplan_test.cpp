#include "core/widgets/application.h"
#include "core/widgets/rich_text_box.h"
#include "lists/dayplan/frmWochenplan.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "support/driving.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

#include <QCheckBox>
#include <QGroupBox>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kMorning = u"09:55 - 10:40"_s;
const QString kMensaUnit = u"12:30 - 13:15"_s;
const QString kMensa = u"12:30 - 13:15 ME1"_s;

FormWindow& form() {
    {
        const DbSession session(u"Test"_s);
        KlassenListenLaden();
    }
    auto& result = Form<frmWochenplan>();
    if (!shown(result))
        qFatal("the form is not active");
    return result;
}

QComboBox& box(const QWidget& window, const QString& name) {
    return control<QComboBox>(window, name);
}

RichTextBox& textBox(const QWidget& window) {
    return control<RichTextBox>(window, u"rtfTextWP"_s);
}

void typeText(const QWidget& window, const QString& text) {
    auto& edit = textBox(window);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    keys(edit, text);
}

} // namespace

class FrmWochenplanTest : public TestBase {
    Q_OBJECT

private:
    void useSchool() {
        useEmptyDatabase();
        Global().NameKurz.fill(u"Ungekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        addUnits({kMorning, kMensaUnit});
        for (const auto& klasse : {u"1a"_s, u"1b"_s, u"2a"_s})
            for (const auto& tag : {u"MO"_s, u"DI"_s, u"FR"_s})
                addRow(u"Klassen"_s, {{u"Klasse"_s, klasse},
                                      {u"Schulstufe"_s, klasse.left(1)},
                                      {u"KlassenNR"_s, klasse.right(1)},
                                      {u"Tag"_s, tag},
                                      {u"Unterrichtsende"_s, u"12:25"_s}});
        for (const auto& tag : {u"MO"_s, u"DI"_s, u"FR"_s})
            addOffering(u"GR1"_s, u"Mensa"_s, u"ME1"_s, tag, kMensaUnit, kMensaUnit);
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s, {{u"GR1_MO"_s, kMensa}});
        addPupil(u"Bär"_s, u"Ben"_s, u"2a"_s);
        addPupil(u"Cohn"_s, u"Can"_s, u"1b"_s);
    }

private Q_SLOTS:
    void theFormHasItsCaptionsAndEntries() {
        useSchool();
        auto& window = form();
        QCOMPARE(window.windowTitle(), u"Tagesplan"_s);
        QCOMPARE(control<QGroupBox>(window, u"frmAnzeige"_s).title(), u"ANZEIGE"_s);
        QCOMPARE(control<QGroupBox>(window, u"frmText"_s).title(), u"ZUSATZ-TEXT TAGESPLAN"_s);
        QCOMPARE(control<QCheckBox>(window, u"chk2Tage"_s).text().remove(u'&'), u"2 Tage / Blatt"_s);
        QCOMPARE(entriesOf(box(window, u"cmbKlasse"_s)), QStringList({u"A"_s, u"B"_s}));
        QCOMPARE(entriesOf(box(window, u"cmbTag"_s)),
                 QStringList({u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s}));
        QCOMPARE(entriesOf(box(window, u"cmbSeitenumbruch"_s)),
                 QStringList({u"1"_s, u"2"_s, u"3"_s, u"4"_s}));
        QCOMPARE(entriesOf(box(window, u"cmbSchulstufe"_s)), QStringList({u"Alle"_s, u"1"_s, u"2"_s}));
        // Four, whatever grades the school has.
        QCOMPARE(entriesOf(box(window, u"cmbKlasseText"_s)),
                 QStringList({u"1A"_s, u"2A"_s, u"3A"_s, u"4A"_s}));
    }

    void twoDaysOnASheetHaveTheirOwnDays() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbTag"_s, u"MI"_s);
        press(window, u"chk2Tage"_s);
        QCOMPARE(entriesOf(box(window, u"cmbTag"_s)), QStringList({u"MO/DI"_s, u"MI/DO"_s, u"FR"_s}));
        QCOMPARE(box(window, u"cmbTag"_s).currentIndex(), 0);
        press(window, u"chk2Tage"_s);
        QCOMPARE(box(window, u"cmbTag"_s).count(), 5);
        QCOMPARE(box(window, u"cmbTag"_s).currentIndex(), 0);
    }

    void okWritesThePlanOfTheLetterAndLeavesTheForm() {
        useSchool();
        auto& window = form();
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kTagesplan});
        QVERIFY(!window.isVisible());
        const QStringList lines = bodyLines();
        QCOMPARE(lines.filter(u"Anna Abel"_s).size(), 1);
        QCOMPARE(lines.filter(u"Ben Bär"_s).size(), 1);
        QVERIFY(lines.filter(u"Can Cohn"_s).isEmpty());
        QVERIFY(lines.contains(u"<TD ALIGN='center' COLSPAN=2>MONTAG</TD>"_s));
        QCOMPARE(lines.filter(u">ME1 <br &> <"_s).size(), 1);
    }

    void twoDaysStandSideBySide() {
        useSchool();
        auto& window = form();
        press(window, u"chk2Tage"_s);
        press(window);
        QVERIFY(bodyLines().contains(u"<TD ALIGN='center' COLSPAN=2>MONTAG</TD>"_s));
        QVERIFY(bodyLines().contains(u"<TD ALIGN='center' COLSPAN=2>DIENSTAG</TD>"_s));
        QVERIFY(!bodyLines().filter(u">Abel Anna<"_s).isEmpty());
        QVERIFY(bodyLines().filter(u"<br &>"_s).isEmpty());
    }

    void fridayOfTwoDaysLeavesTheSecondHalfEmpty() {
        useSchool();
        auto& window = form();
        press(window, u"chk2Tage"_s);
        chooseEntry(window, u"cmbTag"_s, u"FR"_s);
        press(window);
        QVERIFY(bodyLines().contains(u"<TD ALIGN='center' COLSPAN=2>FREITAG</TD>"_s));
        QVERIFY(bodyLines().contains(u"<TD ALIGN='center' COLSPAN=2></TD>"_s));
    }

    void oneGradeAlone() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbSchulstufe"_s, u"2"_s);
        press(window);
        QVERIFY(bodyLines().filter(u"Anna Abel"_s).isEmpty());
        QVERIFY(bodyLines().contains(u"<TABLE class=\"Wochenplan_ohneSU\">"_s));
    }

    // The page always ends behind each class, whatever number is chosen.
    void theNumberOfClassesToAPageChangesNothing() {
        useSchool();
        auto& window = form();
        press(window);
        const QByteArray page = pageBytes();
        chooseEntry(form(), u"cmbSeitenumbruch"_s, u"3"_s);
        press(window);
        QCOMPARE(pageBytes(), page);
    }

    void theChoicesOfTheLastPlanAreShownAgain() {
        useSchool();
        auto& window = form();
        press(window, u"chk2Tage"_s);
        chooseEntry(window, u"cmbKlasse"_s, u"B"_s);
        chooseEntry(window, u"cmbTag"_s, u"FR"_s);
        chooseEntry(window, u"cmbSeitenumbruch"_s, u"4"_s);
        chooseEntry(window, u"cmbSchulstufe"_s, u"2"_s);
        press(window);
        form();
        QCOMPARE(box(window, u"cmbKlasse"_s).currentText(), u"B"_s);
        QCOMPARE(box(window, u"cmbTag"_s).currentText(), u"FR"_s);
        QCOMPARE(box(window, u"cmbSeitenumbruch"_s).currentText(), u"4"_s);
        QCOMPARE(box(window, u"cmbSchulstufe"_s).currentText(), u"2"_s);
        QVERIFY(control<QCheckBox>(window, u"chk2Tage"_s).isChecked());
    }

    void withoutAPlanTheFirstEntriesAreShownAgain() {
        useSchool();
        auto& window = form();
        chooseEntry(window, u"cmbKlasse"_s, u"B"_s);
        press(window, u"cmdBeenden"_s);
        QVERIFY(!window.isVisible());
        form();
        QCOMPARE(box(window, u"cmbKlasse"_s).currentText(), u"A"_s);
    }

    void theTextOfAClassIsKeptWhenAnotherIsChosen() {
        useSchool();
        auto& window = form();
        typeText(window, u"Übung"_s);
        chooseEntry(window, u"cmbKlasseText"_s, u"2A"_s);
        QCOMPARE(columnOf(u"WochenplanTexte"_s, u"Klasse"_s), QStringList{u"1A"_s});
        QCOMPARE(textBox(window).toPlainText(), QString());
        typeText(window, u"zweite"_s);
        // Another letter has other classes; the text of the one before is kept here, too.
        chooseEntry(window, u"cmbKlasse"_s, u"B"_s);
        QCOMPARE(columnOf(u"WochenplanTexte"_s, u"Klasse"_s), QStringList({u"1A"_s, u"2A"_s}));
        QCOMPARE(entriesOf(box(window, u"cmbKlasseText"_s)),
                 QStringList({u"1B"_s, u"2B"_s, u"3B"_s, u"4B"_s}));
        QCOMPARE(textBox(window).toPlainText(), QString());
        chooseEntry(window, u"cmbKlasse"_s, u"A"_s);
        QCOMPARE(textBox(window).toPlainText(), u"Übung"_s);
    }

    void okKeepsTheTextAndThePageShowsItForItsClass() {
        useSchool();
        auto& window = form();
        auto& edit = textBox(window);
        edit.setFocus();
        QTest::keyClick(&edit, Qt::Key_I, Qt::ControlModifier);
        keys(edit, u"Süßes"_s);
        press(window);
        const QStringList lines = bodyLines();
        QCOMPARE(lines.count(u"<i>Süßes</i>"_s), 1);
        QCOMPARE(lines[lines.indexOf(u"<i>Süßes</i>"_s) - 1], u"<DIV class=\"WP_Zusatztext\">"_s);
        // The class itself is written in small letters; both are one class.
        QVERIFY(lines.indexOf(u"<i>Süßes</i>"_s) < lines.indexOf(lines.filter(u"Anna Abel"_s).value(0)));
    }

    void anEmptiedTextTakesItsRowAway() {
        useSchool();
        addRow(u"WochenplanTexte"_s, {{u"ID"_s, 1}, {u"Klasse"_s, u"1a"_s}, {u"TextVorher"_s, u"alt"_s}});
        auto& window = form();
        QCOMPARE(textBox(window).toPlainText(), u"alt"_s);
        typeText(window, {});
        press(window);
        QVERIFY(rowsOf(u"WochenplanTexte"_s).isEmpty());
    }

    // Another workstation may have changed it since it was shown here.
    void aTextThatNobodyTouchedIsNotWritten() {
        useSchool();
        addRow(u"WochenplanTexte"_s, {{u"ID"_s, 1}, {u"Klasse"_s, u"1a"_s}, {u"TextVorher"_s, u"alt"_s}});
        auto& window = form();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"WochenplanTexte"_s, {{u"TextVorher"_s, u"neu"_s}});
        }
        press(window);
        QCOMPARE(columnOf(u"WochenplanTexte"_s, u"TextVorher"_s), QStringList{u"neu"_s});
    }

    void aTextThatCannotBeKeptStaysInTheBoxWithItsClass() {
        useSchool();
        addRow(u"WochenplanTexte"_s, {{u"ID"_s, 1}, {u"Klasse"_s, u"1a"_s}, {u"TextVorher"_s, u"alt"_s}});
        auto& window = form();
        typeText(window, u"Geht's"_s);
        doorsOfTest.expectBeginning(u"Zusatztext speichern: Syntaxfehler"_s);
        QTest::keyClick(&box(window, u"cmbKlasseText"_s), Qt::Key_Down);
        QCOMPARE(textBox(window).toPlainText(), u"Geht's"_s);
        QCOMPARE(box(window, u"cmbKlasseText"_s).currentText(), u"1A"_s);
        QCOMPARE(columnOf(u"WochenplanTexte"_s, u"TextVorher"_s), QStringList{u"alt"_s});
        typeText(window, u"Geht so"_s);
        chooseEntry(window, u"cmbKlasseText"_s, u"3A"_s);
        QCOMPARE(box(window, u"cmbKlasseText"_s).currentText(), u"3A"_s);
    }

    void aSchoolWithoutClassesHasAnEmptyPlan() {
        useEmptyDatabase();
        auto& window = form();
        press(window);
        QVERIFY(bodyLines().contains(u"<TD ALIGN='center' COLSPAN=0>MONTAG</TD>"_s));
        QVERIFY(bodyLines().filter(u"Wochenplan_Daten"_s).isEmpty());
    }
};

KOLIBRI_TEST_MAIN(FrmWochenplanTest)
#include "frmWochenplan_test.moc"
