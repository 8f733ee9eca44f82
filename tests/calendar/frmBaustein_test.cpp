#include "calendar/frmBaustein.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/driving.h"
#include "support/test_base.h"

#include <QLabel>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kQuestion =
    u"Baustein wirklich löschen? Es wird dieser Baustein, wenn vorhanden, auch bei den Schülern/Schülerinnen gelöscht!"_s;

} // namespace

class FrmBausteinTest : public TestBase {
    Q_OBJECT

private:
    static FormWindow& form(const QString& mode) {
        auto& result = Form<frmBaustein>();
        result.Tag = mode;
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    static void addModule(int id, const QString& text) {
        addRow(u"Bausteine"_s, {{u"ID"_s, id}, {u"Bausteine"_s, text}});
    }

    static void addPupil(const QString& baustein, bool aktiv = true) {
        addRow(u"Stammdaten"_s, {{u"Baustein"_s, baustein}, {u"aktiv"_s, aktiv}});
    }

    static ListView& list(FormWindow& window) {
        return *static_cast<ListView*>(&control<QTreeWidget>(window, u"lvwBausteine"_s));
    }

    static void enter(FormWindow& window, const QString& text) {
        type(window, u"txtBaustein"_s, text);
        press(window);
    }

private Q_SLOTS:
    void captionsFollowTheMode_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("ok");
        QTest::newRow("Neu") << u"Neu"_s << u"O K"_s;
        QTest::newRow("Korrektur") << u"Korrektur"_s << u"KORREKTUR"_s;
        QTest::newRow("Löschen") << u"Löschen"_s << u"LÖSCHEN"_s;
    }

    void captionsFollowTheMode() {
        QFETCH(QString, mode);
        QFETCH(QString, ok);
        useEmptyDatabase();
        auto& window = form(mode);
        QCOMPARE(window.windowTitle(), u"BAUSTEIN"_s);
        QCOMPARE(control<QPushButton>(window, u"cmdOK"_s).text(), ok);
        QCOMPARE(control<QPushButton>(window, u"cmdBeenden"_s).text(), u"BEENDEN"_s);
        QCOMPARE(control<QLabel>(window, u"lblBaustein"_s).text(), u"BAUSTEIN"_s);
        QCOMPARE(headingsOf(list(window)), QStringList({u"ID"_s, u"                BAUSTEINE"_s}));
    }

    void theFirstModuleGetsId0AndTheBoxIsReadyForTheNext() {
        useEmptyDatabase();
        auto& window = form(u"Neu"_s);
        enter(window, u"Lang"_s);
        enter(window, u"Kurz"_s);
        QCOMPARE(rowsOf(u"Bausteine"_s), QStringList({u"ID=0; Bausteine=Lang"_s, u"ID=1; Bausteine=Kurz"_s}));
        QCOMPARE(cellsOf(list(window), 1), QStringList({u"Lang"_s, u"Kurz"_s}));
        QCOMPARE(list(window).itemText(2), u"00001"_s);
        QCOMPARE(list(window).key(2), u"A0001"_s);
        QCOMPARE(textOf(window, u"txtBaustein"_s), QString());
        QVERIFY(control<QLineEdit>(window, u"txtBaustein"_s).hasFocus());
    }

    void anEmptyBoxIsTold_data() { captionsFollowTheMode_data(); }

    void anEmptyBoxIsTold() {
        QFETCH(QString, mode);
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        const auto before = wholeDatabase();
        auto& window = form(mode);
        doorsOfTest.expect(u"Feld Baustein ist leer!"_s);
        list(window).setFocus();
        press(window);
        QVERIFY(control<QLineEdit>(window, u"txtBaustein"_s).hasFocus());
        QCOMPARE(wholeDatabase(), before);
    }

    void inNeuAClickHasNoEffect() {
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        auto& window = form(u"Neu"_s);
        type(window, u"txtBaustein"_s, u"Ferien"_s);
        clickRow(list(window), 1);
        QCOMPARE(textOf(window, u"txtBaustein"_s), u"Ferien"_s);
    }

    void renamingRenamesItOnEveryPupilAlsoADeactivatedOne() {
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        addModule(1, u"Kurz"_s);
        addPupil(u"Lang"_s);
        addPupil(u"Lang"_s, false);
        addPupil(u"Kurz"_s);
        auto& window = form(u"Korrektur"_s);
        clickRow(list(window), 1);
        QCOMPARE(textOf(window, u"txtBaustein"_s), u"Lang"_s);
        enter(window, u"Langbaustein"_s);
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Baustein"_s),
                 QStringList({u"Langbaustein"_s, u"Langbaustein"_s, u"Kurz"_s}));
        QCOMPARE(cellsOf(list(window), 1), QStringList({u"Langbaustein"_s, u"Kurz"_s}));
    }

    void deletingOneOfTwoWithOneTextEmptiesAllPupilsAndLeavesTheOther() {
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        addModule(1, u"Lang"_s);
        addPupil(u"Lang"_s);
        addPupil(u"Kurz"_s);
        auto& window = form(u"Löschen"_s);
        clickRow(list(window), 1);
        doorsOfTest.expect(kQuestion, kAnswerYes);
        press(window);
        QCOMPARE(doorsOfTest.boxes().back().code, 20);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Baustein löschen"_s);
        QCOMPARE(rowsOf(u"Bausteine"_s), QStringList{u"ID=1; Bausteine=Lang"_s});
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Baustein"_s), QStringList({u""_s, u"Kurz"_s}));
    }

    void noLeavesEverythingAsItIs() {
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        const auto before = wholeDatabase();
        auto& window = form(u"Löschen"_s);
        clickRow(list(window), 1);
        doorsOfTest.expect(kQuestion, kAnswerNo);
        press(window);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(window, u"txtBaustein"_s), u"Lang"_s);
    }

    /// Two packages may bear one name, for instance in two price lists; the pupils hold the name alone.
    void aDoubledTextIsTaken() {
        useEmptyDatabase();
        auto& window = form(u"Neu"_s);
        enter(window, u"Lang"_s);
        enter(window, u"Lang"_s);
        QCOMPARE(columnOf(u"Bausteine"_s, u"Bausteine"_s), QStringList({u"Lang"_s, u"Lang"_s}));
    }

    void aModuleThatAnotherWorkstationDeletedIsNotChosen() {
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        addModule(1, u"Kurz"_s);
        addPupil(u""_s);
        auto& window = form(u"Korrektur"_s);
        clickRow(list(window), 1);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"Bausteine"_s, u"ID = ?"_s, {1});
        }
        const auto before = wholeDatabase();
        clickRow(list(window), 2);
        QCOMPARE(textOf(window, u"txtBaustein"_s), QString());
        doorsOfTest.expect(u"Bitte wählen Sie zuerst eine Zeile aus!"_s);
        enter(window, u"Ferien"_s);
        QCOMPARE(wholeDatabase(), before);
    }

    void enterSavesAndEscCloses() {
        useEmptyDatabase();
        auto& window = form(u"Neu"_s);
        keys(*window.focusWidget(), u"Lang"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        QCOMPARE(columnOf(u"Bausteine"_s, u"Bausteine"_s), QStringList{u"Lang"_s});
        QStringList order;
        for (int i = 0; i < 4; ++i) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
            order << window.focusWidget()->objectName();
        }
        QCOMPARE(order, QStringList({u"cmdOK"_s, u"cmdBeenden"_s, u"lvwBausteine"_s, u"txtBaustein"_s}));
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }

    void theSearchOfTheListKeepsEnterAndEscToItself() {
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        addModule(1, u"Kurz"_s);
        auto& window = form(u"Korrektur"_s);
        list(window).startSearch(u"kurz"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
        QVERIFY(window.isVisible());
        QCOMPARE(textOf(window, u"txtBaustein"_s), QString());
        list(window).startSearch(u"kurz"_s);
        QTest::keyClick(window.focusWidget(), Qt::Key_Return);
        QCOMPARE(textOf(window, u"txtBaustein"_s), u"Kurz"_s);
        QVERIFY(doorsOfTest.boxes().empty());
    }

    void aSearchThatIsLeftDoesNotMarkAnotherRowThanTheOneToBeDeleted() {
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        addModule(1, u"Kurz"_s);
        auto& window = form(u"Löschen"_s);
        clickRow(list(window), 1);
        list(window).startSearch(u"kurz"_s);
        QCOMPARE(list(window).currentItem()->text(1), u"Kurz"_s);
        control<QPushButton>(window, u"cmdOK"_s).setFocus();
        QCOMPARE(list(window).selectedItems().value(0)->text(1), u"Lang"_s);
        QCOMPARE(textOf(window, u"txtBaustein"_s), u"Lang"_s);
    }

    void withoutAClickedRowNothingIsWritten_data() {
        QTest::addColumn<QString>("mode");
        QTest::newRow("Korrektur") << u"Korrektur"_s;
        QTest::newRow("Löschen") << u"Löschen"_s;
    }

    void withoutAClickedRowNothingIsWritten() {
        QFETCH(QString, mode);
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        const auto before = wholeDatabase();
        auto& window = form(mode);
        doorsOfTest.expect(u"Bitte wählen Sie zuerst eine Zeile aus!"_s);
        enter(window, u"Lang"_s);
        QCOMPARE(wholeDatabase(), before);
    }

    void anApostropheBreaksTheStatementAndTheFormGoesOn() {
        useEmptyDatabase();
        addModule(0, u"Lang"_s);
        addPupil(u"Lang"_s);
        const auto before = wholeDatabase();
        auto& window = form(u"Korrektur"_s);
        clickRow(list(window), 1);
        doorsOfTest.expectBeginning(u"Baustein speichern"_s);
        enter(window, u"Oma's Baustein"_s);
        QCOMPARE(wholeDatabase(), before);
        enter(window, u"Omas Baustein"_s);
        QCOMPARE(columnOf(u"Stammdaten"_s, u"Baustein"_s), QStringList{u"Omas Baustein"_s});
    }
};

KOLIBRI_TEST_MAIN(FrmBausteinTest)
#include "frmBaustein_test.moc"
