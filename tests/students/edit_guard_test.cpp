#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "students/edit_guard.h"
#include "support/test_base.h"

#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QDateTime kNow(QDate(2026, 11, 20), QTime(9, 30));

qint16 addPupil(const QString& stempel = {}, const QString& pc = {}) {
    return static_cast<qint16>(Global()
                                   .Conn.AddNew(u"Stammdaten"_s)
                                   .Set(u"SCH_Name"_s, u"Muster"_s)
                                   .Set(u"aktiv"_s, true)
                                   .Set(u"ZeitStempel"_s, stempel)
                                   .Set(u"PC_Name"_s, pc)
                                   .Update());
}

/// "ZeitStempel|PC_Name" of a pupil.
QString stampOf(qint16 id) {
    const Recordset rs =
        Global().Conn.Open(u"SELECT ZeitStempel, PC_Name FROM Stammdaten WHERE ID = ?"_s, {id});
    return rs.Text(u"ZeitStempel") + u'|' + rs.Text(u"PC_Name");
}

const QString kFree = u"|"_s;
const QString kOurs = u"20.11.2026 09:30:00|TEST-PC"_s;

/// Another running program on the same database.
class Workstation {
public:
    Workstation(const QString& folder, const QString& name) {
        m_process.start(QStringLiteral(KOLIBRI_BIN_DIR "/guard_probe"), {folder, name});
        m_started = m_process.waitForStarted();
    }
    ~Workstation() {
        m_process.closeWriteChannel();
        m_process.waitForFinished();
    }

    bool started() const { return m_started; }
    void say(const QString& command) {
        m_process.write(command.toUtf8() + '\n');
        m_process.waitForBytesWritten();
    }
    QString hear() {
        while (!m_process.canReadLine())
            if (!m_process.waitForReadyRead())
                return u"no answer: "_s + m_process.errorString();
        return QString::fromUtf8(m_process.readLine()).trimmed();
    }
    QString ask(const QString& command) {
        say(command);
        return hear();
    }

private:
    QProcess m_process;
    bool m_started = false;
};

} // namespace

class EditGuardTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        Global().ComputerName = u"TEST-PC"_s;
        doorsOfTest.setNow(kNow);
    }

    void stamps_data() {
        QTest::addColumn<QString>("stempel");
        QTest::addColumn<bool>("holds");
        const auto ago = [](qint64 seconds) { return StempelText(kNow.addSecs(-seconds)); };
        QTest::newRow("of this second") << ago(0) << true;
        QTest::newRow("299 seconds ago") << ago(299) << true;
        QTest::newRow("300 seconds ago") << ago(300) << false;
        QTest::newRow("299 seconds ahead, by another clock") << ago(-299) << true;
        QTest::newRow("300 seconds ahead") << ago(-300) << false;
        QTest::newRow("yesterday at the same hour") << ago(24 * 60 * 60) << false;
        QTest::newRow("tomorrow at the same hour") << ago(-24 * 60 * 60) << false;
        QTest::newRow("years ago") << u"14.03.2024 09:30:00"_s << false;
        QTest::newRow("hours of one digit") << u"20.11.2026 9:29:59"_s << true;
        QTest::newRow("the text form of midnight") << u"20.11.2026"_s << false;
    }
    void stamps() {
        QFETCH(const QString, stempel);
        QFETCH(const bool, holds);
        QCOMPARE(StempelGilt(stempel, kNow), holds);
        const DbSession session(u"Test"_s);
        const qint16 id = addPupil(stempel, u"ANDERER-PC"_s);
        const auto holder = DatensatzBeanspruchen(id);
        QCOMPARE(holder.has_value(), holds);
        QCOMPARE(stampOf(id), holds ? stempel + u"|ANDERER-PC"_s : kOurs);
        QCOMPARE(Global().AktuelleSchuelerID, id);
    }

    void aStampAcrossMidnightNeverHolds() {
        const QDateTime beforeMidnight(QDate(2026, 11, 20), QTime(23, 59, 30));
        QVERIFY(!StempelGilt(StempelText(beforeMidnight), beforeMidnight.addSecs(60)));
        const QDateTime midnight(QDate(2026, 11, 21), QTime(0, 0));
        QVERIFY(StempelGilt(StempelText(midnight), midnight.addSecs(299)));
        QVERIFY(!StempelGilt(StempelText(midnight), midnight.addSecs(300)));
    }

    void theStampBeginsWithItsDate() {
        QCOMPARE(StempelText(QDateTime(QDate(2026, 1, 2), QTime(3, 4, 5))), u"02.01.2026 03:04:05"_s);
    }

    void aStampThatCannotBeReadIsAnErrorAndTheOldRecordIsFreeAllTheSame_data() {
        QTest::addColumn<QString>("stempel");
        QTest::newRow("no date") << u"gestern"_s;
        QTest::newRow("no time") << u"20.11.2026 morgens"_s;
    }
    void aStampThatCannotBeReadIsAnErrorAndTheOldRecordIsFreeAllTheSame() {
        QFETCH(const QString, stempel);
        const DbSession session(u"Test"_s);
        const qint16 first = addPupil();
        const qint16 second = addPupil(stempel, u"ANDERER-PC"_s);
        QVERIFY(!DatensatzBeanspruchen(first));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, DatensatzBeanspruchen(second));
        QCOMPARE(stampOf(first), kFree);
        QCOMPARE(stampOf(second), stempel + u"|ANDERER-PC"_s);
    }

    void anEmptyOrMissingStampOrNameMeansFree() {
        const DbSession session(u"Test"_s);
        const qint16 withoutName = addPupil(StempelText(kNow), QString());
        const qint16 withoutStamp = addPupil(QString(), u"ANDERER-PC"_s);
        const auto withoutBoth =
            static_cast<qint16>(Global().Conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"Null"_s).Update());
        for (const qint16 id : {withoutName, withoutStamp, withoutBoth}) {
            QVERIFY(!DatensatzBeanspruchen(id));
            QCOMPARE(stampOf(id), kOurs);
        }
    }

    void aRecordOfThisWorkstationIsRefusedAsWellWhenItLostTrackOfIt() {
        const DbSession session(u"Test"_s);
        const qint16 id = addPupil(StempelText(kNow.addSecs(-10)), u"TEST-PC"_s);
        QCOMPARE(DatensatzBeanspruchen(id), u"TEST-PC"_s);
        // Now it is the record in hand, so choosing it once more frees it first.
        QVERIFY(!DatensatzBeanspruchen(id));
    }

    void choosingAnotherRecordFreesTheOneBefore() {
        const DbSession session(u"Test"_s);
        const qint16 first = addPupil(), second = addPupil();
        QVERIFY(!DatensatzBeanspruchen(first));
        QVERIFY(!DatensatzBeanspruchen(second));
        QCOMPARE(stampOf(first), kFree);
        QCOMPARE(stampOf(second), kOurs);
    }

    void choosingTheSameRecordAgainRenewsItsStamp() {
        const DbSession session(u"Test"_s);
        const qint16 id = addPupil();
        QVERIFY(!DatensatzBeanspruchen(id));
        doorsOfTest.setNow(kNow.addSecs(60));
        QVERIFY(!DatensatzBeanspruchen(id));
        QCOMPARE(stampOf(id), u"20.11.2026 09:31:00|TEST-PC"_s);
    }

    void leavingFreesTheRecordInHandAndNoOther() {
        const DbSession session(u"Test"_s);
        const qint16 other = addPupil(StempelText(kNow), u"TEST-PC"_s);
        const qint16 id = addPupil();
        QVERIFY(!DatensatzBeanspruchen(id));
        StempelFreigeben();
        QCOMPARE(stampOf(id), kFree);
        QCOMPARE(stampOf(other), kOurs);
        QCOMPARE(Global().AktuelleSchuelerID, id);
        StempelFreigeben();
        QCOMPARE(stampOf(id), kFree);
    }

    void aStampOfAnotherWorkstationIsNotFreed() {
        const DbSession session(u"Test"_s);
        const QString stempel = StempelText(kNow);
        const qint16 id = addPupil(stempel, u"ANDERER-PC"_s);
        QCOMPARE(DatensatzBeanspruchen(id), u"ANDERER-PC"_s);
        StempelFreigeben();
        QCOMPARE(stampOf(id), stempel + u"|ANDERER-PC"_s);
    }

    void withoutARecordInHandThereIsNothingToFree() {
        const DbSession session(u"Test"_s);
        const qint64 before = Global().Conn.StatementCount();
        StempelFreigeben();
        QCOMPARE(Global().Conn.StatementCount(), before);
    }

    void aRecordThatDoesNotExistIsNobodys() {
        const DbSession session(u"Test"_s);
        const qint16 id = addPupil();
        QVERIFY(!DatensatzBeanspruchen(id));
        QVERIFY(!DatensatzBeanspruchen(0));
        QCOMPARE(Global().AktuelleSchuelerID, 0);
        QCOMPARE(stampOf(id), kFree);
    }

    void theMessageNamesTheWorkstation() {
        QCOMPARE(BelegtMeldung(u"BÜRO-PC2"_s),
                 u"Der Datensatz kann nicht bearbeitet werden. Er wird gerade von BÜRO-PC2 bearbeitet!"_s);
    }

    void twoProgramsOnOneDatabase() {
        {
            const DbSession session(u"Test"_s);
            addPupil();
            addPupil();
        }
        Workstation first(home(), u"PC-1"_s), second(home(), u"PC-2"_s);
        QVERIFY(first.started() && second.started());
        QCOMPARE(first.ask(u"time 2026-11-20T09:30:00"_s), u"ready"_s);
        QCOMPARE(second.ask(u"time 2026-11-20T09:34:59"_s), u"ready"_s);
        QCOMPARE(first.ask(u"claim 1"_s), u"ours"_s);
        QCOMPARE(second.ask(u"claim 1"_s), u"held by PC-1"_s);
        QCOMPARE(second.ask(u"claim 2"_s), u"ours"_s);
        QCOMPARE(first.ask(u"release"_s), u"done"_s);
        QCOMPARE(second.ask(u"claim 1"_s), u"ours"_s);
        QCOMPARE(first.ask(u"claim 2"_s), u"ours"_s);
        QCOMPARE(first.ask(u"claim 1"_s), u"held by PC-2"_s);
        // Five minutes later nobody holds it any longer.
        QCOMPARE(first.ask(u"time 2026-11-20T09:39:59"_s), u"ready"_s);
        QCOMPARE(first.ask(u"claim 1"_s), u"ours"_s);
    }

    void ofTwoProgramsClaimingAtOnceExactlyOneWins() {
        constexpr int kRounds = 50;
        {
            const DbSession session(u"Test"_s);
            addPupil();
        }
        Workstation first(home(), u"PC-1"_s), second(home(), u"PC-2"_s);
        QVERIFY(first.started() && second.started());
        QCOMPARE(first.ask(u"time 2026-11-20T09:30:00"_s), u"ready"_s);
        QCOMPARE(second.ask(u"time 2026-11-20T09:30:00"_s), u"ready"_s);
        int wonByFirst = 0;
        for (int round = 0; round < kRounds; ++round) {
            // The other one is asked first in every second round.
            Workstation& early = round % 2 == 0 ? first : second;
            Workstation& late = round % 2 == 0 ? second : first;
            early.say(u"claim 1"_s);
            late.say(u"claim 1"_s);
            const QString answerOfFirst = first.hear(), answerOfSecond = second.hear();
            const bool firstWon = answerOfFirst == u"ours"_s;
            QCOMPARE(answerOfFirst, firstWon ? u"ours"_s : u"held by PC-2"_s);
            QCOMPARE(answerOfSecond, firstWon ? u"held by PC-1"_s : u"ours"_s);
            wonByFirst += firstWon ? 1 : 0;
            QCOMPARE((firstWon ? first : second).ask(u"release"_s), u"done"_s);
        }
        qInfo("won by the first program: %d of %d", wonByFirst, kRounds);
    }
};

KOLIBRI_TEST_MAIN(EditGuardTest)
#include "edit_guard_test.moc"
