#include "core/widgets/application.h"
#include "core/widgets/theme.h"
#include "students/frmSCH_Notiz.h"
#include "support/pupil_form.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kMensa1 = u"12:00 - 12:45 ME1"_s;
const QString kMensa2 = u"12:45 - 13:30 ME2"_s;
const QString kLernzeit = u"12:45 - 13:30 LZ1"_s;
const QString kChor = u"14:00 - 15:00 Chor"_s;
const QString kOverlap = u"Bei den Zeiten gibt es Überschneidungen."_s;
const QString kNichtOgQuestion =
    u"Wenn Sie den Status auf nicht OG-Schüler ändern, werden sämtliche ME- und LZ-Daten gelöscht. Änderung "
    "durchführen?"_s;

QString guardText(const QString& kind) {
    return u"Die %1-Zeit kann erst nach Löschen der Notiz geändert werden. Klicken Sie zum Löschen der Notiz "
           "auf den grünen Haken!"_s.arg(kind);
}

} // namespace

/// The week of the pupil form: lamps, switch, timer, Nicht OG, and the notes beside the boxes.
class FrmSchuelerInWeekTest : public PupilFormTest {
    Q_OBJECT

    static QString words(frmSchülerIn& form, int tag) {
        return control<QLabel>(form, u"lblAmpel(%1)"_s.arg(tag)).text();
    }
    static bool shows(frmSchülerIn& form, const QString& name) {
        return !control<QWidget>(form, name).isHidden();
    }
    static void addNote(int pupil, int gruppe, int tag, const QString& key) {
        addRow(u"SCH_Notiz"_s, {{u"SCH_ID"_s, pupil},
                                {u"GR"_s, u"GR%1"_s.arg(gruppe)},
                                {u"Tag"_s, TagCode(tag)},
                                {u"Tag_Zahl"_s, tag},
                                {u"Zeit_K_Name"_s, key}});
    }
    static QString overlapSwitch() {
        const DbSession session(u"Test"_s);
        return Global()
            .Conn.Open(u"SELECT Grösse FROM Einstellungen WHERE Feld = 'Ü-Zeitüberschneidung'"_s)
            .Text(0);
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        startWithSmallSchool();
    }

    void withNoGroupSelectedAllLampsAreGreen() {
        auto& form = openToCorrect();
        tickTimer(form);
        for (int tag = 0; tag < kSchoolDays; ++tag) {
            QCOMPARE(lamp(form, tag), kGreenLamp);
            QCOMPARE(words(form, tag), TagCode(tag) + u": OK"_s);
        }
    }

    void anOverlapTurnsTheLampRedWithTheTimerAndBlocksOk() {
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 0, kMensa2);
        pick(form, 2, 0, kLernzeit);
        tickTimer(form);
        QCOMPARE(lamp(form, 0), kRedLamp);
        QCOMPARE(words(form, 0), u"MO: Konflikt"_s);
        QCOMPARE(lamp(form, 1), kGreenLamp);
        control<QTabWidget>(form, u"SSTab1"_s).setCurrentIndex(2);
        doorsOfTest.expect(kOverlap);
        press(form);
        QCOMPARE(control<QTabWidget>(form, u"SSTab1"_s).currentIndex(), 0);
        QCOMPARE(stored(2, u"GR1_MO"_s), u"<null>"_s);
        pick(form, 1, 0, kMensa1);
        tickTimer(form);
        QCOMPARE(lamp(form, 0), kGreenLamp);
    }

    void okChecksWithoutWaitingForTheTimer() {
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 0, kMensa2);
        pick(form, 2, 0, kLernzeit);
        doorsOfTest.expect(kOverlap);
        press(form);
        QCOMPARE(lamp(form, 0), kRedLamp);
    }

    void aWaivedDayIsNeutralAndLetsOkPassUntilTheRecordIsSelectedAnew() {
        change(2, {{u"GR1_MI"_s, QString()}});
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 0, kMensa2);
        pick(form, 2, 0, kLernzeit);
        check(form, u"chkÜ_Nein(0)"_s);
        tickTimer(form);
        QCOMPARE(lamp(form, 0), form.palette().color(QPalette::Button));
        QCOMPARE(words(form, 0), u"MO: –"_s);
        press(form);
        QCOMPARE(stored(2, u"GR2_MO"_s), kLernzeit);
        choose(form, 2);
        QVERIFY(!control<QCheckBox>(form, u"chkÜ_Nein(0)"_s).isChecked());
        tickTimer(form);
        QCOMPARE(lamp(form, 0), kRedLamp);
    }

    void teachingTimesOfTheClassAreChecked() {
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"Klassen"_s, {{u"Unterrichtsende"_s, u"12:01"_s}},
                                 u"Klasse = ? AND Tag = ?"_s, {u"3a"_s, u"DI"_s});
        }
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 0, kMensa1);
        pick(form, 1, 1, kMensa1);
        tickTimer(form);
        QCOMPARE(lamp(form, 0), kGreenLamp);
        QCOMPARE(lamp(form, 1), kRedLamp);
    }

    void theLampOfADay_data() {
        QTest::addColumn<QStringList>("boxes");
        QTest::addColumn<QStringList>("teaching");
        QTest::addColumn<bool>("red");
        const QStringList mornings{u"08:00"_s, u"11:00"_s};
        QTest::newRow("touching assignments are none")
            << QStringList{u"12:00 - 13:00 A"_s, u"13:00 - 14:00 B"_s} << mornings << false;
        QTest::newRow("one minute is an overlap")
            << QStringList{u"12:00 - 13:01 A"_s, u"13:00 - 14:00 B"_s} << mornings << true;
        QTest::newRow("the same offering in two AG slots is an overlap")
            << QStringList{{}, {}, u"14:00 - 15:00 Chor"_s, {}, {}, {}, u"14:00 - 15:00 Chor"_s} << mornings
            << true;
        QTest::newRow("a Mensa time from the end of teaching on passes")
            << QStringList{u"11:00 - 12:00 A"_s} << mornings << false;
        QTest::newRow("a Mensa time one minute before the end of teaching is an overlap")
            << QStringList{u"11:00 - 12:00 A"_s} << QStringList{u"08:00"_s, u"11:01"_s} << true;
        QTest::newRow("an offering that ends when teaching begins passes")
            << QStringList{{}, {}, u"07:00 - 08:00 A"_s} << mornings << false;
        QTest::newRow("an offering that encloses teaching is an overlap")
            << QStringList{{}, {}, u"07:00 - 14:00 A"_s} << QStringList{u"08:00"_s, u"12:00"_s} << true;
        QTest::newRow("teaching in the afternoon is an overlap")
            << QStringList{u"14:30 - 15:00 A"_s}
            << QStringList{u"08:00"_s, u"12:00"_s, u"14:00"_s, u"15:30"_s} << true;
        QTest::newRow("without an end of the morning the end of the afternoon is not checked")
            << QStringList{u"14:00 - 15:00 A"_s}
            << QStringList{u"08:00"_s, u"00:00"_s, u"14:00"_s, u"15:30"_s} << false;
        QTest::newRow("with the begin of the morning alone that of the afternoon is checked")
            << QStringList{u"13:30 - 14:30 A"_s}
            << QStringList{u"08:00"_s, u"00:00"_s, u"14:00"_s, u"15:30"_s} << true;
        QTest::newRow("with afternoon teaching alone nothing of it is checked")
            << QStringList{u"13:30 - 16:30 A"_s}
            << QStringList{u"00:00"_s, u"00:00"_s, u"14:00"_s, u"15:30"_s} << false;
    }
    void theLampOfADay() {
        QFETCH(const QStringList, boxes);
        QFETCH(const QStringList, teaching);
        QFETCH(const bool, red);
        const QStringList columns{u"Unterrichtsbeginn"_s, u"Unterrichtsende"_s, u"UnterrichtsbeginnNM"_s,
                                  u"UnterrichtsendeNM"_s};
        {
            const DbSession session(u"Test"_s);
            for (qsizetype i = 0; i < teaching.size(); ++i)
                Global().Conn.Change(u"Klassen"_s, {{columns.at(i), teaching.at(i)}},
                                     u"Klasse = ? AND Tag = ?"_s, {u"3a"_s, u"MI"_s});
        }
        for (qsizetype i = 0; i < boxes.size(); ++i)
            if (!boxes.at(i).isEmpty()) {
                addRow(u"GR%1"_s.arg(i + 1), {{u"Tag"_s, u"MI"_s}, {u"Zeit_K_Name"_s, boxes.at(i)}});
                change(2, {{u"GR%1_MI"_s.arg(i + 1), boxes.at(i)}});
            }
        auto& form = openToCorrect();
        choose(form, 2);
        tickTimer(form);
        QCOMPARE(lamp(form, 2), red ? kRedLamp : kGreenLamp);
        QCOMPARE(lamp(form, 1), kGreenLamp);
        if (red)
            doorsOfTest.expect(kOverlap);
        press(form);
        // Written, and so free again, only from a green week.
        QCOMPARE(stored(2, u"PC_Name"_s), red ? u"TEST-PC"_s : QString());
    }

    void withTheSwitchOffOverlappingTimesAreSavedWithoutAWord() {
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 0, kMensa2);
        pick(form, 2, 0, kLernzeit);
        check(form, u"chkZÜ"_s);
        press(form);
        QCOMPARE(stored(2, u"GR1_MO"_s), kMensa2);
        QCOMPARE(stored(2, u"GR2_MO"_s), kLernzeit);
    }

    void aNewPupilsBeginIsUnknownSoEverythingBeforeTheEndIsAnOverlap() {
        addRow(u"GR1"_s, {{u"Tag"_s, u"MO"_s}, {u"Zeit_K_Name"_s, u"07:00 - 07:45 Früh"_s}});
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        type(form, u"txtSCH(3)"_s, u"3a"_s);
        QTest::keyClick(&control<QWidget>(form, u"txtSCH(3)"_s), Qt::Key_Tab);
        QCOMPARE(textOf(form, u"txtU_Ende(0)"_s), u"12:00"_s);
        pick(form, 1, 0, u"07:00 - 07:45 Früh"_s);
        tickTimer(form);
        QCOMPARE(lamp(form, 0), kRedLamp);
    }

    void theTimerRunsTwiceASecondWhileTheCheckIsOn() {
        auto& form = openToCorrect();
        auto& timer = control<QTimer>(form, u"Timer1"_s);
        QVERIFY(timer.isActive());
        QCOMPARE(timer.interval(), 500);
        form.hide();
        QVERIFY(timer.isActive());
        Global().UeberschneidungPruefen = false;
        openToCorrect();
        QVERIFY(!timer.isActive());
        QCOMPARE(timer.interval(), 0);
    }

    void theTimerItselfTurnsTheLamp() {
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 0, kMensa2);
        pick(form, 2, 0, kLernzeit);
        QTRY_COMPARE(lamp(form, 0), kRedLamp);
    }

    void theSwitchActsAtOnceAndIsKept() {
        auto& form = openToCorrect();
        choose(form, 2);
        check(form, u"chkZÜ"_s);
        QCOMPARE(overlapSwitch(), u"0"_s);
        QVERIFY(!Global().UeberschneidungPruefen);
        QVERIFY(!shows(form, u"lblAmpel(0)"_s));
        QVERIFY(!control<QWidget>(form, u"chkÜ_Nein(0)"_s).isEnabled());
        QVERIFY(!control<QTimer>(form, u"Timer1"_s).isActive());
        // With the check off, overlapping times are saved without a word.
        pick(form, 1, 0, kMensa2);
        pick(form, 2, 0, kLernzeit);
        press(form);
        QCOMPARE(stored(2, u"GR1_MO"_s), kMensa2);
        check(form, u"chkZÜ"_s);
        QCOMPARE(overlapSwitch(), u"1"_s);
        QVERIFY(Global().UeberschneidungPruefen);
        QVERIFY(shows(form, u"lblAmpel(0)"_s));
        QVERIFY(control<QWidget>(form, u"chkÜ_Nein(0)"_s).isEnabled());
        QCOMPARE(control<QTimer>(form, u"Timer1"_s).interval(), 500);
    }

    void aSwitchThatTheStoreDoesNotTakeGoesBack() {
        auto& form = openToCorrect();
        QVERIFY(QFile::remove(DatenbankDatei(home())));
        doorsOfTest.expectBeginning(u"Zeitprüfung schalten: "_s);
        check(form, u"chkZÜ"_s);
        QVERIFY(control<QCheckBox>(form, u"chkZÜ"_s).isChecked());
        QVERIFY(Global().UeberschneidungPruefen);
        QVERIFY(shows(form, u"lblAmpel(0)"_s));
        QVERIFY(control<QTimer>(form, u"Timer1"_s).isActive());
    }

    void theSwitchDoesNothingWhileTheProgramStarts() {
        auto& form = openToCorrect();
        Global().StartLaeuft = true;
        check(form, u"chkZÜ"_s);
        QCOMPARE(overlapSwitch(), u"1"_s);
        QVERIFY(Global().UeberschneidungPruefen);
    }

    void aBoxTextThatIsNoTimeIsToldOnceAndNotTwiceASecond() {
        addRow(u"GR3"_s, {{u"Tag"_s, u"MO"_s}, {u"Zeit_K_Name"_s, u"14:00 - 15:00 AG: Chor"_s}});
        change(2, {{u"GR3_MO"_s, u"14:00 - 15:00 AG: Chor"_s}});
        auto& form = openToCorrect();
        doorsOfTest.expectBeginning(u"Laufzeitfehler '13': Typen unverträglich"_s);
        choose(form, 2);
        QTRY_COMPARE(doorsOfTest.boxes().size(), std::size_t{1});
        QVERIFY(!control<QTimer>(form, u"Timer1"_s).isActive());
        choose(form, 1);
        QVERIFY(control<QTimer>(form, u"Timer1"_s).isActive());
    }

    void activatingChecksNoTimes() {
        change(4, {{u"GR1_MO"_s, kMensa2}, {u"GR2_MO"_s, kLernzeit}});
        auto& form = open(&mdlGlobal::ModusSchuelerAktivieren);
        choose(form, 4);
        press(form);
        QCOMPARE(stored(4, u"aktiv"_s), u"Wahr"_s);
        QCOMPARE(stored(4, u"GR1_MO"_s), kMensa2);
    }

    void nichtOgAsksAndEmptiesMensaAndLernzeitWithTheNextOk() {
        change(2, {{u"GR1_MO"_s, kMensa1}, {u"GR2_MO"_s, kLernzeit}, {u"GR3_MO"_s, kChor}});
        addNote(2, 1, 0, kMensa1);
        auto& form = openToCorrect();
        choose(form, 2);
        doorsOfTest.expect(kNichtOgQuestion, kAnswerNo);
        check(form, u"chkNichtOG"_s);
        QVERIFY(!control<QCheckBox>(form, u"chkNichtOG"_s).isChecked());
        QCOMPARE(box(form, 1, 0).currentText(), kMensa1);
        doorsOfTest.expect(kNichtOgQuestion, kAnswerYes);
        check(form, u"chkNichtOG"_s);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Ändern auf Nicht OG-Schüler"_s);
        QCOMPARE(doorsOfTest.boxes().back().code, 36);
        // The tick does not keep the cell, and the note stays.
        QCOMPARE(box(form, 1, 0).currentText(), QString());
        QCOMPARE(box(form, 2, 0).currentText(), QString());
        QCOMPARE(box(form, 3, 0).currentText(), kChor);
        QVERIFY(!control<QWidget>(form, u"frmGR1"_s).isEnabled());
        QCOMPARE(stored(2, u"GR1_MO"_s), kMensa1);
        press(form);
        QCOMPARE(stored(2, u"GR1_MO"_s), QString());
        QCOMPARE(stored(2, u"NichtOG"_s), u"Wahr"_s);
        QCOMPARE(rowsOf(u"SCH_Notiz"_s).size(), 1);
    }

    void uncheckingNichtOgFreesTheBoxesWithoutAQuestion() {
        change(2, {{u"NichtOG"_s, true}});
        auto& form = openToCorrect();
        choose(form, 2);
        check(form, u"chkNichtOG"_s);
        QVERIFY(control<QWidget>(form, u"frmGR1"_s).isEnabled());
        QVERIFY(control<QWidget>(form, u"frmGR2"_s).isEnabled());
    }

    void aNewPupilWhoIsMadeNichtOgIsAskedNothing() {
        auto& form = open(&mdlGlobal::ModusSchuelerNeu);
        pick(form, 1, 0, kMensa1);
        check(form, u"chkNichtOG"_s);
        QCOMPARE(box(form, 1, 0).currentText(), QString());
        QVERIFY(!control<QWidget>(form, u"frmGR1"_s).isEnabled());
    }

    void aNewSchoolStarterWhoIsMadeNichtOgIsAsked() {
        auto& form = open(&mdlGlobal::ModusSchulanfaengerNeu);
        doorsOfTest.expect(kNichtOgQuestion, kAnswerYes);
        check(form, u"chkNichtOG"_s);
    }

    void aTimeThatBearsANoteCannotBeChanged_data() {
        QTest::addColumn<int>("gruppe");
        QTest::addColumn<QString>("kind");
        QTest::newRow("GR1") << 1 << u"MENSA"_s;
        QTest::newRow("GR2") << 2 << u"LERNZEITEN"_s;
        for (int gruppe = 3; gruppe <= kGruppen; ++gruppe)
            QTest::newRow(qPrintable(u"GR%1"_s.arg(gruppe))) << gruppe << u"ARBEITSGRUPPEN"_s;
    }
    void aTimeThatBearsANoteCannotBeChanged() {
        QFETCH(const int, gruppe);
        QFETCH(const QString, kind);
        const QString key = gruppe == 1 ? kMensa1 : gruppe == 2 ? kLernzeit : kChor;
        change(2, {{u"GR%1_DI"_s.arg(gruppe), key}});
        addNote(2, gruppe, 1, key);
        auto& form = openToCorrect();
        choose(form, 2);
        QVERIFY(shows(form, u"Y_GR%1(1)"_s.arg(gruppe)));
        QVERIFY(!shows(form, u"N_GR%1(1)"_s.arg(gruppe)));
        doorsOfTest.expect(guardText(kind));
        pick(form, gruppe, 1, QString());
        QCOMPARE(box(form, gruppe, 1).currentText(), key);
        // The same entry once more is no change, and another day is free.
        pick(form, gruppe, 1, key);
        pick(form, gruppe, 0, QString());
        // OK only reads the boxes.
        press(form);
        QCOMPARE(stored(2, u"GR%1_DI"_s.arg(gruppe)), key);
    }

    void theGuardDoesNotActWhenTheFormFillsItsBoxes() {
        change(2, {{u"GR1_MO"_s, kMensa1}});
        addNote(2, 1, 0, kMensa1);
        auto& form = openToCorrect();
        choose(form, 2);
        choose(form, 1);
        QCOMPARE(box(form, 1, 0).currentText(), QString());
        choose(form, 2);
        press(form);
        QCOMPARE(box(form, 1, 0).currentText(), QString());
    }

    void theImageFollowsTheBoxAtOnce() {
        auto& form = openToCorrect();
        choose(form, 2);
        QVERIFY(!shows(form, u"N_GR1(0)"_s));
        pick(form, 1, 0, kMensa1);
        QVERIFY(shows(form, u"N_GR1(0)"_s));
        pick(form, 1, 0, QString());
        QVERIFY(!shows(form, u"N_GR1(0)"_s));
        QVERIFY(!shows(form, u"Y_GR1(0)"_s));
    }

    void theTickShowsOnlyWhileTheBoxShowsTheAssignmentOfTheNote() {
        change(2, {{u"GR3_DI"_s, kChor}, {u"GR1_MO"_s, kMensa2}});
        addNote(2, 3, 1, kChor);
        addNote(2, 1, 0, kMensa1);
        auto& form = openToCorrect();
        choose(form, 2);
        QVERIFY(shows(form, u"Y_GR3(1)"_s));
        QVERIFY(!shows(form, u"Y_GR1(0)"_s));
        QVERIFY(shows(form, u"N_GR1(0)"_s));
        pick(form, 1, 0, kMensa1);
        QVERIFY(shows(form, u"Y_GR1(0)"_s));
    }

    void theImagesAreHiddenWhereverTheFieldsAreCleared() {
        change(2, {{u"GR1_MO"_s, kMensa1}, {u"GR2_MO"_s, kLernzeit}});
        addNote(2, 2, 0, kLernzeit);
        auto& form = openToCorrect();
        choose(form, 2);
        QVERIFY(shows(form, u"N_GR1(0)"_s) && shows(form, u"Y_GR2(0)"_s));
        press(form);
        QVERIFY(!shows(form, u"N_GR1(0)"_s) && !shows(form, u"Y_GR2(0)"_s));
        // Without a record a choice has no pupil to write a note for.
        pick(form, 1, 0, kMensa1);
        QVERIFY(!shows(form, u"N_GR1(0)"_s));
    }

    void theImagesOpenTheNoteOfTheirPlace() {
        change(2, {{u"GR5_DI"_s, kChor}, {u"GR1_MO"_s, kMensa1}});
        addNote(2, 5, 1, kChor);
        auto& form = openToCorrect();
        auto& note = Form<frmSCH_Notiz>();
        choose(form, 2);
        press(form, u"Y_GR5(1)"_s);
        QVERIFY(note.isVisible());
        QCOMPARE(note.Tag, u"GR5"_s);
        QCOMPARE(Global().NotizTag, u"DI"_s);
        QVERIFY(Global().NotizBearbeiten);
        QCOMPARE(Global().MarkierteZeile, 2);
        note.hide();
        press(form, u"N_GR1(0)"_s);
        QVERIFY(note.isVisible());
        QCOMPARE(note.Tag, u"GR1"_s);
        QCOMPARE(Global().NotizTag, u"MO"_s);
        QVERIFY(!Global().NotizBearbeiten);
    }

    void theImagesCanBeSeenOnTheGroundOfTheForm() {
        change(2, {{u"GR1_MO"_s, kMensa1}, {u"GR2_MO"_s, kLernzeit}});
        addNote(2, 2, 0, kLernzeit);
        auto& form = openToCorrect();
        choose(form, 2);
        for (const auto& name : {u"N_GR1(0)"_s, u"Y_GR2(0)"_s}) {
            const auto& image = control<QToolButton>(form, name);
            const QImage drawing = image.icon().pixmap(image.iconSize()).toImage();
            // The darkest dot is that of a line, not of its soft edge.
            qreal best = 0;
            for (int y = 0; y < drawing.height(); ++y)
                for (int x = 0; x < drawing.width(); ++x)
                    if (const QColor dot = drawing.pixelColor(x, y); dot.alpha() == 255)
                        best = std::max(best, contrast(dot, form.palette().color(QPalette::Window)));
            QVERIFY2(best >= 3.0, qPrintable(name + u' ' + QString::number(best)));
        }
    }

    void aCellOfADeletedOfferingShowsEmptyAndIsErasedByTheNextOk() {
        change(2, {{u"GR1_MO"_s, u"10:00 - 11:00 WEG"_s}});
        auto& form = openToCorrect();
        choose(form, 2);
        QCOMPARE(box(form, 1, 0).currentText(), QString());
        press(form);
        QCOMPARE(stored(2, u"GR1_MO"_s), QString());
    }
};

KOLIBRI_TEST_MAIN(FrmSchuelerInWeekTest)
#include "frmSchuelerIn_week_test.moc"
