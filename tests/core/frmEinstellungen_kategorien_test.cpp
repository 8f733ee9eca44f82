#include "core/widgets/application.h"
#include "support/settings_form.h"

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kReallyDelete = u"Kategorie wirklich löschen?"_s;

} // namespace

/// The categories of the contact fields, edited in the settings dialog.
class FrmEinstellungenKategorienTest : public SettingsFormTest {
    Q_OBJECT

private Q_SLOTS:
    void aClickCopiesTheCategory() {
        useEmptyDatabase();
        clickEntry(list(form()), u"Telefon"_s);
        QCOMPARE(textOf(form(), u"txtKategorie"_s), u"Telefon"_s);
    }

    void aNewCategoryIsAddedAndOffered() {
        useEmptyDatabase();
        auto& window = form();
        type(window, u"txtKategorie"_s, u"Hort"_s);
        press(window, u"cmdKategorieNeu"_s);
        QCOMPARE(rowsOf(u"KategorieKontakte"_s).last(), u"ID=5; Name=Hort"_s);
        QCOMPARE(listed(window).last(), u"Hort"_s);
        QCOMPARE(textOf(window, u"txtKategorie"_s), QString());
        QCOMPARE(entriesOf(control<QComboBox>(window, at("cmbKategorie", 9))).last(), u"Hort"_s);
        QCOMPARE(chosen(window, at("cmbKategorie", 9)), u"Sonstiges"_s);
    }

    void anEmptyOrKnownCategoryIsRefused() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        auto& window = form();
        choose(window, at("cmbKategorie", 0), u"Sonstiges"_s);
        doorsOfTest.expect(u"Das Feld 'Kategorie' darf nicht leer sein."_s);
        press(window, u"cmdKategorieNeu"_s);
        doorsOfTest.expect(u"Die Kategorie telefon ist bereits vorhanden!"_s);
        type(window, u"txtKategorie"_s, u"telefon"_s);
        press(window, u"cmdKategorieNeu"_s);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(window, u"txtKategorie"_s), u"telefon"_s);
        QCOMPARE(chosen(window, at("cmbKategorie", 0)), u"Sonstiges"_s);
    }

    void theFirstCategoryOfAnEmptyTableGetsTheId0() {
        useEmptyDatabase();
        {
            const DbSession session(u"Testdaten"_s);
            Global().Conn.Delete(u"KategorieKontakte"_s);
        }
        type(form(), u"txtKategorie"_s, u"Hort"_s);
        press(form(), u"cmdKategorieNeu"_s);
        QCOMPARE(rowsOf(u"KategorieKontakte"_s), QStringList{u"ID=0; Name=Hort"_s});
    }

    void aRenamedCategoryLeavesTheContactFieldsWithTheOldName() {
        useEmptyDatabase();
        auto& window = form();
        clickEntry(list(window), u"Telefon"_s);
        type(window, u"txtKategorie"_s, u"Fernruf"_s);
        doorsOfTest.expect(u"Kategorie von Telefon auf Fernruf korrigieren?"_s, kAnswerYes);
        press(window, u"cmdKategorieKorrektur"_s);
        QCOMPARE(doorsOfTest.boxes().back().code, 36);
        QCOMPARE(doorsOfTest.boxes().back().title, u"Kategorie löschen"_s);
        QCOMPARE(rowsOf(u"KategorieKontakte"_s).at(2), u"ID=2; Name=Fernruf"_s);
        QCOMPARE(listed(window).at(2), u"Fernruf"_s);
        QCOMPARE(textOf(window, u"txtKategorie"_s), QString());
        QCOMPARE(tableRowsWhere(u"KategorieKontakte = ?"_s, {u"Telefon"_s}).size(), 3);
        QCOMPARE(chosen(window, at("cmbKategorie", 5)), u"Telefon"_s);
        // At the next start the row belongs to no category; saving the dialog takes the old name away.
        unloadForms();
        QCOMPARE(chosen(form(), at("cmbKategorie", 5)), QString());
        save(form());
        QCOMPARE(tableRowsWhere(u"KategorieKontakte = ?"_s, {u"Telefon"_s}).size(), 0);
    }

    void onNoACategoryIsNeitherRenamedNorDeleted() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        auto& window = form();
        clickEntry(list(window), u"Name"_s);
        doorsOfTest.expect(u"Kategorie von Name auf Name korrigieren?"_s, kAnswerNo);
        press(window, u"cmdKategorieKorrektur"_s);
        doorsOfTest.expect(kReallyDelete, kAnswerNo);
        press(window, u"cmdKategorieLöschen"_s);
        QCOMPARE(wholeDatabase(), before);
        QCOMPARE(textOf(window, u"txtKategorie"_s), u"Name"_s);
    }

    void theLastCategoryMayBeDeletedAndTheBoxesAreEmptyThen() {
        useEmptyDatabase();
        auto& window = form();
        for (const auto& name : listed(window)) {
            clickEntry(list(window), name);
            doorsOfTest.expect(kReallyDelete, kAnswerYes);
            press(window, u"cmdKategorieLöschen"_s);
            QCOMPARE(doorsOfTest.boxes().back().code, 36);
            QCOMPARE(doorsOfTest.boxes().back().title, u"Kategorie löschen"_s);
            QVERIFY(!listed(window).contains(name));
            QCOMPARE(textOf(window, u"txtKategorie"_s), QString());
        }
        QCOMPARE(rowsOf(u"KategorieKontakte"_s), QStringList());
        for (int i = 0; i < kContactFields; ++i)
            QCOMPARE(control<QComboBox>(window, at("cmbKategorie", i)).count(), 0);
    }

    void theBoxesOfferTwentyOneCategoriesAtMost() {
        useEmptyDatabase();
        for (int id = 5; id < 30; ++id)
            addRow(u"KategorieKontakte"_s, {{u"ID"_s, id}, {u"Name"_s, u"K%1"_s.arg(id)}});
        QCOMPARE(control<QComboBox>(form(), at("cmbKategorie", 0)).count(), 21);
        QCOMPARE(list(form()).count(), 30);
    }

    void aCategoryWithAnApostropheIsRefusedUntilTheOfficeAllowsIt() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        auto& window = form();
        type(window, u"txtKategorie"_s, u"x' OR '1'='1"_s);
        doorsOfTest.expectBeginning(u"Kategorie speichern: Syntaxfehler"_s);
        press(window, u"cmdKategorieNeu"_s);
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        doorsOfTest.expectBeginning(u"Kategorie löschen: Syntaxfehler"_s);
        press(window, u"cmdKategorieLöschen"_s);
        QCOMPARE(wholeDatabase(), before);
        Global().Conn.AllowApostrophes(true);
        doorsOfTest.expect(kReallyDelete, kAnswerYes);
        press(window, u"cmdKategorieLöschen"_s);
        QCOMPARE(wholeDatabase(), before);
        type(window, u"txtKategorie"_s, u"x' OR '1'='1"_s);
        press(window, u"cmdKategorieNeu"_s);
        QCOMPARE(rowsOf(u"KategorieKontakte"_s).last(), u"ID=5; Name=x' OR '1'='1"_s);
    }
};

KOLIBRI_TEST_MAIN(FrmEinstellungenKategorienTest)
#include "frmEinstellungen_kategorien_test.moc"
