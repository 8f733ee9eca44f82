#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

#include <QDir>
#include <QFile>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const std::array<bool mdlGlobal::*, 15> kModes{&mdlGlobal::ModusSchuelerNeu,
                                               &mdlGlobal::ModusSchuelerKorrektur,
                                               &mdlGlobal::ModusSchuelerLoeschen,
                                               &mdlGlobal::ModusSchuelerAktivieren,
                                               &mdlGlobal::ModusSchulanfaenger,
                                               &mdlGlobal::ModusSchulanfaengerNeu,
                                               &mdlGlobal::ModusSchulanfaengerKorrektur,
                                               &mdlGlobal::ModusSchulanfaengerLoeschen,
                                               &mdlGlobal::ModusUE_Neu,
                                               &mdlGlobal::ModusUE_Korrektur,
                                               &mdlGlobal::ModusUE_Loeschen,
                                               &mdlGlobal::ModusTagesplanA,
                                               &mdlGlobal::ModusTagesplanB,
                                               &mdlGlobal::ListeMensa,
                                               &mdlGlobal::ListeLernzeit};

void addClassRow(const QVariant& name, const QVariant& grade, const QVariant& letter) {
    Global()
        .Conn.AddNew(u"Klassen"_s)
        .Set(u"Klasse"_s, name)
        .Set(u"Schulstufe"_s, grade)
        .Set(u"KlassenNR"_s, letter)
        .Update();
}

} // namespace

class mdlAllgemeinTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void openDbTwiceInARowGivesOneOpenConnection() {
        useEmptyDatabase();
        OpenDB();
        OpenDB();
        QVERIFY(Global().Conn.IsOpen());
        QCOMPARE(Global().ConnString, home() + u"/KOLIBRI_Daten.mdb"_s);
        CloseDB();
        QVERIFY(!Global().Conn.IsOpen());
    }

    void closeDbOnAConnectionThatIsNotOpenDoesNothingVisible() {
        CloseDB();
        CloseDB();
        QVERIFY(doorsOfTest.boxes().empty());
    }

    void aSessionClosesAndTellsItsPurposeWhenItFails() {
        useEmptyDatabase();
        try {
            const DbSession session(u"Schülerliste laden"_s);
            Global().Conn.Open(u"SELECT * FROM GibtEsNicht"_s);
            QFAIL("an unknown table was accepted");
        } catch (const StoreError& error) {
            QVERIFY(error.message().startsWith(u"Schülerliste laden: "_s));
            QVERIFY(error.details().contains(u"GibtEsNicht"_s));
        }
        QVERIFY(!Global().Conn.IsOpen());
    }

    void aPupilsNameWithAnApostropheIsRefusedAtTheFirstUpdate() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        auto& conn = Global().Conn;
        const qint64 id = conn.AddNew(u"Stammdaten"_s).Set(u"SCH_Name"_s, u"O'Neill"_s).Update();
        QVERIFY_THROWS_EXCEPTION(
            StoreError, conn.Change(u"Stammdaten"_s, {{u"SCH_Name"_s, u"O'Neill"_s}}, u"ID = ?"_s, {id}));
        QCOMPARE(conn.Open(u"SELECT SCH_Name FROM Stammdaten"_s).Text(u"SCH_Name"), u"O'Neill"_s);
    }

    void messageWrapperTakesItsArgumentsFromTheSharedState() {
        auto& global = Global();
        global.MsgBoxKnoepfe = u"292"_s;
        global.MsgBoxTitel = u"Bericht Mensa"_s;
        global.MsgBoxText = u"Soll das sein?"_s;
        doorsOfTest.expect(u"Soll das sein?"_s, kAnswerNo);
        MsgBoxZeigen();
        QCOMPARE(int(global.MsgBoxAntwort), 7);
        QCOMPARE(doorsOfTest.boxes().back().code, 292);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Bericht Mensa"_s);
        doorsOfTest.expect(u"Soll das sein?"_s, kAnswerYes);
        MsgBoxZeigen();
        QCOMPARE(int(global.MsgBoxAntwort), 6);
    }

    void plainBoxHasTheProgramsNameAsTitle() {
        doorsOfTest.expect(u"Text"_s);
        QCOMPARE(MsgBox(u"Text"_s), kAnswerOk);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Kolibri"_s);
        QCOMPARE(doorsOfTest.boxes().back().code, 0);
    }

    void resetTakesBackEveryModeAndTheChosenList() {
        auto& global = Global();
        for (const auto mode : kModes)
            global.*mode = true;
        global.ListenArt = 115;
        global.ListenUnterArt = 3;
        ModiZuruecksetzen();
        for (const auto mode : kModes)
            QVERIFY(!(global.*mode));
        QCOMPARE(int(global.ListenArt), 0);
        QCOMPARE(int(global.ListenUnterArt), 0);
    }

    void resetLeavesWhatIsNoMode() {
        auto& global = Global();
        global.UeberschneidungPruefen = true;
        global.MitSchulanfaengern = true;
        global.UpgradeNotizen = true;
        ModiZuruecksetzen();
        QVERIFY(global.UeberschneidungPruefen && global.MitSchulanfaengern && global.UpgradeNotizen);
    }

    void weekdayCodes() {
        const QStringList codes{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s, u"FR"_s};
        for (int day = 0; day < kSchoolDays; ++day) {
            QCOMPARE(TagCode(day), codes.at(day));
            QCOMPARE(TagZahl(codes.at(day)), day);
        }
    }

    void tagCodeOfFiveYieldsAnEmptyValueAndNoError() {
        QCOMPARE(TagCode(5), QString());
        QCOMPARE(TagCode(-1), QString());
    }

    void theWeekendHasTheNumberZero() {
        QCOMPARE(TagZahl(u"SA"), 0);
        QCOMPARE(TagZahl(u"SO"), 0);
        QCOMPARE(TagZahl(u""), 0);
    }

    void wordsOfTheOfferingTables() {
        QCOMPARE(Typwort(u"GR1"), u"MENSA"_s);
        QCOMPARE(Typwort(u"GR2"), u"LERNZEIT"_s);
        for (const auto& table : {u"GR3"_s, u"GR4"_s, u"GR5"_s, u"GR6"_s, u"GR7"_s})
            QCOMPARE(Typwort(table), u"ARBEITSGRUPPE"_s);
        for (const auto& other : {u"GR0"_s, u"GR8"_s, u"GR"_s, u"GR11"_s, u"XY1"_s, QString()})
            QCOMPARE(Typwort(other), QString());
    }

    void minutesOfATimeRange() {
        QCOMPARE(ZeitVonMinuten(u"08:15 - 09:45"_s), 495);
        QCOMPARE(ZeitBisMinuten(u"08:15 - 09:45"_s), 585);
        QCOMPARE(ZeitVonMinuten(u"08:15 - 09:45 ME1"_s), 495);
        QCOMPARE(ZeitBisMinuten(u"08:15 - 09:45 ME1"_s), 585);
        QCOMPARE(ZeitVonMinuten(u"13:00"_s), 780);
        QCOMPARE(ZeitBisMinuten(u"13:00"_s), 780);
        QCOMPARE(ZeitBisMinuten(u"22:00 - 24:00"_s), 1440);
    }

    void aOneDigitHourIsReadAtTheBeginning() { QCOMPARE(ZeitVonMinuten(u"8:05"_s), 485); }

    void aOneDigitHourFailsAtTheEndWhenNoDigitStandsBeforeIt() {
        QVERIFY_THROWS_EXCEPTION(RuntimeError, ZeitBisMinuten(u"8:05"_s));
        QVERIFY_THROWS_EXCEPTION(RuntimeError, ZeitBisMinuten(u"07:00 - 8:05"_s));
    }

    void aShortNameWithAColonIsTakenForTheLastTime() {
        // The last ":" decides, wherever it stands.
        QVERIFY_THROWS_EXCEPTION(RuntimeError, ZeitBisMinuten(u"08:15 - 09:45 M:1"_s));
    }

    void textsWithoutATimeAreTypeErrors() {
        for (const auto& text : {QString(), u"ME1"_s, u":"_s, u"ab:cd"_s, u"12:"_s}) {
            QVERIFY_THROWS_EXCEPTION(RuntimeError, ZeitVonMinuten(text));
            QVERIFY_THROWS_EXCEPTION(RuntimeError, ZeitBisMinuten(text));
        }
        try {
            ZeitVonMinuten(u"ME1"_s);
        } catch (const RuntimeError& error) {
            QCOMPARE(error.message(), u"Laufzeitfehler '13': Typen unverträglich"_s);
        }
    }

    void dates_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<QString>("message");
        const QString form = u"Datum entspricht nicht dem Format 'dd.mm.yyyy'."_s;
        const QString none = u"Es liegt kein gültiges Datum vor."_s;
        QTest::newRow("whole") << u"01.02.2010"_s << true << QString();
        QTest::newRow("leap day") << u"29.02.2012"_s << true << QString();
        QTest::newRow("one digit") << u"1.2.2010"_s << false << form;
        QTest::newRow("short year") << u"01.02.10"_s << false << form;
        QTest::newRow("blanks") << u" 01.02.2010"_s << false << form;
        QTest::newRow("no leap day") << u"29.02.2011"_s << false << none;
        QTest::newRow("day 32") << u"32.01.2010"_s << false << none;
        QTest::newRow("month 13") << u"31.13.2010"_s << false << none;
        QTest::newRow("words") << u"gestern"_s << false << none;
        QTest::newRow("empty") << QString() << false << none;
    }

    void dates() {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QFETCH(QString, message);
        QCOMPARE(DatumPruefen(text, u"dd.mm.yyyy"_s, false), valid);
        QVERIFY(doorsOfTest.boxes().empty());
        if (!valid)
            doorsOfTest.expect(message);
        QCOMPARE(DatumPruefen(text, u"dd.mm.yyyy"_s, true), valid);
        if (valid)
            return;
        QCOMPARE(doorsOfTest.boxes().back().title, u"Datumsformat"_s);
        QCOMPARE(doorsOfTest.boxes().back().code, 48);
    }

    void classesOfPupils() {
        for (const auto& good : {u"1a"_s, u"9z"_s, u"10a"_s, u"99z"_s, u"01b"_s})
            QVERIFY2(KlasseGueltig(good), qPrintable(good));
        for (const auto& bad : {QString(), u"a"_s, u"0a"_s, u"1A"_s, u"1ä"_s, u"00a"_s, u"1"_s, u"100a"_s,
                                u"aa"_s, u"1aa"_s, u"x1a"_s, u"-1a"_s, u"1 a"_s, u"1a "_s})
            QVERIFY2(!KlasseGueltig(bad), qPrintable(bad));
    }

    void classesOfSchoolStarters() {
        for (const auto& good : {QString(), u"a"_s, u"z"_s, u"0a"_s, u"0z"_s})
            QVERIFY2(KlasseSchulanfaengerGueltig(good), qPrintable(good));
        for (const auto& bad : {u"0"_s, u"1a"_s, u"A"_s, u"0A"_s, u"00"_s, u"0aa"_s, u" "_s})
            QVERIFY2(!KlasseSchulanfaengerGueltig(bad), qPrintable(bad));
    }

    void richTextEscapesBecomeLettersAndTheBackslashStays() {
        QCOMPARE(
            RtfUmlaute(u"Fr\\'fch, \\'c4rger, \\'dcbung, \\'d6l, sch\\'f6n, K\\'e4se, Fu\\'df, \\'a7 5"_s),
            u"Fr\\üh, \\Ärger, \\Übung, \\Öl, sch\\ön, K\\äse, Fu\\ß, \\§ 5"_s);
        QCOMPARE(RtfUmlaute(u"'e9 'FC"_s), u"'e9 'FC"_s);
    }

    void existingFilesAndFolders() {
        QVERIFY(DateiVorhanden(home()));
        QVERIFY(!DateiVorhanden(home() + u"/nichts"_s));
        QVERIFY(!DateiVorhanden(QString()));
    }

    void classListsSkipEmptyValuesAndDoublets() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        for (int day = 0; day < kSchoolDays; ++day) {
            addClassRow(u"10a"_s, u"10"_s, u"a"_s);
            addClassRow(u"2b"_s, u"2"_s, u"b"_s);
            addClassRow(u"x"_s, QString(), QVariant());
        }
        addClassRow({}, {}, {});
        KlassenListenLaden();
        QCOMPARE(Global().KlassenListe, (QStringList{u"10a"_s, u"2b"_s, u"x"_s}));
        QCOMPARE(Global().SchulstufenListe, (QStringList{u"10"_s, u"2"_s}));
        QCOMPARE(Global().KlassenNRListe, (QStringList{u"a"_s, u"b"_s}));
    }

    void classListsOfNoClassesAreEmptiedAgain() {
        useEmptyDatabase();
        Global().KlassenListe = QStringList{u"alt"_s};
        const DbSession session(u"Test"_s);
        KlassenListenLaden();
        QVERIFY(Global().KlassenListe.isEmpty());
    }
};

KOLIBRI_TEST_MAIN(mdlAllgemeinTest)
#include "mdlAllgemein_test.moc"
