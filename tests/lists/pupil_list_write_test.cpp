#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "lists/pupil_list_write.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class PupilListWriteTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void anEmptySelectionGivesAPageWithOnlyTheHeader() {
        useEmptyDatabase();
        const QStringList body = produced(kErweiterteListe);
        QVERIFY(rowClasses(body).isEmpty());
        QCOMPARE(body, QStringList({u"<BODY>"_s,
                                    u"<div id=\"kopf_anschrift\">"_s,
                                    u"</div>"_s,
                                    u"<div id=\"kopf_mitte\">"_s,
                                    u"<h1>STAMMDATEN</h1><BR>"_s,
                                    u"</div>"_s,
                                    u"<div id='box_table'>"_s,
                                    u"<TABLE class=\"Tpt\">"_s,
                                    u"<THEAD>"_s,
                                    u"<TR class=\"KopfZeile\">"_s,
                                    u"<TD WIDTH=85pt ALIGN=right>NR</TD>"_s,
                                    u"<TD WIDTH=255pt ALIGN=left>NACHNAME</TD>"_s,
                                    u"<TD WIDTH=170pt ALIGN=left>VORNAME</TD>"_s,
                                    u"</TR>"_s,
                                    u"</THEAD>"_s,
                                    u"</TABLE>"_s,
                                    u"</div>"_s,
                                    u"</BODY>"_s,
                                    u"</HTML>"_s,
                                    QString()}));
    }

    void withoutFeeColumnsThereIsNoSumRow() {
        useEmptyDatabase();
        addPupil(u"A"_s, u"A"_s, u"2a"_s, {{u"Beitrag_0"_s, 5}});
        QVERIFY(!produced(kErweiterteListe).contains(u"<TR class=\"STD_Summe\">"_s));
    }

    void theStripeTurnsWithEachPupil_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<QStringList>("expected");
        const QStringList contacts{u"Stammdaten1"_s,    u"StammdatenGV21"_s, u"StammdatenGV23"_s,
                                   u"Stammdaten111"_s,  u"Stammdaten113"_s,  u"Stammdaten112"_s,
                                   u"StammdatenGV13"_s, u"Stammdaten2"_s,    u"Stammdaten2"_s,
                                   u"Stammdaten2"_s,    u"Stammdaten111"_s,  u"Stammdaten112"_s,
                                   u"StammdatenGV21"_s, u"StammdatenGV23"_s};
        QTest::newRow("starters") << int(kSchulanfaenger) << contacts;
        QTest::newRow("extended") << int(kErweiterteListe) << contacts;
        QTest::newRow("names") << int(kNamensliste)
                               << QStringList{u"STD_1"_s, u"STD_2"_s, u"STD_2"_s, u"STD_1"_s, u"STD_1"_s,
                                              u"STD_1"_s, u"STD_1"_s, u"STD_2"_s, u"STD_2"_s, u"STD_2"_s,
                                              u"STD_1"_s, u"STD_1"_s, u"STD_2"_s, u"STD_2"_s};
    }

    void theStripeTurnsWithEachPupil() {
        QFETCH(const int, listenArt);
        useEmptyDatabase();
        const QString klasse = listenArt == kSchulanfaenger ? u"0a"_s : u"2a"_s;
        const FieldValues emergency{{u"NotfallRN"_s, u"110"_s}};
        const FieldValues two = joined({contact(1, u"P1"_s), contact(2, u"P2"_s)});
        const FieldValues three = joined({two, contact(3, u"P3"_s)});
        addPupil(u"A"_s, QString(), klasse);
        addPupil(u"B"_s, QString(), klasse, emergency);
        addPupil(u"C"_s, QString(), klasse, joined({three, emergency}));
        addPupil(u"D"_s, QString(), klasse, three);
        addPupil(u"E"_s, QString(), klasse, two);
        addPupil(u"F"_s, QString(), klasse, joined({contact(1, u"P1"_s), emergency}));
        chooseContacts(u"Name"_s);
        QTEST(rowClasses(produced(static_cast<quint8>(listenArt))), "expected");
    }

    void aContinuationBelowAContinuationHasNoBorderBetween() {
        useEmptyDatabase();
        addPupil(u"A"_s, QString(), u"2a"_s);
        addPupil(u"B"_s, QString(), u"2a"_s);
        prepareList(kErweiterteListe);
        auto& liste = Liste();
        const QStringList codes{u"1"_s, u"2"_s, u"2"_s, u"1"_s, u"2"_s, u"2"_s, u"2"_s};
        for (int row = 1; row <= codes.size(); ++row)
            liste.ZeilenCode(row) = codes.at(row - 1);
        liste.ZeilenAnzahl = static_cast<int>(codes.size());
        producePage();
        QCOMPARE(
            rowClasses(bodyLines()),
            QStringList({u"StammdatenGV11"_s, u"StammdatenGV12"_s, u"StammdatenGV13"_s, u"StammdatenGV21"_s,
                         u"StammdatenGV22"_s, u"StammdatenGV22"_s, u"StammdatenGV23"_s}));
    }

    void aRowWhoseCodeIsNoNumberIsSkipped() {
        useEmptyDatabase();
        addPupil(u"A"_s, QString(), u"2a"_s);
        addPupil(u"B"_s, QString(), u"2a"_s);
        prepareList(kErweiterteListe);
        Liste().ZeilenCode(1) = u"x"_s;
        producePage();
        QCOMPARE(rowClasses(bodyLines()), QStringList{u"Stammdaten1"_s});
    }

    void theNameListIsANarrowTableOfPlainCells() {
        useEmptyDatabase();
        addPupil(u"Müller"_s, u"Jörg"_s, u"2a"_s);
        const QStringList body = produced(kNamensliste);
        QCOMPARE(body.mid(3), QStringList({u"<div id=\"kopf_mitte\">"_s,
                                           u"<h1>NAMENSLISTE</h1><BR>"_s,
                                           u"</div>"_s,
                                           u"<div id='box_table'>"_s,
                                           u"<TABLE class=STD_Basic>"_s,
                                           u"<THEAD>"_s,
                                           u"<TR class=\"STD_KopfZeile\">"_s,
                                           u"<TD>NR</TD>"_s,
                                           u"<TD>NAME</TD>"_s,
                                           u"</TR>"_s,
                                           u"</THEAD>"_s,
                                           u"<TR class=\"STD_1\">"_s,
                                           u"<TD>1</TD>"_s,
                                           u"<TD>Müller Jörg</TD>"_s,
                                           u"</TR>"_s,
                                           u"</TABLE>"_s,
                                           u"</div>"_s,
                                           u"</BODY>"_s,
                                           u"</HTML>"_s,
                                           QString()}));
    }

    void theTitlesAreInCapitals_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<QString>("title");
        QTest::newRow("times") << int(kUnterrichtszeiten) << u"UNTERRICHTSZEITEN DER KLASSEN"_s;
        QTest::newRow("starters") << int(kSchulanfaenger) << u"SCHULANFÄNGER"_s;
        QTest::newRow("new") << int(kNeueSchueler) << u"NEUE SCHÜLER"_s;
        QTest::newRow("without care") << int(kNichtOgSchueler) << u"NICHT OG SCHÜLER"_s;
    }

    void theTitlesAreInCapitals() {
        QFETCH(const int, listenArt);
        QFETCH(const QString, title);
        useEmptyDatabase();
        QCOMPARE(produced(static_cast<quint8>(listenArt)).value(4), u"<h1>"_s + title + u"</h1><BR>"_s);
    }

    void theListsWithoutOptionsAlternateByRow() {
        useEmptyDatabase();
        for (const auto& name : {u"A"_s, u"B"_s, u"C"_s})
            addPupil(name, name, u"2a"_s, {{u"Neu"_s, true}, {u"NichtOG"_s, true}});
        const QStringList expected{u"Stammdaten1"_s, u"Stammdaten2"_s, u"Stammdaten1"_s};
        QCOMPARE(rowClasses(produced(kNeueSchueler)), expected);
        QCOMPARE(rowClasses(produced(kNichtOgSchueler)), expected);
    }
};

KOLIBRI_TEST_MAIN(PupilListWriteTest)
#include "pupil_list_write_test.moc"
