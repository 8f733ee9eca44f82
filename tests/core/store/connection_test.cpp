#include "core/store/connection.h"
#include "core/widgets/application.h"
#include "store_support.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

using enum ColumnKind;

class connectionTest : public TestBase {
    Q_OBJECT

    QString file() const { return scratch() + u"/schule.mdb"_s; }

    /// An open database with one small table of every kind.
    void prepare(Connection& conn) {
        conn.CreateFile(file());
        conn.CreateTable(u"Klassen"_s, {{u"ID"_s, AutoNumber},
                                        {u"Klasse"_s, Text},
                                        {u"Tag_Zahl"_s, Long},
                                        {u"Größe"_s, Long},
                                        {u"SchülerZusatz"_s, Memo},
                                        {u"Fett"_s, Boolean},
                                        {u"Beitrag"_s, Currency},
                                        {u"Beginn"_s, DateTime}});
    }

    static QStringList texts(Connection& conn, const QString& select, const QVariantList& values = {}) {
        QStringList result;
        for (Recordset rs = conn.Open(select, values); !rs.Eof(); rs.MoveNext())
            result << rs.Text(0);
        return result;
    }

private Q_SLOTS:
    void aMissingFileIsToldAndNotMade() {
        Connection conn;
        EXPECT_STORE_ERROR(Missing, conn.OpenFile(file()));
        QVERIFY(!conn.IsOpen());
        QVERIFY(filesIn(scratch()).isEmpty());
    }

    void aNewFileNeverReplacesAnother() {
        writeContent(file(), "Brief an die Eltern");
        Connection conn;
        EXPECT_STORE_ERROR(KeyTaken, conn.CreateFile(file()));
        QCOMPARE(contentOf(file()), QByteArray("Brief an die Eltern"));
    }

    void aNewFileInAMissingFolderIsRefused() {
        Connection conn;
        EXPECT_STORE_ERROR(ReadOnly, conn.CreateFile(scratch() + u"/fehlt/schule.mdb"_s));
        QVERIFY(filesIn(scratch()).isEmpty());
    }

    void openingAnOpenConnectionClosesItFirst() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, u"1a"_s).Update();
        conn.OpenFile(file());
        QVERIFY(conn.IsOpen());
        QCOMPARE(texts(conn, u"SELECT Klasse FROM Klassen"_s), QStringList{u"1a"_s});
        conn.Close();
        conn.Close();
        QVERIFY(!conn.IsOpen());
    }

    void aFailedOpeningLeavesTheConnectionClosed() {
        Connection conn;
        prepare(conn);
        EXPECT_STORE_ERROR(Missing, conn.OpenFile(scratch() + u"/fehlt.mdb"_s));
        EXPECT_STORE_ERROR(Programming, conn.Open(u"SELECT * FROM Klassen"_s));
        conn.OpenFile(file());
        QVERIFY(conn.HasTable(u"Klassen"_s));
    }

    void everyCallOnAClosedConnectionSaysSo() {
        Connection conn;
        EXPECT_STORE_ERROR(Programming, conn.Open(u"SELECT 1"_s));
        EXPECT_STORE_ERROR(Programming, conn.Execute(u"DELETE FROM Klassen"_s));
        EXPECT_STORE_ERROR(Programming, conn.Change(u"Klassen"_s, {{u"Klasse"_s, 1}}));
        EXPECT_STORE_ERROR(Programming, conn.Delete(u"Klassen"_s));
        EXPECT_STORE_ERROR(Programming, conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, 1));
        EXPECT_STORE_ERROR(Programming, conn.AddNew(u"Klassen"_s).SetIfPossible(u"Klasse"_s, 1));
        EXPECT_STORE_ERROR(Programming, conn.AddNew(u"Klassen"_s).Update());
        EXPECT_STORE_ERROR(Programming, conn.Tables());
        EXPECT_STORE_ERROR(Programming, conn.Columns(u"Klassen"_s));
        EXPECT_STORE_ERROR(Programming, conn.HasTable(u"Klassen"_s));
        EXPECT_STORE_ERROR(Programming, conn.CopyTo(scratch() + u"/kopie.mdb"_s));
        EXPECT_STORE_ERROR(Programming, conn.IntegrityProblems());
        EXPECT_STORE_ERROR(Programming, Transaction{conn});
        QVERIFY(filesIn(scratch()).isEmpty());
    }

    void aNewRowTakesEveryKindAndGivesItsKey() {
        Connection conn;
        prepare(conn);
        const qint64 key = conn.AddNew(u"Klassen"_s)
                               .Set(u"Klasse"_s, u"3a"_s)
                               .Set(u"Tag_Zahl"_s, u"4"_s)
                               .Set(u"Fett"_s, u"Wahr"_s)
                               .Set(u"Beitrag"_s, u"12,50"_s)
                               .Set(u"Beginn"_s, u"8:05"_s)
                               .Update();
        QCOMPARE(key, 1);
        Recordset rs = conn.Open(u"SELECT * FROM Klassen"_s);
        QCOMPARE(rs.RecordCount(), 1);
        QCOMPARE(rs.Number(u"ID"), 1);
        QCOMPARE(rs.Text(u"Klasse"), u"3a"_s);
        QCOMPARE(rs.Number(u"Tag_Zahl"), 4);
        QVERIFY(rs.IsNull(u"Größe"));
        QVERIFY(rs.Bool(u"Fett"));
        QCOMPARE(rs.Amount(u"Beitrag"), 12.5);
        QCOMPARE(rs.Text(u"Beitrag"), u"12,5"_s);
        QCOMPARE(rs.Text(u"Beginn"), u"08:05"_s);
        QCOMPARE(conn.AddNew(u"Klassen"_s).Update(), 2);
    }

    void aRowWithoutValuesHasFalseInItsYesNoColumn() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s).Update();
        conn.AddNew(u"Klassen"_s).Set(u"Fett"_s, QVariant()).Update();
        QCOMPARE(texts(conn, u"SELECT Fett FROM Klassen WHERE Fett = false"_s),
                 QStringList({u"Falsch"_s, u"Falsch"_s}));
    }

    void aFieldSetTwiceHasItsLastValue() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, u"1a"_s).Set(u"klasse"_s, u"1b"_s).Update();
        QCOMPARE(texts(conn, u"SELECT Klasse FROM Klassen"_s), QStringList{u"1b"_s});
    }

    void anOwnKeyIsTakenWhenFreeAndTheNumbersGoOnBehindIt() {
        Connection conn;
        prepare(conn);
        const auto add = [&](const QVariant& key) {
            return conn.AddNew(u"Klassen"_s).Set(u"ID"_s, key).Update();
        };
        QCOMPARE(add(u"17"_s), 17);
        QCOMPARE(add(QVariant()), 18);
        QCOMPARE(add(5), 5);
        QCOMPARE(add(QVariant()), 19);
        conn.Delete(u"Klassen"_s, u"ID = ?"_s, {19});
        QCOMPARE(add(QVariant()), 20);
    }

    void aTakenKeyIsRefusedAndTheOldRowStays() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s).Set(u"ID"_s, 3).Set(u"Klasse"_s, u"1a"_s).Update();
        EXPECT_STORE_ERROR(KeyTaken,
                           conn.AddNew(u"Klassen"_s).Set(u"ID"_s, 3).Set(u"Klasse"_s, u"1b"_s).Update());
        QCOMPARE(texts(conn, u"SELECT Klasse FROM Klassen"_s), QStringList{u"1a"_s});
    }

    void setIfPossiblePassesOverWhatTheRowDoesNotTake() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s)
            .SetIfPossible(u"Klasse"_s, QString(256, u'a'))
            .SetIfPossible(u"Tag_Zahl"_s, u""_s)
            .SetIfPossible(u"Größe"_s, u"8"_s)
            .SetIfPossible(u"Fett"_s, u""_s)
            .SetIfPossible(u"Beitrag"_s, u"abc"_s)
            .SetIfPossible(u"Unbekannt"_s, u"x"_s)
            .Update();
        Recordset rs = conn.Open(u"SELECT * FROM Klassen"_s);
        QCOMPARE(rs.RecordCount(), 1);
        QVERIFY(rs.IsNull(u"Klasse"));
        QVERIFY(rs.IsNull(u"Tag_Zahl"));
        QCOMPARE(rs.Number(u"Größe"), 8);
        QCOMPARE(rs.Bool(u"Fett"), false);
        QVERIFY(rs.IsNull(u"Beitrag"));
    }

    void namesAreFoundInAnyCaseUmlautsIncluded() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"KLASSEN"_s).Set(u"GRÖßE"_s, 10).Set(u"schülerzusatz"_s, u"a"_s).Update();
        conn.Change(u"klassen"_s, {{u"größe"_s, 12}, {u"SCHÜLERZUSATZ"_s, u"b"_s}});
        Recordset rs = conn.Open(u"SELECT * fROM klASSEN WHERE TAG_zahl IS NULL"_s);
        QCOMPARE(rs.Number(u"gRÖßE"), 12);
        QCOMPARE(rs.Text(u"SchÜlerZusatz"), u"b"_s);
        QVERIFY(rs.HasField(u"FETT"));
        QVERIFY(conn.HasTable(u"kLASSEN"_s));
        QVERIFY(conn.HasColumn(u"KLASSEN"_s, u"SCHÜLERzusatz"_s));
        QVERIFY(!conn.HasColumn(u"Klassen"_s, u"Schulerzusatz"_s));
        QVERIFY(!conn.HasTable(u"Klasse"_s));
    }

    void changeConvertsItsValuesAndCountsItsRows() {
        Connection conn;
        prepare(conn);
        for (int i = 0; i < 3; ++i)
            conn.AddNew(u"Klassen"_s).Set(u"Tag_Zahl"_s, i).Update();
        QCOMPARE(conn.Change(u"Klassen"_s, {{u"Beitrag"_s, u"1.250,50"_s}, {u"Fett"_s, u"1"_s}},
                             u"Tag_Zahl > ?"_s, {0}),
                 2);
        QCOMPARE(texts(conn, u"SELECT Beitrag FROM Klassen WHERE Fett = true"_s),
                 QStringList({u"1250,5"_s, u"1250,5"_s}));
        QCOMPARE(conn.Change(u"Klassen"_s, {{u"Klasse"_s, u"2a"_s}}), 3);
        QCOMPARE(conn.Change(u"Klassen"_s, {{u"Klasse"_s, u"2a"_s}}, u"ID = ?"_s, {99}), 0);
        EXPECT_STORE_ERROR(Value, conn.Change(u"Klassen"_s, {{u"Klasse"_s, u"2b"_s}, {u"Beginn"_s, u""_s}}));
        EXPECT_STORE_ERROR(Value, conn.Change(u"Klassen"_s, {{u"Klasse"_s, QString(256, u'a')}}));
        QCOMPARE(texts(conn, u"SELECT DISTINCT Klasse FROM Klassen"_s), QStringList{u"2a"_s});
    }

    void deleteAndExecuteCountTheirRows() {
        Connection conn;
        prepare(conn);
        for (int i = 0; i < 5; ++i)
            conn.AddNew(u"Klassen"_s).Set(u"Tag_Zahl"_s, i).Update();
        QCOMPARE(conn.Execute(u"UPDATE Klassen SET Klasse = ? WHERE Tag_Zahl < 3;"_s, {u"1a"_s}), 3);
        QCOMPARE(conn.Delete(u"Klassen"_s, u"Klasse = ?"_s, {u"1A"_s}), 3);
        QCOMPARE(conn.Delete(u"Klassen"_s), 2);
        QCOMPARE(conn.Open(u"SELECT * FROM Klassen"_s).RecordCount(), 0);
    }

    void anEmptyTextIsWrittenAndFoundAsTheEmptyTextHoweverItCameAbout() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, QString()).Update();
        conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, u""_s).Update();
        conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, u"1a"_s).Update();
        QCOMPARE(conn.Change(u"Klassen"_s, {{u"Klasse"_s, QString()}}, u"Klasse = ?"_s, {u"1a"_s}), 1);
        QCOMPARE(conn.Open(u"SELECT * FROM Klassen WHERE Klasse = ''"_s).RecordCount(), 3);
        QCOMPARE(conn.Open(u"SELECT * FROM Klassen WHERE Klasse = ?"_s, {QString()}).RecordCount(), 3);
        QCOMPARE(conn.Open(u"SELECT * FROM Klassen WHERE Klasse IS NULL"_s).RecordCount(), 0);
    }

    void tooFewOrTooManyValuesAreAnErrorAlsoTheSecondTime() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, u"1a"_s).Update();
        const QString select = u"SELECT * FROM Klassen WHERE Klasse = ? AND ID = ?"_s;
        EXPECT_STORE_ERROR(Syntax, conn.Open(select, {u"1a"_s}));
        QCOMPARE(conn.Open(select, {u"1a"_s, 1}).RecordCount(), 1);
        EXPECT_STORE_ERROR(Syntax, conn.Open(select, {u"1b"_s}));
        EXPECT_STORE_ERROR(Syntax, conn.Open(select));
        EXPECT_STORE_ERROR(Syntax, conn.Open(select, {u"1a"_s, 1, 2}));
        QCOMPARE(conn.Open(select, {u"1a"_s, 1}).RecordCount(), 1);
    }

    void aStatementMayBeginAndEndAsItLikes() {
        Connection conn;
        prepare(conn);
        QCOMPARE(conn.Open(u"  sElEcT * From Klassen;"_s).FieldCount(), 8);
        QCOMPARE(conn.Execute(u" update Klassen SET Klasse='1a';"_s), 0);
    }

    void anAnswerOfAStatementThatIsNoSelectHoldsNoLock() {
        Connection conn;
        prepare(conn);
        conn.Execute(u"PRAGMA table_info(Klassen)"_s);
        Connection other;
        other.SetBusyWait(0);
        other.OpenFile(file());
        other.AddNew(u"Klassen"_s).Update();
        QCOMPARE(conn.Open(u"SELECT * FROM Klassen"_s).RecordCount(), 1);
    }

    void aReadingHoldsNoLockAndSeesWhatOthersWroteSince() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s).Update();
        conn.AddNew(u"Klassen"_s).Update();
        Connection other;
        other.SetBusyWait(0);
        other.OpenFile(file());
        const QString select = u"SELECT * FROM Klassen"_s;
        Recordset before = conn.Open(select);
        other.AddNew(u"Klassen"_s).Update();
        QCOMPARE(before.RecordCount(), 2);
        QCOMPARE(conn.Open(select).RecordCount(), 3);
        other.Delete(u"Klassen"_s);
        QCOMPARE(conn.Open(select).RecordCount(), 0);
    }

    void aNewColumnIsSeenByTheNextReading() {
        Connection conn;
        prepare(conn);
        conn.AddNew(u"Klassen"_s).Update();
        const QString select = u"SELECT * FROM Klassen"_s;
        QVERIFY(!conn.Open(select).HasField(u"Neu"));
        QVERIFY(!conn.HasColumn(u"Klassen"_s, u"Neu"_s));
        conn.AddColumn(u"Klassen"_s, {u"Neu"_s, Boolean});
        QVERIFY(conn.HasColumn(u"Klassen"_s, u"Neu"_s));
        QCOMPARE(conn.Open(select).Value(u"Neu"), QVariant(false));
        conn.Execute(u"ALTER TABLE Klassen DROP COLUMN Klasse"_s);
        QVERIFY(!conn.HasColumn(u"Klassen"_s, u"Klasse"_s));
        QVERIFY(!conn.Open(select).HasField(u"Klasse"));
        conn.Execute(u"DROP TABLE Klassen"_s);
        QVERIFY(!conn.HasTable(u"Klassen"_s));
    }

    void tablesStandInTheOrderInWhichTheyWereMade() {
        Connection conn;
        prepare(conn);
        conn.CreateTable(u"Bausteine"_s, {{u"ID"_s, Long}});
        conn.CreateTable(u"Zeiten"_s, {{u"ID"_s, AutoNumber}});
        conn.CreateTable(u"Ausflüge"_s, {{u"ID"_s, AutoNumber}});
        QCOMPARE(conn.Tables(), QStringList({u"Klassen"_s, u"Bausteine"_s, u"Zeiten"_s, u"Ausflüge"_s}));
    }

    void aChangeOfRowsKeepsTheCatalogue() {
        Connection conn;
        prepare(conn);
        conn.Change(u"Klassen"_s, {{u"Klasse"_s, u"1a"_s}});
        const qint64 before = conn.StatementCount();
        conn.Execute(u"UPDATE Klassen SET Klasse = '1b'"_s);
        conn.Change(u"Klassen"_s, {{u"Klasse"_s, u"1a"_s}});
        QCOMPARE(conn.StatementCount() - before, 2);
    }
};

KOLIBRI_TEST_MAIN(connectionTest)
#include "connection_test.moc"
