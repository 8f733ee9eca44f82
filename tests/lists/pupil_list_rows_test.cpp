#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "lists/pupil_list_rows.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class PupilListRowsTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void eachOptionFillsItsColumn() {
        useEmptyDatabase();
        addPupil(u"Berg"_s, u"Ada"_s, u"2a"_s,
                 {{u"SCH_Geb"_s, u"01.02.2018"_s},
                  {u"Schwimmer"_s, u"JA"_s},
                  {u"Kennung"_s, u"K7"_s},
                  {u"Baustein"_s, u"Frühdienst"_s},
                  {u"Beitrag_0"_s, 12.5},
                  {u"Beitrag_1"_s, u"1.250,00"_s}});
        auto& options = Liste().Dialog;
        options.chkGebDatum = options.chkKlasse = options.chkSchwimmer = true;
        options.chkKennung = options.chkBaustein = options.chkBeiträge = true;
        QCOMPARE(gathered(kErweiterteListe),
                 QStringList({u"1: 1 | Berg | Ada | 01.02.2018 | 2a | JA | K7 | Frühdienst | 12,50 | "
                              u"1250,00"_s}));
    }

    void anEmptyFeeShowsZeroWithAPointAndAddsNothing() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"A"_s, u"2a"_s, {{u"Beitrag_0"_s, 1234.5}});
        addPupil(u"B"_s, u"B"_s, u"2a"_s);
        addPupil(u"C"_s, u"C"_s, u"2a"_s, {{u"Beitrag_0"_s, 0.05}, {u"Beitrag_1"_s, 0}});
        Liste().Dialog.chkBeiträge = true;
        const QStringList expected{u"1: 1 | A | A | 1234,50 | 0.00"_s, u"1: 2 | B | B | 0.00 | 0.00"_s,
                                   u"1: 3 | C | C | 0,05 | 0,00"_s};
        QCOMPARE(gathered(kErweiterteListe), expected);
        // Asked for once more, the sums begin at nothing again.
        const QStringList body = produced(kErweiterteListe);
        const qsizetype sum = body.indexOf(u"<TR class=\"STD_Summe\">"_s);
        QCOMPARE(
            body.mid(sum, 8),
            QStringList({u"<TR class=\"STD_Summe\">"_s, u"<TD WIDTH=60pt ALIGN=right></TD>"_s,
                         u"<TD WIDTH=180pt ALIGN=left></TD>"_s, u"<TD WIDTH=120pt ALIGN=right>SUMME:</TD>"_s,
                         u"<TD WIDTH=84pt ALIGN=right>1.234,55</TD>"_s,
                         u"<TD WIDTH=84pt ALIGN=right>0,00</TD>"_s, u"</TR>"_s, u"</TABLE>"_s}));
    }

    void aPupilTakesARowForEachContactThatHasAChosenField_data() {
        QTest::addColumn<QString>("people");
        QTest::addColumn<QStringList>("expected");
        // N a name, T a telephone number, - nothing; the list shows the names.
        QTest::newRow("none") << u"---"_s << QStringList{u"1: Kind |  | "_s};
        QTest::newRow("one") << u"N--"_s << QStringList{u"1: Kind | P1 | "_s};
        QTest::newRow("two") << u"NN-"_s << QStringList{u"111: Kind | P1 | "_s, u"112:  | P2 | "_s};
        QTest::newRow("three") << u"NNN"_s
                               << QStringList{u"111: Kind | P1 | "_s, u"113:  | P2 | "_s, u"112:  | P3 | "_s};
        QTest::newRow("only the third") << u"--N"_s << QStringList{u"1: Kind | P3 | "_s};
        QTest::newRow("a gap closes") << u"N-N"_s << QStringList{u"111: Kind | P1 | "_s, u"112:  | P3 | "_s};
        QTest::newRow("a field that is not chosen")
            << u"NTN"_s << QStringList{u"111: Kind | P1 | "_s, u"112:  | P3 | "_s};
    }

    void aPupilTakesARowForEachContactThatHasAChosenField() {
        QFETCH(const QString, people);
        useEmptyDatabase();
        FieldValues values;
        for (int person = 1; person <= 3; ++person) {
            const QChar kind = people.at(person - 1);
            const auto fields = contact(person, kind == u'N' ? u"P%1"_s.arg(person) : QString(),
                                        kind == u'T' ? u"0170"_s : QString());
            values.insert(values.end(), fields.begin(), fields.end());
        }
        addPupil(u"Kind"_s, QString(), u"0a"_s, values);
        chooseContacts(u"Name"_s);
        QStringList trimmed = gathered(kSchulanfaenger);
        trimmed.replaceInStrings(u"Kind  |"_s, u"Kind |"_s);
        QTEST(trimmed, "expected");
    }

    void contactColumnsFollowTheirNumberWhateverTheirLabel() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"Einstellungen"_s, {{u"Bezeichnung"_s, u"NAME"_s}},
                                 u"Feld = 'Kontakt' AND Nummer = 6"_s);
        }
        addPupil(u"Kind"_s, u"Ada"_s, u"0a"_s,
                 {{u"Tel_privat2"_s, u"0241"_s}, {u"Mobil2"_s, u"0170"_s}, {u"Tel_Dienst2"_s, u"0242"_s}});
        chooseContacts(u"Telefon"_s);
        QCOMPARE(gathered(kSchulanfaenger), QStringList({u"1: Kind Ada | 0241 | 0170 | 0242"_s}));
        QCOMPARE(Liste().SpaltenText(3), u"NAME"_s);
    }

    void aContactNumberThatIsNoneIsARunTimeError() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Change(u"Einstellungen"_s, {{u"Nummer"_s, 10}},
                                 u"Feld = 'Kontakt' AND Nummer = 6"_s);
        }
        chooseContacts(u"Telefon"_s);
        try {
            prepareList(kErweiterteListe);
            QFAIL("no error");
        } catch (const RuntimeError& error) {
            QCOMPARE(error.message(), u"Laufzeitfehler '9': Index außerhalb des gültigen Bereichs"_s);
            QCOMPARE(error.details(), u"Kontaktfeld 10"_s);
        }
        QVERIFY(!Global().Conn.IsOpen());
    }

    void theEmergencyNumberHasARowOfItsOwn() {
        useEmptyDatabase();
        addPupil(u"Eins"_s, u"A"_s, u"2a"_s, {{u"NotfallRN"_s, u"112233"_s}});
        addPupil(u"Zwei"_s, u"B"_s, u"2a"_s,
                 joined({contact(1, u"P1"_s), contact(2, u"P2"_s), {{u"NotfallRN"_s, u"445566"_s}}}));
        chooseContacts(u"Name"_s);
        QCOMPARE(gathered(kErweiterteListe),
                 QStringList({u"1: 1 | Eins | A |  | "_s, u"2:  |  |  | Notfall-NR | 112233"_s,
                              u"111: 3 | Zwei | B | P1 | "_s, u"112:  |  |  | P2 | "_s,
                              u"2:  |  |  | Notfall-NR | 445566"_s}));
    }

    void withOneContactColumnLabelAndNumberStandTogether() {
        useEmptyDatabase();
        addPupil(u"Eins"_s, u"A"_s, u"2a"_s, {{u"NotfallRN"_s, u"112233"_s}});
        chooseContacts(u"E-Mail"_s);
        QCOMPARE(gathered(kErweiterteListe),
                 QStringList({u"1: 1 | Eins | A | "_s, u"2:  |  |  | Notfall-NR 112233"_s}));
    }

    void withoutACategoryThereIsNoEmergencyRow() {
        useEmptyDatabase();
        addPupil(u"Eins"_s, u"A"_s, u"2a"_s, {{u"NotfallRN"_s, u"112233"_s}});
        chooseContacts(QString());
        QCOMPARE(gathered(kErweiterteListe), QStringList({u"1: 1 | Eins | A"_s}));
        Liste().Dialog.chkKontakteNeu = false;
        Liste().Dialog.cmbKontakte[0] = u"Name"_s;
        QCOMPARE(gathered(kErweiterteListe), QStringList({u"1: 1 | Eins | A"_s}));
    }

    void everythingThatIsNotAboutContactsStandsInThePupilsFirstRow() {
        useEmptyDatabase();
        addPupil(u"Eins"_s, u"A"_s, u"2a"_s,
                 joined({contact(1, u"P1"_s),
                         contact(3, u"P3"_s),
                         {{u"NotfallRN"_s, u"110"_s}, {u"Kennung"_s, u"K"_s}, {u"Beitrag_0"_s, 7}}}));
        chooseContacts(u"E-Mail"_s);
        Liste().Dialog.cmbKontakte[2] = u"Name"_s;
        Liste().Dialog.chkKennung = Liste().Dialog.chkBeiträge = true;
        QCOMPARE(gathered(kSchulanfaenger), QStringList());
        QCOMPARE(gathered(kErweiterteListe), QStringList({u"111: 1 | Eins | A |  | P1 |  | K | 7,00 | 0.00"_s,
                                                          u"112:  |  |  |  | P3 |  |  |  | "_s,
                                                          u"2:  |  |  | Notfall-NR | 110 |  |  |  | "_s}));
    }

    void theNameListWithContactsHasNoNumber() {
        useEmptyDatabase();
        addPupil(u"Eins"_s, u"A"_s, u"2a"_s, contact(2, u"P2"_s));
        chooseContacts(u"Name"_s);
        QCOMPARE(gathered(kNamensliste), QStringList({u"1: Eins A | P2 | "_s}));
    }

    void fourRowsForEachPupilFit() {
        useEmptyDatabase();
        for (const auto& name : {u"A"_s, u"B"_s})
            addPupil(name, name, u"2a"_s,
                     joined({contact(1, u"P1"_s),
                             contact(2, u"P2"_s),
                             contact(3, u"P3"_s),
                             {{u"NotfallRN"_s, u"110"_s}}}));
        chooseContacts(u"Name"_s);
        QCOMPARE(gathered(kErweiterteListe).size(), 8);
        QCOMPARE(Liste().Daten.rows(), 8);
    }
};

KOLIBRI_TEST_MAIN(PupilListRowsTest)
#include "pupil_list_rows_test.moc"
