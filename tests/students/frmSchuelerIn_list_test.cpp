#include "core/widgets/application.h"
#include "support/pupil_form.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

/// The list of the pupil form: what it shows, how it sorts, what is found in it.
class FrmSchuelerInListTest : public PupilFormTest {
    Q_OBJECT

    static constexpr int kName = 1;

    static QStringList names(frmSchülerIn& form) { return cellsOf(listOf(form), kName); }

    void setEverybodyInactive() {
        const DbSession session(u"Test"_s);
        Global().Conn.Change(u"Stammdaten"_s, {{u"aktiv"_s, false}});
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        startWithSmallSchool();
    }

    void everyModeListsItsPupils() {
        const QStringList active{u"Ärger"_s, u"Müller"_s, u"Zander"_s};
        QCOMPARE(names(open(&mdlGlobal::ModusSchuelerNeu)), active);
        QCOMPARE(names(open(&mdlGlobal::ModusSchuelerKorrektur)), active);
        QCOMPARE(names(open(&mdlGlobal::ModusSchuelerLoeschen)), active);
        QCOMPARE(names(open(&mdlGlobal::ModusSchuelerAktivieren)), QStringList{u"Ehemals"_s});
        for (const auto mode : {&mdlGlobal::ModusSchulanfaengerNeu, &mdlGlobal::ModusSchulanfaengerKorrektur,
                                &mdlGlobal::ModusSchulanfaengerLoeschen})
            QCOMPARE(names(open(mode)), QStringList{u"Klein"_s});
    }

    void theListHasFortyFourColumnsAndTheIdInFront() {
        auto& list = listOf(openToCorrect());
        QCOMPARE(list.columnCount(), 44);
        QCOMPARE(headingsOf(list).first(), u"ID"_s);
        QCOMPARE(headingsOf(list).last(), u"3.AG-FR"_s);
        QCOMPARE(list.header()->sectionSize(0), 1);
        QCOMPARE(list.cell(1, 0), u"0001"_s);
        QCOMPARE(list.key(1), u"A00001"_s);
        QCOMPARE(list.font().family(), u"Arial"_s);
    }

    void aTableWithoutPupilsLeavesTheHeadersAndNoRows() {
        setEverybodyInactive();
        auto& list = listOf(openToCorrect());
        QCOMPARE(list.columnCount(), 44);
        QCOMPARE(list.rowCount(), 0);
    }

    void withNobodyDeactivatedThePlaceholderShows() {
        change(4, {{u"aktiv"_s, true}});
        auto& form = open(&mdlGlobal::ModusSchuelerAktivieren);
        auto& list = listOf(form);
        QCOMPARE(list.columnCount(), 1);
        QCOMPARE(headingsOf(list), QStringList{QString()});
        QCOMPARE(cellsOf(list, 0), QStringList{u"Keine deaktivierten Schüler / Schülerinnen vorhanden"_s});
        // Selecting it reads the ID 0 and finds no row.
        clickRow(list, 1);
        QCOMPARE(Global().AktuelleSchuelerID, 0);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), QString());
        // In another mode the columns are back.
        QCOMPARE(listOf(openToCorrect()).columnCount(), 44);
    }

    void afterTheLastPupilIsDeletedThePlaceholderShowsItsTextAboutDeactivatedOnes() {
        setEverybodyInactive();
        change(2, {{u"aktiv"_s, true}});
        auto& form = open(&mdlGlobal::ModusSchuelerLoeschen);
        choose(form, 2);
        doorsOfTest.expect(u"Wollen Sie die Daten wirklich löschen?"_s, kAnswerYes);
        press(form);
        QCOMPARE(cellsOf(listOf(form), 0),
                 QStringList{u"Keine deaktivierten Schüler / Schülerinnen vorhanden"_s});
    }

    void aClickOnNeuOrOnTheThirdWorkingGroupDoesNothing() {
        auto& form = openToCorrect();
        change(1, {{u"GR4_DI"_s, u"14:00 - 15:00 Chor"_s}});
        auto& list = listOf(openToCorrect());
        const QStringList before = names(form);
        clickHeading(list, u"Neu"_s);
        clickHeading(list, u"3.AG-MO"_s);
        QCOMPARE(names(form), before);
        clickHeading(list, u"2.AG-DI"_s);
        QCOMPARE(names(form), (QStringList{u"Müller"_s, u"Zander"_s, u"Ärger"_s}));
    }

    void sortingByIdTwiceReversesTheOrderAndKeepsTheText() {
        auto& form = openToCorrect();
        auto& list = listOf(form);
        SortierenListView(0, list, SortKind::Number);
        QCOMPARE(cellsOf(list, 0), (QStringList{u"0001"_s, u"0002"_s, u"0003"_s}));
        SortierenListView(0, list, SortKind::Number);
        QCOMPARE(cellsOf(list, 0), (QStringList{u"0003"_s, u"0002"_s, u"0001"_s}));
    }

    void afterASaveTheListIsInTheOrderOfTheSurnameAgain() {
        auto& form = openToCorrect();
        clickHeading(listOf(form), u"Schüler NN"_s);
        clickHeading(listOf(form), u"Schüler NN"_s);
        QCOMPARE(names(form), (QStringList{u"Zander"_s, u"Müller"_s, u"Ärger"_s}));
        choose(form, 2);
        press(form);
        QCOMPARE(names(form), (QStringList{u"Ärger"_s, u"Müller"_s, u"Zander"_s}));
    }

    void afterASaveTheRowOfTheSavedPupilIsMarked() {
        auto& form = openToCorrect();
        choose(form, 3);
        press(form);
        auto& list = listOf(form);
        QCOMPARE(Global().MarkierteZeile, 3);
        QCOMPARE(list.indexOfTopLevelItem(list.selectedItems().value(0)), 2);
        QVERIFY(list.hasFocus());
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), QString());
    }

    void theGlassFindsARowWhereOnlyTheStreetHasTheText() {
        auto& form = openToCorrect();
        auto& list = listOf(form);
        type(form, u"txtSCH(0)"_s, u"zanderweg"_s);
        press(form, u"Image1"_s);
        QCOMPARE(Global().MarkierteZeile, 3);
        QCOMPARE(list.indexOfTopLevelItem(list.selectedItems().value(0)), 2);
        QVERIFY(list.hasFocus());
        // Marking reads no record.
        QCOMPARE(Global().AktuelleSchuelerID, 0);
        type(form, u"txtSCH(0)"_s, u"gibt es nicht"_s);
        press(form, u"Image1"_s);
        QCOMPARE(Global().MarkierteZeile, 0);
    }

    void typingIntoTheListFindsAPupil() {
        auto& form = openToCorrect();
        auto& list = listOf(form);
        list.setFocus();
        keys(list, u"z"_s);
        keys(*QApplication::focusWidget(), u"an"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Zander"_s);
    }

    void changesOfAnotherWorkstationComeWithTheNextSave() {
        auto& form = openToCorrect();
        change(3, {{u"SCH_Name"_s, u"Anders"_s}});
        QCOMPARE(names(form).last(), u"Zander"_s);
        choose(form, 2);
        press(form);
        QCOMPARE(names(form), (QStringList{u"Anders"_s, u"Ärger"_s, u"Müller"_s}));
    }
};

KOLIBRI_TEST_MAIN(FrmSchuelerInListTest)
#include "frmSchuelerIn_list_test.moc"
