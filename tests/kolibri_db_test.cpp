#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "maintenance/jet_process.h"
#include "support/fixtures.h"
#include "support/test_base.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

/// What a run of the tool came to.
struct Run {
    int code = -1;
    QString out;
    QString err;
};

Run runTool(const QStringList& arguments, const QString& folder = {}) {
    QProcess process;
    if (!folder.isEmpty())
        process.setWorkingDirectory(folder);
    process.start(QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri-db"_s, arguments);
    Run run;
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return run;
    run.code = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

const QString kUsage = u"Aufruf: kolibri-db BEFEHL [DATEI] ORDNER [Optionen]"_s;

} // namespace

class KolibriDbTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    int count(const QString& table) {
        const DbSession session(u"Test"_s);
        return Global().Conn.Open(u"SELECT * FROM %1"_s.arg(table)).RecordCount();
    }

private Q_SLOTS:
    void neuMakesAnEmptyDatabaseAndSaysWhere() {
        const Run run = runTool({u"neu"_s, home()});
        QCOMPARE(run.code, 0);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out,
                 u"Leere Datenbank angelegt: %1\n"_s.arg(QDir::toNativeSeparators(DatenbankDatei(home()))));
        QCOMPARE(count(u"Einstellungen"_s), 59);
        QCOMPARE(count(u"Stammdaten"_s), 0);
    }

    void beispielMakesTheUsualSchool() {
        const Run run = runTool({u"beispiel"_s, home()});
        QCOMPARE(run.code, 0);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out,
                 u"Beispielschule angelegt: %1\n"
                 "290 Schülerinnen und Schüler in 14 Klassen, 20 Schulanfänger, 10 Deaktivierte\n"_s.arg(
                     QDir::toNativeSeparators(DatenbankDatei(home()))));
        QCOMPARE(count(u"Stammdaten"_s), 320);
    }

    void beispielTakesTheNumberOfPupilsAndTheSeed() {
        QDir(scratch()).mkdir(u"a"_s);
        QDir(scratch()).mkdir(u"b"_s);
        const auto school = [&](const QString& folder, const QString& seed) {
            const Run run = runTool({u"beispiel"_s, folder, u"--schueler"_s, u"33"_s, u"--keim"_s, seed});
            Global().DB_Pfad = folder;
            return run.code == 0 ? test::wholeDatabase() : QMap<QString, QStringList>();
        };
        const auto one = school(scratch() + u"/a"_s, u"5"_s);
        const auto other = school(scratch() + u"/b"_s, u"4294967295"_s);
        QCOMPARE(one.value(u"Stammdaten"_s).size(), 33);
        QCOMPARE(other.value(u"Stammdaten"_s).size(), 33);
        QVERIFY(one.value(u"Stammdaten"_s) != other.value(u"Stammdaten"_s));
    }

    void aFolderIsTakenFromWhereTheToolIsCalled() {
        QVERIFY(QDir(scratch()).mkpath(u"Größe 1"_s));
        const Run run = runTool({u"neu"_s, u"Größe 1"_s}, scratch());
        QCOMPARE(run.code, 0);
        QVERIFY(QFile::exists(DatenbankDatei(scratch() + u"/Größe 1"_s)));
    }

    void anExistingFileIsNeverOverwritten_data() {
        QTest::addColumn<QString>("verb");
        QTest::newRow("neu") << u"neu"_s;
        QTest::newRow("beispiel") << u"beispiel"_s;
    }

    void anExistingFileIsNeverOverwritten() {
        QFETCH(QString, verb);
        const QByteArray content("Das ist keine Datenbank.");
        QFile file(DatenbankDatei(home()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        const Run run = runTool({verb, home()});
        QCOMPARE(run.code, 1);
        QCOMPARE(run.out, QString());
        QVERIFY2(run.err.startsWith(
                     u"Neue Datenbank anlegen: Die Datei %1 gibt es bereits.\n"_s.arg(file.fileName())),
                 qPrintable(run.err));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), content);
    }

    void aMissingFolderIsAFailureInWords() {
        const Run run = runTool({u"neu"_s, home() + u"/fehlt"_s});
        QCOMPARE(run.code, 1);
        QCOMPARE(run.out, QString());
        QVERIFY2(run.err.contains(u"Den Ordner"_s) && run.err.contains(u"fehlt gibt es nicht."_s),
                 qPrintable(run.err));
    }

    void reparierenGivesOldLinksTheirKeysAfterASafetyCopy() {
        test::writeFile(scratch() + u"/uralt.mdb"_s, test::fixture(u"jet/uralt/KOLIBRI_Daten.mdb"_s));
        QCOMPARE(runTool({kReadJetVerb, scratch() + u"/uralt.mdb"_s, DatenbankDatei(home())}).code, 0);
        const auto before = test::wholeDatabase();
        const Run run = runTool({u"reparieren"_s, home()});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.code, 0);
        const QStringList copies =
            QDir(home()).entryList({u"KOLIBRI_Daten-Sicherheitskopie-*.mdb"_s}, QDir::Files);
        QCOMPARE(copies.size(), 1);
        const QString protocol = home() + u"/Protokoll_Aktualisierung_SCH_Notiz.txt"_s;
        QCOMPARE(run.out,
                 u"Datenbank repariert: %1\nProtokoll: %2\nStand davor: %3\n"_s.arg(
                     QDir::toNativeSeparators(DatenbankDatei(home())), QDir::toNativeSeparators(protocol),
                     QDir::toNativeSeparators(home() + u'/' + copies.first())));
        QCOMPARE(test::fileContent(protocol).count("\r\n"), 3);
        const auto after = test::wholeDatabase();
        QVERIFY(after != before);
        QVERIFY(after[u"GR1"_s].first().contains(u"Zeit_K_Name="_s));
        QCOMPARE(runTool({u"reparieren"_s, home()}).code, 0);
        QCOMPARE(test::wholeDatabase(), after);
        QVERIFY(QFile::remove(DatenbankDatei(home())));
        QVERIFY(QFile::rename(home() + u'/' + copies.first(), DatenbankDatei(home())));
        QCOMPARE(test::wholeDatabase(), before);
    }

    void theProtocolLiesBesideTheDatabaseWhereTheProgramWasNeverSetUp() {
        useEmptyDatabase();
        QVERIFY(QDir().mkpath(scratch() + u"/daten"_s));
        QVERIFY(QFile::rename(DatenbankDatei(home()), DatenbankDatei(scratch() + u"/daten"_s)));
        qputenv("KOLIBRI_HOME", (scratch() + u"/fehlt"_s).toLocal8Bit());
        QCOMPARE(runTool({u"reparieren"_s, scratch() + u"/daten"_s}).code, 0);
        QVERIFY(QFile::exists(scratch() + u"/daten/Protokoll_Aktualisierung_SCH_Notiz.txt"_s));
        QVERIFY(!QFile::exists(scratch() + u"/fehlt"_s));
    }

    void reparierenStopsAtAnApostropheAndNamesTheCopy() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.AddNew(u"Stammdaten"_s).Set(u"GR1_MO"_s, u"Papa's Platz"_s).Update();
        }
        const Run refused = runTool({u"reparieren"_s, home()});
        QCOMPARE(refused.code, 1);
        QVERIFY2(refused.err.contains(u"enthält einen Apostroph"_s)
                     && refused.err.contains(u"liegt in der Sicherheitskopie "_s),
                 qPrintable(refused.err));
        {
            const DbSession session(u"Test"_s);
            Global()
                .Conn.AddNew(u"Einstellungen"_s)
                .Set(u"Feld"_s, u"Apostroph"_s)
                .Set(u"Grösse"_s, 1)
                .Update();
        }
        QCOMPARE(runTool({u"reparieren"_s, home()}).code, 0);
    }

    void reparierenRefusesWhatIsNoDatabaseOfTheSchool_data() {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("nothing there") << QByteArray();
        QTest::newRow("letter") << QByteArray("Das ist ein Brief.");
        QTest::newRow("old format") << test::fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s);
    }

    void reparierenRefusesWhatIsNoDatabaseOfTheSchool() {
        QFETCH(QByteArray, content);
        if (!content.isEmpty())
            test::writeFile(DatenbankDatei(home()), content);
        const Run run = runTool({u"reparieren"_s, home()});
        QCOMPARE(run.code, 1);
        QVERIFY2(run.err.startsWith(u"Datenbank aktualisieren: "_s), qPrintable(run.err));
        QCOMPARE(QDir(home()).entryList(QDir::Files).size(), content.isEmpty() ? 0 : 1);
        if (!content.isEmpty())
            QCOMPARE(test::fileContent(DatenbankDatei(home())), content);
    }

    void wrongUsageIsToldWithTheHelp_data() {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("words");
        QTest::newRow("nothing") << QStringList() << u"Es fehlt der Befehl."_s;
        QTest::newRow("unknown verb")
            << QStringList{u"loeschen"_s, u"."_s} << u"Den Befehl \"loeschen\" gibt es nicht."_s;
        QTest::newRow("no folder") << QStringList{u"neu"_s} << u"Beim Befehl neu fehlt: ORDNER"_s;
        QTest::newRow("two folders") << QStringList{u"neu"_s, u"a"_s, u"b"_s}
                                     << u"Beim Befehl neu ist \"b\" zu viel."_s;
        QTest::newRow("unknown option")
            << QStringList{u"neu"_s, u"."_s, u"--alles"_s} << u"Die Option --alles gibt es nicht."_s;
        QTest::newRow("option of another verb") << QStringList{u"neu"_s, u"."_s, u"--keim"_s, u"2"_s}
                                                << u"Der Befehl neu kennt die Option --keim nicht."_s;
        QTest::newRow("no value") << QStringList{u"beispiel"_s, u"."_s, u"--schueler"_s}
                                  << u"Hinter einer Option fehlt ihr Wert, oder er ist zu viel."_s;
        for (const auto& number : {u"0"_s, u"-3"_s, u"100001"_s, u"viele"_s, u"3,5"_s, u""_s})
            QTest::newRow(qPrintable(u"pupils \"%1\""_s.arg(number)))
                << QStringList{u"beispiel"_s, u"."_s, u"--schueler="_s + number}
                << u"--schueler: \"%1\" ist keine Zahl von 1 bis 100000."_s.arg(number);
        QTest::newRow("seed") << QStringList{u"beispiel"_s, u"."_s, u"--keim=4294967296"_s}
                              << u"--keim: \"4294967296\" ist keine Zahl von 0 bis 4294967295."_s;
    }

    void wrongUsageIsToldWithTheHelp() {
        QFETCH(QStringList, arguments);
        QFETCH(QString, words);
        const Run run = runTool(arguments, scratch());
        QCOMPARE(run.code, 2);
        QCOMPARE(run.out, QString());
        QCOMPARE(run.err.section(u'\n', 0, 0), words);
        QVERIFY2(run.err.contains(kUsage), qPrintable(run.err));
        QCOMPARE(QDir(scratch()).entryList(QDir::Files), QStringList());
    }

    void theHelpNamesEveryVerbAndOption_data() {
        QTest::addColumn<QString>("option");
        for (const auto& option : {u"--hilfe"_s, u"--help"_s, u"-h"_s})
            QTest::newRow(qPrintable(option)) << option;
    }

    void theHelpNamesEveryVerbAndOption() {
        QFETCH(QString, option);
        const Run run = runTool({option});
        QCOMPARE(run.code, 0);
        QCOMPARE(run.err, QString());
        for (const auto& words :
             {kUsage, u"  neu ORDNER\n"_s, u"  beispiel ORDNER [--schueler N] [--keim N]\n"_s,
              u"  uebernehmen DATEI ORDNER\n"_s, u"  reparieren ORDNER\n"_s,
              u"1 bis 100000; ohne Angabe 320"_s, u"--hilfe\n"_s, u"--version\n"_s, u"nie überschrieben"_s})
            QVERIFY2(run.out.contains(words), qPrintable(words));
    }

    void theVersionIsThatOfTheProgram() {
        const Run run = runTool({u"--version"_s});
        QCOMPARE(run.code, 0);
        QCOMPARE(run.out, u"kolibri-db %1\n"_s.arg(QStringLiteral(KOLIBRI_VERSION)));
    }
};

KOLIBRI_TEST_MAIN(KolibriDbTest)
#include "kolibri_db_test.moc"
