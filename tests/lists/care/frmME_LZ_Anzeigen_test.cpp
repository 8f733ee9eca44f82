#include "core/widgets/application.h"
#include "core/widgets/rich_text_box.h"
#include "lists/care/frmME_LZ_Anzeigen.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "support/driving.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"
#include "support/offering_fixtures.h"
#include "support/test_base.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kFrueh = u"11:30 - 12:15 ME1"_s;
const QString kSpaet = u"13:00 - 13:45 ME2"_s;
const QString kLernzeit = u"14:00 - 15:00 LZ1"_s;

FormWindow& form(bool mensa, CareVariant variant) {
    {
        const DbSession session(u"Test"_s);
        KlassenListenLaden();
    }
    Global().ListeMensa = mensa;
    Global().ListeLernzeit = !mensa;
    Global().ListenUnterArt = variant;
    auto& result = Form<frmME_LZ_Anzeigen>();
    if (!shown(result))
        qFatal("the form is not active");
    return result;
}

QString plainText(const QWidget& window, const QString& name) {
    return control<QTextEdit>(window, name).toPlainText();
}

QString titleLine() {
    return bodyLines().filter(u"<h1>"_s).value(0);
}

} // namespace

class FrmMeLzAnzeigenTest : public TestBase {
    Q_OBJECT

private:
    void useSchool() {
        useEmptyDatabase();
        Global().NameKurz.fill(u"Ungekürzt"_s);
        Global().NameZuerst.fill(u"Vorname Nachname"_s);
        for (const auto& klasse : {u"1a"_s, u"1b"_s, u"2a"_s})
            addRow(u"Klassen"_s, {{u"Klasse"_s, klasse},
                                  {u"Tag"_s, u"MO"_s},
                                  {u"Schulstufe"_s, klasse.left(1)},
                                  {u"KlassenNR"_s, klasse.right(1)}});
        addOffering(u"GR1"_s, u"Mensa früh"_s, u"ME1"_s, u"MO"_s, u"11:30 - 12:15"_s);
        addOffering(u"GR1"_s, u"Mensa früh"_s, u"ME1"_s, u"DI"_s, u"11:30 - 12:15"_s);
        addOffering(u"GR1"_s, u"Mensa spät"_s, u"ME2"_s, u"MO"_s, u"13:00 - 13:45"_s);
        addOffering(u"GR2"_s, u"Lernzeit"_s, u"LZ1"_s, u"MO"_s, u"14:00 - 15:00"_s);
        addPupil(u"Abel"_s, u"Anna"_s, u"1a"_s, {{u"GR1_MO"_s, kFrueh}, {u"GR2_MO"_s, kLernzeit}});
        addPupil(u"Bär"_s, u"Ben"_s, u"1b"_s, {{u"GR1_MO"_s, kFrueh}});
        addPupil(u"Cohn"_s, u"Can"_s, u"2a"_s, {{u"GR1_DI"_s, kFrueh}, {u"GR1_MO"_s, kSpaet}});
    }

    void addText(const QString& klasse, const QString& zeit, const QString& before, const QString& after) {
        addRow(u"ME_LZ_AG_Notizen"_s, {{u"Typ"_s, u"Mensa"_s},
                                       {u"Klasse"_s, klasse},
                                       {u"Zeit"_s, zeit},
                                       {u"Anmerkung_V"_s, before},
                                       {u"Anmerkung_N"_s, after}});
    }

private Q_SLOTS:
    void theCaptionsTellMensaOrLernzeit_data() {
        QTest::addColumn<bool>("mensa");
        QTest::addColumn<QString>("word");
        QTest::addColumn<QString>("label");
        QTest::addColumn<int>("listenArt");
        QTest::newRow("mensa") << true << u"MENSA"_s << u"ME:"_s << int(kListeMensa);
        QTest::newRow("lernzeit") << false << u"LERNZEIT"_s << u"LZ:"_s << int(kListeLernzeit);
    }
    void theCaptionsTellMensaOrLernzeit() {
        QFETCH(bool, mensa);
        QFETCH(QString, word);
        QFETCH(QString, label);
        QFETCH(int, listenArt);
        useSchool();
        auto& window = form(mensa, kEineKlasse);
        QCOMPARE(window.windowTitle(), u"LISTE "_s + word);
        for (const auto& frame : {u"frmAuswahl1"_s, u"frmAuswahl2"_s})
            QCOMPARE(control<QGroupBox>(window, frame).title(), u"AUSWAHL "_s + word);
        QCOMPARE(control<QGroupBox>(window, u"frmAnmerkungen"_s).title(), u"ANMERKUNGEN"_s);
        QCOMPARE(control<QLabel>(window, u"lblME_LZ"_s).text().remove(u'&'), label);
        QCOMPARE(Global().ListenArt, listenArt);
    }

    void theVariantTellsFramesAndEntries() {
        useSchool();
        auto& window = form(true, kEineKlasse);
        const auto& classes = control<QComboBox>(window, u"cmbKlasse"_s);
        QVERIFY(control<QGroupBox>(window, u"frmAuswahl1"_s).isVisible());
        QVERIFY(!control<QGroupBox>(window, u"frmAuswahl2"_s).isVisible());
        QVERIFY(control<QRadioButton>(window, u"optListe(0)"_s).isChecked());
        QCOMPARE(entriesOf(classes), QStringList({u"1a"_s, u"1b"_s, u"2a"_s}));
        QCOMPARE(entriesOf(control<QComboBox>(window, u"cmbME_LZ"_s)),
                 QStringList({u"Mensa früh"_s, u"Mensa spät"_s}));
        control<QRadioButton>(window, u"optListe(1)"_s).click();
        QCOMPARE(Global().ListenUnterArt, quint8(kKlassenGruppiert));
        QCOMPARE(entriesOf(classes), QStringList({u"a"_s, u"b"_s}));
        control<QRadioButton>(window, u"optListe(2)"_s).click();
        QCOMPARE(Global().ListenUnterArt, quint8(kEinheiten));
        QVERIFY(!control<QGroupBox>(window, u"frmAuswahl1"_s).isVisible());
        QVERIFY(control<QGroupBox>(window, u"frmAuswahl2"_s).isVisible());
        auto& units = control<QListWidget>(window, u"lstME_LZ"_s);
        QCOMPARE(units.count(), 2);
        QCOMPARE(units.item(1)->text(), u"Mensa spät  (13:00 - 13:45 ME2)"_s);
        QCOMPARE(control<QListWidget>(window, u"lstKlasse"_s).count(), 3);
        QCOMPARE(control<QListWidget>(window, u"lstSchulstufe"_s).count(), 2);
    }

    void theChosenOfferingFillsItsFields() {
        useSchool();
        auto& window = form(true, kEineKlasse);
        QCOMPARE(textOf(window, u"txtZeit"_s), u"11:30 - 12:15"_s);
        chooseEntry(window, u"cmbME_LZ"_s, u"Mensa spät"_s);
        QCOMPARE(textOf(window, u"txtZeit"_s), u"13:00 - 13:45"_s);
        QCOMPARE(textOf(window, u"txtZeit_K_Name"_s), kSpaet);
        QCOMPARE(textOf(window, u"txtK_Name"_s), u"ME2"_s);
    }

    void classAndOfferingEachShowTheirTexts() {
        useSchool();
        addText(u"A"_s, u"11:30 - 12:15"_s, u"früh vorher"_s, u"früh nachher"_s);
        addText(u"B"_s, u"13:00 - 13:45"_s, u"spät vorher"_s, {});
        auto& window = form(true, kKlassenGruppiert);
        QCOMPARE(plainText(window, u"rtfVorher"_s), u"früh vorher"_s);
        QCOMPARE(plainText(window, u"rtfNachher"_s), u"früh nachher"_s);
        chooseEntry(window, u"cmbKlasse"_s, u"b"_s);
        QCOMPARE(plainText(window, u"rtfVorher"_s), QString());
        chooseEntry(window, u"cmbME_LZ"_s, u"Mensa spät"_s);
        QCOMPARE(plainText(window, u"rtfVorher"_s), u"spät vorher"_s);
    }

    void theWeekAndTheTimeSelectTheirWholeTextOnFocus() {
        useSchool();
        auto& window = form(true, kEineKlasse);
        for (const auto& name : {u"txtVon"_s, u"txtBis"_s, u"txtZeit"_s}) {
            type(window, name, u"irgendwann"_s);
            auto& box = control<QLineEdit>(window, name);
            control<QAbstractButton>(window, u"cmdOK"_s).setFocus();
            box.setFocus();
            QCOMPARE(box.selectedText(), u"irgendwann"_s);
        }
    }

    void okOfOneClassWritesItsPage() {
        useSchool();
        auto& window = form(true, kEineKlasse);
        chooseEntry(window, u"cmbKlasse"_s, u"1b"_s);
        type(window, u"txtVon"_s, u"16. Nov"_s);
        type(window, u"txtBis"_s, u"irgendwann"_s);
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kListeMensa});
        QCOMPARE(titleLine(), u"<h1>Mensa - Klasse: 1b</h1>"_s);
        QVERIFY(bodyLines().contains(u"Woche: 16. Nov - irgendwann"_s));
        QVERIFY(bodyLines().contains(u"ZEIT: 11:30 - 12:15 - Mensa früh"_s));
        QCOMPARE(bodyLines().filter(u"Bär"_s).size(), 1);
        QVERIFY(bodyLines().filter(u"Abel"_s).isEmpty());
        QVERIFY(window.isVisible());
    }

    void anEmptyWeekIsPrintedAsItStands() {
        useSchool();
        press(form(true, kEineKlasse));
        QVERIFY(bodyLines().contains(u"Woche:  - "_s));
    }

    void okOfGroupedClassesTakesAllGradesOfTheLetter() {
        useSchool();
        auto& window = form(true, kKlassenGruppiert);
        press(window);
        QCOMPARE(titleLine(), u"<h1>Mensa - Klassen: a</h1>"_s);
        QVERIFY(!bodyLines().filter(u"Anna Abel"_s).isEmpty());
        QVERIFY(!bodyLines().filter(u"Can Cohn"_s).isEmpty());
        QVERIFY(bodyLines().filter(u"Bär"_s).isEmpty());
    }

    void aTimeTypedOverIsPrintedAsItStands() {
        useSchool();
        auto& window = form(true, kEineKlasse);
        type(window, u"txtZeit"_s, u"ab halb zwölf"_s);
        press(window);
        QVERIFY(bodyLines().contains(u"ZEIT: ab halb zwölf - Mensa früh"_s));
        QVERIFY(!bodyLines().filter(u"Anna Abel"_s).isEmpty());
    }

    void okWithoutAMarkedUnitSaysSoAndMakesNoPage() {
        useSchool();
        auto& window = form(true, kEinheiten);
        doorsOfTest.expect(u"Sie haben keine Markierung vorgenommen!"_s);
        press(window);
        QVERIFY(doorsOfTest.pages().empty());
        QVERIFY(window.isVisible());
    }

    void theChecksSelectEveryEntryOrNone() {
        useSchool();
        auto& window = form(true, kEinheiten);
        for (const auto& [box, list] : {std::pair{u"chkKlassen_Y_N"_s, u"lstKlasse"_s},
                                        std::pair{u"chkSchulstufe_Y_N"_s, u"lstSchulstufe"_s},
                                        std::pair{u"chkME_LZ_Y_N"_s, u"lstME_LZ"_s}}) {
            auto& entries = control<QListWidget>(window, list);
            press(window, box);
            QCOMPARE(selectedOf(entries).size(), entries.count());
            press(window, box);
            QVERIFY(selectedOf(entries).isEmpty());
        }
        QCOMPARE(control<QCheckBox>(window, u"chkKlassen_Y_N"_s).text().remove(u'&'), u"Aktiv J/N"_s);
        QCOMPARE(control<QCheckBox>(window, u"chkSchulstufe_Y_N"_s).text().remove(u'&'), u"Aktivieren J/N"_s);
        QCOMPARE(control<QCheckBox>(window, u"chkME_LZ_Y_N"_s).text().remove(u'&'), u"Aktivieren J/N"_s);
    }

    // The office knows that these two lists change nothing; who wants one class asks for the list of a class.
    void classesAndGradesNarrowNothing() {
        useSchool();
        auto& window = form(true, kEinheiten);
        clickEntry(control<QListWidget>(window, u"lstME_LZ"_s), u"Mensa früh  (11:30 - 12:15 ME1)"_s);
        press(window);
        const QByteArray all = pageBytes();
        clickEntry(control<QListWidget>(window, u"lstKlasse"_s), u"2a"_s);
        clickEntry(control<QListWidget>(window, u"lstSchulstufe"_s), u"2"_s);
        press(window);
        QCOMPARE(pageBytes(), all);
        for (const auto& name : {u"Anna Abel"_s, u"Ben Bär"_s, u"Can Cohn"_s})
            QVERIFY(!bodyLines().filter(name).isEmpty());
        QCOMPARE(titleLine(), u"<h1>Mensa</h1>"_s);
        QVERIFY(bodyLines().filter(u"Woche: "_s).isEmpty());
    }

    void eachMarkedUnitHasItsTableAndTheMarksStay() {
        useSchool();
        auto& window = form(true, kEinheiten);
        press(window, u"chkME_LZ_Y_N"_s);
        press(window);
        QCOMPARE(bodyLines().filter(u"ZEIT: "_s),
                 QStringList({u"ZEIT: Mensa früh:  "_s + kFrueh, u"ZEIT: Mensa spät:  "_s + kSpaet}));
        QCOMPARE(selectedOf(control<QListWidget>(window, u"lstME_LZ"_s)).size(), 2);
    }

    void theLernzeitListReadsItsOwnOfferings() {
        useSchool();
        auto& window = form(false, kEineKlasse);
        QCOMPARE(entriesOf(control<QComboBox>(window, u"cmbME_LZ"_s)), QStringList{u"Lernzeit"_s});
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kListeLernzeit});
        QCOMPARE(titleLine(), u"<h1>Lernzeiten - Klasse: 1a</h1>"_s);
        QVERIFY(!bodyLines().filter(u"Anna Abel"_s).isEmpty());
    }

    void textsAreKeptForClassAndTimeAndPrinted() {
        useSchool();
        auto& window = form(true, kKlassenGruppiert);
        auto& before = control<RichTextBox>(window, u"rtfVorher"_s);
        before.setFocus();
        QTest::keyClick(&before, Qt::Key_B, Qt::ControlModifier);
        keys(before, u"Süßes"_s);
        control<QTextEdit>(window, u"rtfNachher"_s).setPlainText(u"Danke"_s);
        press(window);
        QVERIFY(bodyLines().contains(u"<b>Süßes</b>"_s));
        QVERIFY(bodyLines().contains(u"Danke"_s));
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"Klasse"_s), QStringList{u"a"_s});
        QCOMPARE(columnOf(u"ME_LZ_AG_Notizen"_s, u"Zeit_K_Name"_s), QStringList{kFrueh});
        chooseEntry(window, u"cmbKlasse"_s, u"b"_s);
        QCOMPARE(plainText(window, u"rtfVorher"_s), QString());
        chooseEntry(window, u"cmbKlasse"_s, u"a"_s);
        QCOMPARE(plainText(window, u"rtfVorher"_s), u"Süßes"_s);
        QVERIFY(before.richText().runs().front().style.bold);
    }

    void theListOfUnitsKeepsNoTextsButPrintsThem() {
        useSchool();
        auto& window = form(true, kEinheiten);
        press(window, u"chkME_LZ_Y_N"_s);
        control<QTextEdit>(window, u"rtfVorher"_s).setPlainText(u"nur heute"_s);
        press(window);
        QVERIFY(bodyLines().contains(u"nur heute"_s));
        QVERIFY(rowsOf(u"ME_LZ_AG_Notizen"_s).isEmpty());
        QCOMPARE(plainText(window, u"rtfVorher"_s), u"nur heute"_s);
        control<QRadioButton>(window, u"optListe(0)"_s).click();
        QCOMPARE(plainText(window, u"rtfVorher"_s), QString());
    }

    void classAndOfferingOfTheLastListAreChosenAgain() {
        useSchool();
        auto& window = form(true, kEineKlasse);
        chooseEntry(window, u"cmbKlasse"_s, u"2a"_s);
        chooseEntry(window, u"cmbME_LZ"_s, u"Mensa spät"_s);
        press(window);
        QCOMPARE(control<QComboBox>(window, u"cmbKlasse"_s).currentText(), u"2a"_s);
        window.hide();
        form(true, kEineKlasse);
        QCOMPARE(control<QComboBox>(window, u"cmbKlasse"_s).currentText(), u"2a"_s);
        QCOMPARE(control<QComboBox>(window, u"cmbME_LZ"_s).currentText(), u"Mensa spät"_s);
        QCOMPARE(textOf(window, u"txtZeit"_s), u"13:00 - 13:45"_s);
        // There are fewer letters than classes and fewer Lernzeiten; the first of them is chosen then.
        window.hide();
        form(false, kKlassenGruppiert);
        QCOMPARE(control<QComboBox>(window, u"cmbKlasse"_s).currentText(), u"a"_s);
        QCOMPARE(control<QComboBox>(window, u"cmbME_LZ"_s).currentText(), u"Lernzeit"_s);
    }

    void anEmptySchoolGivesAnEmptyPage() {
        useEmptyDatabase();
        press(form(true, kEineKlasse));
        QCOMPARE(titleLine(), u"<h1>Mensa - Klasse: </h1>"_s);
        QVERIFY(bodyLines().contains(u"ZEIT:  - "_s));
        QVERIFY(rowsOf(u"ME_LZ_AG_Notizen"_s).isEmpty());
    }

    void withFridayTheHeadGoesOnToFriday() {
        useSchool();
        auto& window = form(true, kEineKlasse);
        press(window);
        QVERIFY(bodyLines().filter(u"FREITAG"_s).isEmpty());
        addPupil(u"Dorn"_s, u"Dana"_s, u"2a"_s, {{u"GR1_FR"_s, kSpaet}});
        press(window);
        QCOMPARE(bodyLines().filter(u"FREITAG"_s).size(), 1);
    }
};

KOLIBRI_TEST_MAIN(FrmMeLzAnzeigenTest)
#include "frmME_LZ_Anzeigen_test.moc"
