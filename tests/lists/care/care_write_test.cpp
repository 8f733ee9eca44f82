#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/care/care_list.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "lists/program_picture.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kMensa = u"13:00 - 13:45 ME1"_s;

void choose(CareVariant variant, const QString& klasse) {
    Global().ListenUnterArt = variant;
    Global().NameKurz.fill(u"Ungekürzt"_s);
    Global().NameZuerst.fill(u"Vorname Nachname"_s);
    CareOptions& options = Liste().MensaLernzeit;
    options.cmbKlasse = klasse;
    options.cmbME_LZ = u"Mensa früh"_s;
    options.txtZeit = u"13:00 - 13:45"_s;
    options.txtZeit_K_Name = kMensa;
    options.lstME_LZ = {careEntry(u"Mensa früh"_s, kMensa), careEntry(u"Mensa früh"_s, kMensa)};
}

void addEater(const QString& first, const FieldValues& cells = {{u"GR1_MO"_s, kMensa}}) {
    addPupil(u"N"_s, first, u"2a"_s, cells);
}

} // namespace

class CareWriteTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theWholeBodyOfAClass() {
        useEmptyDatabase();
        choose(kEineKlasse, u"2a"_s);
        CareOptions& options = Liste().MensaLernzeit;
        options.txtVon = u"16.11.2026"_s;
        options.txtBis = u"20.11.2026"_s;
        options.texte = {u"{\\rtf1 Bitte {\\b leise}}"_s, u"Tische abwischen."_s};
        addEater(u"Anna"_s);
        addAssignmentNote(1, u"GR1"_s, u"MO"_s, u"x"_s, u"13:00 - 13:45"_s, u"ME1"_s, u"ohne Nüsse"_s);
        const QString picture = u"<img src=\""_s + programPicture(u"Notiz20.jpg"_s) + u"\">"_s;
        QStringList expected{u"<BODY>"_s,
                             u"<div id=\"kopf_anschrift\">"_s,
                             u"</div>"_s,
                             u"<div id=\"kopf_mitte\">"_s,
                             u"<h1>Mensa - Klasse: 2a</h1>"_s,
                             u"</div>"_s,
                             u"<div id='box_table'>"_s,
                             u"<div class='woche'>"_s,
                             u"Woche: 16.11.2026 - 20.11.2026"_s,
                             u"</div>"_s,
                             u"<div class='anmerkung_vorher'>"_s,
                             u"Bitte <b>leise</b>"_s,
                             u"</div>"_s,
                             u"<div class=\"UE1_ME_LZ_AG\">"_s,
                             u"ZEIT: 13:00 - 13:45 - Mensa früh"_s,
                             u"</div>"_s,
                             u"<TABLE class=\"Tpt\">"_s,
                             u"<TR class=\"KopfZeile_ME_LZ_AG\">"_s,
                             u"<TD class=Liste_ME_LZ_AG_KZ10 Colspan=2>MONTAG</TD>"_s,
                             u"<TD class=Liste_ME_LZ_AG_KZ11 Colspan=2>DIENSTAG</TD>"_s,
                             u"<TD class=Liste_ME_LZ_AG_KZ11 Colspan=2>MITTWOCH</TD>"_s,
                             u"<TD class=Liste_ME_LZ_AG_KZ11 Colspan=2>DONNERSTAG</TD>"_s,
                             u"</TR>"_s,
                             u"<TR class=\"KopfZeile_ME_LZ_AG\">"_s,
                             u"<TD class=Liste_ME_LZ_AG_KZ20 WIDTH=80pt ALIGN=left>NAME</TD>"_s};
        for (int day = 0; day < 4; ++day) {
            if (day > 0)
                expected << u"<TD class=Liste_ME_LZ_AG_KZ21 WIDTH=80pt ALIGN=left>NAME</TD>"_s;
            expected << u"<TD class=Liste_ME_LZ_AG_KZ2%1 WIDTH=56pt ALIGN=left>%2</TD>"_s.arg(
                QString::number(day < 3 ? 1 : 2), picture);
        }
        expected << u"</TR>"_s << u"<TR class=\"ME_LZ_AG_Daten1\">"_s
                 << u"<TD class=Liste_ME_LZ_AG_1 WIDTH=80pt ALIGN=left>Anna N</TD>"_s
                 << u"<TD WIDTH=56pt ALIGN=left>ohne Nüsse</TD>"_s;
        for (int day = 1; day < 4; ++day)
            expected << u"<TD class=Liste_ME_LZ_AG_1 WIDTH=80pt ALIGN=left></TD>"_s
                     << (day < 3 ? u"<TD WIDTH=56pt ALIGN=left></TD>"_s
                                 : u"<TD class=Liste_ME_LZ_AG_2 WIDTH=56pt ALIGN=left></TD>"_s);
        expected << u"</TR>"_s << u"<TR class=\"SummenZeile_ME_LZ_AG\">"_s;
        for (const auto& sum : {u"1"_s, u"0"_s, u"0"_s, u"0"_s})
            expected << u"<TD class=Liste_ME_LZ_AG_SZ1 Colspan=2>"_s + sum + u"</TD>"_s;
        expected << u"</TR>"_s << u"</TABLE>"_s << u"<div class='anmerkung_nachher'>"_s
                 << u"Tische abwischen."_s << u"</div>"_s << u"</div>"_s << u"</BODY>"_s << u"</HTML>"_s
                 << QString();
        QCOMPARE(produced(kListeMensa), expected);
    }

    void withFridayTheHeadGoesOnToFriday() {
        useEmptyDatabase();
        choose(kEineKlasse, u"2a"_s);
        addEater(u"Anna"_s, {{u"GR1_FR"_s, kMensa}});
        const QStringList body = produced(kListeMensa);
        QVERIFY(body.contains(u"<TD class=Liste_ME_LZ_AG_KZ11 Colspan=2>FREITAG</TD>"_s));
        QCOMPARE(body.filter(u"Liste_ME_LZ_AG_SZ1"_s).size(), 5);
        QCOMPARE(body.filter(u"Liste_ME_LZ_AG_KZ21"_s).size(), 8);
    }

    void withoutFridayTheHeadStopsAtThursday() {
        useEmptyDatabase();
        choose(kEineKlasse, u"2a"_s);
        addEater(u"Anna"_s);
        const QStringList body = produced(kListeMensa);
        QVERIFY(body.contains(u"<TD class=Liste_ME_LZ_AG_KZ11 Colspan=2>DONNERSTAG</TD>"_s));
        QVERIFY(body.filter(u"FREITAG"_s).isEmpty());
    }

    void weekdaysWithFewerPupilsLeaveEmptyCellsUpToTheSumRow() {
        useEmptyDatabase();
        choose(kEineKlasse, u"2a"_s);
        addEater(u"Anna"_s, {{u"GR1_MO"_s, kMensa}, {u"GR1_DI"_s, kMensa}});
        addEater(u"Berta"_s, {{u"GR1_DI"_s, kMensa}});
        addEater(u"Cem"_s, {{u"GR1_DI"_s, kMensa}});
        const QStringList body = produced(kListeMensa);
        QCOMPARE(rowClasses(body),
                 QStringList({u"KopfZeile_ME_LZ_AG"_s, u"ME_LZ_AG_Daten1"_s, u"ME_LZ_AG_Daten2"_s,
                              u"ME_LZ_AG_Daten1"_s, u"SummenZeile_ME_LZ_AG"_s}));
        QCOMPARE(body.filter(u"Colspan=2>1</TD>"_s).size(), 1);
        QCOMPARE(body.filter(u"Colspan=2>3</TD>"_s).size(), 1);
    }

    void anEmptyWeekStillPrintsItsLine() {
        useEmptyDatabase();
        choose(kEineKlasse, u"2a"_s);
        QVERIFY(produced(kListeMensa).contains(u"Woche:  - "_s));
    }

    void theTitlesTellVariantAndClassInTheirOwnLetters_data() {
        QTest::addColumn<int>("listenArt");
        QTest::addColumn<int>("variant");
        QTest::addColumn<QString>("title");
        QTest::newRow("class") << int(kListeMensa) << int(kEineKlasse) << u"Mensa - Klasse: 2a"_s;
        QTest::newRow("letter") << int(kListeMensa) << int(kKlassenGruppiert) << u"Mensa - Klassen: 2a"_s;
        QTest::newRow("units") << int(kListeMensa) << int(kEinheiten) << u"Mensa"_s;
        QTest::newRow("lz class") << int(kListeLernzeit) << int(kEineKlasse) << u"Lernzeiten - Klasse: 2a"_s;
        QTest::newRow("lz letter") << int(kListeLernzeit) << int(kKlassenGruppiert)
                                   << u"Lernzeiten - Klassen: 2a"_s;
        QTest::newRow("lz units") << int(kListeLernzeit) << int(kEinheiten) << u"Lernzeiten"_s;
    }
    void theTitlesTellVariantAndClassInTheirOwnLetters() {
        QFETCH(const int, listenArt);
        QFETCH(const int, variant);
        QFETCH(const QString, title);
        useEmptyDatabase();
        choose(static_cast<CareVariant>(variant), u"2a"_s);
        QVERIFY(produced(static_cast<quint8>(listenArt)).contains(u"<h1>"_s + title + u"</h1>"_s));
    }

    void theListOfUnitsHasNoWeekAndItsStripesRunOnOverTheTables() {
        useEmptyDatabase();
        choose(kEinheiten, QString());
        Liste().MensaLernzeit.texte = {u"davor"_s, u"danach"_s};
        for (const auto& name : {u"Anna"_s, u"Berta"_s, u"Cem"_s})
            addEater(name);
        const QStringList body = produced(kListeMensa);
        QVERIFY(body.filter(u"woche"_s).isEmpty());
        QVERIFY(body.contains(u"davor"_s) && body.contains(u"danach"_s));
        QCOMPARE(body.filter(u"ZEIT: Mensa früh:  13:00 - 13:45 ME1"_s).size(), 2);
        QCOMPARE(body.count(u"</TABLE>"_s), 2);
        QCOMPARE(rowClasses(body).filter(u"Daten"_s),
                 QStringList({u"ME_LZ_AG_Daten1"_s, u"ME_LZ_AG_Daten2"_s, u"ME_LZ_AG_Daten1"_s,
                              u"ME_LZ_AG_Daten2"_s, u"ME_LZ_AG_Daten1"_s, u"ME_LZ_AG_Daten2"_s}));
    }

    void aRowWhoseCodeIsNoNumberIsSkipped() {
        useEmptyDatabase();
        choose(kEineKlasse, u"2a"_s);
        addEater(u"Anna"_s);
        prepareList(kListeMensa);
        Liste().ZeilenCode(2) = u"x"_s;
        producePage();
        QVERIFY(bodyLines().filter(u"Anna"_s).isEmpty());
    }
};

KOLIBRI_TEST_MAIN(CareWriteTest)
#include "care_write_test.moc"
