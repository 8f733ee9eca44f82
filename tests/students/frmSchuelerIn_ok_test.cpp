#include "core/widgets/application.h"
#include "support/pupil_form.h"

#include <QPushButton>
#include <QTextEdit>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kIncomplete = u"Eingabe unvollständig!"_s;
const QString kDateMessage = u"Feld Geburtsdatum: das Format entspricht nicht der Form TT.MM.JJJJ!"_s;
const QString kClassMessage = u"Feld Klasse: das Format entspricht nicht der Form 1a .... 99z!"_s;
const QString kReallyDelete = u"Wollen Sie die Daten wirklich löschen?"_s;
const QString kNoFee = u"Ungültiger Eintrag!"_s;

} // namespace

/// The button of the pupil form: the order of the checks, what is written, and what bad input does.
class FrmSchuelerInOkTest : public PupilFormTest {
    Q_OBJECT

    static void fill(frmSchülerIn& form, const QString& name, const QString& vorname, const QString& klasse) {
        type(form, u"txtSCH(0)"_s, name);
        type(form, u"txtSCH(1)"_s, vorname);
        type(form, u"txtSCH(3)"_s, klasse);
    }
    static void showTab(frmSchülerIn& form, int tab) {
        control<QTabWidget>(form, u"SSTab1"_s).setCurrentIndex(tab);
    }
    static void typeFee(frmSchülerIn& form, int fee, const QString& text) {
        showTab(form, 2);
        type(form, u"txtBeitrag(%1)"_s.arg(fee), text);
    }
    static void typeRemark(frmSchülerIn& form, const QString& text) {
        showTab(form, 3);
        auto& edit = control<QTextEdit>(form, u"rtfAnmerkung"_s);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Delete);
        keys(edit, text);
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        startWithSmallSchool();
    }

    void aNewPupilIsWrittenAndMarked() {
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        fill(form, u"Neumann"_s, u"Nele"_s, u"3a"_s);
        pick(form, 3, 1, u"14:00 - 15:00 Chor"_s);
        press(form);
        QCOMPARE(stored(6, u"SCH_Name"_s), u"Neumann"_s);
        QCOMPARE(stored(6, u"GR3_DI"_s), u"14:00 - 15:00 Chor"_s);
        QCOMPARE(stored(6, u"GR1_MO"_s), QString());
        QCOMPARE(stored(6, u"Neu"_s), u"Wahr"_s);
        QCOMPARE(stored(6, u"ZeitStempel"_s), u"<null>"_s);
        QCOMPARE(Global().MarkierteZeile, 3);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), QString());
    }

    void aKnownNameIsToldAndTheFieldsStay() {
        const auto before = wholeDatabase();
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        fill(form, u"müller"_s, u"Berta"_s, u"3a"_s);
        doorsOfTest.expect(u"Schüler/Schülerin ist bereits vorhanden!"_s);
        press(form);
        fill(form, u"Ehemals"_s, u"Dora"_s, u"3a"_s);
        doorsOfTest.expect(
            u"Schüler/Schülerin ist in Datenbank vorhanden, wurde aber deaktiviert/gelöscht!"_s);
        press(form);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Ehemals"_s);
    }

    void theChecksComeInTheirOrder() {
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        type(form, u"txtSCH(2)"_s, u"29.02.2011"_s);
        doorsOfTest.expect(u"Es liegt kein gültiges Datum vor."_s);
        doorsOfTest.expect(kIncomplete);
        press(form);
        for (const int field : {0, 1, 2, 3})
            QVERIFY(isFaulty(form, u"txtSCH(%1)"_s.arg(field)));
        QVERIFY(control<QWidget>(form, u"txtSCH(0)"_s).hasFocus());
        fill(form, u"A"_s, u"B"_s, u"abc"_s);
        doorsOfTest.expect(u"Es liegt kein gültiges Datum vor."_s);
        doorsOfTest.expect(kDateMessage);
        press(form);
        QVERIFY(!isFaulty(form, u"txtSCH(0)"_s));
        QVERIFY(isFaulty(form, u"txtSCH(2)"_s) && isFaulty(form, u"txtSCH(3)"_s));
        type(form, u"txtSCH(2)"_s, QString());
        pick(form, 1, 0, u"12:45 - 13:30 ME2"_s);
        pick(form, 2, 0, u"12:45 - 13:30 LZ1"_s);
        doorsOfTest.expect(kClassMessage);
        press(form);
        type(form, u"txtSCH(3)"_s, u"3a"_s);
        doorsOfTest.expect(u"Bei den Zeiten gibt es Überschneidungen."_s);
        press(form);
        pick(form, 1, 0, QString());
        typeRemark(form, QString(300, u'x'));
        doorsOfTest.expectBeginning(u"Feld Anmerkung: der Text braucht"_s);
        press(form);
        QCOMPARE(rowsOf(u"Stammdaten"_s).size(), 5);
    }

    void typingInARedBoxClearsItsColourAtOnce() {
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        doorsOfTest.expect(kIncomplete);
        press(form);
        QVERIFY(isFaulty(form, u"txtSCH(1)"_s));
        type(form, u"txtSCH(1)"_s, u"N"_s);
        QVERIFY(!isFaulty(form, u"txtSCH(1)"_s));
        QVERIFY(isFaulty(form, u"txtSCH(3)"_s));
    }

    void deletingAPupilChecksNothing() {
        auto& form = open(&mdlGlobal::ModusSchuelerLoeschen);
        doorsOfTest.expect(u"Kein Schüler bzw. Schülerin ausgewählt!"_s);
        press(form);
        change(2, {{u"SCH_Geb"_s, u"unlesbar"_s}, {u"Klasse"_s, u"??"_s}});
        choose(form, 2);
        doorsOfTest.expect(kReallyDelete, kAnswerNo);
        press(form);
        QCOMPARE(stored(2, u"aktiv"_s), u"Wahr"_s);
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        press(form);
        QCOMPARE(stored(2, u"aktiv"_s), u"Falsch"_s);
    }

    void deletingASchoolStarterChecksFirst() {
        auto& form = open(&mdlGlobal::ModusSchulanfaengerLoeschen);
        doorsOfTest.expect(kIncomplete);
        press(form);
        choose(form, 5);
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        press(form);
        QCOMPARE(stored(5, u"aktiv"_s), u"<keiner>"_s);
        QCOMPARE(cellsOf(listOf(form), 0).value(0),
                 u"Keine deaktivierten Schüler / Schülerinnen vorhanden"_s);
    }

    void activatingBringsThePupilBackIntoTheList() {
        auto& form = open(&mdlGlobal::ModusSchuelerAktivieren);
        choose(form, 4);
        press(form);
        QCOMPARE(stored(4, u"aktiv"_s), u"Wahr"_s);
        QCOMPARE(cellsOf(listOf(openToCorrect()), 1).size(), 4);
    }

    void aSavedSchoolStarterStaysOnTheScreen() {
        auto& form = open(&mdlGlobal::ModusSchulanfaengerKorrektur);
        choose(form, 5);
        type(form, u"txtSCH(3)"_s, QString());
        type(form, u"txtSCH(1)"_s, u"Erik"_s);
        pick(form, 1, 0, u"12:00 - 12:45 ME1"_s);
        press(form);
        QCOMPARE(stored(5, u"Klasse"_s), u"00"_s);
        QCOMPARE(stored(5, u"GR1_MO"_s), u"12:00 - 12:45 ME1"_s);
        QCOMPARE(textOf(form, u"txtSCH(1)"_s), u"Erik"_s);
        QCOMPARE(textOf(form, u"txtSCH(3)"_s), u"00"_s);
        QCOMPARE(box(form, 1, 0).currentText(), u"12:00 - 12:45 ME1"_s);
        // The class that the program gave is not one that may be typed.
        doorsOfTest.expect(
            u"Bei Schulanfängern sind im Feld KLASSE folgende Eingaben erlautbt: Leer, 0, 0a bis 0z, a bis z !"_s);
        press(form);
        type(form, u"txtSCH(3)"_s, u"a"_s);
        press(form);
        QCOMPARE(stored(5, u"Klasse"_s), u"0a"_s);
        QCOMPARE(stored(5, u"GR1_MO"_s), u"12:00 - 12:45 ME1"_s);
    }

    void aNewSchoolStarterWithTheClassAHasTheClass0a() {
        auto& form = open(&mdlGlobal::ModusSchulanfaengerNeu);
        fill(form, u"Winzig"_s, u"Willi"_s, u"a"_s);
        press(form);
        QCOMPARE(stored(6, u"Klasse"_s), u"0a"_s);
        QCOMPARE(stored(6, u"Schulstufe"_s), u"0"_s);
        QVERIFY(!columnOf(u"Klassen"_s, u"Klasse"_s).contains(u"0a"_s));
    }

    void theClassOfAPupil_data() {
        QTest::addColumn<QString>("klasse");
        QTest::addColumn<bool>("passes");
        for (const auto& good : {u"1a"_s, u"9z"_s, u"10a"_s, u"99z"_s})
            QTest::newRow(qPrintable(good)) << good << true;
        for (const auto& bad : {u"0a"_s, u"100a"_s, u"1A"_s, u"1"_s, u"a1"_s, u"1ä"_s})
            QTest::newRow(qPrintable(bad)) << bad << false;
    }
    void theClassOfAPupil() {
        QFETCH(const QString, klasse);
        QFETCH(const bool, passes);
        auto& form = openToCorrect();
        choose(form, 2);
        type(form, u"txtSCH(3)"_s, klasse);
        doorsOfTest.expect(passes ? u"Die Klasse %1 wurde erstellt!"_s.arg(klasse) : kClassMessage);
        press(form);
        QCOMPARE(stored(2, u"Klasse"_s), passes ? klasse : u"3a"_s);
        QCOMPARE(stored(2, u"Schulstufe"_s), passes ? klasse.left(1) : u"3"_s);
    }

    void theClassOfASchoolStarter_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("klasse");
        QTest::newRow("empty") << QString() << u"00"_s;
        QTest::newRow("a") << u"a"_s << u"0a"_s;
        QTest::newRow("z") << u"z"_s << u"0z"_s;
        QTest::newRow("0b") << u"0b"_s << u"0b"_s;
        // Named by the message, and refused all the same.
        QTest::newRow("0") << u"0"_s << QString();
        QTest::newRow("1a") << u"1a"_s << QString();
        QTest::newRow("A") << u"A"_s << QString();
    }
    void theClassOfASchoolStarter() {
        QFETCH(const QString, typed);
        QFETCH(const QString, klasse);
        auto& form = open(&mdlGlobal::ModusSchulanfaengerKorrektur);
        choose(form, 5);
        type(form, u"txtSCH(3)"_s, typed);
        if (klasse.isEmpty())
            doorsOfTest.expectBeginning(u"Bei Schulanfängern sind im Feld KLASSE"_s);
        const QStringList classes = rowsOf(u"Klassen"_s);
        press(form);
        QCOMPARE(stored(5, u"Klasse"_s), klasse.isEmpty() ? u"0a"_s : klasse);
        QCOMPARE(rowsOf(u"Klassen"_s), classes);
    }

    void anEmptyDateOfBirthPassesAndAnotherFormIsTold() {
        auto& form = openToCorrect();
        choose(form, 2);
        type(form, u"txtSCH(2)"_s, u"1.2.2010"_s);
        doorsOfTest.expect(u"Datum entspricht nicht dem Format 'dd.mm.yyyy'."_s);
        doorsOfTest.expect(kDateMessage);
        press(form);
        QCOMPARE(doorsOfTest.boxes().front().title, u"Datumsformat"_s);
        QVERIFY(isFaulty(form, u"txtSCH(2)"_s));
        type(form, u"txtSCH(2)"_s, QString());
        press(form);
        QCOMPARE(stored(2, u"SCH_Geb"_s), QString());
        QCOMPARE(stored(2, u"PC_Name"_s), QString());
    }

    void deactivatingAndActivatingKeepsTheAssignmentsAndLosesTheNotes() {
        const QString chor = u"14:00 - 15:00 Chor"_s;
        change(2, {{u"GR3_DI"_s, chor}});
        for (const int pupil : {2, 3}) {
            addRow(u"SCH_Notiz"_s, {{u"SCH_ID"_s, pupil}, {u"GR"_s, u"GR3"_s}, {u"Zeit_K_Name"_s, chor}});
            addRow(u"WP_Notiz"_s, {{u"ID"_s, pupil}, {u"SCH_ID"_s, pupil}});
        }
        auto& form = open(&mdlGlobal::ModusSchuelerLoeschen);
        choose(form, 2);
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        press(form);
        open(&mdlGlobal::ModusSchuelerAktivieren);
        choose(form, 2);
        press(form);
        QCOMPARE(stored(2, u"aktiv"_s), u"Wahr"_s);
        QCOMPARE(stored(2, u"GR3_DI"_s), chor);
        QCOMPARE(columnOf(u"SCH_Notiz"_s, u"SCH_ID"_s), QStringList{u"3"_s});
        QCOMPARE(columnOf(u"WP_Notiz"_s, u"SCH_ID"_s), (QStringList{u"2"_s, u"3"_s}));
    }

    void aDeletedSchoolStarterLeavesItsNotes() {
        addRow(u"SCH_Notiz"_s, {{u"SCH_ID"_s, 5}, {u"GR"_s, u"GR1"_s}});
        auto& form = open(&mdlGlobal::ModusSchulanfaengerLoeschen);
        choose(form, 5);
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        press(form);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Schulanfänger löschen"_s);
        QCOMPARE(stored(5, u"SCH_Name"_s), u"<keiner>"_s);
        QCOMPARE(columnOf(u"SCH_Notiz"_s, u"SCH_ID"_s), QStringList{u"5"_s});
    }

    void anUnknownClassIsMadeWithTheSave() {
        auto& form = openToCorrect();
        choose(form, 2);
        type(form, u"txtSCH(3)"_s, u"2c"_s);
        doorsOfTest.expect(u"Die Klasse 2c wurde erstellt!"_s);
        press(form);
        QCOMPARE(columnOf(u"Klassen"_s, u"Klasse"_s).count(u"2c"_s), 5);
    }

    void enterPressesTheButtonAndLeavesTheBoxFirst() {
        auto& form = openToCorrect();
        choose(form, 2);
        typeFee(form, 0, u"12,345"_s);
        QTest::keyClick(&control<QWidget>(form, u"txtBeitrag(0)"_s), Qt::Key_Return);
        QCOMPARE(stored(2, u"Beitrag_0"_s), u"12,35"_s);
        QCOMPARE(stored(2, u"Beitrag_7"_s), u"12,35"_s);
    }

    void leavingAFeeShowsTheSum() {
        auto& form = openToCorrect();
        choose(form, 2);
        typeFee(form, 0, u"1.250,5"_s);
        type(form, u"txtBeitrag(1)"_s, u"0,5"_s);
        QTest::keyClick(&control<QWidget>(form, u"txtBeitrag(1)"_s), Qt::Key_Tab);
        QCOMPARE(textOf(form, u"txtBeitrag(0)"_s), u"1250,50"_s);
        QCOMPARE(textOf(form, u"txtBeitrag(1)"_s), u"0,50"_s);
        QCOMPARE(textOf(form, u"txtBeitrag(7)"_s), u"1251,00"_s);
    }

    void anEmptyFeeIsStoredAsZeroByTheCorrectionAndLeftOutByANewRow() {
        auto& form = openToCorrect();
        choose(form, 2);
        press(form);
        QCOMPARE(stored(2, u"Beitrag_0"_s), u"0"_s);
        open(&mdlGlobal::ModusSchuelerNeu);
        fill(form, u"Neumann"_s, u"Nele"_s, u"3a"_s);
        press(form);
        QCOMPARE(stored(6, u"Beitrag_0"_s), u"<null>"_s);
    }

    void aFeeThatIsNoneIsToldAndNothingIsWritten_data() {
        QTest::addColumn<bool mdlGlobal::*>("mode");
        QTest::addColumn<QString>("fee");
        for (const auto& fee : {u"abc"_s, u"1e9"_s, u"12.50"_s}) {
            QTest::newRow(qPrintable(u"new "_s + fee)) << &mdlGlobal::ModusSchuelerNeu << fee;
            QTest::newRow(qPrintable(u"correct "_s + fee)) << &mdlGlobal::ModusSchuelerKorrektur << fee;
        }
    }
    void aFeeThatIsNoneIsToldAndNothingIsWritten() {
        QFETCH(bool mdlGlobal::*const, mode);
        QFETCH(const QString, fee);
        auto& form = open(mode);
        if (mode == &mdlGlobal::ModusSchuelerKorrektur)
            choose(form, 2);
        else
            fill(form, u"Neumann"_s, u"Nele"_s, u"3a"_s);
        const auto before = wholeDatabase();
        typeFee(form, 1, fee);
        doorsOfTest.expect(kNoFee);
        press(form);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(form, u"txtBeitrag(1)"_s), fee);
        QVERIFY(isFaulty(form, u"txtBeitrag(1)"_s));
        QVERIFY(control<QWidget>(form, u"txtBeitrag(1)"_s).hasFocus());
        type(form, u"txtBeitrag(1)"_s, u"3"_s);
        QVERIFY(!isFaulty(form, u"txtBeitrag(1)"_s));
    }

    void leavingAFeeThatIsNoneTellsItOnceAndBringsTheFocusBack() {
        auto& form = openToCorrect();
        choose(form, 2);
        typeFee(form, 0, u"abc"_s);
        doorsOfTest.expect(kNoFee);
        QTest::keyClick(&control<QWidget>(form, u"txtBeitrag(0)"_s), Qt::Key_Tab);
        QTRY_COMPARE(doorsOfTest.boxes().size(), std::size_t{1});
        QVERIFY(control<QWidget>(form, u"txtBeitrag(0)"_s).hasFocus());
        QCoreApplication::processEvents();
        QCOMPARE(doorsOfTest.boxes().size(), std::size_t{1});
    }

    void whatTheStoreRefusesIsToldAndNothingIsLost_data() {
        QTest::addColumn<bool mdlGlobal::*>("mode");
        QTest::addColumn<QString>("name");
        const QString apostrophe = u"O'Neill"_s, endless = QString(300, u'x');
        QTest::newRow("apostrophe, new") << &mdlGlobal::ModusSchuelerNeu << apostrophe;
        QTest::newRow("apostrophe, correct") << &mdlGlobal::ModusSchuelerKorrektur << apostrophe;
        QTest::newRow("300 characters, new") << &mdlGlobal::ModusSchuelerNeu << endless;
        QTest::newRow("300 characters, correct") << &mdlGlobal::ModusSchuelerKorrektur << endless;
    }
    void whatTheStoreRefusesIsToldAndNothingIsLost() {
        QFETCH(bool mdlGlobal::*const, mode);
        QFETCH(const QString, name);
        auto& form = open(mode);
        if (mode == &mdlGlobal::ModusSchuelerKorrektur)
            choose(form, 2);
        fill(form, name, u"Nele"_s, u"3a"_s);
        pick(form, 1, 0, u"12:00 - 12:45 ME1"_s);
        const auto before = wholeDatabase();
        doorsOfTest.expectBeginning(u"Schülerdaten speichern: "_s);
        press(form);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), name);
        QCOMPARE(box(form, 1, 0).currentText(), u"12:00 - 12:45 ME1"_s);
        QVERIFY(control<QWidget>(form, u"cmdOK"_s).isEnabled());
    }

    void aBirthDateWithoutAYearAndAClassOfThreeLettersAreTold() {
        auto& form = openToCorrect();
        choose(form, 2);
        const auto before = wholeDatabase();
        type(form, u"txtSCH(2)"_s, u"31.13."_s);
        doorsOfTest.expect(u"Es liegt kein gültiges Datum vor."_s);
        doorsOfTest.expect(kDateMessage);
        press(form);
        type(form, u"txtSCH(2)"_s, QString());
        type(form, u"txtSCH(3)"_s, u"abc"_s);
        doorsOfTest.expect(kClassMessage);
        press(form);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(form, u"txtSCH(3)"_s), u"abc"_s);
    }

    void aRemarkIsStoredAsShortMarkupAndComesBackFormatted() {
        const QString old =
            u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1031{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans "
            "Serif;}}\r\n\\viewkind4\\uc1\\pard\\f0\\fs17 \\b Achtung:\\b0  Fr\\'fchdienst\r\n\\par }\r\n"_s;
        change(2, {{u"Anmerkung"_s, old}});
        auto& form = openToCorrect();
        choose(form, 2);
        auto& edit = control<QTextEdit>(form, u"rtfAnmerkung"_s);
        QCOMPARE(edit.toPlainText(), u"Achtung: Frühdienst"_s);
        QCOMPARE(control<QLabel>(form, u"lblAnmerkungZeichen"_s).text(), u"36 / 255"_s);
        press(form);
        QCOMPARE(stored(2, u"Anmerkung"_s), u"{\\rtf1{\\b Achtung:} Fr\\u252?hdienst}"_s);
        choose(form, 2);
        QCOMPARE(edit.toPlainText(), u"Achtung: Frühdienst"_s);
        QTextCursor cursor(edit.document());
        cursor.setPosition(3);
        QVERIFY(cursor.charFormat().fontWeight() > QFont::Medium);
    }

    void theCountAndTheColourTellThatARemarkIsTooLong() {
        auto& form = openToCorrect();
        choose(form, 2);
        typeRemark(form, QString(250, u'x') + u'ü');
        QCOMPARE(control<QLabel>(form, u"lblAnmerkungZeichen"_s).text(), u"251 / 255"_s);
        QVERIFY(!isFaulty(form, u"rtfAnmerkung"_s));
        QTest::keyClicks(&control<QTextEdit>(form, u"rtfAnmerkung"_s), u"yyyyy"_s);
        QVERIFY(isFaulty(form, u"rtfAnmerkung"_s));
        const auto before = wholeDatabase();
        showTab(form, 0);
        doorsOfTest.expectBeginning(u"Feld Anmerkung: "_s);
        press(form);
        QCOMPARE(control<QTabWidget>(form, u"SSTab1"_s).currentIndex(), 3);
        QCOMPARE(wholeDatabase(), before);
    }

    void keysFormatTheRemark() {
        auto& form = openToCorrect();
        choose(form, 2);
        typeRemark(form, QString());
        auto& edit = control<QTextEdit>(form, u"rtfAnmerkung"_s);
        QTest::keyClick(&edit, Qt::Key_B, Qt::ControlModifier);
        keys(edit, u"fett"_s);
        QTest::keyClick(&edit, Qt::Key_B, Qt::ControlModifier);
        QTest::keyClick(&edit, Qt::Key_I, Qt::ControlModifier);
        keys(edit, u"schräg"_s);
        press(form);
        QCOMPARE(stored(2, u"Anmerkung"_s), u"{\\rtf1{\\b fett}\\i schr\\u228?g}"_s);
    }
};

KOLIBRI_TEST_MAIN(FrmSchuelerInOkTest)
#include "frmSchuelerIn_ok_test.moc"
