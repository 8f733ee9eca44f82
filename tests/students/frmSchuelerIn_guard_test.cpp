#include "core/widgets/application.h"
#include "students/edit_guard.h"
#include "support/pupil_form.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QDateTime kNow(QDate(2026, 11, 20), QTime(9, 30));
const QString kHeld = u"Der Datensatz kann nicht bearbeitet werden. Er wird gerade von PC-2 bearbeitet!"_s;
const QString kOurs = u"20.11.2026 09:30:00|TEST-PC"_s;
const QString kFree = u"|"_s;

} // namespace

/// The edit guard as the pupil form keeps it: claim, refusal, and every place of release.
class FrmSchuelerInGuardTest : public PupilFormTest {
    Q_OBJECT

    static QString stampOf(int id) {
        const QString stempel = stored(id, u"ZeitStempel"_s), pc = stored(id, u"PC_Name"_s);
        return QString(stempel + u'|' + pc).remove(u"<null>"_s);
    }
    static void hold(int id, const QString& pc, int secondsAgo) {
        change(id, {{u"ZeitStempel"_s, StempelText(kNow.addSecs(-secondsAgo))}, {u"PC_Name"_s, pc}});
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        startWithSmallSchool();
        doorsOfTest.setNow(kNow);
    }

    void selectingClaimsAndTheNextSelectionReleases() {
        auto& form = openToCorrect();
        choose(form, 1);
        QCOMPARE(stampOf(1), kOurs);
        choose(form, 2);
        QCOMPARE(stampOf(1), kFree);
        QCOMPARE(stampOf(2), kOurs);
        choose(form, 2);
        QCOMPARE(stampOf(2), kOurs);
    }

    void aRecordHeldElsewhereIsRefusedAndTheFieldsAreEmpty() {
        hold(2, u"PC-2"_s, 299);
        auto& form = openToCorrect();
        choose(form, 1);
        doorsOfTest.expect(kHeld);
        choose(form, 2);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), QString());
        QCOMPARE(Global().AktuelleSchuelerID, 2);
        QCOMPARE(stampOf(1), kFree);
        QCOMPARE(stored(2, u"PC_Name"_s), u"PC-2"_s);
        // With the fields as they are OK finds empty ones.
        doorsOfTest.expect(u"Eingabe unvollständig!"_s);
        press(form);
    }

    void aStampOf300SecondsIsTakenOver() {
        hold(2, u"PC-2"_s, 300);
        auto& form = openToCorrect();
        choose(form, 2);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Müller"_s);
        QCOMPARE(stampOf(2), kOurs);
    }

    void aStampOfYesterdayAtTheSameHourIsFree() {
        hold(2, u"PC-2"_s, 24 * 60 * 60);
        auto& form = openToCorrect();
        choose(form, 2);
        QCOMPARE(stampOf(2), kOurs);
    }

    void aRecordThatThisWorkstationLostTrackOfIsRefusedWithItsOwnName() {
        hold(2, u"TEST-PC"_s, 10);
        auto& form = openToCorrect();
        doorsOfTest.expect(BelegtMeldung(u"TEST-PC"_s));
        choose(form, 2);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), QString());
    }

    void aRecordOfWhichNotAllCanBeReadIsStillOursToMend() {
        change(2, {{u"Klasse"_s, u"3'a"_s}});
        auto& form = openToCorrect();
        doorsOfTest.expectBeginning(u"Schülerdaten lesen: "_s);
        choose(form, 2);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Müller"_s);
        type(form, u"txtSCH(3)"_s, u"3a"_s);
        doorsOfTest.expectBeginning(u"Wenn Sie den Status auf nicht OG-Schüler ändern"_s, kAnswerYes);
        check(form, u"chkNichtOG"_s);
        press(form);
        QCOMPARE(stored(2, u"Klasse"_s), u"3a"_s);
        QCOMPARE(stored(2, u"NichtOG"_s), u"Wahr"_s);
    }

    void aRefusedRecordCannotBeWrittenByFillingTheFieldsByHand() {
        hold(2, u"PC-2"_s, 10);
        auto& form = openToCorrect();
        doorsOfTest.expect(kHeld);
        choose(form, 2);
        type(form, u"txtSCH(0)"_s, u"Fremd"_s);
        type(form, u"txtSCH(1)"_s, u"Frieda"_s);
        type(form, u"txtSCH(3)"_s, u"3a"_s);
        const auto before = wholeDatabase();
        doorsOfTest.expect(kHeld);
        press(form);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(form, u"txtSCH(0)"_s), u"Fremd"_s);
        // Another record is free to be written.
        choose(form, 3);
        press(form);
        QCOMPARE(stampOf(3), kFree);
    }

    void afterARefusalNichtOgDoesNothingUntilARecordIsRead() {
        hold(2, u"PC-2"_s, 10);
        auto& form = openToCorrect();
        doorsOfTest.expect(kHeld);
        choose(form, 2);
        check(form, u"chkNichtOG"_s);
        QVERIFY(control<QWidget>(form, u"frmGR1"_s).isEnabled());
        choose(form, 1);
        doorsOfTest.expectBeginning(u"Wenn Sie den Status auf nicht OG-Schüler ändern"_s, kAnswerNo);
        check(form, u"chkNichtOG"_s);
    }

    void aSaveFreesTheRecordAtOnce() {
        auto& form = openToCorrect();
        choose(form, 2);
        press(form);
        QCOMPARE(stored(2, u"ZeitStempel"_s), QString());
        QCOMPARE(stored(2, u"PC_Name"_s), QString());
    }

    void everyWayOutFreesTheRecordShownAndNoOther_data() {
        QTest::addColumn<int>("way");
        QTest::newRow("the button") << 0;
        QTest::newRow("Esc") << 1;
        QTest::newRow("the window's cross") << 2;
        QTest::newRow("the end of the program") << 3;
    }
    void everyWayOutFreesTheRecordShownAndNoOther() {
        QFETCH(const int, way);
        hold(3, u"TEST-PC"_s, 10);
        auto& form = openToCorrect();
        choose(form, 2);
        QCOMPARE(stampOf(2), kOurs);
        if (way == 0)
            press(form, u"cmdBeenden"_s);
        else if (way == 1)
            QTest::keyClick(&form, Qt::Key_Escape);
        else if (way == 2)
            form.close();
        else
            unloadForms();
        if (way < 3)
            QVERIFY(!form.isVisible());
        QCOMPARE(stampOf(2), kFree);
        QCOMPARE(stored(3, u"PC_Name"_s), u"TEST-PC"_s);
        QCOMPARE(Global().AktuelleSchuelerID, 2);
    }

    void leavingWithoutARecordAsksTheStoreForNothing() {
        auto& form = openToCorrect();
        const qint64 before = Global().Conn.StatementCount();
        press(form, u"cmdBeenden"_s);
        QCOMPARE(Global().Conn.StatementCount(), before);
    }

    void deactivatingLeavesTheStampToTheNextRelease() {
        auto& form = open(&mdlGlobal::ModusSchuelerLoeschen);
        choose(form, 2);
        doorsOfTest.expect(u"Wollen Sie die Daten wirklich löschen?"_s, kAnswerYes);
        press(form);
        QCOMPARE(stampOf(2), kOurs);
        press(form, u"cmdBeenden"_s);
        QCOMPARE(stampOf(2), kFree);
    }

    void whenTheStoreIsGoneTheFormCanStillBeLeft() {
        auto& form = openToCorrect();
        choose(form, 2);
        QVERIFY(QFile::remove(DatenbankDatei(home())));
        doorsOfTest.expectBeginning(u"Datensatz freigeben: "_s);
        press(form, u"cmdBeenden"_s);
        QVERIFY(!form.isVisible());
    }
};

KOLIBRI_TEST_MAIN(FrmSchuelerInGuardTest)
#include "frmSchuelerIn_guard_test.moc"
