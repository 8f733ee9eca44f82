#include "core/store/connection.h"
#include "core/store/transaction.h"
#include "core/widgets/application.h"
#include "store_support.h"
#include "support/test_base.h"

#include <stdexcept>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

using enum ColumnKind;

class transactionTest : public TestBase {
    Q_OBJECT

    Connection conn;
    Connection other;

    QString file() const { return scratch() + u"/schule.mdb"_s; }

    void add(const QString& name) { conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, name).Update(); }

    /// What another workstation sees.
    QString seen() {
        QStringList names;
        for (Recordset rs = other.Open(u"SELECT Klasse FROM Klassen ORDER BY ID"_s); !rs.Eof(); rs.MoveNext())
            names << rs.Text(0);
        return names.join(u' ');
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        conn.CreateFile(file());
        conn.CreateTable(u"Klassen"_s, {{u"ID"_s, AutoNumber}, {u"Klasse"_s, Text}, {u"Text"_s, Memo}});
        other.SetBusyWait(0);
        other.OpenFile(file());
    }

    void cleanup() {
        conn.Close();
        other.Close();
        TestBase::cleanup();
    }

    void whatIsCommittedStaysAndIsSeenOnlyThen() {
        {
            Transaction transaction(conn);
            add(u"1a"_s);
            add(u"1b"_s);
            QCOMPARE(seen(), QString());
            transaction.Commit();
            QCOMPARE(seen(), u"1a 1b"_s);
        }
        QCOMPARE(seen(), u"1a 1b"_s);
        QVERIFY(!filesIn(scratch()).contains(u"schule.mdb-journal"_s));
    }

    void whatIsLeftWithoutCommitIsTakenBack() {
        add(u"1a"_s);
        {
            const Transaction transaction(conn);
            add(u"1b"_s);
            conn.Delete(u"Klassen"_s, u"Klasse = ?"_s, {u"1a"_s});
        }
        QCOMPARE(seen(), u"1a"_s);
        add(u"2a"_s);
        QCOMPARE(seen(), u"1a 2a"_s);
        QVERIFY(!filesIn(scratch()).contains(u"schule.mdb-journal"_s));
    }

    void anExceptionTakesEverythingBack() {
        try {
            Transaction transaction(conn);
            add(u"1a"_s);
            throw std::runtime_error("stop");
        } catch (const std::runtime_error&) {
        }
        QCOMPARE(seen(), QString());
    }

    void aRefusedStatementTakesBackTheOnesBeforeIt() {
        EXPECT_STORE_ERROR(Value, Transaction transaction(conn); add(u"1a"_s);
                           conn.Change(u"Klassen"_s, {{u"Klasse"_s, QString(256, u'a')}});
                           transaction.Commit());
        QCOMPARE(seen(), QString());
    }

    void aRefusedRowThatIsPassedOverDoesNotEndTheTransaction() {
        Transaction transaction(conn);
        add(u"1a"_s);
        EXPECT_STORE_ERROR(KeyTaken, conn.AddNew(u"Klassen"_s).Set(u"ID"_s, 1).Update());
        add(u"1b"_s);
        transaction.Commit();
        QCOMPARE(seen(), u"1a 1b"_s);
    }

    void anInnerOneTakesPartInTheOuterOne() {
        Transaction outer(conn);
        add(u"1a"_s);
        {
            Transaction inner(conn);
            add(u"1b"_s);
            inner.Commit();
        }
        QCOMPARE(seen(), QString());
        add(u"1c"_s);
        outer.Commit();
        QCOMPARE(seen(), u"1a 1b 1c"_s);
    }

    void anInnerOneGoesWithAnOuterOneThatIsGivenUp() {
        {
            const Transaction outer(conn);
            Transaction inner(conn);
            add(u"1b"_s);
            inner.Commit();
        }
        QCOMPARE(seen(), QString());
    }

    void anInnerOneGivenUpDoomsTheOuterOne() {
        {
            Transaction outer(conn);
            add(u"1a"_s);
            { const Transaction inner(conn); }
            {
                Transaction second(conn);
                add(u"1b"_s);
                EXPECT_STORE_ERROR(Programming, second.Commit());
            }
            EXPECT_STORE_ERROR(Programming, outer.Commit());
        }
        QCOMPARE(seen(), QString());
        Transaction next(conn);
        add(u"2a"_s);
        next.Commit();
        QCOMPARE(seen(), u"2a"_s);
    }

    void closingInsideTakesBackWhatWasNotCommitted() {
        {
            Transaction transaction(conn);
            add(u"1a"_s);
            conn.Close();
            EXPECT_STORE_ERROR(Programming, transaction.Commit());
        }
        QCOMPARE(seen(), QString());
        conn.OpenFile(file());
        add(u"2a"_s);
        QCOMPARE(seen(), u"2a"_s);
    }

    void openingAnewInsideTakesBackWhatWasNotCommitted() {
        Transaction transaction(conn);
        add(u"1a"_s);
        conn.OpenFile(file());
        add(u"1b"_s);
        {
            Transaction second(conn);
            add(u"1c"_s);
            second.Commit();
        }
        EXPECT_STORE_ERROR(Programming, transaction.Commit());
        QCOMPARE(seen(), u"1b 1c"_s);
    }

    void tablesMadeInsideAreForgottenWithIt() {
        {
            const Transaction transaction(conn);
            conn.CreateTable(u"Neu"_s, {{u"ID"_s, AutoNumber}});
            conn.AddColumn(u"Klassen"_s, {u"Ort"_s, Text});
            conn.AddNew(u"Neu"_s).Update();
            conn.AddNew(u"Klassen"_s).Set(u"Ort"_s, u"Haus 2"_s).Update();
            QVERIFY(conn.HasTable(u"Neu"_s));
        }
        QVERIFY(!conn.HasTable(u"Neu"_s));
        QVERIFY(!conn.HasColumn(u"Klassen"_s, u"Ort"_s));
        QVERIFY(!conn.Open(u"SELECT * FROM Klassen"_s).HasField(u"Ort"));
    }

    /// On a full disk the engine takes the whole transaction back by itself. Whoever passes that error over
    /// must not go on writing single rows.
    void afterAFullDiskNothingIsWrittenByHalf() {
        add(u"1a"_s);
        conn.Execute(u"PRAGMA max_page_count = 5"_s);
        {
            Transaction transaction(conn);
            add(u"1b"_s);
            EXPECT_STORE_ERROR(Full,
                               conn.AddNew(u"Klassen"_s).Set(u"Text"_s, QString(100000, u'a')).Update());
            EXPECT_STORE_ERROR(Programming, add(u"1c"_s));
            EXPECT_STORE_ERROR(Programming, conn.Open(u"SELECT * FROM Klassen"_s));
            EXPECT_STORE_ERROR(Programming, transaction.Commit());
        }
        QCOMPARE(seen(), u"1a"_s);
        add(u"2a"_s);
        QCOMPARE(seen(), u"1a 2a"_s);
    }

    void onlyOneConnectionWritesAtATimeAndTheOthersGoOnReading() {
        Transaction transaction(conn);
        EXPECT_STORE_ERROR(Busy, Transaction{other});
        EXPECT_STORE_ERROR(Busy, other.Delete(u"Klassen"_s));
        QCOMPARE(seen(), QString());
        transaction.Commit();
        QCOMPARE(other.Delete(u"Klassen"_s), 0);
    }
};

KOLIBRI_TEST_MAIN(transactionTest)
#include "transaction_test.moc"
