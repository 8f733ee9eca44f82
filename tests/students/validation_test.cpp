#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "students/validation.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kNoDate = u"Es liegt kein gültiges Datum vor."_s;
const QString kWrongForm = u"Datum entspricht nicht dem Format 'dd.mm.yyyy'."_s;
const QString kIncomplete = u"Eingabe unvollständig!"_s;
const QString kDateMessage = u"Feld Geburtsdatum: das Format entspricht nicht der Form TT.MM.JJJJ!"_s;
const QString kClassMessage = u"Feld Klasse: das Format entspricht nicht der Form 1a .... 99z!"_s;
const QString kStarterMessage =
    u"Bei Schulanfängern sind im Feld KLASSE folgende Eingaben erlautbt: Leer, 0, 0a bis 0z, a bis z !"_s;

QString messageFor(const SchuelerFelder& felder, SchuelerArt art = SchuelerArt::Schueler) {
    return EingabeMeldung(Eingaben_Überprüfen(felder, art), art);
}

void addPupil(const QString& name, const QString& vorname, bool aktiv, int schulstufe = 3) {
    Global()
        .Conn.AddNew(u"Stammdaten"_s)
        .Set(u"SCH_Name"_s, name)
        .Set(u"SCH_Vorname"_s, vorname)
        .Set(u"aktiv"_s, aktiv)
        .Set(u"Schulstufe"_s, schulstufe)
        .Update();
}

} // namespace

class ValidationTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void aCompleteRecordPasses() {
        const SchuelerFelder felder{u"Muster"_s, u"Max"_s, u"01.02.2015"_s, u"3a"_s};
        const EingabePruefung pruefung = Eingaben_Überprüfen(felder, SchuelerArt::Schueler);
        QVERIFY(!pruefung.EingabeUnvollstaendig);
        QVERIFY(pruefung.DatumGueltig);
        QVERIFY(pruefung.KlasseOK);
        QCOMPARE(pruefung.fehler, (std::array<bool, 4>{}));
        QVERIFY(!pruefung.fokus);
        QCOMPARE(EingabeMeldung(pruefung, SchuelerArt::Schueler), QString());
    }

    void requiredFieldsOfAPupilAreNameFirstNameAndClass() {
        const EingabePruefung pruefung = Eingaben_Überprüfen({}, SchuelerArt::Schueler);
        QVERIFY(pruefung.EingabeUnvollstaendig);
        QCOMPARE(pruefung.fehler, (std::array<bool, 4>{true, true, false, true}));
        QCOMPARE(pruefung.fokus, kFeldName);
        QCOMPARE(EingabeMeldung(pruefung, SchuelerArt::Schueler), kIncomplete);
    }

    void requiredFieldsOfASchoolStarterAreNameAndFirstName() {
        const EingabePruefung pruefung = Eingaben_Überprüfen({u"Muster"_s}, SchuelerArt::Schulanfaenger);
        QVERIFY(pruefung.EingabeUnvollstaendig);
        QCOMPARE(pruefung.fehler, (std::array<bool, 4>{false, true, false, false}));
        QCOMPARE(pruefung.fokus, kFeldVorname);
    }

    void theFirstEmptyFieldGetsTheFocus() {
        QCOMPARE(Eingaben_Überprüfen({u"A"_s, u"B"_s}, SchuelerArt::Schueler).fokus, kFeldKlasse);
    }

    void aFieldOfBlanksCountsAsFilled() { QCOMPARE(messageFor({u" "_s, u" "_s, {}, u"1a"_s}), QString()); }

    void anEmptyDateOfBirthPasses() {
        QCOMPARE(messageFor({u"A"_s, u"B"_s, QString(), u"1a"_s}), QString());
        QCOMPARE(messageFor({u"A"_s, u"B"_s, u"  "_s, u"1a"_s}), QString());
    }

    void aDateOfBirthWithBlanksAroundItPasses() {
        QCOMPARE(messageFor({u"A"_s, u"B"_s, u" 01.02.2015 "_s, u"1a"_s}), QString());
    }

    void aWrongDateIsToldTwice_data() {
        QTest::addColumn<QString>("date");
        QTest::addColumn<QString>("first");
        QTest::newRow("29.02.2011") << u"29.02.2011"_s << kNoDate;
        QTest::newRow("31.13.") << u"31.13."_s << kNoDate;
        QTest::newRow("no date") << u"morgen"_s << kNoDate;
        QTest::newRow("1.2.2010") << u"1.2.2010"_s << kWrongForm;
        QTest::newRow("01.02.10") << u"01.02.10"_s << kWrongForm;
    }
    void aWrongDateIsToldTwice() {
        QFETCH(const QString, date);
        QFETCH(const QString, first);
        doorsOfTest.expect(first);
        const EingabePruefung pruefung =
            Eingaben_Überprüfen({u"A"_s, u"B"_s, date, u"1a"_s}, SchuelerArt::Schueler);
        QVERIFY(!pruefung.DatumGueltig);
        QCOMPARE(pruefung.fehler, (std::array<bool, 4>{false, false, true, false}));
        QCOMPARE(EingabeMeldung(pruefung, SchuelerArt::Schueler), kDateMessage);
        QCOMPARE(doorsOfTest.boxes().at(0).title, u"Datumsformat"_s);
        QCOMPARE(doorsOfTest.boxes().at(0).code, 48);
    }

    void aWrongDateIsToldEvenWhenTheRecordIsIncomplete() {
        doorsOfTest.expect(kNoDate);
        QCOMPARE(messageFor({QString(), u"B"_s, u"x"_s, u"1a"_s}), kIncomplete);
    }

    void classes_data() {
        QTest::addColumn<QString>("klasse");
        QTest::addColumn<bool>("schueler");
        QTest::addColumn<bool>("schulanfaenger");
        const auto row = [](const QString& klasse, bool schueler, bool schulanfaenger) {
            QTest::newRow(qPrintable(u"'"_s + klasse + u"'"_s)) << klasse << schueler << schulanfaenger;
        };
        row(u"1a"_s, true, false);
        row(u"9z"_s, true, false);
        row(u"10a"_s, true, false);
        row(u"99z"_s, true, false);
        row(u"0a"_s, false, true);
        row(u"0z"_s, false, true);
        row(u"a"_s, false, true);
        row(u"z"_s, false, true);
        row(u"0"_s, false, false);
        row(u"100a"_s, false, false);
        row(u"1A"_s, false, false);
        row(u"1"_s, false, false);
        row(u"a1"_s, false, false);
        row(u"00a"_s, false, false);
        row(u"1ä"_s, false, false);
        row(u"ä"_s, false, false);
        row(u"abc"_s, false, false);
        row(u"1 a"_s, false, false);
        row(u"3a "_s, false, false);
    }
    void classes() {
        QFETCH(const QString, klasse);
        QFETCH(const bool, schueler);
        QFETCH(const bool, schulanfaenger);
        const SchuelerFelder felder{u"A"_s, u"B"_s, QString(), klasse};
        QCOMPARE(messageFor(felder), schueler ? QString() : kClassMessage);
        QCOMPARE(messageFor(felder, SchuelerArt::Schulanfaenger),
                 schulanfaenger ? QString() : kStarterMessage);
        QCOMPARE(Eingaben_Überprüfen(felder, SchuelerArt::Schueler).fehler[kFeldKlasse], !schueler);
        QCOMPARE(Eingaben_Überprüfen(felder, SchuelerArt::Schulanfaenger).fehler[kFeldKlasse],
                 !schulanfaenger);
    }

    void anEmptyClassPassesForASchoolStarter() {
        QCOMPARE(messageFor({u"A"_s, u"B"_s}, SchuelerArt::Schulanfaenger), QString());
    }

    void theMessagesComeInTheirOrder() {
        doorsOfTest.expect(kNoDate);
        QCOMPARE(messageFor({u"A"_s, u"B"_s, u"x"_s, u"abc"_s}), kDateMessage);
        QCOMPARE(messageFor({u"A"_s, u"B"_s, u""_s, u"abc"_s}), kClassMessage);
    }

    void anUnknownNameIsFree() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        addPupil(u"Muster"_s, u"Max"_s, true);
        const NamensPruefung pruefung = Namensgleichheit_Überprüfen(u"Muster"_s, u"Moritz"_s);
        QVERIFY(!pruefung.NameVorhanden);
        QCOMPARE(NamensMeldung(pruefung), QString());
    }

    void aNameIsFoundWhateverItsCaseOrGrade() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        addPupil(u"Müller"_s, u"Zoë"_s, true, 0);
        const NamensPruefung pruefung = Namensgleichheit_Überprüfen(u"MÜLLER"_s, u"zoë"_s);
        QVERIFY(pruefung.NameVorhanden);
        QVERIFY(pruefung.NameAktiv);
        QCOMPARE(NamensMeldung(pruefung), u"Schüler/Schülerin ist bereits vorhanden!"_s);
    }

    void ofSeveralPupilsOfANameTheFirstDecides() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        addPupil(u"Muster"_s, u"Max"_s, false);
        addPupil(u"Muster"_s, u"Max"_s, true);
        const NamensPruefung pruefung = Namensgleichheit_Überprüfen(u"Muster"_s, u"Max"_s);
        QVERIFY(pruefung.NameVorhanden);
        QVERIFY(!pruefung.NameAktiv);
        QCOMPARE(NamensMeldung(pruefung),
                 u"Schüler/Schülerin ist in Datenbank vorhanden, wurde aber deaktiviert/gelöscht!"_s);
    }

    void anApostropheInTheNameIsRefusedByTheStore() {
        useEmptyDatabase();
        const DbSession session(u"Test"_s);
        QVERIFY_THROWS_EXCEPTION(StoreError, Namensgleichheit_Überprüfen(u"O'Neill"_s, u"Max"_s));
    }
};

KOLIBRI_TEST_MAIN(ValidationTest)
#include "validation_test.moc"
