#include "core/store/connection.h"
#include "core/store/safety_copy.h"
#include "core/widgets/application.h"
#include "store_support.h"
#include "support/test_base.h"

#include <QDateTime>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

using enum ColumnKind;

class safety_copyTest : public TestBase {
    Q_OBJECT

    Connection conn;

    QString folder() const { return scratch(); }
    QString file() const { return folder() + u"/KOLIBRI_Daten.mdb"_s; }
    static QString copyName(const QString& time) {
        return u"KOLIBRI_Daten-Sicherheitskopie-%1.mdb"_s.arg(time);
    }
    static QDateTime at(int minute, int second = 0) {
        return QDateTime(QDate(2026, 11, 20), QTime(14, minute, second));
    }

    QStringList copies() const { return filesIn(folder()).filter(u"Sicherheitskopie"_s); }

private Q_SLOTS:
    void init() {
        TestBase::init();
        conn.CreateFile(file());
        conn.CreateTable(u"Stammdaten"_s, {{u"ID"_s, AutoNumber}, {u"SCH_Name"_s, Text}});
        Transaction transaction(conn);
        for (int i = 1; i <= 500; ++i)
            conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"Öz %1"_s.arg(i)).Update();
        transaction.Commit();
    }

    void cleanup() {
        conn.Close();
        TestBase::cleanup();
    }

    void theCopyLiesBesideTheDatabaseWithDateAndTimeInItsName() {
        const QString path = makeSafetyCopy(conn, at(30));
        QCOMPARE(path, folder() + u'/' + copyName(u"20261120-143000"_s));
        QCOMPARE(filesIn(folder()), QStringList({copyName(u"20261120-143000"_s), u"KOLIBRI_Daten.mdb"_s}));
    }

    void theCopyIsASoundDatabaseWithTheSameRows() {
        const QStringList rows = tableRows(conn, u"Stammdaten"_s);
        QCOMPARE(rows.size(), 500);
        Connection copy;
        copy.OpenFile(makeSafetyCopy(conn, at(30)));
        QCOMPARE(tableRows(copy, u"Stammdaten"_s), rows);
        QCOMPARE(copy.IntegrityProblems(), QStringList());
        QCOMPARE(copy.AddNew(u"Stammdaten"_s).Update(), 501);
    }

    void theConnectionAndTheDatabaseAreAsBefore() {
        const QByteArray before = contentOf(file());
        makeSafetyCopy(conn, at(30));
        QCOMPARE(contentOf(file()), before);
        QCOMPARE(conn.AddNew(u"Stammdaten"_s).Update(), 501);
    }

    void theNewestTenAreKept() {
        for (int minute = 1; minute <= 13; ++minute)
            makeSafetyCopy(conn, at(minute));
        QStringList expected;
        for (int minute = 4; minute <= 13; ++minute)
            expected << copyName(u"20261120-14%1%2"_s.arg(minute, 2, 10, QChar(u'0')).arg(u"00"_s));
        QCOMPARE(copies(), expected);
    }

    void copiesOfTheSameSecondDoNotReplaceEachOther() {
        QCOMPARE(makeSafetyCopy(conn, at(30)), folder() + u'/' + copyName(u"20261120-143000"_s));
        conn.Delete(u"Stammdaten"_s);
        QCOMPARE(makeSafetyCopy(conn, at(30)), folder() + u'/' + copyName(u"20261120-143000-02"_s));
        Connection copy;
        copy.OpenFile(folder() + u'/' + copyName(u"20261120-143000"_s));
        QCOMPARE(copy.Open(u"SELECT * FROM Stammdaten"_s).RecordCount(), 500);
    }

    void ofTheSameSecondTheNewestAreKeptToo() {
        for (int i = 0; i < 12; ++i)
            makeSafetyCopy(conn, at(30));
        QCOMPARE(copies().size(), 10);
        QVERIFY(!copies().contains(copyName(u"20261120-143000"_s)));
        QVERIFY(!copies().contains(copyName(u"20261120-143000-02"_s)));
        QVERIFY(copies().contains(copyName(u"20261120-143000-12"_s)));
    }

    void aClockThatWasPutBackDoesNotCostTheNewCopy() {
        for (int minute = 20; minute < 32; ++minute)
            makeSafetyCopy(conn, at(minute));
        const QString path = makeSafetyCopy(conn, at(5));
        QVERIFY(QFile::exists(path));
        QCOMPARE(copies().size(), 10);
    }

    void otherFilesAreLeftAlone() {
        const QStringList others{u"KOLIBRI_Daten-Sicherheitskopie-vor dem Umzug.mdb"_s,
                                 u"KOLIBRI_Daten-Sicherheitskopie-20200101-000000.txt"_s,
                                 u"KOLIBRI_Daten-Sicherheitskopie-20200101-000000 alt.mdb"_s,
                                 u"Andere-Sicherheitskopie-20200101-000000.mdb"_s,
                                 u"Backup-KLB-20200101-000000.txt"_s,
                                 u"Brief.mdb"_s};
        for (const auto& name : others)
            writeContent(folder() + u'/' + name, "bleibt");
        for (int minute = 1; minute <= 12; ++minute)
            makeSafetyCopy(conn, at(minute));
        for (const auto& name : others)
            QCOMPARE(contentOf(folder() + u'/' + name), QByteArray("bleibt"));
    }

    void aDamagedDatabaseIsNotCopiedAndTakesNoCopyAway() {
        for (int minute = 1; minute <= 10; ++minute)
            makeSafetyCopy(conn, at(minute));
        const QStringList before = copies();
        conn.Close();
        QByteArray content = contentOf(file());
        constexpr int kPage = 4096;
        QVERIFY(content.size() > 4 * kPage);
        content.replace(3 * kPage, kPage, QByteArray(kPage, '\x55'));
        writeContent(file(), content);
        conn.OpenFile(file());
        conn.SetPurpose(u"Schuljahreswechsel"_s);
        const auto error = errorOf([&] { makeSafetyCopy(conn, at(30)); });
        QVERIFY(error);
        QCOMPARE(error->kind(), StoreError::Kind::Damaged);
        QVERIFY(error->message().startsWith(u"Schuljahreswechsel: Die Datenbank ist beschädigt."_s));
        QVERIFY(!error->details().isEmpty());
        QCOMPARE(copies(), before);
        QCOMPARE(contentOf(file()), content);
    }

    void aDatabaseThatIsBeingLockedIsNotTakenForADamagedOne() {
        Connection other;
        other.OpenFile(file());
        conn.Close();
        conn.SetBusyWait(0);
        conn.OpenFile(file());
        other.Execute(u"BEGIN EXCLUSIVE"_s);
        EXPECT_STORE_ERROR(Busy, makeSafetyCopy(conn, at(30)));
        other.Execute(u"ROLLBACK"_s);
        QCOMPARE(copies(), QStringList());
        makeSafetyCopy(conn, at(30));
        QCOMPARE(copies().size(), 1);
    }

    void whatIsCopiedIsTheDatabaseInUseAndItsName() {
        conn.Close();
        const QString renamed = folder() + u"/Schule.2026.mdb"_s;
        QVERIFY(QFile::rename(file(), renamed));
        conn.OpenFile(renamed);
        QCOMPARE(makeSafetyCopy(conn, at(30)),
                 folder() + u"/Schule.2026-Sicherheitskopie-20261120-143000.mdb"_s);
    }
};

KOLIBRI_TEST_MAIN(safety_copyTest)
#include "safety_copy_test.moc"
