#include "core/mdlGlobal.h"
#include "core/store/store_error.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "lists/frmDialog.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "support/driving.h"
#include "support/expected_page.h"
#include "support/list_fixtures.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QRadioButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QStringList kEverySortWord{u"Nachname"_s,
                                 u"Vorname"_s,
                                 u"Geburtsdatum"_s,
                                 u"Klasse"_s,
                                 u"Gesetzlicher Vertreter"_s,
                                 u"Strasse"_s,
                                 u"PLZ"_s,
                                 u"Ort"_s,
                                 u"Tel. Privat"_s,
                                 u"Mutter Dienst"_s,
                                 u"Vater Dienst"_s,
                                 u"Mutter Handy"_s,
                                 u"Vater Handy"_s,
                                 u"Mitglieds Beitrag"_s,
                                 u"Betreuungs Beitrag"_s};

} // namespace

class FrmDialogTest : public TestBase {
    Q_OBJECT

private:
    static QComboBox& box(FormWindow& form, const QString& name) { return control<QComboBox>(form, name); }
    static void tick(FormWindow& form, const QString& name) { control<QCheckBox>(form, name).click(); }
    static void mark(FormWindow& form, const QString& name) { control<QRadioButton>(form, name).click(); }
    static void pick(FormWindow& form, const QString& name, const QString& text) {
        auto& combo = box(form, name);
        const int index = combo.findText(text);
        if (index < 0)
            qFatal("%s does not offer %s", qPrintable(name), qPrintable(text));
        combo.setCurrentIndex(index);
    }

    /// The form over three pupils of two classes, for this list.
    FormWindow& form(quint8 listenArt = kErweiterteListe) {
        useEmptyDatabase();
        for (const auto& klasse : {u"1a"_s, u"2b"_s})
            for (int day = 0; day < kSchoolDays; ++day)
                addRow(u"Klassen"_s, {{u"Klasse"_s, klasse},
                                      {u"Tag"_s, TagCode(day)},
                                      {u"Tag_Zahl"_s, day},
                                      {u"Schulstufe"_s, klasse.left(1)},
                                      {u"KlassenNR"_s, klasse.right(1)}});
        addPupil(u"Ärger"_s, u"Zoe"_s, u"1a"_s, {{u"Beitrag_0"_s, u"12,50"_s}});
        addPupil(u"Müller"_s, u"Anna"_s, u"2b"_s);
        addPupil(u"Zander"_s, u"Carl"_s, u"1a"_s);
        addPupil(u"Klein"_s, u"Emil"_s, u"0a"_s);
        {
            const DbSession session(u"Test"_s);
            KlassenListenLaden();
        }
        return open(listenArt);
    }

    static FormWindow& open(quint8 listenArt) {
        Global().ListenArt = listenArt;
        auto& result = Form<frmDialog>();
        if (!shown(result))
            qFatal("the form is not active");
        return result;
    }

    static QString names() {
        QStringList cells;
        for (int row = 1; row <= Liste().ZeilenAnzahl; ++row)
            cells << Liste().Daten(2, row);
        return cells.join(u' ');
    }

private Q_SLOTS:
    void captionsAndFirstChoicesAreThoseOfTheOffice() {
        auto& window = form();
        QCOMPARE(window.windowTitle(), u"Liste Stammdaten"_s);
        const QMap<QString, QString> frames{{u"frmSortierung"_s, u"SORTIERUNG"_s},
                                            {u"frmFiltern"_s, u"FILTERN"_s},
                                            {u"frmDrucker"_s, u"DRUCK - FORMAT"_s},
                                            {u"frmAusgabeMit"_s, u"AUSGABE"_s}};
        for (auto frame = frames.begin(); frame != frames.end(); ++frame)
            QCOMPARE(control<QGroupBox>(window, frame.key()).title(), frame.value());
        QVERIFY(control<QRadioButton>(window, u"optEbene(1)"_s).isChecked());
        QVERIFY(control<QRadioButton>(window, u"optFiltern(0)"_s).isChecked());
        QVERIFY(control<QRadioButton>(window, u"optFormat(1)"_s).isChecked());
        QVERIFY(!control<QRadioButton>(window, u"optFormat(2)"_s).isChecked());
        QCOMPARE(entriesOf(box(window, u"cmbSortieren(0)"_s)), QStringList({u"Nachname"_s, u"Vorname"_s}));
        QCOMPARE(box(window, u"cmbSortieren(1)"_s).currentIndex(), 0);
        QCOMPARE(entriesOf(box(window, u"cmbFiltern(0)"_s)),
                 QStringList({u"Alles auswählen"_s, u"1a"_s, u"2b"_s}));
        QCOMPARE(entriesOf(box(window, u"cmbFiltern(1)"_s)),
                 QStringList({u"Alles auswählen"_s, u"1"_s, u"2"_s}));
        QCOMPARE(entriesOf(box(window, u"cmbFiltern(2)"_s)),
                 QStringList({u"Alles auswählen"_s, u"a"_s, u"b"_s}));
        QCOMPARE(control<QCheckBox>(window, u"chkBeiträge"_s).text().remove(u'&'), u"Beiträge"_s);
    }

    void theListOfStartersHasItsOwnCaptionAndNoFilter() {
        auto& window = form(kSchulanfaenger);
        QCOMPARE(window.windowTitle(), u"Liste Schulanfänger"_s);
        QVERIFY(!control<QGroupBox>(window, u"frmFiltern"_s).isEnabled());
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kSchulanfaenger});
        QCOMPARE(Liste().Daten(1, 1), u"Klein Emil"_s);
    }

    void theSecondSortKeyIsEnabledForTwoLevelsOnly() {
        auto& window = form();
        QVERIFY(!box(window, u"cmbSortieren(1)"_s).isEnabled());
        mark(window, u"optEbene(2)"_s);
        QVERIFY(box(window, u"cmbSortieren(1)"_s).isEnabled());
    }

    void onlyTheChosenFilterCanBeSet() {
        auto& window = form();
        mark(window, u"optFiltern(2)"_s);
        QVERIFY(!box(window, u"cmbFiltern(0)"_s).isEnabled());
        QVERIFY(!box(window, u"cmbFiltern(1)"_s).isEnabled());
        QVERIFY(box(window, u"cmbFiltern(2)"_s).isEnabled());
    }

    void theTickedColumnsAddTheirSortWordsAndKeepTheChosenOne() {
        auto& window = form();
        pick(window, u"cmbSortieren(0)"_s, u"Vorname"_s);
        for (const auto& name : {u"chkGebDatum"_s, u"chkKlasse"_s, u"chkKontakteNeu"_s, u"chkBeiträge"_s})
            tick(window, name);
        QCOMPARE(entriesOf(box(window, u"cmbSortieren(0)"_s)), kEverySortWord);
        QCOMPARE(entriesOf(box(window, u"cmbSortieren(1)"_s)), kEverySortWord);
        QCOMPARE(box(window, u"cmbSortieren(0)"_s).currentText(), u"Vorname"_s);
        pick(window, u"cmbSortieren(0)"_s, u"Klasse"_s);
        tick(window, u"chkKlasse"_s);
        QCOMPARE(box(window, u"cmbSortieren(0)"_s).currentText(), u"Nachname"_s);
    }

    void kontakteShowsTheThreeCategoriesWithAnEmptyOneFirst() {
        auto& window = form();
        QVERIFY(box(window, u"cmbKontakte(0)"_s).isHidden());
        tick(window, u"chkKontakteNeu"_s);
        for (int i = 0; i < 3; ++i) {
            auto& categories = box(window, u"cmbKontakte(%1)"_s.arg(i));
            QVERIFY(categories.isVisible());
            QCOMPARE(categories.currentText(), QString());
            QCOMPARE(entriesOf(categories).mid(1), columnOf(u"KategorieKontakte"_s, u"Name"_s));
        }
    }

    void okShowsTheListWithWhatWasChosen() {
        auto& window = form();
        tick(window, u"chkKlasse"_s);
        mark(window, u"optFiltern(0)"_s);
        pick(window, u"cmbFiltern(0)"_s, u"1a"_s);
        pick(window, u"cmbSortieren(0)"_s, u"Vorname"_s);
        mark(window, u"optFormat(2)"_s);
        press(window);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{kErweiterteListe});
        QCOMPARE(names(), u"Zander Ärger"_s);
        QCOMPARE(doorsOfTest.orientations(), std::vector<PaperOrientation>{PaperOrientation::Across});
        QVERIFY(bodyLines().join(u'\n').contains(u"<h1>STAMMDATEN</h1><BR>"_s));
        QVERIFY(window.isHidden());
    }

    void gradeAndClassLetterNarrowTheList() {
        auto& window = form();
        mark(window, u"optFiltern(1)"_s);
        pick(window, u"cmbFiltern(1)"_s, u"2"_s);
        press(window);
        QCOMPARE(names(), u"Müller"_s);
        open(kErweiterteListe);
        mark(window, u"optFiltern(2)"_s);
        pick(window, u"cmbFiltern(2)"_s, u"a"_s);
        press(window);
        // The letter is asked for without the grade, so the school starters of a class a are in it.
        QCOMPARE(names(), u"Ärger Klein Zander"_s);
    }

    void allesAuswaehlenFiltersNothing() {
        auto& window = form();
        mark(window, u"optFiltern(1)"_s);
        press(window);
        QCOMPARE(names(), u"Ärger Müller Zander"_s);
    }

    void twoLevelsWithTheSameKeyKeepTheFirst() {
        auto& window = form();
        mark(window, u"optEbene(2)"_s);
        press(window);
        QCOMPARE(names(), u"Ärger Müller Zander"_s);
    }

    void anEmptySelectionGivesAPageWithTheHeadingsOnly() {
        auto& window = form();
        pick(window, u"cmbFiltern(0)"_s, u"2b"_s);
        {
            const DbSession session(u"Test"_s);
            Global().Conn.Execute(u"DELETE FROM Stammdaten"_s);
        }
        press(window);
        QCOMPARE(Liste().ZeilenAnzahl, 0);
        QCOMPARE(bodyLines().filter(u"<TR"_s).size(), 1);
    }

    // A list begins as the office knows the form, whatever the list before it was like.
    void afterTheListTheFormBeginsAnew() {
        auto& window = form();
        tick(window, u"chkKlasse"_s);
        mark(window, u"optFormat(2)"_s);
        pick(window, u"cmbFiltern(0)"_s, u"1a"_s);
        press(window);
        open(kNamensliste);
        QVERIFY(!control<QCheckBox>(window, u"chkKlasse"_s).isChecked());
        QVERIFY(control<QRadioButton>(window, u"optFormat(1)"_s).isChecked());
        QCOMPARE(box(window, u"cmbFiltern(0)"_s).currentText(), u"Alles auswählen"_s);
    }

    void leavingWithoutAListForgetsTheChoicesToo() {
        auto& window = form();
        mark(window, u"optFormat(2)"_s);
        press(window, u"cmdBeenden"_s);
        QVERIFY(window.isHidden());
        QVERIFY(doorsOfTest.pages().empty());
        QCOMPARE(Liste().Dialog.optFormat, std::optional(PaperOrientation::Upright));
    }

    void escLeavesAndEnterShowsTheList() {
        auto& window = form();
        QTest::keyClick(&window, Qt::Key_Return);
        QCOMPARE(doorsOfTest.pages().size(), std::size_t(1));
        open(kErweiterteListe);
        QTest::keyClick(&window, Qt::Key_Escape);
        QVERIFY(window.isHidden());
        QCOMPARE(doorsOfTest.pages().size(), std::size_t(1));
    }

    // The values go to the store as values, so a class with an apostrophe is refused in words and the choices
    // stay on the form.
    void aClassNameWithAnApostropheIsRefusedInWords() {
        useEmptyDatabase();
        addPupil(u"Ärger"_s, u"Zoe"_s, u"1a"_s);
        Global().KlassenListe = {u"1'a"_s};
        auto& window = open(kErweiterteListe);
        pick(window, u"cmbFiltern(0)"_s, u"1'a"_s);
        doorsOfTest.expectBeginning(
            u"Schülerliste lesen: Syntaxfehler: Der Text \"1'a\" enthält einen Apostroph."_s);
        press(window);
        QCOMPARE(doorsOfTest.boxes().size(), std::size_t(1));
        QVERIFY(doorsOfTest.pages().empty());
        QVERIFY(window.isVisible());
        QCOMPARE(box(window, u"cmbFiltern(0)"_s).currentText(), u"1'a"_s);
    }

    void everyControlHasANameAndIsReachedByTheKeyboard() {
        auto& window = form();
        tick(window, u"chkKontakteNeu"_s);
        for (auto* combo : window.findChildren<QComboBox*>()) {
            QVERIFY(!combo->objectName().isEmpty());
            QVERIFY2(!combo->accessibleName().isEmpty(), qPrintable(combo->objectName()));
            QVERIFY(combo->focusPolicy() & Qt::TabFocus);
        }
    }
};

KOLIBRI_TEST_MAIN(FrmDialogTest)
#include "frmDialog_test.moc"
