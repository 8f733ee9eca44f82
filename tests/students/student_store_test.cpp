#include "core/klasse_neu.h"
#include "core/mdlAllgemein.h"
#include "core/widgets/application.h"
#include "students/edit_guard.h"
#include "students/student_store.h"
#include "support/test_base.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace kolibri;
using kolibri::test::wholeDatabase;

namespace {

using Database = QMap<QString, QStringList>;
using Fields = QMap<QString, QString>;

const QString kStammdaten = u"Stammdaten"_s;

/// A record in which every field has a text of its own.
SchuelerDatensatz fullRecord() {
    SchuelerDatensatz datensatz;
    datensatz.SCH = {u"Müller"_s, u"Zoë"_s, u"01.02.2015"_s, u"12b"_s};
    datensatz.Neu = true;
    datensatz.NichtOG = true;
    datensatz.Schwimmer = true;
    datensatz.Baustein = u"Frühbetreuung"_s;
    datensatz.Kennung = u"K7"_s;
    datensatz.Beitrag = {u"1,00"_s, u"2,50"_s, u"3,00"_s, u"4,00"_s,
                         u"5,00"_s, u"6,00"_s, u"7,00"_s, u"28,50"_s};
    for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
        for (int tag = 0; tag < kSchoolDays; ++tag)
            datensatz.GR[static_cast<std::size_t>(gruppe)][static_cast<std::size_t>(tag)] =
                u"%1:00 - %1:45 %2"_s.arg(10 + gruppe).arg(ZellenSpalte(gruppe, tag));
    for (int kontakt = 0; kontakt < kKontakte; ++kontakt)
        for (int feld = 0; feld < kContactFields; ++feld)
            datensatz.GV[static_cast<std::size_t>(kontakt)][static_cast<std::size_t>(feld)] =
                u"Wert "_s + KontaktSpalte(kontakt, feld);
    datensatz.NotfallRN = u"0170 112"_s;
    datensatz.Anmerkung = u"{\\rtf1 N\\u252?sse}"_s;
    return datensatz;
}

/// The fields of Stammdaten that hold the record, by column; what a column shows for a new or corrected
/// pupil.
Fields fieldsOf(const SchuelerDatensatz& datensatz) {
    Fields fields{{u"SCH_Name"_s, datensatz.SCH[0]},
                  {u"SCH_Vorname"_s, datensatz.SCH[1]},
                  {u"SCH_Geb"_s, datensatz.SCH[2]},
                  {u"Klasse"_s, datensatz.SCH[3]},
                  {u"Schulstufe"_s, datensatz.SCH[3].left(1)},
                  {u"Kl_Nr"_s, datensatz.SCH[3].right(1)},
                  {u"aktiv"_s, u"Wahr"_s},
                  {u"Neu"_s, datensatz.Neu ? u"Wahr"_s : u"Falsch"_s},
                  {u"NichtOG"_s, datensatz.NichtOG ? u"Wahr"_s : u"Falsch"_s},
                  {u"Schwimmer"_s, datensatz.Schwimmer ? u"JA"_s : u"NEIN"_s},
                  {u"Baustein"_s, datensatz.Baustein},
                  {u"Kennung"_s, datensatz.Kennung},
                  {u"NotfallRN"_s, datensatz.NotfallRN},
                  {u"Anmerkung"_s, datensatz.Anmerkung}};
    for (int i = 0; i <= kBeitraege; ++i)
        fields[u"Beitrag_%1"_s.arg(i)] = datensatz.Beitrag[static_cast<std::size_t>(i)];
    for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
        for (int tag = 0; tag < kSchoolDays; ++tag)
            fields[ZellenSpalte(gruppe, tag)] =
                datensatz.GR[static_cast<std::size_t>(gruppe)][static_cast<std::size_t>(tag)];
    for (int kontakt = 0; kontakt < kKontakte; ++kontakt)
        for (int feld = 0; feld < kContactFields; ++feld)
            fields[KontaktSpalte(kontakt, feld)] =
                datensatz.GV[static_cast<std::size_t>(kontakt)][static_cast<std::size_t>(feld)];
    return fields;
}

/// The sums of money as the store shows them, without the zeros behind.
Fields withStoredFees(Fields fields, const QStringList& shown) {
    for (int i = 0; i < shown.size(); ++i)
        fields[u"Beitrag_%1"_s.arg(i)] = shown.at(i);
    return fields;
}
const QStringList kShownFees{u"1"_s, u"2,5"_s, u"3"_s, u"4"_s, u"5"_s, u"6"_s, u"7"_s, u"28,5"_s};

/// "Feld=Wert; ..." of a row as a map.
Fields parsed(const QString& row) {
    Fields fields;
    for (const auto& cell : row.split(u"; "_s))
        fields[cell.section(u'=', 0, 0)] = cell.section(u'=', 1);
    return fields;
}

/// The row of the pupil without the columns in which it equals `base`.
Fields changedFields(const QString& row, const QString& base) {
    const Fields before = parsed(base);
    Fields changed = parsed(row);
    for (auto field = changed.begin(); field != changed.end();)
        field = before.value(field.key()) == field.value() ? changed.erase(field) : std::next(field);
    return changed;
}

/// The database without the row of one pupil, which is looked at by itself.
Database without(Database database, const QString& table, const QString& beginning) {
    erase_if(database[table], [&](const QString& row) { return row.startsWith(beginning); });
    return database;
}

QString rowOf(const Database& database, int id) {
    for (const auto& row : database[kStammdaten])
        if (row.startsWith(u"ID=%1;"_s.arg(id)))
            return row;
    return {};
}

} // namespace

class StudentStoreTest : public kolibri::test::TestBase {
    Q_OBJECT

    template <class Write> static void write(const Write& writer) {
        const DbSession session(u"Schüler speichern"_s);
        writer();
    }

    /// A trigger that makes the engine refuse a statement in the middle of a writer.
    static void refuse(const QString& statement) {
        const DbSession session(u"Test"_s);
        Global().Conn.Execute(
            u"CREATE TRIGGER Abbruch BEFORE %1 BEGIN SELECT RAISE(ABORT, 'Abbruch'); END"_s.arg(statement));
    }

    int addPupil(const SchuelerDatensatz& datensatz) {
        const int before = count(kStammdaten);
        write([&] {
            KlasseAnlegen(datensatz.SCH[kFeldKlasse]);
            SchuelerNeuSchreiben(datensatz);
        });
        return before + 1;
    }

    static int count(const QString& table) {
        const DbSession session(u"Test"_s);
        return Global().Conn.Open(u"SELECT * FROM "_s + table).RecordCount();
    }

    static void addNote(int pupil, const QString& text) {
        const DbSession session(u"Test"_s);
        Global()
            .Conn.AddNew(u"SCH_Notiz"_s)
            .Set(u"SCH_ID"_s, pupil)
            .Set(u"GR"_s, u"GR1"_s)
            .Set(u"Tag"_s, u"MO"_s)
            .Set(u"Notiz"_s, text)
            .Update();
        Global().Conn.AddNew(u"WP_Notiz"_s).Set(u"ID"_s, 1).Set(u"SCH_ID"_s, pupil).Update();
    }

private Q_SLOTS:
    void init() {
        TestBase::init();
        useEmptyDatabase();
        Global().ComputerName = u"TEST-PC"_s;
    }

    void aNewPupilHasEveryFieldAndNothingElseChanges() {
        addPupil(fullRecord());
        const Database before = wholeDatabase();
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldName] = u"O'Neill"_s;
        datensatz.Schwimmer = false;
        write([&] { SchuelerNeuSchreiben(datensatz); });
        const Database after = wholeDatabase();
        QCOMPARE(without(after, kStammdaten, u"ID=2;"_s), before);
        const Fields row = parsed(rowOf(after, 2));
        const Fields expected = withStoredFees(fieldsOf(datensatz), kShownFees);
        for (auto field = expected.begin(); field != expected.end(); ++field)
            QCOMPARE(field.key() + u'=' + row.value(field.key()), field.key() + u'=' + field.value());
        QCOMPARE(row.value(u"ZeitStempel"_s), u"<null>"_s);
        QCOMPARE(row.value(u"PC_Name"_s), u"<null>"_s);
    }

    void theGradeIsTheFirstCharacterOfTheClassAlone() {
        addPupil(fullRecord());
        const Fields row = parsed(rowOf(wholeDatabase(), 1));
        QCOMPARE(row.value(u"Klasse"_s), u"12b"_s);
        QCOMPARE(row.value(u"Schulstufe"_s), u"1"_s);
        QCOMPARE(row.value(u"Kl_Nr"_s), u"b"_s);
    }

    void emptyFieldsOfANewPupilAreEmptyTextsAndFeesStayAtTheirDefault() {
        SchuelerDatensatz datensatz;
        datensatz.SCH = {u"A"_s, u"B"_s, QString(), u"1a"_s};
        addPupil(datensatz);
        const Fields row = parsed(rowOf(wholeDatabase(), 1));
        for (const auto& field : {u"SCH_Geb"_s, u"Baustein"_s, u"Kennung"_s, u"GR1_MO"_s, u"GR7_FR"_s,
                                  u"GV_Name1"_s, u"Verwandt3"_s, u"NotfallRN"_s, u"Anmerkung"_s})
            QCOMPARE(field + row.value(field, u"?"_s), field);
        for (int i = 0; i <= kBeitraege; ++i)
            QCOMPARE(row.value(u"Beitrag_%1"_s.arg(i)), u"<null>"_s);
        QCOMPARE(row.value(u"Schwimmer"_s), u"NEIN"_s);
    }

    void aNewPupilMakesItsClassAndTheUserIsTold() {
        doorsOfTest.expect(u"Die Klasse 12b wurde erstellt!"_s);
        write([] { SchuelerNeuSchreiben(fullRecord()); });
        const Database after = wholeDatabase();
        QCOMPARE(after[u"Klassen"_s].size(), kSchoolDays);
        QVERIFY(after[u"Klassen"_s].at(4).contains(u"Klasse=12b; Tag=FR; Tag_Zahl=4"_s));
        QVERIFY(after[u"Klassen"_s].at(4).endsWith(u"Schulstufe=12; KlassenNR=b"_s));
        QCOMPARE(Global().KlassenListe, QStringList{u"12b"_s});
    }

    void aFieldTooLongIsRefusedInANewRowAndNothingIsWritten() {
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldName] = QString(300, u'x');
        const Database before = wholeDatabase();
        QVERIFY_THROWS_EXCEPTION(StoreError, write([&] { SchuelerNeuSchreiben(datensatz); }));
        QCOMPARE(wholeDatabase(), before);
    }

    void aFailureWhileMakingTheClassTakesTheNewPupilBack() {
        refuse(u"INSERT ON Klassen WHEN NEW.Tag = 'FR'"_s);
        const Database before = wholeDatabase();
        QVERIFY_THROWS_EXCEPTION(StoreError, write([] { SchuelerNeuSchreiben(fullRecord()); }));
        QCOMPARE(wholeDatabase(), before);
    }

    void aCorrectionWritesEveryFieldAndFreesTheRecord() {
        SchuelerDatensatz plain;
        plain.SCH = {u"A"_s, u"B"_s, QString(), u"12b"_s};
        addPupil(plain);
        addPupil(plain);
        write([] { QVERIFY(!DatensatzBeanspruchen(2)); });
        const Database before = wholeDatabase();
        QCOMPARE(parsed(rowOf(before, 2)).value(u"PC_Name"_s), u"TEST-PC"_s);
        write([] { SchuelerAendern(fullRecord()); });
        const Database after = wholeDatabase();
        QCOMPARE(without(after, kStammdaten, u"ID=2;"_s), without(before, kStammdaten, u"ID=2;"_s));
        const Fields row = parsed(rowOf(after, 2));
        const Fields expected = withStoredFees(fieldsOf(fullRecord()), kShownFees);
        for (auto field = expected.begin(); field != expected.end(); ++field)
            QCOMPARE(field.key() + u'=' + row.value(field.key()), field.key() + u'=' + field.value());
        QCOMPARE(row.value(u"ZeitStempel"_s, u"?"_s), QString());
        QCOMPARE(row.value(u"PC_Name"_s, u"?"_s), QString());
    }

    void whatIsReadIsWhatWasWritten() {
        addPupil(fullRecord());
        const DbSession session(u"Test"_s);
        QCOMPARE(SchuelerLesen(1), std::optional(fullRecord()));
        QVERIFY(!SchuelerLesen(2));
    }

    void aGroupBoxAtItsEmptyEntryWritesTheEmptyText() {
        addPupil(fullRecord());
        Global().AktuelleSchuelerID = 1;
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.GR = {};
        write([&] { SchuelerAendern(datensatz); });
        const Fields row = parsed(rowOf(wholeDatabase(), 1));
        for (int gruppe = 0; gruppe < kGruppen; ++gruppe)
            for (int tag = 0; tag < kSchoolDays; ++tag)
                QCOMPARE(row.value(ZellenSpalte(gruppe, tag), u"?"_s), QString());
    }

    void anEmptyFeeIsStoredAsZeroByTheCorrection() {
        addPupil(fullRecord());
        Global().AktuelleSchuelerID = 1;
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.Beitrag = {};
        write([&] { SchuelerAendern(datensatz); });
        const Fields row = parsed(rowOf(wholeDatabase(), 1));
        for (int i = 0; i <= kBeitraege; ++i)
            QCOMPARE(row.value(u"Beitrag_%1"_s.arg(i)), u"0"_s);
    }

    void theStoredSumIsTheTextOfTheSumBox() {
        addPupil(fullRecord());
        Global().AktuelleSchuelerID = 1;
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.Beitrag[kBeitragSumme] = u"999,99"_s;
        write([&] { SchuelerAendern(datensatz); });
        QCOMPARE(parsed(rowOf(wholeDatabase(), 1)).value(u"Beitrag_7"_s), u"999,99"_s);
    }

    void aCorrectionIsRefused_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("text");
        QTest::newRow("apostrophe in the name") << u"name"_s << u"O'Neill"_s;
        QTest::newRow("apostrophe in a contact") << u"contact"_s << u"D'Angelo"_s;
        QTest::newRow("apostrophe in the remark") << u"remark"_s << u"{\\rtf1 wenn's}"_s;
        QTest::newRow("300 characters") << u"name"_s << QString(300, u'x');
        QTest::newRow("a fee that is none") << u"fee"_s << u"abc"_s;
        QTest::newRow("a fee with an exponent") << u"fee"_s << u"1e9"_s;
    }
    void aCorrectionIsRefused() {
        QFETCH(const QString, field);
        QFETCH(const QString, text);
        addPupil(fullRecord());
        write([] { QVERIFY(!DatensatzBeanspruchen(1)); });
        const Database before = wholeDatabase();
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.Kennung = u"neu"_s;
        (field == u"name"_s      ? datensatz.SCH[kFeldName]
         : field == u"contact"_s ? datensatz.GV[2][0]
         : field == u"fee"_s     ? datensatz.Beitrag[3]
                                 : datensatz.Anmerkung) = text;
        QVERIFY_THROWS_EXCEPTION(StoreError, write([&] { SchuelerAendern(datensatz); }));
        QCOMPARE(wholeDatabase(), before);
    }

    void anApostropheIsWrittenWhereTheOfficeAllowedIt() {
        addPupil(fullRecord());
        Global().AktuelleSchuelerID = 1;
        Global().Conn.AllowApostrophes(true);
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldName] = u"O'Neill"_s;
        write([&] { SchuelerAendern(datensatz); });
        QCOMPARE(parsed(rowOf(wholeDatabase(), 1)).value(u"SCH_Name"_s), u"O'Neill"_s);
    }

    void aFailureBetweenTheTwoStatementsTakesTheCorrectionBack() {
        addPupil(fullRecord());
        Global().AktuelleSchuelerID = 1;
        refuse(u"UPDATE OF Schwimmer ON Stammdaten"_s);
        const Database before = wholeDatabase();
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldName] = u"Neu"_s;
        QVERIFY_THROWS_EXCEPTION(StoreError, write([&] { SchuelerAendern(datensatz); }));
        QVERIFY_THROWS_EXCEPTION(StoreError, write([&] { SchulanfaengerAendern(datensatz); }));
        QCOMPARE(wholeDatabase(), before);
    }

    void aCorrectionIntoAnUnknownClassMakesIt() {
        addPupil(fullRecord());
        Global().AktuelleSchuelerID = 1;
        const Database before = wholeDatabase();
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldKlasse] = u"4c"_s;
        doorsOfTest.expect(u"Die Klasse 4c wurde erstellt!"_s);
        write([&] { SchuelerAendern(datensatz); });
        const Database after = wholeDatabase();
        QCOMPARE(after[u"Klassen"_s].size(), before[u"Klassen"_s].size() + kSchoolDays);
        QCOMPARE(changedFields(rowOf(after, 1), rowOf(before, 1)), (Fields{{u"Klasse"_s, u"4c"_s},
                                                                           {u"Schulstufe"_s, u"4"_s},
                                                                           {u"Kl_Nr"_s, u"c"_s},
                                                                           {u"ZeitStempel"_s, QString()},
                                                                           {u"PC_Name"_s, QString()}}));
    }

    void deactivatingAndActivatingKeepsTheAssignmentsAndLosesTheNotes() {
        addPupil(fullRecord());
        addPupil(fullRecord());
        addNote(1, u"bleibt nicht"_s);
        addNote(2, u"bleibt"_s);
        Global().AktuelleSchuelerID = 1;
        const Database before = wholeDatabase();
        write([] { SchuelerDeaktivieren(); });
        QCOMPARE(changedFields(rowOf(wholeDatabase(), 1), rowOf(before, 1)),
                 (Fields{{u"aktiv"_s, u"Falsch"_s}}));
        QCOMPARE(without(wholeDatabase(), kStammdaten, u"ID=1;"_s), without(before, kStammdaten, u"ID=1;"_s));
        write([] { SchuelerNotizenLoeschen(); });
        QCOMPARE(wholeDatabase()[u"SCH_Notiz"_s], before[u"SCH_Notiz"_s].mid(1));
        QCOMPARE(wholeDatabase()[u"WP_Notiz"_s], before[u"WP_Notiz"_s]);
        write([] { SchuelerAktivieren(); });
        Database expected = before;
        expected[u"SCH_Notiz"_s].removeFirst();
        QCOMPARE(wholeDatabase(), expected);
    }

    void activatingLeavesTheStampAsItStands() {
        addPupil(fullRecord());
        write([] {
            QVERIFY(!DatensatzBeanspruchen(1));
            SchuelerDeaktivieren();
            SchuelerAktivieren();
        });
        QCOMPARE(parsed(rowOf(wholeDatabase(), 1)).value(u"PC_Name"_s), u"TEST-PC"_s);
    }

    void classOfASchoolStarter_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("asNew");
        QTest::addColumn<QString>("corrected");
        QTest::newRow("empty") << QString() << QString() << u"00"_s;
        QTest::newRow("a letter") << u"a"_s << u"0a"_s << u"0a"_s;
        QTest::newRow("zero and a letter") << u"0b"_s << u"0b"_s << u"0b"_s;
    }
    void classOfASchoolStarter() {
        QFETCH(const QString, typed);
        QFETCH(const QString, asNew);
        QFETCH(const QString, corrected);
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldKlasse] = typed;
        write([&] { SchulanfaengerNeuSchreiben(datensatz); });
        Fields row = parsed(rowOf(wholeDatabase(), 1));
        QCOMPARE(row.value(u"Klasse"_s), asNew);
        QCOMPARE(row.value(u"Schulstufe"_s), u"0"_s);
        QCOMPARE(row.value(u"Kl_Nr"_s), typed.right(1));
        QCOMPARE(row.value(u"aktiv"_s), u"Wahr"_s);

        Global().AktuelleSchuelerID = 1;
        write([&] { SchulanfaengerAendern(datensatz); });
        QCOMPARE(datensatz.SCH[kFeldKlasse], corrected);
        row = parsed(rowOf(wholeDatabase(), 1));
        QCOMPARE(row.value(u"Klasse"_s), corrected);
        QCOMPARE(row.value(u"Schulstufe"_s), u"0"_s);
        QCOMPARE(row.value(u"Kl_Nr"_s), corrected.right(1));
    }

    void aSchoolStarterMakesNoClass() {
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldKlasse] = u"0a"_s;
        const Database before = wholeDatabase();
        write([&] { SchulanfaengerNeuSchreiben(datensatz); });
        Global().AktuelleSchuelerID = 1;
        write([&] { SchulanfaengerAendern(datensatz); });
        QCOMPARE(without(wholeDatabase(), kStammdaten, u"ID=1;"_s), before);
    }

    void aSchoolStarterIsCorrectedInEveryField() {
        SchuelerDatensatz plain;
        plain.SCH = {u"A"_s, u"B"_s, QString(), QString()};
        write([&] { SchulanfaengerNeuSchreiben(plain); });
        Global().AktuelleSchuelerID = 1;
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldKlasse] = u"0a"_s;
        write([&] { SchulanfaengerAendern(datensatz); });
        const DbSession session(u"Test"_s);
        QCOMPARE(SchuelerLesen(1), std::optional(datensatz));
    }

    void aDeletedSchoolStarterLeavesItsNotes() {
        addPupil(fullRecord());
        SchuelerDatensatz datensatz = fullRecord();
        datensatz.SCH[kFeldKlasse] = u"0a"_s;
        write([&] { SchulanfaengerNeuSchreiben(datensatz); });
        addNote(2, u"verwaist"_s);
        Global().AktuelleSchuelerID = 2;
        const Database before = wholeDatabase();
        write([] { SchulanfaengerLoeschen(); });
        QCOMPARE(wholeDatabase(), without(before, kStammdaten, u"ID=2;"_s));
    }

    void withoutAPupilInHandNothingIsChanged() {
        addPupil(fullRecord());
        Global().AktuelleSchuelerID = 0;
        const Database before = wholeDatabase();
        write([] {
            SchuelerAendern(fullRecord());
            SchuelerDeaktivieren();
            SchuelerNotizenLoeschen();
            SchulanfaengerLoeschen();
        });
        QCOMPARE(wholeDatabase(), before);
    }
};

KOLIBRI_TEST_MAIN(StudentStoreTest)
#include "student_store_test.moc"
