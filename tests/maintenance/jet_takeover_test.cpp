#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/settings_file.h"
#include "core/startup.h"
#include "core/widgets/application.h"
#include "maintenance/jet_process.h"
#include "maintenance/jet_takeover.h"
#include "maintenance/new_database.h"
#include "support/fixtures.h"
#include "support/jet_cipher.h"
#include "support/test_base.h"

#include <QDir>
#include <QJsonArray>
#include <QProcess>
#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kTool = QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri-db"_s;
const QString kQuestion =
    u"Die Datenbank stammt aus einer älteren Programmversion. Soll sie übernommen werden? Die alte Datei "
    "bleibt unverändert erhalten."_s;

/// A cell of the old file as the new one must hold it. An empty text and a null are one in the expectations.
QVariant asStored(const QJsonValue& value, ColumnKind kind) {
    static const QRegularExpression moment(u"^(\\d{4})-(\\d\\d)-(\\d\\d)T(\\d\\d:\\d\\d):00$"_s);
    if (value.isNull())
        return {};
    if (value.isBool())
        return value.toBool();
    const bool isText = kind == ColumnKind::Text || kind == ColumnKind::Memo;
    if (value.isDouble())
        return isText ? QVariant(QString::number(value.toDouble())) : QVariant(value.toDouble());
    const auto match = moment.match(value.toString());
    if (!match.hasMatch())
        return value.toString();
    if (kind == ColumnKind::DateTime)
        return match.captured(4);
    return QString(match.captured(3) + u'.' + match.captured(2) + u'.' + match.captured(1));
}

/// What differs between a new database and the content that the old file is known to have.
QStringList differences(const QString& file, const QJsonObject& expected) {
    QStringList result;
    Connection conn;
    conn.OpenFile(file);
    QStringList tables = conn.Tables();
    tables.sort();
    if (tables != expected.keys())
        result << u"tables: "_s + tables.join(u' ');
    for (const auto& table : tables) {
        const QJsonArray rows = expected[table].toArray();
        Recordset rs = conn.Open(u"SELECT * FROM \"%1\""_s.arg(table));
        if (rs.RecordCount() != rows.size())
            result << u"%1: %2 rows"_s.arg(table).arg(rs.RecordCount());
        for (qsizetype i = 0; i < rows.size() && !rs.Eof(); ++i, rs.MoveNext()) {
            const QJsonObject row = rows.at(i).toObject();
            if (rs.FieldCount() != row.size())
                result << u"%1: %2 columns"_s.arg(table).arg(rs.FieldCount());
            for (const auto& column : conn.Columns(table)) {
                QVariant stored = rs.Value(column.name);
                if (stored == QVariant(u""_s))
                    stored = {};
                const QVariant wanted = asStored(row.value(column.name), column.kind);
                const bool same = wanted.typeId() == QMetaType::Double
                                      ? stored.toDouble() == wanted.toDouble()
                                      : stored == wanted;
                if (!row.contains(column.name) || stored.isNull() != wanted.isNull() || !same)
                    result << u"%1 %2 row %3: %4 for %5"_s.arg(table, column.name)
                                  .arg(i)
                                  .arg(stored.toString(), wanted.toString());
            }
        }
    }
    return result;
}

} // namespace

/// Taking over the database of an older program version, with the built tool.
class JetTakeoverTest : public TestBase {
    Q_OBJECT

private:
    TakeoverOptions options() const { return {.tool = kTool, .protocolFolder = home()}; }

    /// Puts an old file into the base folder, under the name that the program opens.
    QByteArray useOldFile(const QString& name) {
        const QByteArray content = fixture(u"jet/%1/KOLIBRI_Daten.mdb"_s.arg(name));
        writeFile(DatenbankDatei(home()), content);
        return content;
    }

    QStringList filesAtHome() const { return QDir(home()).entryList(QDir::Files, QDir::Name); }

    /// The takeover of this content ends in an error of this kind, and everything is as it was.
    void expectRefusal(const QByteArray& content, StoreError::Kind kind, const QString& words) {
        writeFile(DatenbankDatei(home()), content);
        try {
            takeOver(DatenbankDatei(home()), home(), options());
            QFAIL("no error");
        } catch (const StoreError& error) {
            QVERIFY2(error.kind() == kind && error.message().contains(words), qPrintable(error.message()));
        }
        QCOMPARE(filesAtHome(), QStringList{kDatabaseName});
        QCOMPARE(fileContent(DatenbankDatei(home())), content);
    }

private Q_SLOTS:
    void everyValueArrives_data() {
        QTest::addColumn<QString>("name");
        for (const auto* name : {"alt", "uralt", "neu"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void everyValueArrives() {
        QFETCH(QString, name);
        useOldFile(name);
        QProcess tool;
        tool.start(kTool, {kReadJetVerb, DatenbankDatei(home()), scratch() + u"/neu.mdb"_s});
        QVERIFY(tool.waitForFinished());
        QVERIFY2(tool.exitCode() == 0, tool.readAllStandardOutput().constData());
        const QStringList found =
            differences(scratch() + u"/neu.mdb"_s, jsonFixture(u"jet/%1/expected.json"_s.arg(name)));
        QVERIFY2(found.isEmpty(), qPrintable(found.mid(0, 20).join(u'\n')));
    }

    void theComparisonSeesADifference() {
        useOldFile(u"alt"_s);
        takeOver(DatenbankDatei(home()), home(), options());
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Execute(
                u"UPDATE Stammdaten SET MI_Beitrag = MI_Beitrag + 0.0001 WHERE MI_Beitrag > 0"_s);
        }
        QVERIFY(!differences(DatenbankDatei(home()), jsonFixture(u"jet/alt/expected.json"_s)).isEmpty());
    }

    void theNewFileTakesThePlaceOfTheOldWhichIsKept() {
        const QByteArray old = useOldFile(u"neu"_s);
        QCOMPARE(takeOver(DatenbankDatei(home()), home(), options()), DatenbankDatei(home()));
        QCOMPARE(filesAtHome(), QStringList({u"KOLIBRI_Daten-alt.mdb"_s, kDatabaseName}));
        QCOMPARE(fileContent(home() + u"/KOLIBRI_Daten-alt.mdb"_s), old);
        const QStringList found =
            differences(DatenbankDatei(home()), jsonFixture(u"jet/neu/expected.json"_s));
        QVERIFY2(found.isEmpty(), qPrintable(found.mid(0, 20).join(u'\n')));
        const DbSession session(u"Test"_s);
        QCOMPARE(Global().Conn.IntegrityProblems(), QStringList());
    }

    void anOlderFileKeptBeforeStays() {
        useOldFile(u"alt"_s);
        writeFile(home() + u"/KOLIBRI_Daten-alt.mdb"_s, "von früher");
        takeOver(DatenbankDatei(home()), home(), options());
        QCOMPARE(fileContent(home() + u"/KOLIBRI_Daten-alt.mdb"_s), QByteArray("von früher"));
        QVERIFY(QFile::exists(home() + u"/KOLIBRI_Daten-alt-2.mdb"_s));
    }

    void aFileFromAnotherPlaceStaysThere() {
        const QString file = scratch() + u"/Größe.mdb"_s;
        const QByteArray old = fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s);
        writeFile(file, old);
        takeOver(file, home(), options());
        QCOMPARE(fileContent(file), old);
        QCOMPARE(fileContent(home() + u"/KOLIBRI_Daten-alt.mdb"_s), old);
        QVERIFY(QFile::exists(DatenbankDatei(home())));
    }

    void aDatabaseThatIsAlreadyThereIsNotReplaced() {
        useEmptyDatabase();
        const QByteArray before = fileContent(DatenbankDatei(home()));
        const QString file = scratch() + u"/alt.mdb"_s;
        writeFile(file, fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s));
        QVERIFY_THROWS_EXCEPTION(StoreError, takeOver(file, home(), options()));
        QCOMPARE(fileContent(DatenbankDatei(home())), before);
        QCOMPARE(filesAtHome(), QStringList{kDatabaseName});
    }

    void newKeysGoOnWhereTheOldFileWouldHaveGoneOn() {
        useOldFile(u"alt"_s);
        takeOver(DatenbankDatei(home()), home(), options());
        const DbSession session(u"Test"_s);
        auto& conn = Global().Conn;
        // The rows 41 to 45 were deleted long ago.
        QCOMPARE(conn.Open(u"SELECT MAX(ID) AS Letzte FROM Klassen"_s).Number(u"Letzte"), 40);
        QCOMPARE(conn.AddNew(u"Klassen"_s).Set(u"Klasse"_s, u"5a"_s).Update(), 46);
        QCOMPARE(conn.AddNew(u"SCH_Notiz"_s).Update(), 44);
    }

    void nullAndEmptyAreToldApart() {
        useOldFile(u"neu"_s);
        takeOver(DatenbankDatei(home()), home(), options());
        const DbSession session(u"Test"_s);
        const auto label = [](const QString& field) {
            return Global()
                .Conn.Open(u"SELECT * FROM Einstellungen WHERE Feld = ?"_s, {field})
                .Value(u"BeitragBezeichnung");
        };
        QCOMPARE(label(u"Beitrag_5"_s), QVariant(u""_s));
        QVERIFY(label(u"Beitrag_6"_s).isNull());
    }

    void theFirstDataVersionHasItsLinksRepaired() {
        useOldFile(u"uralt"_s);
        takeOver(DatenbankDatei(home()), home(), options());
        QCOMPARE(fileContent(home() + u"/Protokoll_Aktualisierung_SCH_Notiz.txt"_s),
                 QByteArray("ID;SCH_ID;GR;L_NAME;TAG;ZEIT;ZEIT_K_NAME;NOTIZ;WP_NOTIZ\r\n"
                            "6;4;GR2;Lernzeit im Hort;MI;16:00 - 16:45;;Angebot gibt es nicht mehr;\r\n"
                            "12;8;GR2;Lernzeit im Hort;MI;16:00 - 16:45;;Angebot gibt es nicht mehr;\r\n"));
        const DbSession session(u"Test"_s);
        for (const auto& table : {u"GR1"_s, u"GR2"_s, u"SCH_Notiz"_s, u"ME_LZ_AG_Notizen"_s})
            QVERIFY2(Global().Conn.HasColumn(table, u"Zeit_K_Name"_s), qPrintable(table));
        QVERIFY(Global().Conn.HasColumn(u"Stammdaten"_s, u"GR5_FR"_s));
    }

    void aLaterVersionIsNotRepairedAgain() {
        useOldFile(u"alt"_s);
        takeOver(DatenbankDatei(home()), home(), options());
        QVERIFY(!QFile::exists(home() + u"/Protokoll_Aktualisierung_SCH_Notiz.txt"_s));
        const QStringList found =
            differences(DatenbankDatei(home()), jsonFixture(u"jet/alt/expected.json"_s));
        QVERIFY2(found.isEmpty(), qPrintable(found.mid(0, 20).join(u'\n')));
    }

    void anEncryptedFileIsRefused() {
        expectRefusal(encrypted(fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s), 0x0badcafe),
                      StoreError::Kind::Foreign, u"ist verschlüsselt"_s);
    }

    void aFileWithAPasswordIsRefused() {
        expectRefusal(withPassword(fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s), u"x"_s),
                      StoreError::Kind::Foreign, u"Kennwort"_s);
    }

    void aForeignFileIsRefused() {
        QByteArray foreign = fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s);
        const auto inTheList = [](const QString& name) {
            return QByteArray(reinterpret_cast<const char*>(name.utf16()), 2 * name.size());
        };
        QCOMPARE(foreign.count(inTheList(u"Stammdaten"_s)), 1);
        foreign.replace(inTheList(u"Stammdaten"_s), inTheList(u"Buchungen!"_s));
        expectRefusal(foreign, StoreError::Kind::Foreign, u"ist keine Datenbank dieses Programms"_s);
        expectRefusal("Das ist ein Brief.", StoreError::Kind::Foreign, u"ist keine Datenbank"_s);
    }

    void aFileCutAnywhereIsRefused_data() {
        QTest::addColumn<int>("pages");
        for (const int pages : {1, 2, 20, 57, 58, 75, 87})
            QTest::newRow(qPrintable(QString::number(pages))) << pages;
    }

    void aFileCutAnywhereIsRefused() {
        QFETCH(int, pages);
        constexpr qsizetype kPage = 4096;
        expectRefusal(fixture(u"jet/uralt/KOLIBRI_Daten.mdb"_s).first(pages * kPage),
                      StoreError::Kind::Damaged, u"ist beschädigt"_s);
    }

    void aMissingToolIsToldInWords() {
        const QByteArray old = useOldFile(u"alt"_s);
        try {
            takeOver(DatenbankDatei(home()), home(),
                     {.tool = scratch() + u"/fehlt"_s, .protocolFolder = home()});
            QFAIL("no error");
        } catch (const StoreError& error) {
            QVERIFY(error.message().contains(u"kolibri-db fehlt"_s));
        }
        QCOMPARE(fileContent(DatenbankDatei(home())), old);
        QCOMPARE(filesAtHome(), QStringList{kDatabaseName});
    }

    void aToolThatFallsSilentIsEnded() {
        const QString silent = QStandardPaths::findExecutable(u"tail"_s);
        if (silent.isEmpty())
            QSKIP("needs a program that never ends: tail");
        const QString tool = scratch() + u"/stumm"_s;
        writeFile(tool, "#!/bin/sh\nexec " + silent.toUtf8() + " -f /dev/null\n");
        QVERIFY(QFile::setPermissions(tool, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
        const QByteArray old = useOldFile(u"alt"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError,
                                 takeOver(DatenbankDatei(home()), home(),
                                          {.tool = tool, .patience = 200, .protocolFolder = home()}));
        QCOMPARE(fileContent(DatenbankDatei(home())), old);
        QCOMPARE(filesAtHome(), QStringList{kDatabaseName});
    }

    void aProtocolThatCannotBeWrittenTakesAllBack() {
        const QByteArray old = useOldFile(u"uralt"_s);
        QVERIFY_THROWS_EXCEPTION(OfficeError,
                                 takeOver(DatenbankDatei(home()), home(),
                                          {.tool = kTool, .protocolFolder = scratch() + u"/fehlt"_s}));
        QCOMPARE(fileContent(DatenbankDatei(home())), old);
        QCOMPARE(filesAtHome(), QStringList{kDatabaseName});
    }

    void theStartAsksAndGoesOnWithTheNewFile() {
        useOldFile(u"neu"_s);
        writeDatabaseFolder(settingsFile(), home());
        doorsOfTest.expect(kQuestion, kAnswerYes);
        const StartState state =
            startUp(scratch(),
                    {.beforeOpening = [&](const QString& file) { return offerTakeover(file, options()); }});
        QCOMPARE(state, StartState::Ready);
        QCOMPARE(doorsOfTest.boxes().front().code, 36);
        QCOMPARE(Global().KlassenListe.size(), 14);
        QVERIFY(QFile::exists(home() + u"/KOLIBRI_Daten-alt.mdb"_s));
    }

    void onNoTheStartGoesOnWithoutADatabase() {
        const QByteArray old = useOldFile(u"neu"_s);
        writeDatabaseFolder(settingsFile(), home());
        doorsOfTest.expect(kQuestion, kAnswerNo);
        const StartState state =
            startUp(scratch(),
                    {.beforeOpening = [&](const QString& file) { return offerTakeover(file, options()); }});
        QCOMPARE(state, StartState::WithoutDatabase);
        QVERIFY(Global().StartLaeuft);
        QCOMPARE(filesAtHome(), QStringList{kDatabaseName});
        QCOMPARE(fileContent(DatenbankDatei(home())), old);
    }

    void aFailureIsShownAndTheStartGoesOnWithoutADatabase() {
        writeFile(DatenbankDatei(home()), withPassword(fixture(u"jet/alt/KOLIBRI_Daten.mdb"_s), u"x"_s));
        doorsOfTest.expect(kQuestion, kAnswerYes);
        doorsOfTest.expectBeginning(u"Die Datei "_s + QDir::toNativeSeparators(DatenbankDatei(home()))
                                    + u" ist mit einem Kennwort geschützt."_s);
        QVERIFY(!offerTakeover(DatenbankDatei(home()), options()));
    }

    void aDatabaseOfThisProgramIsNotAskedAbout() {
        useEmptyDatabase();
        QVERIFY(offerTakeover(DatenbankDatei(home()), options()));
        QCOMPARE(filesAtHome(), QStringList{kDatabaseName});
    }

    void theToolTakesAFileOverAndSaysWhatIsInIt() {
        const QString file = scratch() + u"/alt.mdb"_s;
        writeFile(file, fixture(u"jet/neu/KOLIBRI_Daten.mdb"_s));
        QProcess tool;
        tool.start(kTool, {u"uebernehmen"_s, file, home()});
        QVERIFY(tool.waitForFinished());
        QCOMPARE(
            QString::fromUtf8(tool.readAllStandardOutput()),
            u"Datenbank übernommen: %1\n282 Schülerinnen und Schüler in 14 Klassen, 20 Schulanfänger, 18 "
            "Deaktivierte\n"_s.arg(QDir::toNativeSeparators(DatenbankDatei(home()))));
        QCOMPARE(tool.exitCode(), 0);
    }

    void theToolRefusesInWords() {
        const QString file = scratch() + u"/brief.mdb"_s;
        writeFile(file, "Das ist ein Brief.");
        QProcess tool;
        tool.start(kTool, {u"uebernehmen"_s, file, home()});
        QVERIFY(tool.waitForFinished());
        QCOMPARE(tool.exitCode(), 1);
        QVERIFY(
            QString::fromUtf8(tool.readAllStandardError()).contains(u"ist keine Datenbank einer älteren"_s));
        QCOMPARE(filesAtHome(), QStringList());
    }
};

KOLIBRI_TEST_MAIN(JetTakeoverTest)
#include "jet_takeover_test.moc"
