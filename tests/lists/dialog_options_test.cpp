#include "core/widgets/application.h"
#include "lists/dialog_options.h"
#include "lists/list_state.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

class DialogOptionsTest : public kolibri::test::TestBase {
    Q_OBJECT

private Q_SLOTS:
    void everySortWordStandsForItsColumn_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("column");
        QTest::newRow("name") << u"Nachname"_s << u"SCH_Name"_s;
        QTest::newRow("first name") << u"Vorname"_s << u"SCH_Vorname"_s;
        QTest::newRow("birth") << u"Geburtsdatum"_s << u"SCH_Geb"_s;
        QTest::newRow("class") << u"Klasse"_s << u"Klasse"_s;
        QTest::newRow("parent") << u"Gesetzlicher Vertreter"_s << u"GV_Name"_s;
        QTest::newRow("street") << u"Strasse"_s << u"Strasse"_s;
        QTest::newRow("code") << u"PLZ"_s << u"PLZ"_s;
        QTest::newRow("town") << u"Ort"_s << u"Ort"_s;
        QTest::newRow("home") << u"Tel. Privat"_s << u"Tel_privat"_s;
        QTest::newRow("mother work") << u"Mutter Dienst"_s << u"Tel_dienst_Mutter"_s;
        QTest::newRow("father work") << u"Vater Dienst"_s << u"Tel_dienst_Vater"_s;
        QTest::newRow("mother mobile") << u"Mutter Handy"_s << u"Handy_Mutter"_s;
        QTest::newRow("father mobile") << u"Vater Handy"_s << u"Handy_Vater"_s;
        QTest::newRow("membership") << u"Mitglieds Beitrag"_s << u"MI_Beitrag"_s;
        QTest::newRow("care") << u"Betreuungs Beitrag"_s << u"BT_Beitrag"_s;
        QTest::newRow("none") << u"Augenfarbe"_s << QString();
    }
    void everySortWordStandsForItsColumn() {
        QFETCH(const QString, word);
        QTEST(sortColumn(word), "column");
    }

    void sortierfeldTakesTheWordOfItsLevel() {
        Liste().Dialog.cmbSortieren = {u"Vorname"_s, u"Klasse"_s};
        QCOMPARE(Sortierfeld(0), u"SCH_Vorname"_s);
        QCOMPARE(Sortierfeld(1), u"Klasse"_s);
    }

    void theSortWordsFollowTheOptions() {
        DialogOptions options;
        QCOMPARE(SortierKriterien(options), QStringList({u"Nachname"_s, u"Vorname"_s}));
        options.chkKlasse = true;
        QCOMPARE(SortierKriterien(options), QStringList({u"Nachname"_s, u"Vorname"_s, u"Klasse"_s}));
        options.chkGebDatum = true;
        QCOMPARE(SortierKriterien(options),
                 QStringList({u"Nachname"_s, u"Vorname"_s, u"Geburtsdatum"_s, u"Klasse"_s}));
        options.chkKontakteNeu = options.chkBeiträge = true;
        QCOMPARE(SortierKriterien(options).size(), 15);
        QCOMPARE(SortierKriterien(options).last(), u"Betreuungs Beitrag"_s);
    }

    void withoutAChoiceTheSheetStandsUpright() {
        QCOMPARE(DialogOptions().optFormat, std::optional(PaperOrientation::Upright));
    }

    void clearingTakesAllSevenCheckBoxesAndNothingElse() {
        DialogOptions options;
        options.chkKontakteNeu = options.chkBaustein = options.chkSchwimmer = options.chkKennung = true;
        options.chkKlasse = options.chkGebDatum = options.chkBeiträge = true;
        options.optFormat = PaperOrientation::Across;
        options.clearCheckBoxes();
        QVERIFY(!options.chkKontakteNeu && !options.chkBaustein && !options.chkSchwimmer
                && !options.chkKennung && !options.chkKlasse && !options.chkGebDatum && !options.chkBeiträge);
        QCOMPARE(options.optFormat, std::optional(PaperOrientation::Across));
    }
};

KOLIBRI_TEST_MAIN(DialogOptionsTest)
#include "dialog_options_test.moc"
