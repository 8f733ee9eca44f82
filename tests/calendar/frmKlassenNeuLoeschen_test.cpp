#include "calendar/frmKlassenNeuLoeschen.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QGroupBox>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class FrmKlassenNeuLoeschenTest : public TestBase {
    Q_OBJECT

private:
    /// The form over a school with these classes.
    static FormWindow& form(const QStringList& classes) {
        for (const auto& klasse : classes)
            for (int day = 0; day < kSchoolDays; ++day)
                addRow(u"Klassen"_s, {{u"Klasse"_s, klasse}, {u"Tag"_s, TagCode(day)}, {u"Tag_Zahl"_s, day}});
        {
            const DbSession session(u"Test"_s);
            KlassenListenLaden();
        }
        auto& result = Form<frmKlassenNeuLöschen>();
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    static QListWidget& list(FormWindow& window) { return control<QListWidget>(window, u"lstKlassen"_s); }

    static QStringList entries(FormWindow& window) {
        QStringList texts;
        for (int i = 0; i < list(window).count(); ++i)
            texts << list(window).item(i)->text();
        return texts;
    }

private Q_SLOTS:
    void showsCaptionsAndClasses() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s, u"2b"_s});
        QCOMPARE(window.windowTitle(), u"Klassen Neu/Löschen"_s);
        QCOMPARE(window.findChild<QGroupBox*>()->title(), u"KLASSEN"_s);
        QCOMPARE(control<QPushButton>(window, u"cmdNeu"_s).text(), u"NEU"_s);
        QCOMPARE(control<QPushButton>(window, u"cmdLöschen"_s).text(), u"LÖSCHEN"_s);
        QCOMPARE(control<QPushButton>(window, u"cmdBeenden"_s).text(), u"BEENDEN"_s);
        QCOMPARE(entries(window), QStringList({u"1a"_s, u"2b"_s}));
        QCOMPARE(textOf(window, u"txtKlasse"_s), QString());
        QVERIFY(control<QLineEdit>(window, u"txtKlasse"_s).hasFocus());
    }

    void aClickCopiesTheEntryAlsoASecondTime() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s, u"2b"_s});
        clickEntry(list(window), u"2b"_s);
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"2b"_s);
        type(window, u"txtKlasse"_s, u"9z"_s);
        clickEntry(list(window), u"2b"_s);
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"2b"_s);
    }

    void theKeyboardCopiesTheEntryToo() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s, u"2b"_s});
        clickEntry(list(window), u"1a"_s);
        QTest::keyClick(&list(window), Qt::Key_Down);
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"2b"_s);
    }

    void tabIntoTheListLeavesTheTypedNameAlone() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s, u"2b"_s});
        type(window, u"txtKlasse"_s, u"5c"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Backtab);
        QVERIFY(list(window).hasFocus());
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"5c"_s);
        QTest::keyClick(&list(window), Qt::Key_Down);
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"2b"_s);
    }

    void tabGoesFromTheNameToTheButtonsAndTheList() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s});
        QStringList order;
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
            order << window.focusWidget()->objectName();
        }
        QCOMPARE(order, QStringList({u"cmdNeu"_s, u"cmdLöschen"_s, u"cmdBeenden"_s, u"lstKlassen"_s,
                                     u"txtKlasse"_s}));
    }

    void fillingTheListDoesNotTouchTheBox() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s});
        type(window, u"txtKlasse"_s, u"5c"_s);
        window.hide();
        window.show();
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"5c"_s);
    }

    void aNewClassStandsInTheListAndTheBoxIsReadyForTheNext() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s});
        type(window, u"txtKlasse"_s, u"3a"_s);
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        press(window, u"cmdNeu"_s);
        QCOMPARE(doorsOfTest.boxes().back().code, 0);
        QCOMPARE(doorsOfTest.boxes().back().title, kProgramTitle);
        QCOMPARE(entries(window), QStringList({u"1a"_s, u"3a"_s}));
        QCOMPARE(list(window).currentItem()->text(), u"3a"_s);
        QCOMPARE(textOf(window, u"txtKlasse"_s), QString());
        QVERIFY(control<QLineEdit>(window, u"txtKlasse"_s).hasFocus());
        QCOMPARE(columnOf(u"Klassen"_s, u"Klasse"_s).count(u"3a"_s), 5);
    }

    void enterMakesTheClassAndEscClosesTheForm() {
        useEmptyDatabase();
        auto& window = form({});
        type(window, u"txtKlasse"_s, u"3a"_s);
        doorsOfTest.expect(u"Die Klasse 3a wurde erstellt!"_s);
        QTest::keyClick(&control<QLineEdit>(window, u"txtKlasse"_s), Qt::Key_Return);
        QCOMPARE(entries(window), QStringList{u"3a"_s});
        QVERIFY(window.isVisible());
        QTest::keyClick(&window, Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }

    void creatingAClassTwiceSaysSo() {
        useEmptyDatabase();
        auto& window = form({u"3a"_s});
        type(window, u"txtKlasse"_s, u"3a"_s);
        doorsOfTest.expect(u"Klasse 3a ist bereits vorhanden!"_s);
        press(window, u"cmdNeu"_s);
        QCOMPARE(entries(window), QStringList{u"3a"_s});
        QCOMPARE(columnOf(u"Klassen"_s, u"Klasse"_s).size(), 5);
        QCOMPARE(textOf(window, u"txtKlasse"_s), QString());
    }

    /// The office also keeps groups that are no class of a grade, so no form of the name is asked for.
    void anyTextBecomesAClass() {
        useEmptyDatabase();
        auto& window = form({});
        type(window, u"txtKlasse"_s, u"Vorschule"_s);
        doorsOfTest.expect(u"Die Klasse Vorschule wurde erstellt!"_s);
        press(window, u"cmdNeu"_s);
        QCOMPARE(columnOf(u"Klassen"_s, u"Klasse"_s), QStringList(5, u"Vorschule"_s));
        QCOMPARE(columnOf(u"Klassen"_s, u"Schulstufe"_s), QStringList(5, u""_s));
        QCOMPARE(columnOf(u"Klassen"_s, u"KlassenNR"_s), QStringList(5, u""_s));
    }

    void anEmptyBoxMakesNoClass() {
        useEmptyDatabase();
        auto& window = form({});
        doorsOfTest.expect(u"Das Feld 'Klasse' darf nicht leer sein."_s);
        press(window, u"cmdNeu"_s);
        QCOMPARE(rowsOf(u"Klassen"_s), QStringList());
    }

    void aDeletedClassLeavesTheList() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s, u"3a"_s});
        clickEntry(list(window), u"3a"_s);
        doorsOfTest.expect(u"Klasse wirklich löschen?"_s, kAnswerYes);
        press(window, u"cmdLöschen"_s);
        QCOMPARE(entries(window), QStringList{u"1a"_s});
        QCOMPARE(textOf(window, u"txtKlasse"_s), QString());
    }

    void aClassWithAnActivePupilStaysInTheBox() {
        useEmptyDatabase();
        auto& window = form({u"3a"_s});
        addRow(u"Stammdaten"_s, {{u"Klasse"_s, u"3a"_s}, {u"aktiv"_s, true}});
        clickEntry(list(window), u"3a"_s);
        doorsOfTest.expectBeginning(u"In dieser Klasse ist noch 1 Schüler vorhanden."_s);
        press(window, u"cmdLöschen"_s);
        QCOMPARE(textOf(window, u"txtKlasse"_s), u"3a"_s);
        QCOMPARE(entries(window), QStringList{u"3a"_s});
    }

    void aClassWithOneDeactivatedPupilGoesAndThePupilKeepsItsName() {
        useEmptyDatabase();
        auto& window = form({u"3a"_s});
        addRow(u"Stammdaten"_s, {{u"Klasse"_s, u"3a"_s}, {u"aktiv"_s, false}});
        clickEntry(list(window), u"3a"_s);
        doorsOfTest.expect(u"Klasse wirklich löschen?"_s, kAnswerYes);
        press(window, u"cmdLöschen"_s);
        QCOMPARE(entries(window), QStringList());
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Klasse"_s), QStringList{u"3a"_s});
    }

    void aClassThatIsNotThereIsToldAndTheBoxIsCleared() {
        useEmptyDatabase();
        auto& window = form({u"1a"_s});
        type(window, u"txtKlasse"_s, u"9z"_s);
        doorsOfTest.expect(u"Klasse 9z ist nicht vorhanden!"_s);
        press(window, u"cmdLöschen"_s);
        QCOMPARE(textOf(window, u"txtKlasse"_s), QString());
        QCOMPARE(entries(window), QStringList{u"1a"_s});
    }

    void anApostropheIsOneBoxAndTheFormGoesOn() {
        useEmptyDatabase();
        auto& window = form({});
        type(window, u"txtKlasse"_s, u"3'a"_s);
        doorsOfTest.expectBeginning(u"Klasse anlegen"_s);
        press(window, u"cmdNeu"_s);
        QCOMPARE(rowsOf(u"Klassen"_s), QStringList());
        QVERIFY(window.isVisible());
    }
};

KOLIBRI_TEST_MAIN(FrmKlassenNeuLoeschenTest)
#include "frmKlassenNeuLoeschen_test.moc"
