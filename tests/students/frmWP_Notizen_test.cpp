#include "core/widgets/application.h"
#include "students/edit_guard.h"
#include "students/frmWP_Notizen.h"
#include "support/pupil_form.h"

#include <QPlainTextEdit>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kUnit1 = u"08:00 - 08:45"_s;
const QString kUnit2 = u"08:50 - 09:35"_s;
const QDateTime kNow(QDate(2026, 11, 20), QTime(9, 30));
const QString kHeld = u"Der Datensatz kann nicht bearbeitet werden. Er wird gerade von PC-2 bearbeitet!"_s;
const QString kKnown =
    u"Notiz bereits vorhanden! Wollen Sie diese korrigieren, wählen sie den Menüpunkt KORREKTUR."_s;
const QString kSaved = u"Die Daten wurden gespeichert!"_s;

} // namespace

/// The notes of the Tagesplan in their three modes, with the edit guard.
class FrmWpNotizenTest : public PupilFormTest {
    Q_OBJECT

    static frmWP_Notizen& form() { return Form<frmWP_Notizen>(); }
    static void openNotes(const QString& mode) {
        form().hide();
        form().Tag = mode;
        if (!shown(form()))
            qFatal("the form did not get the keyboard");
    }
    static ListView& list() { return control<ListView>(form(), u"lvwStammdaten"_s); }
    static void chooseName(const QString& name) {
        const auto names = cellsOf(list(), 1);
        clickRow(list(), static_cast<int>(names.indexOf(name)) + 1);
    }
    static void pickEntry(const QString& name, const QString& text) {
        auto& combo = control<QComboBox>(form(), name);
        const int index = combo.findText(text);
        if (index < 0)
            qFatal("no entry %s", qPrintable(text));
        combo.setCurrentIndex(index);
        Q_EMIT combo.activated(index);
    }
    static QStringList entries(const QString& name) {
        const auto& combo = control<QComboBox>(form(), name);
        QStringList texts;
        for (int i = 0; i < combo.count(); ++i)
            texts << combo.itemText(i);
        return texts;
    }
    static QString chosen(const QString& name) { return control<QComboBox>(form(), name).currentText(); }
    static QPlainTextEdit& note() { return control<QPlainTextEdit>(form(), u"txtNotiz"_s); }
    static void write(const QString& text) {
        note().selectAll();
        QTest::keyClick(&note(), Qt::Key_Delete);
        keys(note(), text);
    }
    static void addNote(int id, int pupil, const QString& unit, int tag, const QString& text) {
        addRow(u"WP_Notiz"_s, {{u"ID"_s, id},
                               {u"SCH_ID"_s, pupil},
                               {u"UE"_s, unit},
                               {u"Tag"_s, TagCode(tag)},
                               {u"Tag_Zahl"_s, tag},
                               {u"Notiz"_s, text}});
    }
    static QString row(int id, int pupil, const QString& unit, int tag, const QString& text) {
        return u"ID=%1; SCH_ID=%2; UE=%3; Tag=%4; Tag_Zahl=%5; Notiz=%6"_s.arg(id).arg(pupil).arg(
            unit, TagCode(tag), QString::number(tag), text);
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        startWithSmallSchool();
        doorsOfTest.setNow(kNow);
        // Not in the order of their times.
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 1}, {u"Zeit"_s, kUnit2}});
        addRow(u"Unterrichtseinheiten"_s, {{u"ID"_s, 2}, {u"Zeit"_s, kUnit1}});
    }

    void theListShowsTheActivePupilsByNameInFiveColumns() {
        openNotes(u"Neu"_s);
        QCOMPARE(headingsOf(list()),
                 (QStringList{u"ID"_s, u"Schüler NN"_s, u"Schüler VN"_s, u"Geb. Datum"_s, u"KL"_s}));
        QCOMPARE(cellsOf(list(), 1), (QStringList{u"Ärger"_s, u"Müller"_s, u"Zander"_s}));
        QCOMPARE(list().key(2), u"A00002"_s);
        QCOMPARE(list().itemText(2), u"0002"_s);
        QCOMPARE(list().cell(2, 2), u"Berta"_s);
        QCOMPARE(list().cell(2, 4), u"3a"_s);
    }

    void theListSortsByAClickOnAHeadingUntilItIsReadAnew() {
        openNotes(u"Neu"_s);
        clickHeading(list(), u"KL"_s);
        clickHeading(list(), u"KL"_s);
        QCOMPARE(cellsOf(list(), 4).front(), u"4b"_s);
        openNotes(u"Neu"_s);
        QCOMPARE(cellsOf(list(), 1), (QStringList{u"Ärger"_s, u"Müller"_s, u"Zander"_s}));
    }

    void theListIsReadAnewEachTimeTheFormIsOpened() {
        openNotes(u"Neu"_s);
        change(3, {{u"aktiv"_s, false}});
        change(5, {{u"Schulstufe"_s, 1}});
        openNotes(u"Neu"_s);
        QCOMPARE(cellsOf(list(), 1), (QStringList{u"Ärger"_s, u"Klein"_s, u"Müller"_s}));
    }

    void theModeGivesTheButtonItsCaption_data() {
        QTest::addColumn<QString>("mode");
        QTest::addColumn<QString>("caption");
        QTest::newRow("new") << u"Neu"_s << u"OK"_s;
        QTest::newRow("correct") << u"Korrektur"_s << u"KORREKTUR"_s;
        QTest::newRow("delete") << u"Löschen"_s << u"LÖSCHEN"_s;
    }
    void theModeGivesTheButtonItsCaption() {
        QFETCH(const QString, mode);
        QFETCH(const QString, caption);
        openNotes(mode);
        QCOMPARE(control<QAbstractButton>(form(), u"cmdOK"_s).text(), caption);
        QCOMPARE(control<QAbstractButton>(form(), u"cmdBeenden"_s).text(), u"BEENDEN"_s);
        QCOMPARE(form().windowTitle(), u"Tagesplan Notizen"_s);
    }

    void openingEmptiesTheFieldsAndFillsTheChoices() {
        addNote(1, 2, kUnit1, 0, u"Text"_s);
        openNotes(u"Neu"_s);
        chooseName(u"Müller"_s);
        openNotes(u"Korrektur"_s);
        QCOMPARE(textOf(form(), u"txtSchüler"_s), QString());
        QCOMPARE(note().toPlainText(), QString());
        QCOMPARE(entries(u"cmbUE"_s), (QStringList{QString(), kUnit1, kUnit2}));
        QCOMPARE(entries(u"cmbTag"_s), (QStringList{QString(), u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s}));
        QCOMPARE(chosen(u"cmbUE"_s), QString());
        QCOMPARE(chosen(u"cmbTag"_s), QString());
    }

    void okNamesWhatIsMissingInItsOrder() {
        openNotes(u"Neu"_s);
        // The pupil first, whatever the boxes hold.
        pickEntry(u"cmbUE"_s, kUnit1);
        pickEntry(u"cmbTag"_s, u"MO"_s);
        doorsOfTest.expect(u"Kein Schüler/Schülerin ausgewählt!"_s);
        press(form());
        chooseName(u"Müller"_s);
        doorsOfTest.expect(u"Keine Unterrichtseinheit ausgewählt!"_s);
        press(form());
        pickEntry(u"cmbUE"_s, kUnit1);
        doorsOfTest.expect(u"Kein Tag ausgewählt!"_s);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s).size(), 0);
    }

    void aNewNoteIsWrittenWithTheNextKey() {
        openNotes(u"Neu"_s);
        chooseName(u"Müller"_s);
        QCOMPARE(textOf(form(), u"txtSchüler"_s), u"Müller Berta"_s);
        pickEntry(u"cmbUE"_s, kUnit2);
        pickEntry(u"cmbTag"_s, u"FR"_s);
        write(u"Oma's Musikschule"_s);
        doorsOfTest.expect(kSaved);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s), QStringList{row(1, 2, kUnit2, 4, u"Oma's Musikschule"_s)});
        addNote(41, 3, kUnit1, 0, u"fremd"_s);
        pickEntry(u"cmbTag"_s, u"DO"_s);
        doorsOfTest.expect(kSaved);
        press(form());
        // An empty text is refused by nothing.
        QCOMPARE(rowsOf(u"WP_Notiz"_s).back(), row(42, 2, kUnit2, 3, QString()));
    }

    void aSecondNoteForThePlaceIsRefusedAndStillSaidToBeSaved() {
        addNote(7, 2, kUnit1, 0, u"erste"_s);
        openNotes(u"Neu"_s);
        chooseName(u"Müller"_s);
        write(u"zweite"_s);
        doorsOfTest.expect(kKnown);
        doorsOfTest.expect(kSaved);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s), QStringList{row(7, 2, kUnit1, 0, u"erste"_s)});
    }

    void selectingShowsTheOneNoteWithItsPlace() {
        addNote(1, 3, kUnit1, 0, u"fremd"_s);
        addNote(2, 2, kUnit2, 3, u"Zahnarzt"_s);
        openNotes(u"Korrektur"_s);
        chooseName(u"Müller"_s);
        QCOMPARE(note().toPlainText(), u"Zahnarzt"_s);
        QCOMPARE(chosen(u"cmbUE"_s), kUnit2);
        QCOMPARE(chosen(u"cmbTag"_s), u"DO"_s);
    }

    void theFirstOfTwoIsShownAndTheDayLeadsToTheOther() {
        addNote(9, 2, kUnit1, 1, u"erste"_s);
        addNote(3, 2, kUnit1, 4, u"zweite"_s);
        openNotes(u"Korrektur"_s);
        chooseName(u"Müller"_s);
        QCOMPARE(note().toPlainText(), u"erste"_s);
        QCOMPARE(chosen(u"cmbTag"_s), u"DI"_s);
        pickEntry(u"cmbTag"_s, u"FR"_s);
        QCOMPARE(note().toPlainText(), u"zweite"_s);
        pickEntry(u"cmbUE"_s, kUnit2);
        QCOMPARE(note().toPlainText(), QString());
        pickEntry(u"cmbUE"_s, kUnit1);
        QCOMPARE(note().toPlainText(), u"zweite"_s);
    }

    void aPupilWithoutNotesShowsNone() {
        addNote(1, 2, kUnit1, 1, u"Text"_s);
        openNotes(u"Neu"_s);
        chooseName(u"Müller"_s);
        chooseName(u"Zander"_s);
        QCOMPARE(textOf(form(), u"txtSchüler"_s), u"Zander Carl"_s);
        QCOMPARE(note().toPlainText(), QString());
        QCOMPARE(chosen(u"cmbUE"_s), QString());
        QCOMPARE(chosen(u"cmbTag"_s), QString());
    }

    void aNoteOfAUnitThatIsGoneIsShownWithoutItsUnit() {
        addNote(1, 2, u"07:00 - 07:30"_s, 1, u"Frühbetreuung"_s);
        openNotes(u"Korrektur"_s);
        chooseName(u"Müller"_s);
        QCOMPARE(note().toPlainText(), u"Frühbetreuung"_s);
        QCOMPARE(chosen(u"cmbUE"_s), QString());
        QCOMPARE(chosen(u"cmbTag"_s), u"DI"_s);
    }

    void beforeAPupilIsChosenTheChoicesShowNobodysNote() {
        addNote(1, 2, kUnit1, 0, u"Text"_s);
        Global().AktuelleSchuelerID = 2;
        openNotes(u"Neu"_s);
        pickEntry(u"cmbUE"_s, kUnit1);
        pickEntry(u"cmbTag"_s, u"MO"_s);
        QCOMPARE(note().toPlainText(), QString());
    }

    void aCorrectionChangesThisNoteAlone() {
        addNote(1, 2, kUnit1, 0, u"alt"_s);
        addNote(2, 2, kUnit1, 1, u"alt"_s);
        addNote(3, 3, kUnit1, 0, u"alt"_s);
        openNotes(u"Korrektur"_s);
        chooseName(u"Müller"_s);
        write(u"neu"_s);
        doorsOfTest.expect(u"Korrektur durchgeführt!"_s);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s),
                 (QStringList{row(1, 2, kUnit1, 0, u"neu"_s), row(2, 2, kUnit1, 1, u"alt"_s),
                              row(3, 3, kUnit1, 0, u"alt"_s)}));
        write({});
        doorsOfTest.expect(u"Korrektur durchgeführt!"_s);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s).front(), row(1, 2, kUnit1, 0, QString()));
    }

    void aCorrectionNeedsANote() {
        openNotes(u"Korrektur"_s);
        chooseName(u"Müller"_s);
        pickEntry(u"cmbUE"_s, kUnit1);
        pickEntry(u"cmbTag"_s, u"MO"_s);
        write(u"neu"_s);
        doorsOfTest.expect(u"Kein Datensatz zur Korrektur vorhanden!"_s);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s).size(), 0);
        QCOMPARE(note().toPlainText(), u"neu"_s);
    }

    void anApostropheIsRefusedInACorrectionAndNothingIsLost() {
        addNote(1, 2, kUnit1, 0, u"alt"_s);
        openNotes(u"Korrektur"_s);
        chooseName(u"Müller"_s);
        write(u"Oma's"_s);
        doorsOfTest.expectBeginning(u"Tagesplan-Notiz speichern: "_s);
        press(form());
        QCOMPARE(columnOf(u"WP_Notiz"_s, u"Notiz"_s), QStringList{u"alt"_s});
        QCOMPARE(note().toPlainText(), u"Oma's"_s);
    }

    void aTextOfMoreThan255CharactersIsRefusedAndNothingIsLost_data() {
        QTest::addColumn<QString>("mode");
        QTest::newRow("new") << u"Neu"_s;
        QTest::newRow("correct") << u"Korrektur"_s;
    }
    void aTextOfMoreThan255CharactersIsRefusedAndNothingIsLost() {
        QFETCH(const QString, mode);
        addNote(1, 2, kUnit1, 0, u"alt"_s);
        openNotes(mode);
        chooseName(u"Müller"_s);
        if (mode == u"Neu"_s)
            pickEntry(u"cmbTag"_s, u"DI"_s);
        const QString text(256, u'x');
        note().setPlainText(text);
        doorsOfTest.expectBeginning(u"Tagesplan-Notiz speichern: "_s);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s), QStringList{row(1, 2, kUnit1, 0, u"alt"_s)});
        QCOMPARE(note().toPlainText(), text);
    }

    void deletingTakesTheNoteWithoutAQuestion() {
        addNote(1, 2, kUnit1, 0, u"weg"_s);
        addNote(2, 2, kUnit1, 1, u"bleibt"_s);
        openNotes(u"Löschen"_s);
        chooseName(u"Müller"_s);
        doorsOfTest.expect(u"Notiz erfolgreich gelöscht!"_s);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s), QStringList{row(2, 2, kUnit1, 1, u"bleibt"_s)});
        QCOMPARE(note().toPlainText(), QString());
        // Once more: there is none, and the words are the same.
        doorsOfTest.expect(u"Notiz erfolgreich gelöscht!"_s);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s).size(), 1);
    }

    void selectingClaimsThePupilAndReleasesTheOneBefore() {
        openNotes(u"Neu"_s);
        chooseName(u"Müller"_s);
        QCOMPARE(stored(2, u"PC_Name"_s), u"TEST-PC"_s);
        QCOMPARE(stored(2, u"ZeitStempel"_s), u"20.11.2026 09:30:00"_s);
        chooseName(u"Zander"_s);
        QCOMPARE(stored(2, u"PC_Name"_s), QString());
        QCOMPARE(stored(3, u"PC_Name"_s), u"TEST-PC"_s);
        QCOMPARE(Global().AktuelleSchuelerID, 3);
    }

    void aPupilHeldElsewhereIsRefusedAndNobodyStandsInTheFields() {
        addNote(1, 2, kUnit1, 0, u"von Müller"_s);
        change(3, {{u"ZeitStempel"_s, StempelText(kNow.addSecs(-299))}, {u"PC_Name"_s, u"PC-2"_s}});
        openNotes(u"Korrektur"_s);
        chooseName(u"Müller"_s);
        doorsOfTest.expect(kHeld);
        chooseName(u"Zander"_s);
        QCOMPARE(textOf(form(), u"txtSchüler"_s), QString());
        QCOMPARE(note().toPlainText(), QString());
        QCOMPARE(stored(2, u"PC_Name"_s), QString());
        QCOMPARE(stored(3, u"PC_Name"_s), u"PC-2"_s);
        // No note of the refused pupil can be written.
        pickEntry(u"cmbUE"_s, kUnit1);
        pickEntry(u"cmbTag"_s, u"MO"_s);
        doorsOfTest.expect(u"Kein Schüler/Schülerin ausgewählt!"_s);
        press(form());
        QCOMPARE(rowsOf(u"WP_Notiz"_s).size(), 1);
    }

    void aStampOf300SecondsIsTakenOver() {
        change(3, {{u"ZeitStempel"_s, StempelText(kNow.addSecs(-300))}, {u"PC_Name"_s, u"PC-2"_s}});
        openNotes(u"Neu"_s);
        chooseName(u"Zander"_s);
        QCOMPARE(stored(3, u"PC_Name"_s), u"TEST-PC"_s);
    }

    void leavingKeepsTheStampUntilALaterSelection() {
        openNotes(u"Neu"_s);
        chooseName(u"Müller"_s);
        press(form(), u"cmdBeenden"_s);
        QVERIFY(!form().isVisible());
        QCOMPARE(stored(2, u"PC_Name"_s), u"TEST-PC"_s);
        // The pupil form of this workstation takes it over, and another selection frees it.
        auto& pupils = openToCorrect();
        choose(pupils, 2);
        QCOMPARE(textOf(pupils, u"txtSCH(0)"_s), u"Müller"_s);
        choose(pupils, 3);
        QCOMPARE(stored(2, u"PC_Name"_s), QString());
    }

    void aPupilDeletedMeanwhileIsNotShown() {
        openNotes(u"Neu"_s);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"Stammdaten"_s, u"ID = ?"_s, {2});
        }
        chooseName(u"Müller"_s);
        QCOMPARE(textOf(form(), u"txtSchüler"_s), QString());
    }

    void everythingCanBeReachedByKeyboardAndHasAName() {
        openNotes(u"Neu"_s);
        QStringList road;
        for (int i = 0; i < 6; ++i) {
            road << form().focusWidget()->objectName();
            QTest::keyClick(form().focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(road, (QStringList{u"lvwStammdaten"_s, u"cmbUE"_s, u"cmbTag"_s, u"txtNotiz"_s, u"cmdOK"_s,
                                    u"cmdBeenden"_s}));
        for (const auto& name : {u"txtSchüler"_s, u"cmbUE"_s, u"cmbTag"_s, u"txtNotiz"_s}) {
            bool labelled = false;
            for (const auto* label : form().findChildren<QLabel*>())
                labelled |= label->buddy() && label->buddy()->objectName() == name;
            QVERIFY2(labelled, qPrintable(name));
        }
    }
};

KOLIBRI_TEST_MAIN(FrmWpNotizenTest)
#include "frmWP_Notizen_test.moc"
