#include "core/store/connection.h"
#include "core/store/recordset.h"
#include "core/widgets/application.h"
#include "store_support.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

using enum ColumnKind;

class recordsetTest : public TestBase {
    Q_OBJECT

    Connection conn;

    Recordset all() { return conn.Open(u"SELECT * FROM Einstellungen ORDER BY Nummer"_s); }

private Q_SLOTS:
    void init() {
        TestBase::init();
        conn.CreateFile(scratch() + u"/einstellungen.mdb"_s);
        conn.CreateTable(u"Einstellungen"_s,
                         {{u"Nummer"_s, Long}, {u"Grösse"_s, Long}, {u"Feld"_s, Text}, {u"Fett"_s, Boolean}});
        for (int i = 1; i <= 3; ++i)
            conn.AddNew(u"Einstellungen"_s).Set(u"Nummer"_s, i).Set(u"Feld"_s, u"Zeile %1"_s.arg(i)).Update();
    }

    void cleanup() {
        conn.Close();
        TestBase::cleanup();
    }

    void itStandsOnItsFirstRowAndIsWalkedToItsEnd() {
        QStringList fields;
        Recordset rs = all();
        QCOMPARE(rs.RecordCount(), 3);
        for (; !rs.Eof(); rs.MoveNext())
            fields << rs.Text(u"Feld");
        QCOMPARE(fields, QStringList({u"Zeile 1"_s, u"Zeile 2"_s, u"Zeile 3"_s}));
        QCOMPARE(rs.RecordCount(), 3);
    }

    void itMovesToItsFirstAndItsLastRow() {
        Recordset rs = all();
        rs.MoveLast();
        QCOMPARE(rs.Number(u"Nummer"), 3);
        rs.MoveNext();
        QVERIFY(rs.Eof());
        rs.MoveFirst();
        QVERIFY(!rs.Eof());
        QCOMPARE(rs.Number(u"Nummer"), 1);
    }

    void withoutRowsItIsAtItsEndAtOnce() {
        Recordset rs = conn.Open(u"SELECT * FROM Einstellungen WHERE Nummer > 99"_s);
        QCOMPARE(rs.RecordCount(), 0);
        QVERIFY(rs.Eof());
        rs.MoveLast();
        QVERIFY(rs.Eof());
        rs.MoveFirst();
        QVERIFY(rs.Eof());
        QCOMPARE(rs.FieldCount(), 4);
        EXPECT_STORE_ERROR(Programming, rs.Value(u"Feld"));
        EXPECT_STORE_ERROR(Programming, rs.Text(0));
    }

    void oneThatWasNeverOpenedIsEmpty() {
        Recordset rs;
        QVERIFY(rs.Eof());
        QCOMPARE(rs.RecordCount(), 0);
        QCOMPARE(rs.FieldCount(), 0);
        QCOMPARE(rs.FieldName(0), QString());
        QVERIFY(!rs.HasField(u"Feld"));
        EXPECT_STORE_ERROR(Programming, rs.Value(u"Feld"));
    }

    void behindTheEndThereIsNoValue() {
        Recordset rs = all();
        rs.MoveLast();
        rs.MoveNext();
        EXPECT_STORE_ERROR(Programming, rs.Value(u"Feld"));
        EXPECT_STORE_ERROR(Programming, rs.Value(0));
        const auto error = errorOf([&] { rs.Text(u"Feld"); });
        QVERIFY(error);
        QCOMPARE(error->message(), u"Es gibt keinen weiteren Datensatz."_s);
    }

    void aFieldOutsideTheQueryIsAnErrorAndNeverAnotherRowsCell() {
        Recordset rs = all();
        rs.MoveNext();
        EXPECT_STORE_ERROR(Programming, rs.Value(-1));
        EXPECT_STORE_ERROR(Programming, rs.Value(4));
        EXPECT_STORE_ERROR(Programming, rs.Value(rs.FieldIndex(u"Farbe")));
        const auto error = errorOf([&] { rs.Number(u"Farbe"); });
        QVERIFY(error);
        QCOMPARE(error->message(), u"Das Feld \"Farbe\" gibt es in der Datenbank nicht."_s);
    }

    void fieldNamesAreFoundInAnyCaseUmlautsIncluded() {
        Recordset rs = all();
        QCOMPARE(rs.FieldIndex(u"GRÖSSE"), 1);
        QCOMPARE(rs.FieldIndex(u"gröSSe"), 1);
        QCOMPARE(rs.FieldIndex(u"Grosse"), -1);
        QCOMPARE(rs.FieldName(1), u"Grösse"_s);
        QCOMPARE(rs.FieldName(4), QString());
        QCOMPARE(rs.FieldName(-1), QString());
    }

    void ofTwoFieldsOfOneNameTheFirstIsFound() {
        const Recordset rs = conn.Open(u"SELECT 1 AS a, 2 AS A, 3 AS b"_s);
        QCOMPARE(rs.FieldCount(), 3);
        QCOMPARE(rs.Number(u"A"), 1);
        QCOMPARE(rs.Value(1).toInt(), 2);
        QCOMPARE(rs.Number(u"B"), 3);
    }

    void itStaysWhatItWasWhenTheStoreChanges() {
        Recordset rs = all();
        const Recordset copy = rs;
        conn.Delete(u"Einstellungen"_s);
        conn.Close();
        rs.MoveNext();
        QCOMPARE(rs.Text(u"Feld"), u"Zeile 2"_s);
        QCOMPARE(copy.Text(u"Feld"), u"Zeile 1"_s);
    }

    void aQueryMayRunInsideTheLoopOverAnother() {
        QStringList found;
        for (Recordset outer = all(); !outer.Eof(); outer.MoveNext()) {
            Recordset inner = all();
            QCOMPARE(inner.RecordCount(), 3);
            conn.Change(u"Einstellungen"_s, {{u"Grösse"_s, outer.Value(u"Nummer")}}, u"Nummer = ?"_s,
                        {outer.Value(u"Nummer")});
            found << outer.Text(u"Feld");
        }
        QCOMPARE(found.size(), 3);
        QCOMPARE(conn.Open(u"SELECT SUM(Grösse) FROM Einstellungen"_s).Value(0).toInt(), 6);
    }

    void aComputedColumnHasTheValueOfTheEngine() {
        const Recordset rs = conn.Open(
            u"SELECT MAX(Nummer), COUNT(*) AS Anzahl, MAX(Feld), MAX(Grösse), Nummer + 0.5 FROM Einstellungen"_s);
        QCOMPARE(rs.Value(0), QVariant(3LL));
        QCOMPARE(rs.Number(u"anzahl"), 3);
        QCOMPARE(rs.Text(2), u"Zeile 3"_s);
        QVERIFY(rs.Value(3).isNull());
        QCOMPARE(rs.Text(3), QString());
        QVERIFY(rs.Text(4).endsWith(u",5"_s));
    }

    void anAliasKeepsTheKindOfItsColumn() {
        const Recordset rs = conn.Open(u"SELECT Fett AS Dick, E.Fett FROM Einstellungen E"_s);
        QCOMPARE(rs.Text(u"Dick"), u"Falsch"_s);
        QCOMPARE(rs.Value(1).typeId(), QMetaType::Bool);
    }

    void aNullIsTheEmptyTextZeroAndFalse() {
        const Recordset rs = all();
        QVERIFY(rs.IsNull(u"Grösse"));
        QVERIFY(!rs.IsNull(u"Feld"));
        QVERIFY(!rs.Value(u"Grösse").isValid());
        QCOMPARE(rs.Text(u"Grösse"), QString());
        QCOMPARE(rs.Number(u"Grösse"), 0);
        QCOMPARE(rs.Amount(u"Grösse"), 0.0);
        QVERIFY(!rs.Bool(u"Grösse"));
        QCOMPARE(rs.Number(u"Feld"), 0);
    }
};

KOLIBRI_TEST_MAIN(recordsetTest)
#include "recordset_test.moc"
