#include "core/klasse_neu.h"
#include "core/mdlAllgemein.h"
#include "core/widgets/application.h"
#include "students/ok_action.h"
#include "students/student_store.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using kolibri::test::wholeDatabase;

namespace {

constexpr SchuelerArt kPupil = SchuelerArt::Schueler;
constexpr SchuelerArt kStarter = SchuelerArt::Schulanfaenger;

SchuelerModus mode(SchuelerAktion aktion, SchuelerArt art = kPupil) {
    return {aktion, art, SchuelerMenge::Aktive, true};
}

SchuelerDatensatz record(const QString& name, const QString& klasse = u"3a"_s) {
    SchuelerDatensatz datensatz;
    datensatz.SCH = {name, u"Max"_s, QString(), klasse};
    return datensatz;
}

const QString kReallyDelete = u"Wollen Sie die Daten wirklich löschen?"_s;
const QString kHeld = u"Der Datensatz kann nicht bearbeitet werden. Er wird gerade von PC-2 bearbeitet!"_s;

} // namespace

class OkActionTest : public kolibri::test::TestBase {
    Q_OBJECT

    static bool act(const SchuelerModus& modus, SchuelerDatensatz datensatz,
                    const std::optional<QString>& belegtVon = {}) {
        const DbSession session(u"Schüler speichern"_s);
        return SchuelerAktionAusfuehren(modus, datensatz, belegtVon);
    }

    /// "name aktiv" of all pupils.
    static QStringList pupils() {
        const DbSession session(u"Test"_s);
        QStringList result;
        for (Recordset rs = Global().Conn.Open(u"SELECT SCH_Name, aktiv FROM Stammdaten ORDER BY ID"_s);
             !rs.Eof(); rs.MoveNext())
            result << rs.Text(0) + u' ' + rs.Text(1);
        return result;
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QCOMPARE(KlasseAnlegen(u"3a"_s), KlasseErgebnis::Erstellt);
        SchuelerNeuSchreiben(record(u"Alt"_s));
        Global().AktuelleSchuelerID = 1;
    }

    void aNewPupilIsWritten() {
        QVERIFY(act(mode(SchuelerAktion::Neu), record(u"Neu"_s)));
        QCOMPARE(pupils(), (QStringList{u"Alt Wahr"_s, u"Neu Wahr"_s}));
    }

    void aKnownNameIsRefused_data() {
        QTest::addColumn<bool>("starter");
        QTest::addColumn<bool>("aktiv");
        QTest::addColumn<QString>("message");
        const QString there = u"Schüler/Schülerin ist bereits vorhanden!"_s;
        const QString gone =
            u"Schüler/Schülerin ist in Datenbank vorhanden, wurde aber deaktiviert/gelöscht!"_s;
        QTest::newRow("pupil, active") << false << true << there;
        QTest::newRow("pupil, deactivated") << false << false << gone;
        QTest::newRow("school starter, active") << true << true << there;
        QTest::newRow("school starter, deactivated") << true << false << gone;
    }
    void aKnownNameIsRefused() {
        QFETCH(const bool, starter);
        QFETCH(const bool, aktiv);
        QFETCH(const QString, message);
        {
            const DbSession session(u"Test"_s);
            if (!aktiv)
                SchuelerDeaktivieren();
        }
        const auto before = wholeDatabase();
        doorsOfTest.expect(message);
        QVERIFY(!act(mode(SchuelerAktion::Neu, starter ? kStarter : kPupil), record(u"ALT"_s, u"0a"_s)));
        QCOMPARE(wholeDatabase(), before);
    }

    void aCorrectionWrites() {
        QVERIFY(act(mode(SchuelerAktion::Korrektur), record(u"Anders"_s)));
        QVERIFY(act(mode(SchuelerAktion::Korrektur, kStarter), record(u"Klein"_s, u"0a"_s)));
        QCOMPARE(pupils(), QStringList{u"Klein Wahr"_s});
    }

    void theCorrectedClassOfASchoolStarterIsHandedBack() {
        SchuelerDatensatz datensatz = record(u"Klein"_s, QString());
        const DbSession session(u"Test"_s);
        QVERIFY(SchuelerAktionAusfuehren(mode(SchuelerAktion::Korrektur, kStarter), datensatz, {}));
        QCOMPARE(datensatz.SCH[kFeldKlasse], u"00"_s);
    }

    void deletingAPupilAsksAndDeactivates() {
        {
            const DbSession session(u"Test"_s);
            Global().Conn.AddNew(u"SCH_Notiz"_s).Set(u"SCH_ID"_s, 1).Update();
        }
        doorsOfTest.expect(kReallyDelete, kAnswerNo);
        QVERIFY(!act(mode(SchuelerAktion::Loeschen), record(u"Alt"_s)));
        QCOMPARE(pupils(), QStringList{u"Alt Wahr"_s});
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        QVERIFY(act(mode(SchuelerAktion::Loeschen), record(u"Alt"_s)));
        QCOMPARE(pupils(), QStringList{u"Alt Falsch"_s});
        QVERIFY(wholeDatabase()[u"SCH_Notiz"_s].isEmpty());
        QCOMPARE(doorsOfTest.boxes().at(0).title, u"Schüler löschen"_s);
        QCOMPARE(doorsOfTest.boxes().at(0).code, 36);
    }

    void deletingASchoolStarterAsksAndDeletesForGood() {
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        QVERIFY(act(mode(SchuelerAktion::Loeschen, kStarter), record(u"Alt"_s)));
        QVERIFY(pupils().isEmpty());
        QCOMPARE(doorsOfTest.boxes().at(0).title, u"Schulanfänger löschen"_s);
    }

    void withoutANameNothingIsSelectedToDelete() {
        const auto before = wholeDatabase();
        doorsOfTest.expect(u"Kein Schüler bzw. Schülerin ausgewählt!"_s);
        QVERIFY(!act(mode(SchuelerAktion::Loeschen), {}));
        doorsOfTest.expect(u"Kein Schulanfänger ausgewählt!"_s);
        QVERIFY(!act(mode(SchuelerAktion::Loeschen, kStarter), {}));
        QCOMPARE(wholeDatabase(), before);
    }

    void deactivatingAndDeletingTheNotesIsOneTransaction() {
        {
            const DbSession session(u"Test"_s);
            Global().Conn.AddNew(u"SCH_Notiz"_s).Set(u"SCH_ID"_s, 1).Update();
            Global().Conn.Execute(
                u"CREATE TRIGGER Abbruch BEFORE DELETE ON SCH_Notiz BEGIN SELECT RAISE(ABORT, 'Abbruch'); END"_s);
        }
        const auto before = wholeDatabase();
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        QVERIFY_THROWS_EXCEPTION(StoreError, act(mode(SchuelerAktion::Loeschen), record(u"Alt"_s)));
        QCOMPARE(wholeDatabase(), before);
    }

    void activatingBringsThePupilBack() {
        {
            const DbSession session(u"Test"_s);
            SchuelerDeaktivieren();
        }
        QVERIFY(act(mode(SchuelerAktion::Aktivieren), record(u"Alt"_s)));
        QCOMPARE(pupils(), QStringList{u"Alt Wahr"_s});
    }

    void aRecordHeldElsewhereIsNotWrittenFromFieldsFilledByHand_data() {
        QTest::addColumn<SchuelerAktion>("aktion");
        QTest::newRow("correct") << SchuelerAktion::Korrektur;
        QTest::newRow("delete") << SchuelerAktion::Loeschen;
        QTest::newRow("activate") << SchuelerAktion::Aktivieren;
    }
    void aRecordHeldElsewhereIsNotWrittenFromFieldsFilledByHand() {
        QFETCH(const SchuelerAktion, aktion);
        const auto before = wholeDatabase();
        doorsOfTest.expect(kHeld);
        QVERIFY(!act(mode(aktion), record(u"Anders"_s), u"PC-2"_s));
        QCOMPARE(wholeDatabase(), before);
    }

    void aRefusedSelectionDoesNotStopANewPupil() {
        QVERIFY(act(mode(SchuelerAktion::Neu), record(u"Neu"_s), u"PC-2"_s));
        QCOMPARE(pupils().size(), 2);
    }

    void withoutAModeNothingHappens() {
        const auto before = wholeDatabase();
        QVERIFY(!act({}, record(u"Anders"_s)));
        QCOMPARE(wholeDatabase(), before);
    }

    void theModesOfTheMenu_data() {
        QTest::addColumn<bool mdlGlobal::*>("flag");
        QTest::addColumn<QString>("caption");
        QTest::addColumn<bool>("starter");
        QTest::addColumn<SchuelerMenge>("menge");
        QTest::addColumn<QString>("does");
        using enum SchuelerMenge;
        // What the mode does: lamps shown, input checked, times checked, group boxes filled.
        QTest::newRow("new") << &mdlGlobal::ModusSchuelerNeu << u"NEU"_s << false << Aktive
                             << u"lamps input times groups"_s;
        QTest::newRow("correct") << &mdlGlobal::ModusSchuelerKorrektur << u"KORREKTUR"_s << false << Aktive
                                 << u"lamps input times groups"_s;
        QTest::newRow("delete") << &mdlGlobal::ModusSchuelerLoeschen << u"LÖSCHEN"_s << false << Aktive
                                << QString();
        QTest::newRow("activate") << &mdlGlobal::ModusSchuelerAktivieren << u"AKTIVIEREN"_s << false
                                  << Deaktivierte << u"input"_s;
        QTest::newRow("starter new") << &mdlGlobal::ModusSchulanfaengerNeu << u"NEU"_s << true
                                     << Schulanfaenger << u"lamps input times groups"_s;
        QTest::newRow("starter correct") << &mdlGlobal::ModusSchulanfaengerKorrektur << u"KORREKTUR"_s << true
                                         << Schulanfaenger << u"lamps input times groups"_s;
        QTest::newRow("starter delete") << &mdlGlobal::ModusSchulanfaengerLoeschen << u"LÖSCHEN"_s << true
                                        << Schulanfaenger << u"input times groups"_s;
    }
    void theModesOfTheMenu() {
        QFETCH(bool mdlGlobal::*const, flag);
        QFETCH(const QString, caption);
        QFETCH(const bool, starter);
        QFETCH(const SchuelerMenge, menge);
        QFETCH(const QString, does);
        Global().*flag = true;
        Global().ModusSchulanfaenger = starter;
        const SchuelerModus modus = AktuellerSchuelerModus();
        QCOMPARE(OkBeschriftung(modus.aktion), caption);
        QCOMPARE(modus.istSchulanfaenger(), starter);
        QCOMPARE(modus.menge, menge);
        QStringList seen;
        if (modus.ampel)
            seen << u"lamps"_s;
        if (modus.prueftEingaben())
            seen << u"input"_s;
        if (modus.prueftZeiten())
            seen << u"times"_s;
        if (modus.mitGruppen())
            seen << u"groups"_s;
        QCOMPARE(seen.join(u' '), does);
    }
};

KOLIBRI_TEST_MAIN(OkActionTest)
#include "ok_action_test.moc"
