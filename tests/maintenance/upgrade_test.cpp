#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/store/schema.h"
#include "core/widgets/application.h"
#include "maintenance/upgrade.h"
#include "support/fixtures.h"
#include "support/old_database.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

/// What a column is called and of which kind it is, table by table.
QMap<QString, QStringList> shapeOf(Connection& conn) {
    QMap<QString, QStringList> shape;
    for (const auto& table : conn.Tables()) {
        QStringList columns;
        for (const auto& column : conn.Columns(table))
            columns << u"%1:%2"_s.arg(column.name).arg(static_cast<int>(column.kind));
        columns.sort();
        shape.insert(table, columns);
    }
    return shape;
}

QMap<QString, QStringList> wantedShape() {
    QMap<QString, QStringList> shape;
    for (const auto& table : schema()) {
        QStringList columns;
        for (const auto& column : table.columns)
            columns << u"%1:%2"_s.arg(column.info.name).arg(static_cast<int>(column.info.kind));
        columns.sort();
        shape.insert(table.name, columns);
    }
    return shape;
}

/// Left to the repairs of version 1.1.1, or added only together with something else.
bool comesAnotherWay(const QString& table, const QString& column) {
    return column == u"Zeit_K_Name"_s || column.startsWith(u"GR5_"_s) || column.startsWith(u"GR6_"_s)
           || column.startsWith(u"GR7_"_s)
           || (table == u"Einstellungen"_s && column == u"KategorieKontakte"_s);
}

} // namespace

class UpgradeTest : public OldDatabaseTest {
    Q_OBJECT

private Q_SLOTS:
    void aCurrentFileIsOnlyRead() {
        useEmptyDatabase();
        const QByteArray before = fileContent(DatenbankDatei(home()));
        QElapsedTimer timer;
        timer.start();
        bringUpToDate();
        qInfo("schema pass of a current file: %.2f ms", double(timer.nsecsElapsed()) / 1e6);
        QCOMPARE(fileContent(DatenbankDatei(home())), before);
        QVERIFY(safetyCopies().isEmpty());
        const auto& global = Global();
        QVERIFY(!global.UpgradeNotizen && !global.UpgradeKontakte && !global.UpgradeAG_Slots
                && !global.UpgradeBeitraege && !global.UpgradeKategorien);
    }

    void aRemovedTableOrColumnComesBack_data() {
        QTest::addColumn<QString>("table");
        QTest::addColumn<QString>("column");
        for (const auto& table : schema()) {
            if (table.later)
                QTest::newRow(qPrintable(table.name)) << table.name << QString();
            for (const auto& column : table.columns)
                if (column.later && !comesAnotherWay(table.name, column.info.name))
                    QTest::newRow(qPrintable(QString(table.name + u'.' + column.info.name)))
                        << table.name << column.info.name;
        }
    }

    void aRemovedTableOrColumnComesBack() {
        QFETCH(QString, table);
        QFETCH(QString, column);
        useEmptyDatabase();
        inDatabase([&](Connection& conn) {
            if (column.isEmpty())
                dropTable(conn, table);
            else
                dropColumn(conn, table, column);
        });
        start();
        inDatabase([&](Connection& conn) { QCOMPARE(shapeOf(conn), wantedShape()); });
        QCOMPARE(safetyCopies().size(), 1);
        const QByteArray afterFirst = fileContent(DatenbankDatei(home()));
        start();
        QCOMPARE(fileContent(DatenbankDatei(home())), afterFirst);
    }

    void aFileOfTheFirstVersionGrowsToTheWholeSchema() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) { makeFirstVersion(conn); });
        start();
        const auto& global = Global();
        QVERIFY(global.UpgradeNotizen && global.UpgradeKontakte && global.UpgradeAG_Slots
                && global.UpgradeBeitraege && global.UpgradeKategorien);
        inDatabase([](Connection& conn) {
            QVERIFY(conn.HasColumn(u"Stammdaten"_s, u"GR7_FR"_s));
            QVERIFY(conn.HasColumn(u"Einstellungen"_s, u"KategorieKontakte"_s));
            QVERIFY(!conn.HasColumn(u"SCH_Notiz"_s, u"Zeit_K_Name"_s));
        });
        start();
        QVERIFY(!Global().UpgradeNotizen);
    }

    void theSettingsRowsOfTheFirstStartAreThoseOfANewDatabase() {
        useEmptyDatabase();
        QStringList wanted;
        inDatabase([&](Connection& conn) {
            wanted = tableRows(conn, u"Einstellungen"_s);
            makeFirstVersion(conn);
        });
        start();
        inDatabase([&](Connection& conn) {
            QStringList rows = tableRows(conn, u"Einstellungen"_s);
            rows.sort();
            wanted.sort();
            QCOMPARE(rows, wanted);
            QCOMPARE(tableRows(conn, u"KategorieKontakte"_s),
                     (QStringList{u"ID=0; Name=Name"_s, u"ID=1; Name=Adresse"_s, u"ID=2; Name=Telefon"_s,
                                  u"ID=3; Name=E-Mail"_s, u"ID=4; Name=Sonstiges"_s}));
        });
    }

    void whatIsMissingIsAddedInItsOrder() {
        useEmptyDatabase();
        QStringList oldTables;
        qsizetype oldColumns = 0;
        inDatabase([&](Connection& conn) {
            makeFirstVersion(conn);
            oldTables = conn.Tables();
            oldColumns = static_cast<qsizetype>(conn.Columns(u"Stammdaten"_s).size());
        });
        start();
        inDatabase([&](Connection& conn) {
            QCOMPARE(conn.Tables(),
                     oldTables
                         + QStringList({u"Temp_Zeiten"_s, u"WP_Notiz"_s, u"Unterrichtseinheiten"_s,
                                        u"Stundenplan"_s, u"GR6"_s, u"GR7"_s, u"Liste_AG"_s, u"Parameter"_s,
                                        u"WochenplanTexte"_s, u"Bausteine"_s, u"KategorieKontakte"_s}));
            QStringList added;
            for (const auto& column : conn.Columns(u"Stammdaten"_s))
                added << column.name;
            QStringList wanted{u"NichtOG"_s, u"ZeitStempel"_s, u"PC_Name"_s};
            for (const auto& number : {u"1"_s, u"2"_s, u"3"_s})
                for (const auto& field :
                     {u"GV_Name"_s, u"GV_Vorname"_s, u"Strasse"_s, u"PLZ"_s, u"Ort"_s, u"Tel_privat"_s,
                      u"Mobil"_s, u"Tel_Dienst"_s, u"E_Mail"_s, u"Verwandt"_s})
                    wanted << field + number;
            wanted << u"NotfallRN"_s << u"Anmerkung"_s << u"Kennung"_s << u"Baustein"_s;
            for (int fee = 0; fee <= kBeitraege; ++fee)
                wanted << u"Beitrag_%1"_s.arg(fee);
            wanted << u"Schwimmer"_s;
            for (const auto& slot : {u"GR6_"_s, u"GR7_"_s})
                for (int day = 0; day < kSchoolDays; ++day)
                    wanted << slot + TagCode(day);
            QCOMPARE(added.mid(oldColumns), wanted);
        });
    }

    void aKeyWrittenInAnotherCaseIsNotAddedAgain() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            conn.Change(u"Einstellungen"_s, {{u"Feld"_s, u"WochenplanKopfZeile"_s}}, u"Feld = ?"_s,
                        {u"WochenPlanKopfZeile"_s});
        });
        start();
        inDatabase([](Connection& conn) {
            QCOMPARE(conn.Open(u"SELECT Feld FROM Einstellungen WHERE Feld = 'wochenplankopfzeile'"_s)
                         .RecordCount(),
                     1);
        });
    }

    void classesAreSplitIntoGradeAndLetter() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            for (const auto& name : {u"3a"_s, u"10a"_s, u"a"_s, u"abc"_s, u"1234"_s})
                conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, name).Update();
            dropColumn(conn, u"Klassen"_s, u"KlassenNR"_s);
            dropColumn(conn, u"Klassen"_s, u"Schulstufe"_s);
        });
        start();
        inDatabase([](Connection& conn) {
            QStringList parts;
            for (Recordset rs = conn.Open(u"SELECT * FROM Klassen ORDER BY ID"_s); !rs.Eof(); rs.MoveNext())
                parts << rs.Text(u"Schulstufe") + u'/' + rs.Text(u"KlassenNR");
            QCOMPARE(parts, (QStringList{u"3/a"_s, u"10/a"_s, u"/"_s, u"/"_s, u"/"_s}));
        });
    }

    void columnsThatComeOnlyWithTheirTableComeBackWithIt() {
        useEmptyDatabase();
        QStringList settings;
        inDatabase([&](Connection& conn) {
            conn.Change(u"Einstellungen"_s, {{u"Bezeichnung"_s, u"Handy"_s}},
                        u"Feld = 'Kontakt' AND Nummer = 6"_s);
            settings = tableRows(conn, u"Einstellungen"_s);
            dropTable(conn, u"KategorieKontakte"_s);
            dropColumn(conn, u"Einstellungen"_s, u"KategorieKontakte"_s);
            dropTable(conn, u"GR6"_s);
            dropTable(conn, u"GR7"_s);
            for (const auto& slot : {u"GR6_"_s, u"GR7_"_s})
                for (int day = 0; day < kSchoolDays; ++day)
                    dropColumn(conn, u"Stammdaten"_s, slot + TagCode(day));
        });
        start();
        inDatabase([&](Connection& conn) {
            QCOMPARE(shapeOf(conn), wantedShape());
            QCOMPARE(tableRows(conn, u"Einstellungen"_s), settings);
        });
        const QByteArray afterFirst = fileContent(DatenbankDatei(home()));
        start();
        QCOMPARE(fileContent(DatenbankDatei(home())), afterFirst);
    }

    void aNameFormatThatIsStillThereStays() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            conn.Change(u"Einstellungen"_s, {{u"NameKurz"_s, u"Vorname gekürzt"_s}}, u"Feld = ?"_s,
                        {u"Name_Liste_AG"_s});
            dropColumn(conn, u"Einstellungen"_s, u"NameZuerst"_s);
        });
        start();
        QCOMPARE(Global().NameKurz[kNamesArbeitsgruppe], u"Vorname gekürzt"_s);
        QCOMPARE(Global().NameZuerst[kNamesArbeitsgruppe], u"Vorname Nachname"_s);
    }

    void aFileInUseElsewhereEndsTheStartAndIsNotTouched() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) { dropTable(conn, u"Bausteine"_s); });
        const QByteArray before = fileContent(DatenbankDatei(home()));
        Connection other;
        other.OpenFile(DatenbankDatei(home()));
        const Transaction writing(other);
        constexpr int kShort = 50;
        Global().Conn.SetBusyWait(kShort);
        try {
            start();
            QFAIL("the file was changed while another workstation wrote");
        } catch (const StoreError& error) {
            QCOMPARE(error.kind(), StoreError::Kind::Busy);
            QVERIFY(error.note().contains(u"Sicherheitskopie"_s));
        }
        QCOMPARE(fileContent(DatenbankDatei(home())), before);
    }

    void aDateOrPostCodeColumnOfAnotherKindBecomesText() {
        useEmptyDatabase();
        inDatabase([](Connection& conn) {
            conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"Abel"_s).Set(u"PLZ"_s, u"2826"_s).Update();
            conn.ChangeColumn(u"Stammdaten"_s, {u"PLZ"_s, ColumnKind::Long});
        });
        start();
        inDatabase([](Connection& conn) {
            QCOMPARE(shapeOf(conn), wantedShape());
            QCOMPARE(conn.Open(u"SELECT PLZ FROM Stammdaten WHERE PLZ = '2826'"_s).RecordCount(), 1);
        });
    }
};

KOLIBRI_TEST_MAIN(UpgradeTest)
#include "upgrade_test.moc"
