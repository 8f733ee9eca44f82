#include "core/widgets/application.h"
#include "students/frmSCH_Notiz.h"
#include "support/pupil_form.h"

#include <QTextEdit>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kMensa1 = u"12:00 - 12:45 ME1"_s;
const QString kMensa2 = u"12:45 - 13:30 ME2"_s;
const QString kLernzeit = u"12:45 - 13:30 LZ1"_s;
const QString kChor = u"14:00 - 15:00 Chor"_s;
const QString kDeleteQuestion = u"Notiz wirklich löschen?"_s;

} // namespace

/// The note form as the pupil form opens it, and what the pupil form shows afterwards.
class FrmSchNotizTest : public PupilFormTest {
    Q_OBJECT

    static void addNote(int pupil, int gruppe, int tag, const QString& key, const QString& text,
                        const QString& wp = {}) {
        addRow(u"SCH_Notiz"_s, {{u"SCH_ID"_s, pupil},
                                {u"GR"_s, u"GR%1"_s.arg(gruppe)},
                                {u"Tag"_s, TagCode(tag)},
                                {u"Tag_Zahl"_s, tag},
                                {u"Zeit_K_Name"_s, key},
                                {u"Notiz"_s, text},
                                {u"WP_Notiz"_s, wp}});
    }
    /// The notes in the order in which they came: all columns but the key.
    static QStringList notes() {
        QStringList lines;
        for (QString line : rowsOf(u"SCH_Notiz"_s))
            lines << line.remove(QRegularExpression(u"^ID=\\d+; "_s));
        return lines;
    }
    static QString note(const QString& gr, const QString& langname, int tag, const QString& key,
                        const QString& text, const QString& wp) {
        return u"SCH_ID=2; GR=%1; L_Name=%2; Tag=%3; Tag_Zahl=%4; Zeit=%5; Zeit_K_Name=%6; Notiz=%7; WP_Notiz=%8"_s
            .arg(gr, langname, TagCode(tag), QString::number(tag), key.left(13), key, text, wp);
    }
    static bool shows(const QWidget& form, const QString& name) {
        return !control<QWidget>(form, name).isHidden();
    }
    static frmSCH_Notiz& noteForm() { return Form<frmSCH_Notiz>(); }
    static QTextEdit& textBox() { return control<QTextEdit>(noteForm(), u"rtfNotiz"_s); }
    static void write(const QString& text) {
        textBox().selectAll();
        QTest::keyClick(&textBox(), Qt::Key_Delete);
        keys(textBox(), text);
    }
    static QString heading() { return control<QLabel>(noteForm(), u"lblÜ1"_s).text(); }

    /// Opens the pupil form on Müller and clicks an image.
    frmSchülerIn& openNote(const QString& image) {
        auto& form = openToCorrect();
        choose(form, 2);
        press(form, image);
        if (!noteForm().isVisible())
            qFatal("the note form did not open");
        return form;
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        startWithSmallSchool();
        change(2, {{u"GR1_MO"_s, kMensa1}, {u"GR2_DI"_s, kLernzeit}, {u"GR5_DI"_s, kChor}});
    }

    void aNewNoteBeginsEmptyUnderItsHeading() {
        openNote(u"N_GR1(0)"_s);
        QCOMPARE(heading(), u"Notiz MENSA\nMO  12:00 - 12:45 ME1"_s);
        QCOMPARE(textOf(noteForm(), u"txtSchülerIn"_s), u"Müller Berta"_s);
        QCOMPARE(textBox().toPlainText(), QString());
        QVERIFY(shows(noteForm(), u"imgNotiz(0)"_s));
        QVERIFY(!shows(noteForm(), u"imgNotiz(1)"_s));
        auto& box = control<QCheckBox>(noteForm(), u"chkKeineTeilnahme"_s);
        QCOMPARE(box.text(), u"Notiz Wochenplan, keine ME Teilnahme"_s);
        QVERIFY(box.isEnabled() && !box.isChecked());
        QVERIFY(QTest::qWaitForWindowActive(&noteForm()));
        QCOMPARE(noteForm().focusWidget(), &textBox());
    }

    void okWritesTheNoteAndTheTickStandsWhereItBelongs() {
        auto& form = openNote(u"N_GR5(1)"_s);
        write(u"bringt Flöte mit"_s);
        press(noteForm());
        QVERIFY(!noteForm().isVisible());
        QCOMPARE(notes(),
                 QStringList{note(u"GR5"_s, u"Angebot Chor"_s, 1, kChor, u"bringt Flöte mit"_s, QString())});
        QVERIFY(shows(form, u"Y_GR5(1)"_s));
        QVERIFY(!shows(form, u"N_GR5(1)"_s));
        QVERIFY(shows(form, u"N_GR2(1)"_s));
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Müller"_s);
        // The record is held as before: coming back releases and claims it again.
        QCOMPARE(stored(2, u"PC_Name"_s), u"TEST-PC"_s);
    }

    void theCheckedBoxBringsTheNoteIntoTheTagesplan() {
        openNote(u"N_GR2(1)"_s);
        QCOMPARE(control<QCheckBox>(noteForm(), u"chkKeineTeilnahme"_s).text(),
                 u"Notiz Wochenplan, keine LZ Teilnahme"_s);
        write(u"beim Arzt"_s);
        QTest::mouseClick(&control<QCheckBox>(noteForm(), u"chkKeineTeilnahme"_s), Qt::LeftButton);
        press(noteForm());
        QCOMPARE(notes(),
                 QStringList{note(u"GR2"_s, u"Angebot LZ1"_s, 1, kLernzeit, u"beim Arzt"_s, u"1"_s)});
        // The next note begins without the tick.
        openNote(u"N_GR1(0)"_s);
        QVERIFY(!control<QCheckBox>(noteForm(), u"chkKeineTeilnahme"_s).isChecked());
    }

    void anEmptyNewNoteIsStoredAndTheTickShows() {
        auto& form = openNote(u"N_GR1(0)"_s);
        press(noteForm());
        QCOMPARE(notes(), QStringList{note(u"GR1"_s, u"Angebot ME1"_s, 0, kMensa1, QString(), QString())});
        QVERIFY(shows(form, u"Y_GR1(0)"_s));
    }

    void aNoteForAChoiceNotYetSavedIsOneForTheWochenplan() {
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 1, kMensa2);
        press(form, u"N_GR1(1)"_s);
        QCOMPARE(heading(), u"Notiz Wochenplan - DI  12:45 - 13:30 ME2"_s);
        QVERIFY(!shows(noteForm(), u"imgNotiz(0)"_s));
        QVERIFY(shows(noteForm(), u"imgNotiz(1)"_s));
        write(u"nur im Mai"_s);
        press(noteForm());
        QCOMPARE(notes(),
                 QStringList{note(u"GR1"_s, u"Angebot ME2"_s, 1, kMensa2, u"nur im Mai"_s, QString())});
        // The choice was not saved, so the record comes back without it, and no image stands there.
        QCOMPARE(box(form, 1, 1).currentText(), QString());
        QVERIFY(!shows(form, u"N_GR1(1)"_s) && !shows(form, u"Y_GR1(1)"_s));
        pick(form, 1, 1, kMensa2);
        QVERIFY(shows(form, u"Y_GR1(1)"_s));
    }

    void aNullCellCountsAsEmpty() {
        change(2, {{u"GR1_MO"_s, QVariant()}});
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 0, kMensa1);
        press(form, u"N_GR1(0)"_s);
        QCOMPARE(heading(), u"Notiz Wochenplan - MO  12:00 - 12:45 ME1"_s);
    }

    void anOfferingThatIsGoneMeanwhileLeavesTheLongNameEmpty() {
        openToCorrect();
        auto& form = Form<frmSchülerIn>();
        choose(form, 2);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"GR1"_s);
        }
        press(form, u"N_GR1(0)"_s);
        write(u"x"_s);
        press(noteForm());
        QCOMPARE(notes(), QStringList{note(u"GR1"_s, QString(), 0, kMensa1, u"x"_s, QString())});
    }

    void theTickOpensTheNoteToBeChanged() {
        addNote(2, 1, 0, kMensa1, u"ohne Fisch"_s, u"1"_s);
        addNote(2, 5, 1, kChor, u"bleibt"_s);
        openNote(u"Y_GR1(0)"_s);
        QCOMPARE(textBox().toPlainText(), u"ohne Fisch"_s);
        // Whether it stands in the Tagesplan was settled when it was written; it can be seen but not changed.
        auto& flag = control<QCheckBox>(noteForm(), u"chkKeineTeilnahme"_s);
        QVERIFY(flag.isChecked() && !flag.isEnabled());
        const QStringList before = notes();
        write(u"ohne Fleisch, ü"_s);
        press(noteForm());
        QStringList expected = before;
        expected[0].replace(u"ohne Fisch"_s, u"ohne Fleisch, ü"_s);
        QCOMPARE(notes(), expected);
    }

    void emptyingANoteAndPressingOkDeletesItWithoutAQuestion() {
        addNote(2, 1, 0, kMensa1, u"ohne Fisch"_s);
        addNote(2, 1, 0, kMensa2, u"andere Zeit"_s);
        addNote(1, 1, 0, kMensa1, u"anderes Kind"_s);
        auto& form = openNote(u"Y_GR1(0)"_s);
        const QStringList before = notes();
        write({});
        press(noteForm());
        QCOMPARE(notes(), before.sliced(1));
        QVERIFY(shows(form, u"N_GR1(0)"_s));
    }

    void aNoteOfBlanksIsNotEmpty() {
        addNote(2, 1, 0, kMensa1, u"ohne Fisch"_s);
        openNote(u"Y_GR1(0)"_s);
        write(u" "_s);
        press(noteForm());
        QCOMPARE(columnOf(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u" "_s});
    }

    void severalLinesComeBackAsTheyWereWritten() {
        auto& form = openNote(u"N_GR1(0)"_s);
        keys(textBox(), u"eins"_s);
        QTest::keyClick(&textBox(), Qt::Key_Return);
        keys(textBox(), u"zwei"_s);
        press(noteForm());
        QCOMPARE(columnOf(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u"eins\nzwei"_s});
        press(form, u"Y_GR1(0)"_s);
        QCOMPARE(textBox().toPlainText(), u"eins\nzwei"_s);
    }

    void markupThatCameIntoANoteIsShownAsItsText() {
        addNote(2, 1, 0, kMensa1, u"{\\rtf1\\ansi Gr\\'fc\\'dfe \\b fett\\b0}"_s);
        openNote(u"Y_GR1(0)"_s);
        QCOMPARE(textBox().toPlainText(), u"Grüße fett"_s);
        press(noteForm());
        QCOMPARE(columnOf(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u"Grüße fett"_s});
    }

    void deletingTakesAllNotesOfTheGroupAndDay() {
        addNote(2, 1, 0, kMensa1, u"diese"_s);
        addNote(2, 1, 0, kMensa2, u"zu einer früheren Zeit"_s);
        addNote(2, 1, 1, kMensa1, u"anderer Tag"_s);
        addNote(2, 2, 0, kMensa1, u"andere Gruppe"_s);
        addNote(3, 1, 0, kMensa1, u"anderes Kind"_s);
        auto& form = openNote(u"Y_GR1(0)"_s);
        const QStringList before = notes();
        doorsOfTest.expect(kDeleteQuestion, kAnswerYes);
        press(noteForm(), u"cmdLöschen"_s);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Notiz löschen"_s);
        QCOMPARE(doorsOfTest.boxes().back().code, 20);
        QCOMPARE(notes(), before.sliced(2));
        QVERIFY(!noteForm().isVisible());
        QVERIFY(shows(form, u"N_GR1(0)"_s));
    }

    void theAnswerNoKeepsTheNoteAndTheForm() {
        addNote(2, 1, 0, kMensa1, u"diese"_s);
        openNote(u"Y_GR1(0)"_s);
        write(u"in Arbeit"_s);
        doorsOfTest.expect(kDeleteQuestion, kAnswerNo);
        press(noteForm(), u"cmdLöschen"_s);
        QVERIFY(noteForm().isVisible());
        QCOMPARE(textBox().toPlainText(), u"in Arbeit"_s);
        QCOMPARE(notes().size(), 1);
    }

    void aNoteCanBeDeletedFromTheGreyImageToo() {
        addNote(2, 1, 0, kMensa2, u"zu einer früheren Zeit"_s);
        openNote(u"N_GR1(0)"_s);
        doorsOfTest.expect(kDeleteQuestion, kAnswerYes);
        press(noteForm(), u"cmdLöschen"_s);
        QCOMPARE(notes().size(), 0);
    }

    void everyWayOutButOkWritesNothing_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("the button") << 0;
        QTest::newRow("Esc") << 1;
        QTest::newRow("the window's cross") << 2;
    }
    void everyWayOutButOkWritesNothing() {
        QFETCH(const int, way);
        addNote(2, 1, 0, kMensa1, u"bleibt"_s);
        auto& form = openNote(u"Y_GR1(0)"_s);
        const QStringList before = notes();
        write(u"verworfen"_s);
        if (way == 0)
            press(noteForm(), u"cmdBeenden"_s);
        else if (way == 1)
            QTest::keyClick(&noteForm(), Qt::Key_Escape);
        else
            noteForm().close();
        QVERIFY(!noteForm().isVisible());
        QCOMPARE(notes(), before);
        QVERIFY(shows(form, u"Y_GR1(0)"_s));
        // What was typed is gone when the note is opened again.
        press(form, u"Y_GR1(0)"_s);
        QCOMPARE(textBox().toPlainText(), u"bleibt"_s);
    }

    void whatWasTypedOnThePupilFormIsGoneAfterANote() {
        auto& form = openToCorrect();
        choose(form, 2);
        type(form, u"txtSCH(1)"_s, u"getippt"_s);
        press(form, u"N_GR1(0)"_s);
        press(noteForm(), u"cmdBeenden"_s);
        QCOMPARE(textOf(form, u"txtSCH(1)"_s), u"Berta"_s);
    }

    void anApostropheIsTakenInANewNoteAndRefusedInAChangedOne() {
        auto& form = openNote(u"N_GR1(0)"_s);
        write(u"Oma's Essen"_s);
        press(noteForm());
        QCOMPARE(columnOf(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u"Oma's Essen"_s});
        press(form, u"Y_GR1(0)"_s);
        write(u"Opa's Essen"_s);
        doorsOfTest.expectBeginning(u"Notiz speichern: "_s);
        press(noteForm());
        // Nothing written, nothing lost.
        QVERIFY(noteForm().isVisible());
        QCOMPARE(textBox().toPlainText(), u"Opa's Essen"_s);
        QCOMPARE(columnOf(u"SCH_Notiz"_s, u"Notiz"_s), QStringList{u"Oma's Essen"_s});
    }

    void anAssignmentThatCannotBeAskedForLeavesAFormThatWritesNothing() {
        const QString key = u"12:00 - 12:45 Oma's"_s;
        addRow(u"GR1"_s, {{u"Tag"_s, u"MO"_s}, {u"Zeit_K_Name"_s, key}});
        auto& form = openToCorrect();
        choose(form, 2);
        pick(form, 1, 0, key);
        doorsOfTest.expectBeginning(u"Notiz lesen: "_s);
        press(form, u"N_GR1(0)"_s);
        QVERIFY(!control<QWidget>(noteForm(), u"cmdOK"_s).isEnabled());
        QVERIFY(!control<QWidget>(noteForm(), u"cmdLöschen"_s).isEnabled());
        press(noteForm(), u"cmdBeenden"_s);
        // The next note is another matter.
        press(form, u"N_GR1(0)"_s);
        QVERIFY(control<QWidget>(noteForm(), u"cmdOK"_s).isEnabled());
    }

    void aPastedTextLeavesItsMarksBehind() {
        openNote(u"N_GR1(0)"_s);
        QMimeData data;
        data.setHtml(u"<b>fett</b>"_s);
        data.setText(u"fett"_s);
        QGuiApplication::clipboard()->setMimeData([&] {
            auto* copy = new QMimeData;
            copy->setHtml(data.html());
            copy->setText(data.text());
            return copy;
        }());
        textBox().paste();
        QCOMPARE(textBox().toPlainText(), u"fett"_s);
        QVERIFY(textBox().fontWeight() <= QFont::Medium);
        QVERIFY(!textBox().toHtml().contains(u"font-weight:700"_s));
    }

    void enterPressesOkAndNeverDeletes() {
        openNote(u"N_GR1(0)"_s);
        QVERIFY(QTest::qWaitForWindowActive(&noteForm()));
        auto& flag = control<QCheckBox>(noteForm(), u"chkKeineTeilnahme"_s);
        flag.setFocus();
        QTest::keyClick(&flag, Qt::Key_Return);
        QVERIFY(!noteForm().isVisible());
        QCOMPARE(notes().size(), 1);
        QCOMPARE(doorsOfTest.boxes().size(), std::size_t{0});
    }

    void everythingCanBeReachedByKeyboardAndHasAName() {
        openNote(u"N_GR1(0)"_s);
        QVERIFY(QTest::qWaitForWindowActive(&noteForm()));
        QStringList road;
        for (int i = 0; i < 5; ++i) {
            road << noteForm().focusWidget()->objectName();
            QTest::keyClick(noteForm().focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(road, (QStringList{u"rtfNotiz"_s, u"chkKeineTeilnahme"_s, u"cmdLöschen"_s, u"cmdOK"_s,
                                    u"cmdBeenden"_s}));
        for (const auto& name : {u"txtSchülerIn"_s, u"rtfNotiz"_s}) {
            bool labelled = false;
            for (const auto* label : noteForm().findChildren<QLabel*>())
                labelled |= label->buddy() && label->buddy()->objectName() == name;
            QVERIFY2(labelled, qPrintable(name));
        }
    }
};

KOLIBRI_TEST_MAIN(FrmSchNotizTest)
#include "frmSCH_Notiz_test.moc"
