#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "maintenance/backup.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

using enum ColumnKind;

const QString kChooseFolder = u"Wählen Sie im nächsten Schritt Verzeichnis und Ordner aus, in dem die "
                              "Sicherungsdatei gespeichert werden soll!"_s;

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<nicht lesbar>");
}

} // namespace

/// The backup file, byte for byte.
class BackupTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    /// A database with the given tables only.
    void makeDatabase(Connection& conn, const std::function<void(Connection&)>& fill) {
        conn.CreateFile(scratch() + u"/probe.mdb"_s);
        fill(conn);
    }

private Q_SLOTS:
    void theNameHoldsDateAndTime() {
        QCOMPARE(backupFileName(QDateTime(QDate(2024, 1, 31), QTime(17, 45, 2))),
                 u"Backup-KLB-20240131-174502.txt"_s);
    }

    void cancellingTheFolderDialogMeansTheRootOfTheDrive() {
        QCOMPARE(backupPath({}, QDateTime(QDate(2024, 1, 31), QTime(7, 5))),
                 u"/Backup-KLB-20240131-070500.txt"_s);
    }

    void eachTableHasItsNameItsColumnsAndItsRows() {
        Connection conn;
        makeDatabase(conn, [](Connection& c) {
            c.CreateTable(u"Zeiten"_s, {{u"ID"_s, AutoNumber}, {u"Tag"_s, Text}});
            c.CreateTable(u"Leer"_s, {{u"ID"_s, Long}, {u"Grösse"_s, Long}});
            c.AddNew(u"Zeiten"_s).Set(u"Tag"_s, u"MO"_s).Update();
            c.AddNew(u"Zeiten"_s).Set(u"ID"_s, 7).Set(u"Tag"_s, u"DI"_s).Update();
        });
        QCOMPARE(backupText(conn), u"<tbl>Zeiten</tbl>\r\n<col>ID|Tag</col>\r\n<dat>1|MO</dat>\r\n"
                                   "<dat>7|DI</dat>\r\n<tbl>Leer</tbl>\r\n<col>ID|Grösse</col>\r\n"_s);
    }

    void valuesStandInTheirGermanForm() {
        Connection conn;
        makeDatabase(conn, [](Connection& c) {
            c.CreateTable(u"T"_s, {{u"a"_s, Boolean},
                                   {u"b"_s, Boolean},
                                   {u"c"_s, DateTime},
                                   {u"d"_s, Currency},
                                   {u"e"_s, Currency},
                                   {u"f"_s, Long},
                                   {u"g"_s, Text},
                                   {u"h"_s, Text}});
            c.AddNew(u"T"_s)
                .Set(u"a"_s, true)
                .Set(u"c"_s, u"13:05"_s)
                .Set(u"d"_s, u"-1234,5"_s)
                .Set(u"e"_s, u"18,0525"_s)
                .Set(u"f"_s, -32768)
                .Set(u"g"_s, u" Größe \"1\" "_s)
                .Update();
        });
        QVERIFY(backupText(conn).endsWith(
            u"<dat>Wahr|Falsch|13:05:00|-1234,5|18,0525|-32768| Größe \"1\" |</dat>\r\n"_s));
    }

    void aNullAndAnEmptyTextLookTheSame() {
        Connection conn;
        makeDatabase(conn, [](Connection& c) {
            c.CreateTable(u"T"_s, {{u"a"_s, Text}, {u"b"_s, Text}, {u"c"_s, DateTime}});
            c.AddNew(u"T"_s).Set(u"a"_s, u""_s).Update();
        });
        QVERIFY(backupText(conn).endsWith(u"<dat>||</dat>\r\n"_s));
    }

    void nothingInAValueIsEscaped() {
        Connection conn;
        makeDatabase(conn, [](Connection& c) {
            c.CreateTable(u"T"_s, {{u"a"_s, Memo}, {u"b"_s, Text}});
            c.AddNew(u"T"_s).Set(u"a"_s, u"eins\r\n<dat>zwei\r\n"_s).Set(u"b"_s, u"x|y"_s).Update();
        });
        QVERIFY(backupText(conn).endsWith(u"<dat>eins\r\n<dat>zwei\r\n|x|y</dat>\r\n"_s));
    }

    void tablesOfTheEngineStayOut() {
        Connection conn;
        makeDatabase(conn, [](Connection& c) {
            c.CreateTable(u"MSysObjects"_s, {{u"ID"_s, Long}});
            c.CreateTable(u"msys"_s, {{u"ID"_s, Long}});
        });
        QCOMPARE(Tabellen_Auflisten(conn), QStringList{u"msys"_s});
    }

    void moreThanAHundredTablesFailAtTheBound() {
        Connection conn;
        makeDatabase(conn, [](Connection& c) {
            for (int i = 1; i <= kMostBackupTables; ++i)
                c.CreateTable(u"T%1"_s.arg(i), {{u"ID"_s, Long}});
        });
        QCOMPARE(Tabellen_Auflisten(conn).size(), kMostBackupTables);
        conn.CreateTable(u"eine zu viel"_s, {{u"ID"_s, Long}});
        QVERIFY_THROWS_EXCEPTION(RuntimeError, backupText(conn));
    }

    void moreThanAThousandColumnsFailAtTheBound() {
        std::vector<ColumnInfo> columns;
        for (int i = 1; i <= kMostBackupColumns; ++i)
            columns.push_back({u"S%1"_s.arg(i), Long});
        Connection conn;
        makeDatabase(conn, [&](Connection& c) { c.CreateTable(u"breit"_s, columns); });
        QCOMPARE(Spalten_Auflisten(conn, u"breit"_s).size(), kMostBackupColumns);
        conn.AddColumn(u"breit"_s, {u"eine zu viel"_s, Long});
        QVERIFY_THROWS_EXCEPTION(RuntimeError, backupText(conn));
    }

    void theFileIsWindows1252() {
        Connection conn;
        makeDatabase(conn, [](Connection& c) {
            c.CreateTable(u"T"_s, {{u"a"_s, Text}, {u"b"_s, Text}});
            c.AddNew(u"T"_s).Set(u"a"_s, u"Grüße €"_s).Set(u"b"_s, u"„ß“"_s).Update();
        });
        const QString file = scratch() + u"/sicherung.txt"_s;
        writeBackup(conn, file);
        QCOMPARE(contentOf(file), QByteArray("<tbl>T</tbl>\r\n<col>a|b</col>\r\n<dat>Gr\xfc\xdf"
                                             "e \x80|\x84\xdf\x93</dat>\r\n"));
    }

    void aLetterOutsideThatCodePageMakesTheWholeFileUtf8WithItsMark() {
        Connection conn;
        makeDatabase(conn, [](Connection& c) {
            c.CreateTable(u"T"_s, {{u"a"_s, Text}, {u"b"_s, Text}});
            c.AddNew(u"T"_s).Set(u"a"_s, u"Müller"_s).Set(u"b"_s, u"Kovačić"_s).Update();
        });
        const QString file = scratch() + u"/sicherung.txt"_s;
        writeBackup(conn, file);
        QCOMPARE(contentOf(file), QByteArray("\xEF\xBB\xBF") + backupText(conn).toUtf8());
    }

    void theMenuEntryWritesIntoTheChosenFolder() {
        useEmptyDatabase();
        doorsOfTest.setNow(QDateTime(QDate(2026, 11, 20), QTime(14, 3, 9)));
        doorsOfTest.answerPath(scratch());
        doorsOfTest.expect(kChooseFolder);
        doorsOfTest.expect(u"Sicherungsdatei Backup-KLB-20261120-140309.txt wurde erstellt."_s);
        DatensicherungErstellen();
        QCOMPARE(doorsOfTest.dialogs(), QStringList{u"Bitte wählen Sie einen Ordner aus..."_s});
        const QByteArray content = contentOf(scratch() + u"/Backup-KLB-20261120-140309.txt"_s);
        QVERIFY(content.startsWith("<tbl>Stammdaten</tbl>\r\n<col>ID|aktiv|SCH_Name|"));
        QVERIFY(content.contains("<dat>Kontakt||Falsch|Falsch||||||Verw. Verh.|9|Sonstiges</dat>\r\n"));
    }

    void aFileOfThatNameIsReplaced() {
        useEmptyDatabase();
        const QString path = backupPath(scratch(), doors().clock->now());
        QFile old(path);
        QVERIFY(old.open(QIODevice::WriteOnly) && old.write(QByteArray(1'000'000, 'x')) > 0);
        old.close();
        const DbSession session(u"Datensicherung"_s);
        writeBackup(Global().Conn, path);
        QCOMPARE(contentOf(path), backupText(Global().Conn).toLatin1());
    }

    void aFolderThatCannotBeWrittenEndsInTheRunTimeError() {
        useEmptyDatabase();
        doorsOfTest.answerPath(scratch() + u"/gibt es nicht"_s);
        doorsOfTest.expect(kChooseFolder);
        try {
            DatensicherungErstellen();
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.number(), 75);
            QVERIFY(error.details().contains(u"gibt es nicht"_s));
        }
    }
};

KOLIBRI_TEST_MAIN(BackupTest)
#include "backup_test.moc"
