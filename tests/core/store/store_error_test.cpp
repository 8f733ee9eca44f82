#include "core/store/connection.h"
#include "core/store/store_error.h"
#include "core/widgets/application.h"
#include "store_support.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

using enum ColumnKind;

class store_errorTest : public TestBase {
    Q_OBJECT

    QString file() const { return scratch() + u"/schule.mdb"_s; }

    /// An open database with one pupil named Weiß.
    void prepare(Connection& conn) {
        conn.CreateFile(file());
        conn.CreateTable(
            u"Stammdaten"_s,
            {{u"ID"_s, AutoNumber}, {u"SCH_Name"_s, Text}, {u"Anmerkung"_s, Memo}, {u"Neu"_s, Boolean}});
        conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"Weiß"_s).Update();
    }

    static QString names(Connection& conn) {
        QStringList result;
        for (Recordset rs = conn.Open(u"SELECT SCH_Name FROM Stammdaten ORDER BY ID"_s); !rs.Eof();
             rs.MoveNext())
            result << rs.Text(0);
        return result.join(u", "_s);
    }

private Q_SLOTS:
    void theMessageBeginsWithThePurposeAndTheDetailsNameEverything() {
        StoreError error(StoreError::Kind::Busy, u"Belegt."_s, u"Klassen"_s, u"database is locked (5)"_s);
        QCOMPARE(error.message(), u"Belegt."_s);
        error.setPurpose(u"Klassenliste laden"_s);
        QCOMPARE(error.message(), u"Klassenliste laden: Belegt."_s);
        QCOMPARE(error.details(), u"Vorgang: Klassenliste laden\nTabelle: Klassen\n"
                                  "Meldung der Datenbank: database is locked (5)"_s);
        QCOMPARE(QString::fromUtf8(error.what()), u"Belegt."_s);
    }

    void theFirstPurposeStays() {
        StoreError error(StoreError::Kind::Busy, u"Belegt."_s);
        QCOMPARE(error.details(), QString());
        error.setPurpose(u"innen"_s);
        error.setPurpose(u"außen"_s);
        QCOMPARE(error.message(), u"innen: Belegt."_s);
    }

    void everyErrorOfAConnectionCarriesThePurpose() {
        Connection conn;
        conn.SetPurpose(u"Schüler speichern"_s);
        const auto told = [](const std::function<void()>& work) {
            const auto error = errorOf(work);
            return error && error->message().startsWith(u"Schüler speichern: "_s);
        };
        QVERIFY(told([&] { conn.OpenFile(file()); }));
        QVERIFY(told([&] { conn.Open(u"SELECT 1"_s); }));
        prepare(conn);
        QVERIFY(told([&] { conn.CreateFile(file()); }));
        conn.OpenFile(file());
        QVERIFY(told([&] { conn.Open(u"SELECT Unfug FROM Stammdaten"_s); }));
        QVERIFY(told([&] { conn.Open(u"SELECT ?"_s, {u"'"_s}); }));
        QVERIFY(told([&] { conn.Execute(u"Unfug"_s); }));
        QVERIFY(told([&] { conn.Change(u"Stammdaten"_s, {{u"Neu"_s, u""_s}}); }));
        QVERIFY(told([&] { conn.AddNew(u"Stammdaten"_s).Set(u"Neu"_s, u""_s); }));
        QVERIFY(told([&] { conn.AddNew(u"Stammdaten"_s).Set(u"ID"_s, 1).Update(); }));
        QVERIFY(told([&] { conn.CopyTo(scratch() + u"/fehlt/kopie.mdb"_s); }));
        QVERIFY(told([&] { conn.Open(u"SELECT 1"_s).Value(1); }));
        QVERIFY(told([&] { conn.Open(u"SELECT ID FROM Stammdaten"_s).Value(u"Name"); }));
    }

    void anUnknownFieldOrTableIsNamed() {
        Connection conn;
        prepare(conn);
        auto error = errorOf([&] { conn.Change(u"Stammdaten"_s, {{u"Farbe"_s, 1}}); });
        QVERIFY(error);
        QCOMPARE(error->message(), u"Das Feld \"Farbe\" gibt es in der Tabelle \"Stammdaten\" nicht."_s);
        error = errorOf([&] { conn.AddNew(u"Haustiere"_s).Set(u"Farbe"_s, 1); });
        QVERIFY(error);
        QCOMPARE(error->message(), u"Die Tabelle \"Haustiere\" gibt es in der Datenbank nicht."_s);
        EXPECT_STORE_ERROR(Programming, conn.AddNew(u"Haustiere"_s).SetIfPossible(u"Farbe"_s, 1).Update());
        EXPECT_STORE_ERROR(Programming, conn.Delete(u"Haustiere"_s));
        EXPECT_STORE_ERROR(Programming, conn.Open(u"SELECT * FROM Haustiere"_s));
        EXPECT_STORE_ERROR(Programming, conn.Open(u"SELECT Farbe FROM Stammdaten"_s));
        error = errorOf([&] { conn.Execute(u"UPDATE Haustiere SET Farbe = 1"_s); });
        QVERIFY(error);
        QVERIFY2(error->details().contains(u"no such table: Haustiere"_s), qPrintable(error->details()));
    }

    void aMisspelledNameInDoubleQuotesIsNoText() {
        Connection conn;
        prepare(conn);
        EXPECT_STORE_ERROR(Programming, conn.Open(u"SELECT \"Farbe\" FROM Stammdaten"_s));
        EXPECT_STORE_ERROR(Programming, conn.Open(u"SELECT * FROM Stammdaten WHERE \"Farbe\" = 1"_s));
        QCOMPARE(conn.Open(u"SELECT \"SCH_NAME\" FROM \"Stammdaten\""_s).Text(0), u"Weiß"_s);
    }

    void aNullInAYesNoColumnIsRefusedAsAValue() {
        Connection conn;
        prepare(conn);
        EXPECT_STORE_ERROR(Value, conn.Execute(u"UPDATE Stammdaten SET Neu = NULL"_s));
        EXPECT_STORE_ERROR(Value, conn.Execute(u"UPDATE Stammdaten SET ID = 'abc'"_s));
    }

    void anApostropheIsRefusedBeforeAnythingIsExecuted_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("name") << u"O'Neill"_s;
        QTest::newRow("apostrophe alone") << u"'"_s;
        QTest::newRow("statement inside") << u"x'; DELETE FROM Stammdaten; --"_s;
        QTest::newRow("condition inside") << u"x' OR '1'='1"_s;
    }

    void anApostropheIsRefusedBeforeAnythingIsExecuted() {
        QFETCH(QString, text);
        Connection conn;
        prepare(conn);
        const qint64 before = conn.StatementCount();
        const QByteArray content = contentOf(file());
        EXPECT_STORE_ERROR(Syntax, conn.Change(u"Stammdaten"_s, {{u"SCH_Name"_s, text}}));
        EXPECT_STORE_ERROR(Syntax, conn.Change(u"Stammdaten"_s, {{u"Anmerkung"_s, text}}));
        EXPECT_STORE_ERROR(Syntax,
                           conn.Change(u"Stammdaten"_s, {{u"Neu"_s, true}}, u"SCH_Name = ?"_s, {text}));
        EXPECT_STORE_ERROR(Syntax, conn.Open(u"SELECT * FROM Stammdaten WHERE SCH_Name = ?"_s, {text}));
        EXPECT_STORE_ERROR(Syntax, conn.Delete(u"Stammdaten"_s, u"SCH_Name = ?"_s, {text}));
        EXPECT_STORE_ERROR(Syntax, conn.Execute(u"UPDATE Stammdaten SET SCH_Name = ?"_s, {text}));
        QCOMPARE(conn.StatementCount(), before);
        QCOMPARE(contentOf(file()), content);
    }

    void theRefusalOfAnApostropheShowsTheText() {
        Connection conn;
        prepare(conn);
        const auto error = errorOf([&] {
            conn.Change(u"Stammdaten"_s, {{u"SCH_Name"_s, u"O'Neill"_s}}, u"ID = 1"_s);
        });
        QVERIFY(error);
        QCOMPARE(error->message(), u"Syntaxfehler: Der Text \"O'Neill\" enthält einen Apostroph. Bitte "
                                   "schreiben Sie ihn ohne Apostroph."_s);
        QCOMPARE(error->details(), u"Tabelle: Stammdaten"_s);
    }

    void aNewRowTakesAnApostropheAndTheFirstUpdateOfThatRowIsRefused() {
        Connection conn;
        prepare(conn);
        const qint64 key = conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"O'Neill"_s).Update();
        QCOMPARE(names(conn), u"Weiß, O'Neill"_s);
        EXPECT_STORE_ERROR(Syntax,
                           conn.Change(u"Stammdaten"_s, {{u"SCH_Name"_s, u"O'Neill"_s}, {u"Neu"_s, true}},
                                       u"ID = ?"_s, {key}));
        QCOMPARE(conn.Open(u"SELECT Neu FROM Stammdaten WHERE Neu = true"_s).RecordCount(), 0);
    }

    void withTheRuleLiftedAnApostropheIsOnlyEverAText() {
        Connection conn;
        prepare(conn);
        conn.AllowApostrophes(true);
        const QString evil = u"x' OR '1'='1"_s;
        QCOMPARE(conn.Open(u"SELECT * FROM Stammdaten WHERE SCH_Name = ?"_s, {evil}).RecordCount(), 0);
        QCOMPARE(conn.Delete(u"Stammdaten"_s, u"SCH_Name = ?"_s, {evil}), 0);
        QCOMPARE(conn.Change(u"Stammdaten"_s, {{u"SCH_Name"_s, evil}}, u"SCH_Name = ?"_s, {u"WEIß"_s}), 1);
        QCOMPARE(names(conn), evil);
        QCOMPARE(
            conn.Execute(u"UPDATE Stammdaten SET SCH_Name = ? WHERE SCH_Name = ?"_s, {u"O'Neill"_s, evil}),
            1);
        QCOMPARE(names(conn), u"O'Neill"_s);
        conn.AllowApostrophes(false);
        EXPECT_STORE_ERROR(Syntax, conn.Open(u"SELECT * FROM Stammdaten WHERE SCH_Name = ?"_s, {evil}));
    }

    void aConnectionGoesOnAfterEveryKindOfError() {
        Connection conn;
        prepare(conn);
        EXPECT_STORE_ERROR(Syntax, conn.Execute(u"UPDATE Stammdaten SET"_s));
        EXPECT_STORE_ERROR(Syntax, conn.Open(u"SELECT ?"_s, {u"'"_s}));
        EXPECT_STORE_ERROR(Programming, conn.Open(u"SELECT * FROM Haustiere"_s));
        EXPECT_STORE_ERROR(Value, conn.Change(u"Stammdaten"_s, {{u"Neu"_s, u"?"_s}}));
        EXPECT_STORE_ERROR(KeyTaken, conn.AddNew(u"Stammdaten"_s).Set(u"ID"_s, 1).Update());
        EXPECT_STORE_ERROR(ReadOnly, conn.CopyTo(scratch() + u"/fehlt/kopie.mdb"_s));
        {
            Connection other;
            other.OpenFile(file());
            const Transaction transaction(other);
            other.AddNew(u"Stammdaten"_s).Update();
            conn.Close();
            conn.SetBusyWait(1);
            conn.OpenFile(file());
            EXPECT_STORE_ERROR(Busy, conn.AddNew(u"Stammdaten"_s).Update());
        }
        conn.Execute(u"PRAGMA max_page_count = 4"_s);
        EXPECT_STORE_ERROR(Full,
                           conn.AddNew(u"Stammdaten"_s).Set(u"Anmerkung"_s, QString(100000, u'a')).Update());
        conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"Öz"_s).Update();
        QCOMPARE(conn.Change(u"Stammdaten"_s, {{u"Neu"_s, true}}), 2);
        QCOMPARE(names(conn), u"Weiß, Öz"_s);
        QCOMPARE(conn.IntegrityProblems(), QStringList());
    }
};

KOLIBRI_TEST_MAIN(store_errorTest)
#include "store_error_test.moc"
