#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/widgets/application.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/master_data_sheet.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

FieldValues fullContact(int person) {
    const QString number = QString::number(person);
    return {{u"GV_Name"_s + number, u"Groß"_s},       {u"GV_Vorname"_s + number, u"Käthe"_s},
            {u"Strasse"_s + number, u"Weg 3"_s},      {u"PLZ"_s + number, u"01067"_s},
            {u"Ort"_s + number, u"Köln"_s},           {u"Tel_privat"_s + number, u"0221 1"_s},
            {u"Mobil"_s + number, u"0170 2"_s},       {u"Tel_Dienst"_s + number, u"0221 3"_s},
            {u"E_Mail"_s + number, u"k@g.example"_s}, {u"Verwandt"_s + number, u"Oma"_s}};
}

QStringList sheetRows() {
    QStringList rows;
    for (const auto& row : gathered(kStammdatenBlatt))
        rows << row.mid(row.indexOf(u':') + 2);
    return rows;
}

} // namespace

class MasterDataSheetTest : public TestBase {
    Q_OBJECT

private Q_SLOTS:
    void theSheetHoldsAllThatIsKnown() {
        useEmptyDatabase();
        addPupil(u"Anders"_s, u"Ida"_s, u"1a"_s);
        addPupil(u"Berg"_s, u"Ada"_s, u"2a"_s,
                 joined({fullContact(2),
                         {{u"SCH_Geb"_s, u"01.02.2018"_s},
                          {u"Neu"_s, true},
                          {u"Schwimmer"_s, u"JA"_s},
                          {u"Baustein"_s, u"Frühdienst"_s},
                          {u"Kennung"_s, u"K7"_s},
                          {u"NotfallRN"_s, u"112"_s},
                          {u"Anmerkung"_s, u"Nussallergie"_s},
                          {u"GR1_MO"_s, u"12:00 - 12:45 ME1"_s},
                          {u"GR2_MO"_s, u"13:00 - 14:00 LZ1"_s},
                          {u"GR4_MO"_s, u"15:00 - 16:00 Ball"_s},
                          {u"GR7_MO"_s, u"14:00 - 15:00 Chor"_s},
                          {u"GR3_FR"_s, u"14:00 - 15:00 Kunst"_s}}}));
        Liste().BlattSchuelerID = 2;
        const QString tick = u"<img src="_s
                             + QString(QCoreApplication::applicationDirPath()).replace(u' ', u"%20"_s)
                             + u"\\OK.png>"_s;
        QCOMPARE(sheetRows(), QStringList({u"Geburtsdatum | 01.02.2018"_s,
                                           u"Klasse | 2a"_s,
                                           u"Schüler Neu | "_s + tick,
                                           u"Nicht OG Schüler | "_s,
                                           u"Schwimmer | "_s + tick,
                                           u"Baustein | Frühdienst"_s,
                                           u"Kennung | K7"_s,
                                           u"KONTAKT 2 | "_s,
                                           u"Gesetzl. Vertreter | Groß Käthe"_s,
                                           u"Strasse | Weg 3"_s,
                                           u"PLZ | 01067"_s,
                                           u"Ort | Köln"_s,
                                           u"Tel. privat | 0221 1"_s,
                                           u"Mobil | 0170 2"_s,
                                           u"Tel. Arrbeit | 0221 3"_s,
                                           u"E-Mail | k@g.example"_s,
                                           u"Verw. Verhältnis | Oma"_s,
                                           u"Notfall Rufnummer | 112"_s,
                                           u"Anmerkung | Nussallergie"_s,
                                           u"MO | 12:00 - 12:45 ME1"_s,
                                           u"DI | "_s,
                                           u"MI | "_s,
                                           u"DO | "_s,
                                           u"FR | "_s}));
        QCOMPARE(Liste().Daten(3, 20), u"13:00 - 14:00 LZ1"_s);
        QCOMPARE(Liste().Daten(4, 20), u"14:00 - 15:00 Chor, 15:00 - 16:00 Ball"_s);
        QCOMPARE(Liste().Daten(4, 24), u"14:00 - 15:00 Kunst"_s);
        compareWithExpected(
            [] {
                produced(kStammdatenBlatt);
                const QByteArray page = pageBytes();
                return page.sliced(page.indexOf("<BODY>"));
            }(),
            u"master_data_sheet_body.html"_s);
    }

    void theWorkingGroupsOfADayStandTwoInALine() {
        useEmptyDatabase();
        addPupil(u"Berg"_s, u"Ada"_s, u"2a"_s,
                 {{u"GR3_DI"_s, u"16:00 - 16:45 E"_s},
                  {u"GR4_DI"_s, u"15:00 - 15:45 D"_s},
                  {u"GR5_DI"_s, u"07:00 - 07:45 A"_s},
                  {u"GR6_DI"_s, u"13:00 - 13:45 B"_s},
                  {u"GR7_DI"_s, u"14:00 - 14:45 C"_s}});
        Liste().BlattSchuelerID = 1;
        sheetRows();
        QCOMPARE(Liste().Daten(4, 11),
                 u"07:00 - 07:45 A, 13:00 - 13:45 B<br />14:00 - 14:45 C, 15:00 - 15:45 D"
                 u"<br />16:00 - 16:45 E"_s);
    }

    void threeContactsStandOneBelowTheOther() {
        useEmptyDatabase();
        addPupil(u"Berg"_s, u"Ada"_s, u"2a"_s, joined({fullContact(1), fullContact(2), fullContact(3)}));
        Liste().BlattSchuelerID = 1;
        const QStringList rows = sheetRows();
        QCOMPARE(rows.indexOf(u"KONTAKT 1 | "_s), 7);
        QCOMPARE(rows.indexOf(u"KONTAKT 2 | "_s), 17);
        QCOMPARE(rows.indexOf(u"KONTAKT 3 | "_s), 27);
        QCOMPARE(rows.size(), 44);
    }

    void theRemarkShowsNoControlWordsOfItsRichText_data() {
        QTest::addColumn<QString>("stored");
        QTest::addColumn<QString>("expected");
        QTest::newRow("rich text") << uR"({\rtf1\ansi\ansicpg1252 Keine \b N\'fcsse\b0 !\par Fotos < 3})"_s
                                   << u"Keine <b>Nüsse</b>!<br />Fotos &lt; 3"_s;
        QTest::newRow("plain text") << u"Keine Nüsse"_s << u"Keine Nüsse"_s;
        QTest::newRow("markup of the office's own") << u"Keine <b>Nüsse</b>"_s << u"Keine <b>Nüsse</b>"_s;
    }
    void theRemarkShowsNoControlWordsOfItsRichText() {
        QFETCH(const QString, stored);
        QFETCH(const QString, expected);
        useEmptyDatabase();
        addPupil(u"Berg"_s, u"Ada"_s, u"2a"_s, {{u"Anmerkung"_s, stored}});
        Liste().BlattSchuelerID = 1;
        QVERIFY2(sheetRows().contains(u"Anmerkung | "_s + expected), qPrintable(sheetRows().join(u'\n')));
    }

    void aPupilThatIsNotThereGivesAnEmptySheet() {
        useEmptyDatabase();
        Liste().BlattSchuelerID = 4711;
        Liste().BlattTitel = u"the pupil of before"_s;
        const QStringList body = produced(kStammdatenBlatt);
        QVERIFY(body.contains(u"<h1></h1>"_s));
        QCOMPARE(rowClasses(body), QStringList());
    }

    void theSheetHasNoAddress() {
        useEmptyDatabase();
        Global().SchuleOrganisation = u"OGS"_s;
        addPupil(u"Berg"_s, u"Ada"_s, u"2a"_s);
        Liste().BlattSchuelerID = 1;
        QVERIFY(!produced(kStammdatenBlatt).contains(u"<div id=\"kopf_anschrift\">"_s));
    }
};

KOLIBRI_TEST_MAIN(MasterDataSheetTest)
#include "master_data_sheet_test.moc"
