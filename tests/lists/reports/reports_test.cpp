#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/runtime_error.h"
#include "core/widgets/application.h"
#include "lists/list_helpers.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kZeit = u"13:00 - 14:00"_s;
const QString kFrueh = u"13:00 - 14:00 ME1"_s;
const QString kZugleich = u"13:00 - 14:00 ME2"_s;

/// The body of a report, with its Friday column if anybody is there on Fridays.
QStringList report(quint8 listenArt, bool withStarters = false) {
    Global().MitSchulanfaengern = withStarters;
    Global().ListenArt = listenArt;
    FreitagBelegt_Pruefen();
    return produced(listenArt);
}

QStringList rows(quint8 listenArt, bool withStarters = false) {
    report(listenArt, withStarters);
    return listRows();
}

/// Number of the run-time error with which a report ends; 0 when it is written.
int failure(quint8 listenArt) {
    try {
        report(listenArt);
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

void addMensa(const QString& kurzname, const QString& zeit = kZeit, const QString& gr = u"GR1"_s) {
    addOffering(gr, u"Mensa "_s + kurzname, kurzname, u"MO"_s, zeit);
}

} // namespace

class ReportsTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void withTheAnswerNoASchoolStarterIsNotCountedInTheTotal() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}});
        addPupil(u"A"_s, u"Anfänger"_s, u"0a"_s, {{u"GR1_MO"_s, kFrueh}});
        QCOMPARE(rows(kMensaGesamt, false),
                 QStringList({u"21:   |  |  |  | "_s, u"1: 13:00 - 14:00 | 1 | 0 | 0 | 0"_s,
                              u"22: Summe | 1 | 0 | 0 | 0"_s, u"29:  |  |  |  | "_s}));
        QCOMPARE(rows(kMensaGesamt, true).at(1), u"1: 13:00 - 14:00 | 2 | 0 | 0 | 0"_s);
    }

    void withTheAnswerNoAClassOfSchoolStartersIsNotListed() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}});
        addPupil(u"A"_s, u"Anfänger"_s, u"0a"_s, {{u"GR1_MO"_s, kFrueh}});
        QCOMPARE(
            rows(kMensaJeKlasse, false),
            QStringList({u"23: ZEIT: 13:00 - 14:00 |  |  |  | "_s, u"21:   |  |  |  | "_s,
                         u"1: 1a | 1 | 0 | 0 | 0"_s, u"22: Summe | 1 | 0 | 0 | 0"_s, u"29:  |  |  |  | "_s}));
        QCOMPARE(rows(kMensaJeKlasse, true).mid(2, 3),
                 QStringList({u"1: 0a | 1 | 0 | 0 | 0"_s, u"1: 1a | 1 | 0 | 0 | 0"_s,
                              u"22: Summe | 2 | 0 | 0 | 0"_s}));
    }

    void aClassCountsAsAWholeWithItsSchoolStarters() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}});
        addPupil(u"A"_s, u"Anfänger"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}, {u"Schulstufe"_s, 0}});
        QCOMPARE(rows(kMensaJeKlasse, false).at(2), u"1: 1a | 2 | 0 | 0 | 0"_s);
    }

    void aClassThatNobodyEatsInIsStillListed() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addPupil(u"A"_s, u"Kind"_s, u"2b"_s);
        addPupil(u"A"_s, u"Weg"_s, u"4c"_s, {{u"GR1_MO"_s, kFrueh}, {u"aktiv"_s, false}});
        QCOMPARE(rows(kMensaJeKlasse).mid(2, 2),
                 QStringList({u"1: 2b | 0 | 0 | 0 | 0"_s, u"1: 4c | 0 | 0 | 0 | 0"_s}));
    }

    void theClassesAreSortedWhateverTheOrderOfThePupils() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        for (const auto& klasse : {u"4b"_s, u"1c"_s, u"3a"_s, u"1a"_s})
            addPupil(u"A"_s, u"Kind"_s, klasse);
        QStringList classes;
        for (const auto& row : rows(kMensaJeKlasse).mid(2, 4))
            classes << row.mid(3, 2);
        QCOMPARE(classes, QStringList({u"1a"_s, u"1c"_s, u"3a"_s, u"4b"_s}));
    }

    void aDeactivatedPupilBringsTheFridayColumnButIsNotCounted() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addPupil(u"A"_s, u"Weg"_s, u"1a"_s, {{u"GR1_FR"_s, kFrueh}, {u"aktiv"_s, false}});
        const QStringList body = report(kMensaGesamt);
        QCOMPARE(Liste().SpaltenAnzahl, 6);
        QCOMPARE(body.filter(u">FR</TD>"_s).size(), 1);
        QCOMPARE(listRows().at(1), u"1: 13:00 - 14:00 | 0 | 0 | 0 | 0 | 0"_s);
    }

    void withoutTheFridayColumnTheFridayIsCountedButNotShown() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_FR"_s, kFrueh}});
        Global().ListenArt = kMensaGesamt;
        Liste().FreitagBelegt = false;
        const QStringList body = produced(kMensaGesamt);
        QCOMPARE(Liste().Daten(6, 2), u"1"_s);
        QVERIFY(body.filter(u">FR</TD>"_s).isEmpty());
        QCOMPARE(body.filter(u"<TD>"_s).size(), 5);
    }

    void theFridayOfTheLernzeitDecidesAboutTheLernzeitReports() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR2_FR"_s, kFrueh}});
        report(kLernzeitGesamt);
        QVERIFY(Liste().FreitagBelegt);
        report(kMensaJeKlasse);
        QVERIFY(!Liste().FreitagBelegt);
        report(kLernzeitJeKlasse);
        QVERIFY(Liste().FreitagBelegt);
    }

    void twoOfferingsAtOneTimeAreTwoRowsThatLookAlike() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addMensa(u"ME2"_s);
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR1_MO"_s, kZugleich}});
        QCOMPARE(rows(kMensaGesamt).mid(1, 3),
                 QStringList({u"1: 13:00 - 14:00 | 0 | 0 | 0 | 0"_s, u"1: 13:00 - 14:00 | 1 | 0 | 0 | 0"_s,
                              u"22: Summe | 1 | 0 | 0 | 0"_s}));
    }

    void theDaysOfAnOfferingAreOneRow() {
        useEmptyDatabase();
        for (const auto& tag : {u"MO"_s, u"DI"_s, u"DO"_s})
            addOffering(u"GR2"_s, u"Lernzeit"_s, u"LZ"_s, tag, kZeit);
        const QString key = kZeit + u" LZ"_s;
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR2_MO"_s, key}, {u"GR2_DO"_s, key}, {u"GR1_DI"_s, key}});
        QCOMPARE(rows(kLernzeitGesamt),
                 QStringList({u"21:   |  |  |  | "_s, u"1: 13:00 - 14:00 | 1 | 0 | 0 | 1"_s,
                              u"22: Summe | 1 | 0 | 0 | 1"_s, u"29:  |  |  |  | "_s}));
    }

    void aReportWithoutOfferingsIsATableWithItsHeadingAndASumOfZeros() {
        useEmptyDatabase();
        QCOMPARE(report(kMensaGesamt).filter(u"<TABLE"_s).size(), 1);
        QCOMPARE(listRows(), QStringList({u"21:   |  |  |  | "_s, u"22: Summe | 0 | 0 | 0 | 0"_s,
                                          u"29:  |  |  |  | "_s}));
        // By classes there is a table for each offering, so there is none.
        QVERIFY(report(kMensaJeKlasse).filter(u"<TABLE"_s).isEmpty());
    }

    void theTenthOfferingIsOutOfBounds() {
        useEmptyDatabase();
        for (int i = 1; i <= 9; ++i)
            addMensa(u"ME%1"_s.arg(i));
        QCOMPARE(failure(kMensaGesamt), 0);
        QCOMPARE(failure(kMensaJeKlasse), 0);
        addMensa(u"ME10"_s);
        QCOMPARE(failure(kMensaGesamt), 9);
        QCOMPARE(failure(kMensaJeKlasse), 9);
    }

    void theTwentyFirstClassIsOutOfBounds() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        for (int i = 0; i < 20; ++i)
            addPupil(u"A"_s, u"Kind"_s, u"%1%2"_s.arg(1 + i / 10).arg(QChar(u'a' + i % 10)));
        QCOMPARE(failure(kMensaJeKlasse), 0);
        addPupil(u"A"_s, u"Kind"_s, u"4a"_s);
        QCOMPARE(failure(kMensaJeKlasse), 9);
        QCOMPARE(failure(kMensaGesamt), 0);
    }

    void anErrorLeavesTheOldPageAsItIs() {
        useEmptyDatabase();
        report(kMensaGesamt);
        const QByteArray before = pageBytes();
        for (int i = 1; i <= 10; ++i)
            addMensa(u"ME%1"_s.arg(i));
        QCOMPARE(failure(kMensaGesamt), 9);
        QCOMPARE(pageBytes(), before);
    }

    void anArbeitsgruppeOnTwoWeekdaysShowsAsTwoRows() {
        useEmptyDatabase();
        addGroup(u"Chor"_s, u"CH"_s, u"MO"_s, u"15:00 - 16:00"_s);
        addGroup(u"Chor"_s, u"CH"_s, u"DO"_s, u"15:00 - 16:00"_s);
        addGroup(u"Akrobatik"_s, u"AK"_s, u"FR"_s, u"14:00 - 15:00"_s);
        const QString key = u"15:00 - 16:00 CH"_s;
        addPupil(u"A"_s, u"beide Tage"_s, u"1a"_s, {{u"GR3_MO"_s, key}, {u"GR5_DO"_s, key}});
        addPupil(u"A"_s, u"zweimal am Tag"_s, u"1a"_s, {{u"GR3_MO"_s, key}, {u"GR4_MO"_s, key}});
        addPupil(u"A"_s, u"Anfänger"_s, u"0a"_s, {{u"GR7_MO"_s, key}});
        addPupil(u"A"_s, u"Weg"_s, u"1a"_s, {{u"GR3_MO"_s, key}, {u"aktiv"_s, false}});
        QCOMPARE(rows(kArbeitsgruppenGesamt),
                 QStringList({u"21:   |  |  | "_s, u"1: Akrobatik | FR | 14:00 - 15:00 | 0"_s,
                              u"1: Chor | MO | 15:00 - 16:00 | 4"_s, u"1: Chor | DO | 15:00 - 16:00 | 1"_s,
                              u"29:  |  |  | "_s}));
    }

    void aReportOfArbeitsgruppenHasRoomFor997Meetings() {
        useEmptyDatabase();
        {
            const DbSession session(u"Test"_s);
            Transaction transaction(Global().Conn);
            for (int i = 0; i < 997; ++i)
                Global()
                    .Conn.AddNew(u"GR3"_s)
                    .Set(u"L_Name"_s, u"AG"_s)
                    .Set(u"Tag"_s, u"MO"_s)
                    .Set(u"Zeit_K_Name"_s, u"15:00 - 16:00 AG%1"_s.arg(i))
                    .Update();
            transaction.Commit();
        }
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s, {{u"GR3_MO"_s, u"15:00 - 16:00 AG996"_s}});
        QCOMPARE(failure(kArbeitsgruppenGesamt), 0);
        QCOMPARE(Liste().ZeilenAnzahl, 999);
        QCOMPARE(Liste().Daten(4, 998), u"1"_s);
        addGroup(u"Zuviel"_s, u"Z"_s, u"MO"_s, u"15:00 - 16:00"_s);
        QCOMPARE(failure(kArbeitsgruppenGesamt), 9);
    }

    void thePageOfATotalReport() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addMensa(u"ME2"_s);
        addMensa(u"ME3"_s);
        const QStringList body = report(kMensaGesamt);
        const QStringList expected{u"<BODY>"_s,
                                   uR"(<div id="kopf_anschrift">)"_s,
                                   u"</div>"_s,
                                   uR"(<div id="kopf_mitte">)"_s,
                                   u"<h1>BERICHT MENSA</h1>"_s,
                                   u"</div>"_s,
                                   u"<div id='box_table'>"_s,
                                   u"<div class='anmerkung_vorher'>"_s,
                                   u"Gesamt Mensa-Teilnehmer"_s,
                                   u"</div>"_s,
                                   u"<div class='tabelle'>"_s,
                                   uR"(<TABLE class="Tpt">)"_s,
                                   uR"(<TR class="KopfZeile_ME_LZ_AG">)"_s,
                                   u"<TD WIDTH=210pt ALIGN=center>ZEIT</TD>"_s,
                                   u"<TD WIDTH=70pt ALIGN=center>MO</TD>"_s};
        QCOMPARE(body.first(expected.size()), expected);
        QCOMPARE(rowClasses(body), QStringList({u"ME_LZ_AG_Daten1"_s, u"ME_LZ_AG_Daten2"_s,
                                                u"ME_LZ_AG_Daten1"_s, u"SummenZeile_ME_LZ_AG"_s}));
        QVERIFY(body.contains(u"<TD>Summe</TD>"_s));
        QCOMPARE(body.last(6), QStringList({u"</TABLE>"_s, u"</div>"_s, u"</div>"_s, u"</BODY>"_s,
                                            u"</HTML>"_s, QString()}));
    }

    void theShadesOfTheRowsRunOnAcrossTheTablesOfAReportByClasses() {
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addMensa(u"ME2"_s);
        addPupil(u"A"_s, u"Kind"_s, u"1a"_s);
        const QStringList body = report(kMensaJeKlasse);
        QCOMPARE(rowClasses(body),
                 QStringList({u"ME_LZ_AG_Daten1"_s, u"SummenZeile_ME_LZ_AG"_s, u"KopfZeile_ME_LZ_AG"_s,
                              u"ME_LZ_AG_Daten2"_s, u"SummenZeile_ME_LZ_AG"_s}));
        const qsizetype line = body.indexOf(u"ZEIT: 13:00 - 14:00"_s);
        QCOMPARE(body.at(line - 1), u"<div class='UE1_vorher'>"_s);
        QCOMPARE(body.sliced(line + 1, 2), QStringList({u"</div>"_s, uR"(<TABLE class="Tpt">)"_s}));
    }

    void theHeadingsOfTheReports_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QStringList>("headings");
        const QStringList days{u"MO"_s, u"DI"_s, u"MI"_s, u"DO"_s};
        const QStringList time = QStringList{u"ZEIT"_s} + days;
        const QStringList klasse = QStringList{u"KLASSE"_s} + days;
        QTest::newRow("11") << 11 << u"BERICHT MENSA"_s << u"Gesamt Mensa-Teilnehmer"_s << time;
        QTest::newRow("12") << 12 << u"BERICHT MENSA"_s << u"Anzahl der Schülerinnen und Schüler"_s << klasse;
        QTest::newRow("21") << 21 << u"BERICHT LERNZEITEN"_s << u"Gesamt Lernzeiten-Teilnehmer"_s << time;
        QTest::newRow("22") << 22 << u"BERICHT LERNZEIT"_s << u"Anzahl der Schülerinnen und Schüler"_s
                            << klasse;
        QTest::newRow("31") << 31 << u"BERICHT ARBEITSGRUPPEN"_s << u"Gesamt Arbeitsgruppen-Teilnehmer"_s
                            << QStringList({u"ARBEITSGRUPPE"_s, u"TAG"_s, u"ZEIT"_s, u"TEILNEHMER"_s});
    }
    void theHeadingsOfTheReports() {
        QFETCH(const int, listenArt);
        QFETCH(const QString, title);
        QFETCH(const QString, line);
        QFETCH(const QStringList, headings);
        useEmptyDatabase();
        addMensa(u"ME1"_s);
        addMensa(u"LZ1"_s, kZeit, u"GR2"_s);
        const QStringList body = report(static_cast<quint8>(listenArt));
        QVERIFY(body.contains(u"<h1>%1</h1>"_s.arg(title)));
        QCOMPARE(body.at(body.indexOf(u"<div class='anmerkung_vorher'>"_s) + 1), line);
        const qsizetype row = body.indexOf(uR"(<TR class="KopfZeile_ME_LZ_AG">)"_s);
        QStringList shown;
        for (qsizetype i = 1; i <= headings.size(); ++i)
            shown << body.at(row + i).section(u'>', 1).chopped(5);
        QCOMPARE(shown, headings);
        QCOMPARE(body.at(row + headings.size() + 1), u"</TR>"_s);
    }

    void theSpreadsheetKeepsTheTextsOfTheColumns() {
        useEmptyDatabase();
        report(kLernzeitGesamt);
        QCOMPARE(Liste().SpaltenText(1), u"MENSA-ZEIT"_s);
        report(kArbeitsgruppenGesamt);
        QCOMPARE(Liste().SpaltenText(4), u"SUMME"_s);
    }
};

KOLIBRI_TEST_MAIN(ReportsTest)
#include "reports_test.moc"
