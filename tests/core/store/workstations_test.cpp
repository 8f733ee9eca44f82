// Several workstations on one file, and one that dies at its work.

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/store/connection.h"
#include "core/widgets/application.h"
#include "store_support.h"
#include "support/probe.h"
#include "support/test_base.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

using enum ColumnKind;

class workstationsTest : public TestBase {
    Q_OBJECT

    QString file() const { return DatenbankDatei(home()); }
    QString journal() const { return file() + u"-journal"_s; }

    /// A database with an offering, pupils who take it, and notes on it; larger than the engine's memory.
    void prepareSchool(int pupils) {
        useEmptyDatabase();
        Connection conn;
        conn.OpenFile(file());
        Transaction transaction(conn);
        const QString key = u"13:00 - 13:45 ME1 "_s + QString(150, u'a');
        conn.AddNew(u"GR1"_s).Set(u"Zeit_K_Name"_s, key).Update();
        for (int i = 1; i <= pupils; ++i) {
            conn.AddNew(u"Stammdaten"_s).Set(u"Schulstufe"_s, 0).Set(u"GR1_MO"_s, key).Update();
            conn.AddNew(u"SCH_Notiz"_s).Set(u"SCH_ID"_s, i).Set(u"Notiz"_s, QString(500, u'b')).Update();
        }
        conn.AddNew(u"Bausteine"_s).Set(u"Bausteine"_s, u"Frühbetreuung"_s).Update();
        transaction.Commit();
    }

    QStringList integrityProblems() {
        Connection conn;
        conn.OpenFile(file());
        return conn.IntegrityProblems();
    }

private Q_SLOTS:
    void twoProcessesWriteTheSameFileForThirtySecondsAndNoRowIsLost() {
        constexpr int kMilliseconds = 30'000;
        Connection conn;
        conn.CreateFile(file());
        conn.CreateTable(u"Zeilen"_s, {{u"ID"_s, AutoNumber}, {u"Schreiber"_s, Text}, {u"Nummer"_s, Long}});
        conn.CreateTable(u"Zähler"_s, {{u"Wert"_s, Long}});
        conn.AddNew(u"Zähler"_s).Set(u"Wert"_s, 0).Update();
        conn.Close();
        const auto order = [&](const QString& writer) {
            return QStringList{u"write"_s, file(), QString::number(kBusyWait),
                               u"%1 %2"_s.arg(kMilliseconds).arg(writer)};
        };
        Probe first(order(u"A"_s));
        Probe second(order(u"B"_s));
        QCOMPARE(first.line(), u"ready"_s);
        QCOMPARE(second.line(), u"ready"_s);
        first.goOn();
        second.goOn();
        const QString told[]{first.line(), second.line()};
        QVERIFY2(first.ended(), qPrintable(told[0]));
        QVERIFY2(second.ended(), qPrintable(told[1]));
        conn.OpenFile(file());
        qint64 counted = 0;
        for (int i = 0; i < 2; ++i) {
            const QString writer = i == 0 ? u"A"_s : u"B"_s;
            const qint64 rows = told[i].section(u' ', 0, 0).toLongLong();
            qInfo("%s wrote %lld rows, the slowest in %s ms", qPrintable(writer), rows,
                  qPrintable(told[i].section(u' ', 1)));
            QVERIFY(rows > 0);
            const Recordset rs = conn.Open(
                u"SELECT COUNT(*), COUNT(DISTINCT Nummer), MIN(Nummer), MAX(Nummer) FROM Zeilen WHERE Schreiber = ?"_s,
                {writer});
            QCOMPARE(rs.Value(0).toLongLong(), rows);
            QCOMPARE(rs.Value(1).toLongLong(), rows);
            QCOMPARE(rs.Value(2).toLongLong(), 1);
            QCOMPARE(rs.Value(3).toLongLong(), rows);
            counted += (rows + 1) / 2;
        }
        QCOMPARE(conn.Open(u"SELECT Wert FROM Zähler"_s).Number(u"Wert"), counted);
        QCOMPARE(conn.IntegrityProblems(), QStringList());
        QVERIFY(!QFile::exists(journal()));
    }

    void aWriterKilledInTheMiddleOfACascadeLeavesTheOldState_data() {
        QTest::addColumn<QString>("place");
        QTest::addColumn<bool>("journalLeft");
        QTest::newRow("nothing written yet") << u"begun"_s << false;
        QTest::newRow("offering changed") << u"offering"_s << true;
        QTest::newRow("half of the pupils changed") << u"half"_s << true;
        QTest::newRow("all pupils changed") << u"pupils"_s << true;
        QTest::newRow("notes deleted too") << u"notes"_s << true;
    }

    void aWriterKilledInTheMiddleOfACascadeLeavesTheOldState() {
        QFETCH(QString, place);
        QFETCH(bool, journalLeft);
        prepareSchool(300);
        const QByteArray content = contentOf(file());
        const auto rows = wholeDatabase();
        QCOMPARE(rows.value(u"SCH_Notiz"_s).size(), 300);
        Probe probe({u"cascade"_s, file(), u"0"_s, place});
        QCOMPARE(probe.line(), place);
        probe.kill();
        QCOMPARE(QFile::exists(journal()), journalLeft);
        if (place == u"half" || place == u"pupils" || place == u"notes")
            QVERIFY2(contentOf(file()) != content, "the writer had not got as far as the file");
        QCOMPARE(wholeDatabase(), rows);
        QCOMPARE(integrityProblems(), QStringList());
        QCOMPARE(contentOf(file()), content);
        Connection next;
        next.OpenFile(file());
        QCOMPARE(next.Change(u"Bausteine"_s, {{u"Bausteine"_s, u"Spätbetreuung"_s}}), 1);
        QVERIFY(!QFile::exists(journal()));
    }

    void aCommittedCascadeStaysWhenItsWriterIsKilled() {
        prepareSchool(300);
        Probe probe({u"cascade"_s, file(), u"0"_s, u"committed"_s});
        QCOMPARE(probe.line(), u"committed"_s);
        probe.kill();
        Connection conn;
        conn.OpenFile(file());
        QCOMPARE(conn.Open(u"SELECT ID FROM SCH_Notiz"_s).RecordCount(), 0);
        QCOMPARE(conn.Open(u"SELECT DISTINCT GR1_MO FROM Stammdaten"_s).RecordCount(), 1);
        QVERIFY(conn.Open(u"SELECT GR1_MO FROM Stammdaten"_s).Text(0).startsWith(u"13:15 - 14:00"_s));
        QCOMPARE(conn.IntegrityProblems(), QStringList());
    }

    void aWriterKilledAtAnyMomentLeavesAllRowsAlike() {
        constexpr int kKills = 20;
        prepareSchool(60);
        qint64 next = 1;
        for (int kill = 0; kill < kKills; ++kill) {
            Probe probe({u"renumber"_s, file(), u"0"_s, QString::number(next)});
            qint64 told = 0;
            for (int lines = 0; lines <= kill % 4; ++lines)
                told = probe.line().toLongLong();
            QVERIFY(told >= next);
            probe.kill();
            for (QString line = probe.line(); !line.isEmpty(); line = probe.line())
                told = line.toLongLong();
            Connection conn;
            conn.OpenFile(file());
            const Recordset rs = conn.Open(u"SELECT DISTINCT Schulstufe FROM Stammdaten"_s);
            QCOMPARE(rs.RecordCount(), 1);
            const qint64 found = rs.Number(u"Schulstufe");
            QVERIFY2(found == told || found == told + 1, qPrintable(u"%1, told %2"_s.arg(found).arg(told)));
            QCOMPARE(conn.IntegrityProblems(), QStringList());
            next = found + 1;
        }
    }

    void aLockedFileIsToldAfterTheWaitAndWorksAgainAfterTheRelease() {
        constexpr int kWait = 300;
        QCOMPARE(kBusyWait, 10'000);
        prepareSchool(1);
        Probe probe({u"lock"_s, file(), u"0"_s});
        QCOMPARE(probe.line(), u"locked"_s);
        Connection conn;
        conn.SetPurpose(u"Bausteine laden"_s);
        conn.SetBusyWait(kWait);
        QElapsedTimer timer;
        timer.start();
        const auto error = errorOf([&] { conn.OpenFile(file()); });
        QVERIFY(error);
        QVERIFY2(timer.elapsed() >= kWait, qPrintable(QString::number(timer.elapsed())));
        QCOMPARE(error->kind(), StoreError::Kind::Busy);
        QCOMPARE(error->message(),
                 u"Bausteine laden: Die Datenbank wird gerade von einem anderen Arbeitsplatz "
                 "benutzt. Bitte versuchen Sie es in einem Augenblick noch einmal."_s);
        probe.goOn();
        QCOMPARE(probe.line(), u"released"_s);
        conn.OpenFile(file());
        QCOMPARE(conn.Change(u"Bausteine"_s, {{u"Bausteine"_s, u"Spätbetreuung"_s}}), 1);
    }

    void aFileLockedByAWriterCanStillBeReadAndItsOldStateIsSeen() {
        prepareSchool(300);
        Probe probe({u"cascade"_s, file(), u"0"_s, u"offering"_s});
        QCOMPARE(probe.line(), u"offering"_s);
        Connection conn;
        conn.SetBusyWait(0);
        conn.OpenFile(file());
        QCOMPARE(conn.Open(u"SELECT ID FROM SCH_Notiz"_s).RecordCount(), 300);
        EXPECT_STORE_ERROR(Busy, conn.Change(u"Bausteine"_s, {{u"Bausteine"_s, u"x"_s}}));
        conn.Close();
        probe.goOn();
        QVERIFY(probe.ended());
        conn.OpenFile(file());
        QCOMPARE(conn.Open(u"SELECT ID FROM SCH_Notiz"_s).RecordCount(), 0);
    }

    void aWorkstationThatWaitsGetsItsTurn() {
        prepareSchool(1);
        Connection conn;
        conn.OpenFile(file());
        conn.Execute(u"BEGIN EXCLUSIVE"_s);
        Probe refused({u"change"_s, file(), u"0"_s, u"x"_s});
        QVERIFY(refused.line().startsWith(u"error %1 "_s.arg(static_cast<int>(StoreError::Kind::Busy))));
        Probe waiting({u"change"_s, file(), QString::number(kBusyWait), u"Spätbetreuung"_s});
        Probe waitingToo({u"read"_s, file(), QString::number(kBusyWait)});
        conn.Execute(u"COMMIT"_s);
        QCOMPARE(waiting.line(), u"1 rows"_s);
        QCOMPARE(waitingToo.line(), u"1 rows"_s);
        QCOMPARE(conn.Open(u"SELECT Bausteine FROM Bausteine"_s).Text(0), u"Spätbetreuung"_s);
    }

    /// A process's locks on a file are lost when it closes any other handle of its own on that file.
    void openingTheFileASecondTimeLeavesTheLocksOfTheFirst() {
        prepareSchool(1);
        Connection conn;
        conn.OpenFile(file());
        const Transaction transaction(conn);
        conn.Change(u"Bausteine"_s, {{u"Bausteine"_s, u"Spätbetreuung"_s}});
        {
            Connection second;
            second.OpenFile(file());
            QCOMPARE(second.Open(u"SELECT Bausteine FROM Bausteine"_s).Text(0), u"Frühbetreuung"_s);
        }
        Probe probe({u"change"_s, file(), u"0"_s, u"x"_s});
        const QString told = probe.line();
        QVERIFY2(told.startsWith(u"error %1 "_s.arg(static_cast<int>(StoreError::Kind::Busy))),
                 qPrintable(told));
    }
};

KOLIBRI_TEST_MAIN(workstationsTest)
#include "workstations_test.moc"
