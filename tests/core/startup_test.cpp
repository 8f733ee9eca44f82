#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/settings_file.h"
#include "core/startup.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QSqlDatabase>
#include <QSqlQuery>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kMissing =
    u"Datenbank ***KOLIBRI_Daten.mdb*** wurde nicht gefunden. Bitte korrigieren Sie unter EXTRAS -> "
    "EINSTELLUNGEN den Datenbankpfad!"_s;

QByteArray contentOf(const QString& name) {
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

void writeFile(const QString& name, const QByteArray& content) {
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(content), content.size());
}

void setRow(const QString& key, const FieldValues& values) {
    const DbSession session(u"Test"_s);
    QCOMPARE(Global().Conn.Change(u"Einstellungen"_s, values, u"Feld = ?"_s, {key}), 1);
}

} // namespace

class StartupTest : public kolibri::test::TestBase {
    Q_OBJECT

    /// The folder of the executable in these tests.
    QString programFolder() const {
        const QString folder = scratch() + u"/programm"_s;
        QDir().mkpath(folder);
        return folder;
    }

    StartState start() { return startUp(programFolder()); }

private Q_SLOTS:
    void withNoSettingsFileAnywhereAndNoDatabaseTheFileIsWrittenAndTheBoxFollows() {
        doorsOfTest.expect(kMissing);
        QCOMPARE(start(), StartState::WithoutDatabase);
        QCOMPARE(contentOf(settingsFile()),
                 "Datenbankpfad;" + QDir::toNativeSeparators(home()).toLatin1() + "\r\n");
        QCOMPARE(doorsOfTest.boxes().front().title, u"Kolibri"_s);
        QCOMPARE(doorsOfTest.boxes().front().code, 0);
    }

    void startLaeuftStaysTrueWithoutADatabase() {
        doorsOfTest.expect(kMissing);
        start();
        QVERIFY(Global().StartLaeuft);
    }

    void withoutADatabaseNothingElseOfTheStartRuns() {
        QSettings(u"Nordlicht"_s, u"Kolibri"_s).setValue(u"Organisation"_s, u"Grundschule"_s);
        doorsOfTest.expect(kMissing);
        start();
        QCOMPARE(Global().SchuleOrganisation, QString());
        QVERIFY(!Global().Conn.IsOpen());
    }

    void theFolderOfTheSettingsFileIsUsedAndTheFileLeftAlone() {
        const QString folder = scratch() + u"/daten"_s;
        QVERIFY(QDir().mkpath(folder));
        useEmptyDatabase();
        QVERIFY(QFile::rename(DatenbankDatei(home()), DatenbankDatei(folder)));
        const QByteArray line = "Datenbankpfad=" + folder.toLatin1() + "\r\n";
        writeFile(settingsFile(), line);
        QCOMPARE(start(), StartState::Ready);
        QCOMPARE(Global().DB_Pfad, folder);
        QCOMPARE(contentOf(settingsFile()), line);
    }

    void aCopyInTheProgramsFolderIsUsedOnceAndCarriedOver() {
        const QString copy = programFolder() + u"/einstellungen.txt"_s;
        writeFile(copy, "Datenbankpfad=" + home().toLatin1() + "\r\n");
        useEmptyDatabase();
        QCOMPARE(start(), StartState::Ready);
        QCOMPARE(contentOf(settingsFile()), "Datenbankpfad;" + home().toLatin1() + "\r\n");
        writeFile(copy, "Datenbankpfad;/anderswo\r\n");
        QCOMPARE(start(), StartState::Ready);
        QCOMPARE(Global().DB_Pfad, home());
    }

    void aSettingsFileWithoutAPathLineLeavesTheFolderEmpty() {
        writeFile(settingsFile(), "Drucker;X\r\n");
        doorsOfTest.expect(kMissing);
        QCOMPARE(start(), StartState::WithoutDatabase);
        QCOMPARE(Global().DB_Pfad, QString());
        QCOMPARE(DatenbankDatei(Global().DB_Pfad), u"/KOLIBRI_Daten.mdb"_s);
    }

    void aMissingProgramDataFolderIsMade() {
        QVERIFY(QDir(home()).rmdir(u"ProgramData"_s));
        doorsOfTest.expect(kMissing);
        start();
        QVERIFY(QDir(home() + u"/ProgramData"_s).exists());
    }

    void aMissingBaseFolderEndsTheStart() {
        qputenv("KOLIBRI_HOME", (scratch() + u"/fehlt"_s).toLocal8Bit());
        try {
            start();
            QFAIL("the start went on without a base folder");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.message(), u"Laufzeitfehler '76': Pfad nicht gefunden"_s);
            QVERIFY(error.details().contains(u"fehlt"_s));
        }
        QVERIFY(!QDir(scratch() + u"/fehlt"_s).exists());
    }

    void computerNameComesFromTheEnvironment() {
        useEmptyDatabase();
        start();
        QCOMPARE(Global().ComputerName, u"TEST-PC"_s);
        qunsetenv("ComputerName");
        start();
        QCOMPARE(Global().ComputerName, QSysInfo::machineHostName());
    }

    void theSchoolsAddressIsReadAndAMissingValueIsEmpty() {
        QSettings settings(u"Nordlicht"_s, u"Kolibri"_s);
        settings.setValue(u"Name"_s, u"Büro"_s);
        settings.setValue(u"Organisation"_s, u"Grundschule am Teich"_s);
        settings.setValue(u"Strasse"_s, u"Teichweg 1"_s);
        settings.setValue(u"PLZOrt"_s, u"01234 Teichstadt"_s);
        settings.sync();
        useEmptyDatabase();
        start();
        QCOMPARE(Global().SchuleName, u"Büro"_s);
        QCOMPARE(Global().SchuleOrganisation, u"Grundschule am Teich"_s);
        QCOMPARE(Global().SchuleStrasse, u"Teichweg 1"_s);
        QCOMPARE(Global().SchulePLZOrt, u"01234 Teichstadt"_s);
        QCOMPARE(Global().SchuleEmail, QString());
    }

    void aNewDatabaseGivesItsOwnSettings() {
        useEmptyDatabase();
        QCOMPARE(start(), StartState::Ready);
        const auto& global = Global();
        QVERIFY(!global.StartLaeuft);
        QCOMPARE(global.NameKurz[kNamesMensaLernzeit], u"Nachname gekürzt"_s);
        QCOMPARE(global.NameKurz[kNamesArbeitsgruppe], u"Ungekürzt"_s);
        QCOMPARE(global.NameKurz[kNamesTagesplan], u"Ungekürzt"_s);
        for (const auto& order : global.NameZuerst)
            QCOMPARE(order, u"Vorname Nachname"_s);
        QVERIFY(global.UeberschneidungPruefen);
        QVERIFY(!global.ZusatzSchwimmer && !global.ZusatzBaustein && !global.ZusatzKennung);
        QCOMPARE(global.KontaktBezeichnung[0], u"Nachname"_s);
        QCOMPARE(global.KontaktBezeichnung[9], u"Verw. Verh."_s);
    }

    void additionalFieldsAreOnOnlyForTheNumberOne() {
        useEmptyDatabase();
        setRow(u"Schwimmer"_s, {{u"SchülerZusatz"_s, 1}});
        setRow(u"Kennung"_s, {{u"SchülerZusatz"_s, 2}});
        setRow(u"Baustein"_s, {{u"SchülerZusatz"_s, QVariant()}});
        start();
        QVERIFY(Global().ZusatzSchwimmer);
        QVERIFY(!Global().ZusatzKennung);
        QVERIFY(!Global().ZusatzBaustein);
    }

    void withTheOverlapRowSetToZeroTheCheckIsOffAndTheRowIsNotWrittenBack() {
        useEmptyDatabase();
        setRow(u"Ü-Zeitüberschneidung"_s, {{u"Grösse"_s, 0}});
        const auto before = kolibri::test::wholeDatabase();
        const QByteArray bytes = contentOf(DatenbankDatei(home()));
        start();
        QVERIFY(!Global().UeberschneidungPruefen);
        QCOMPARE(kolibri::test::wholeDatabase(), before);
        QCOMPARE(contentOf(DatenbankDatei(home())), bytes);
    }

    void aMissingOverlapRowTurnsTheCheckOff() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Delete(u"Einstellungen"_s, u"Feld = ?"_s, {u"Ü-Zeitüberschneidung"_s});
        }
        Global().UeberschneidungPruefen = true;
        start();
        QVERIFY(!Global().UeberschneidungPruefen);
    }

    void aKeyInAnotherCaseIsTheSameRow() {
        useEmptyDatabase();
        setRow(u"NAME_LISTE_AG"_s, {{u"NameKurz"_s, u"Vorname gekürzt"_s}});
        setRow(u"ü-zeitÜBERSCHNEIDUNG"_s, {{u"Grösse"_s, 0}});
        start();
        QCOMPARE(Global().NameKurz[kNamesArbeitsgruppe], u"Vorname gekürzt"_s);
        QVERIFY(!Global().UeberschneidungPruefen);
    }

    void aDamagedDatabaseEndsTheStartAndIsNotTouched() {
        useEmptyDatabase();
        QFile file(DatenbankDatei(home()));
        QVERIFY(file.resize(file.size() / 2));
        const QByteArray bytes = contentOf(file.fileName());
        QVERIFY_THROWS_EXCEPTION(StoreError, start());
        QCOMPARE(contentOf(file.fileName()), bytes);
        QVERIFY(!Global().Conn.IsOpen());
    }

    void aDatabaseOfAnotherProgramIsRefusedAndNotTouched() {
        {
            QSqlDatabase other = QSqlDatabase::addDatabase(u"QSQLITE"_s, u"other"_s);
            other.setDatabaseName(DatenbankDatei(home()));
            QVERIFY(other.open());
            QVERIFY(QSqlQuery(other).exec(u"CREATE TABLE Rezepte (Name TEXT)"_s));
            other.close();
        }
        QSqlDatabase::removeDatabase(u"other"_s);
        const QByteArray bytes = contentOf(DatenbankDatei(home()));
        try {
            start();
            QFAIL("a foreign database was taken");
        } catch (const StoreError& error) {
            QCOMPARE(error.kind(), StoreError::Kind::Foreign);
            QVERIFY(error.message().contains(u"keine Datenbank dieses Programms"_s));
        }
        QCOMPARE(contentOf(DatenbankDatei(home())), bytes);
    }

    void theVersionLineHasThreeNumbers() {
        static const QRegularExpression form(u"^Version   \\d+\\.\\d+\\.\\d+$"_s);
        QVERIFY(form.match(versionLine()).hasMatch());
    }
};

KOLIBRI_TEST_MAIN(StartupTest)
#include "startup_test.moc"
