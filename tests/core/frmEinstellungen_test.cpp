#include "core/frmStart.h"
#include "core/frmStart_run.h"
#include "core/office_settings.h"
#include "core/settings_file.h"
#include "core/startup.h"
#include "core/widgets/application.h"
#include "maintenance/new_database.h"
#include "support/fixtures.h"
#include "support/settings_form.h"

#include <QDir>
#include <QGroupBox>
#include <QPushButton>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

namespace {

const QString kDone = u"Zur Übernahme der Daten bitte das Programm neu starten!"_s;
const QString kSettings = u"Einstellungen"_s;

} // namespace

/// The settings dialog: what it shows, what it writes and when, and how it is reached.
class FrmEinstellungenTest : public SettingsFormTest {
    Q_OBJECT

private Q_SLOTS:
    void allGroupsStandWithTheirCaptions() {
        useEmptyDatabase();
        QStringList captions;
        for (const auto* frame : form().findChildren<QGroupBox*>())
            captions << frame->title();
        captions.sort();
        QStringList wanted{u"FORMAT LISTEN/BERICHTE"_s,
                           u"FORMAT TAGESPLAN"_s,
                           u"FORMAT VORNAME/NACHNAME"_s,
                           u"BEITRÄGE"_s,
                           u"SCHÜLER ZUSATZ"_s,
                           u"KONTAKT BEZEICHNUNG"_s,
                           u"KATEGORIE"_s,
                           u"KATEGORIEN BEARBEITEN"_s,
                           u"DATENBANK"_s,
                           u"ZEITÜBERSCHNEIDUNG"_s,
                           u"APOSTROPH"_s};
        wanted.sort();
        QCOMPARE(captions, wanted);
        QCOMPARE(control<QPushButton>(form(), u"cmdAbbrechen"_s).text(), u"BEENDEN"_s);
        QCOMPARE(control<QPushButton>(form(), u"cmdKategorieNeu"_s).text(), u"NEU"_s);
        QCOMPARE(control<QPushButton>(form(), u"cmdKategorieKorrektur"_s).text(), u"KORREKTUR"_s);
        QCOMPARE(control<QPushButton>(form(), u"cmdKategorieLöschen"_s).text(), u"LÖSCHEN"_s);
        QCOMPARE(control<QCheckBox>(form(), u"chkZÜ_ALT"_s).text(), u"Überprüfen"_s);
        QCOMPARE(control<QCheckBox>(form(), u"chkApostroph"_s).text().remove(u'&'),
                 u"Apostroph in Texten zulassen"_s);
    }

    void theListsOfTheBoxesAreFixed() {
        useEmptyDatabase();
        QStringList sizes;
        for (int points = 8; points <= 22; ++points)
            sizes << QString::number(points);
        for (int i = 0; i < kFontSettings; ++i)
            QCOMPARE(entriesOf(control<QComboBox>(form(), at("cmbSchrift", i))), sizes);
        for (int i = 0; i < kNameFormats; ++i) {
            QCOMPARE(entriesOf(control<QComboBox>(form(), at("cmbName", i))),
                     QStringList({u"Ungekürzt"_s, u"Vorname gekürzt"_s, u"Nachname gekürzt"_s}));
            QCOMPARE(entriesOf(control<QComboBox>(form(), at("cmbNameZuerst", i))),
                     QStringList({u"Vorname Nachname"_s, u"Nachname Vorname"_s}));
        }
        for (int i = 0; i < kContactFields; ++i)
            QCOMPARE(entriesOf(control<QComboBox>(form(), at("cmbKategorie", i))),
                     QStringList({u"Name"_s, u"Adresse"_s, u"Telefon"_s, u"E-Mail"_s, u"Sonstiges"_s}));
    }

    void everyRowIsShownInItsControls() {
        useEmptyDatabase();
        const QStringList fontRows{u"TabelleKopfZeile"_s, u"TabelleZeile"_s, u"TabelleSummenZeile"_s,
                                   u"WochenplanKopfZeile"_s, u"WochenplanZeile"_s};
        for (int i = 0; i < fontRows.size(); ++i)
            setRow(fontRows.at(i),
                   {{u"Grösse"_s, 12 + i}, {u"Fett"_s, i % 2 == 0}, {u"Kursiv"_s, i % 2 == 1}});
        setRow(u"Name_Liste_AG"_s,
               {{u"NameKurz"_s, u"Vorname gekürzt"_s}, {u"NameZuerst"_s, u"Nachname Vorname"_s}});
        setRow(u"Beitrag_6"_s, {{u"BeitragAktiv"_s, 1}, {u"BeitragBezeichnung"_s, u"Ausflug"_s}});
        setRow(u"Beitrag_0"_s, {{u"BeitragAktiv"_s, 2}});
        setRow(u"Baustein"_s, {{u"SchülerZusatz"_s, 1}});
        auto& window = form();
        for (int i = 0; i < fontRows.size(); ++i) {
            QCOMPARE(chosen(window, at("cmbSchrift", i)), QString::number(12 + i));
            QCOMPARE(checked(window, at("chkFett", i)), i % 2 == 0);
            QCOMPARE(checked(window, at("chkKursiv", i)), i % 2 == 1);
        }
        QCOMPARE(chosen(window, at("cmbName", 0)), u"Nachname gekürzt"_s);
        QCOMPARE(chosen(window, at("cmbName", 1)), u"Vorname gekürzt"_s);
        QCOMPARE(chosen(window, at("cmbNameZuerst", 1)), u"Nachname Vorname"_s);
        QCOMPARE(textOf(window, at("txtBeitrag", 6)), u"Ausflug"_s);
        QVERIFY(checked(window, at("chkBeitrag", 6)));
        // Only a 1 means that a fee is in use.
        QVERIFY(!checked(window, at("chkBeitrag", 0)));
        QVERIFY(checked(window, u"chkBaustein"_s) && !checked(window, u"chkSchwimmer"_s));
        QCOMPARE(textOf(window, at("txtKontakt", 9)), u"Verw. Verh."_s);
        QCOMPARE(chosen(window, at("cmbKategorie", 4)), u"Adresse"_s);
        QCOMPARE(textOf(window, u"txtDatenbankpfad"_s), Global().DB_Pfad);
        QVERIFY(!checked(window, u"chkApostroph"_s));
    }

    void aMissingNameFormatIsTheStandardOne() {
        useEmptyDatabase();
        setRow(u"Name_Liste_ME_LZ"_s, {{u"NameKurz"_s, QVariant()}, {u"NameZuerst"_s, u""_s}});
        {
            const DbSession session(u"Testdaten"_s);
            Global().Conn.Delete(kSettings, u"Feld = ?"_s, {u"Name_Wochenplan"_s});
        }
        for (const int i : {0, 2}) {
            QCOMPARE(chosen(form(), at("cmbName", i)), u"Ungekürzt"_s);
            QCOMPARE(chosen(form(), at("cmbNameZuerst", i)), u"Vorname Nachname"_s);
        }
    }

    void okWritesEveryRowAndNothingElse() {
        useEmptyDatabase();
        auto expected = EinstellungenVon(wholeDatabase());
        const auto before = wholeDatabase();
        auto& window = form();
        choose(window, at("cmbSchrift", 4), u"22"_s);
        tick(window, at("chkKursiv", 4));
        choose(window, at("cmbName", 2), u"Vorname gekürzt"_s);
        choose(window, at("cmbNameZuerst", 0), u"Nachname Vorname"_s);
        type(window, at("txtBeitrag", 3), u"Ausflüge"_s);
        tick(window, at("chkBeitrag", 3));
        tick(window, u"chkKennung"_s);
        type(window, at("txtKontakt", 6), u"Handy"_s);
        choose(window, at("cmbKategorie", 6), u"Sonstiges"_s);
        save(window);
        expected[u"WochenPlanZeile"_s] = u"WochenPlanZeile 22 Falsch Wahr"_s;
        expected[u"Name_Wochenplan"_s] = u"Name_Wochenplan Falsch Falsch Vorname gekürzt Vorname Nachname"_s;
        expected[u"Name_Liste_ME_LZ"_s] =
            u"Name_Liste_ME_LZ Falsch Falsch Nachname gekürzt Nachname Vorname"_s;
        expected[u"Beitrag_3"_s] = u"Beitrag_3 Falsch Falsch 1 Ausflüge"_s;
        for (const int empty : {2, 4, 5, 6})
            expected[u"Beitrag_%1"_s.arg(empty)] = u"Beitrag_%1 Falsch Falsch 0 "_s.arg(empty);
        expected[u"Kennung"_s] = u"Kennung Falsch Falsch 1"_s;
        expected[u"Kontakt6"_s] = u"Kontakt Falsch Falsch Handy 6 Sonstiges"_s;
        const auto after = wholeDatabase();
        QCOMPARE(EinstellungenVon(after), expected);
        QCOMPARE(changedTables(before, after), QStringList{kSettings});
        QVERIFY(!window.isVisible());
        QCOMPARE(doorsOfTest.boxes().back().title, u"Kolibri"_s);
    }

    void theNameFormatsAreInMemoryAtOnce() {
        useEmptyDatabase();
        auto& window = form();
        choose(window, at("cmbName", 1), u"Vorname gekürzt"_s);
        choose(window, at("cmbNameZuerst", 2), u"Nachname Vorname"_s);
        QCOMPARE(Global().NameKurz[1], QString());
        save(window);
        QCOMPARE(Global().NameKurz[1], u"Vorname gekürzt"_s);
        QCOMPARE(Global().NameZuerst[2], u"Nachname Vorname"_s);
        QCOMPARE(Global().NameKurz[0], u"Nachname gekürzt"_s);
    }

    void anEqualsSignInTheSettingsFileBecomesASemicolon() {
        useEmptyDatabase();
        writeFile(settingsFile(), "Datenbankpfad=" + home().toLatin1() + "\r\nanderes\r\n");
        startUp(scratch());
        save(form());
        QCOMPARE(fileContent(settingsFile()), "Datenbankpfad;" + Global().DB_Pfad.toLatin1() + "\r\n");
    }

    void withoutADatabaseOkWritesOnlyThePathAndTheEmptyNameFormats() {
        Global().DB_Pfad = scratch() + u"/fehlt"_s;
        Global().NameKurz[0] = u"Ungekürzt"_s;
        auto& window = form();
        QCOMPARE(chosen(window, at("cmbSchrift", 0)), QString());
        QCOMPARE(chosen(window, at("cmbName", 0)), QString());
        QCOMPARE(textOf(window, u"txtDatenbankpfad"_s), scratch() + u"/fehlt"_s);
        type(window, u"txtDatenbankpfad"_s, u"D:\\Größe"_s);
        save(window);
        QCOMPARE(Global().NameKurz[0], QString());
        QCOMPARE(Global().DB_Pfad, u"D:\\Größe"_s);
        QCOMPARE(fileContent(settingsFile()), u"Datenbankpfad;D:\\Größe\r\n"_s.toLatin1());
        QVERIFY(!QFile::exists(scratch() + u"/fehlt"_s));
    }

    void afterAStartWithoutADatabaseAFileThatCannotBeUsedIsNotTouched() {
        writeFile(DatenbankDatei(home()), "keine Datenbank");
        Global().DB_Pfad = home();
        Global().StartLaeuft = true;
        auto& window = form();
        type(window, u"txtDatenbankpfad"_s, scratch());
        save(window);
        QCOMPARE(fileContent(DatenbankDatei(home())), QByteArray("keine Datenbank"));
        QCOMPARE(readDatabaseFolder(settingsFile()), std::optional(scratch()));
    }

    void anotherDatabaseDoesNotGetTheSettingsOfThisOne() {
        QVERIFY(QDir().mkpath(scratch() + u"/zweite"_s));
        createDatabase(scratch() + u"/zweite"_s);
        const QByteArray other = fileContent(DatenbankDatei(scratch() + u"/zweite"_s));
        useEmptyDatabase();
        auto& window = form();
        type(window, at("txtBeitrag", 0), u"Meiner"_s);
        type(window, u"txtDatenbankpfad"_s, scratch() + u"/zweite"_s);
        save(window);
        save(form());
        QCOMPARE(fileContent(DatenbankDatei(scratch() + u"/zweite"_s)), other);
        QCOMPARE(Global().DB_Pfad, scratch() + u"/zweite"_s);
    }

    void theSameFolderWrittenInAnotherWayStillGetsTheSettings() {
        useEmptyDatabase();
        type(form(), u"txtDatenbankpfad"_s, home() + u"/./"_s);
        save(form());
        type(form(), at("txtBeitrag", 0), u"Danach"_s);
        save(form());
        QVERIFY(columnOf(u"Einstellungen"_s, u"BeitragBezeichnung"_s).contains(u"Danach"_s));
    }

    void aDatabaseMadeElsewhereMeanwhileIsInThePathBox() {
        useEmptyDatabase();
        auto& window = form();
        window.hide();
        Global().DB_Pfad = scratch();
        QCOMPARE(textOf(form(), u"txtDatenbankpfad"_s), scratch());
    }

    void aPathTypedButNotSavedStaysInTheBox() {
        useEmptyDatabase();
        type(form(), u"txtDatenbankpfad"_s, u"E:\\"_s);
        press(form(), u"cmdAbbrechen"_s);
        QCOMPARE(textOf(form(), u"txtDatenbankpfad"_s), u"E:\\"_s);
    }

    void abbrechenOnlyHidesAndTheControlsKeepTheirState() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        auto& window = form();
        tick(window, u"chkSchwimmer"_s);
        tick(window, u"chkBaustein"_s);
        tick(window, u"chkKennung"_s);
        type(window, at("txtKontakt", 3), u"Postleitzahl"_s);
        press(window, u"cmdAbbrechen"_s);
        QVERIFY(!window.isVisible());
        QCOMPARE(wholeDatabase(), before);
        QVERIFY(!QFile::exists(settingsFile()));
        QVERIFY(checked(form(), u"chkSchwimmer"_s));
        // The other forms and the lists go by these controls.
        QVERIFY(Global().ZusatzSchwimmer && Global().ZusatzBaustein && Global().ZusatzKennung);
        QCOMPARE(Global().KontaktBezeichnung[3], u"Postleitzahl"_s);
    }

    void theFolderPictureFillsThePathBox() {
        useEmptyDatabase();
        auto& window = form();
        doorsOfTest.answerPath(u"/srv/Daten"_s);
        press(window, u"imgDatenbankpfad"_s);
        QCOMPARE(doorsOfTest.dialogs(), QStringList{u"Bitte wählen Sie einen Ordner aus..."_s});
        QCOMPARE(textOf(window, u"txtDatenbankpfad"_s), QDir::toNativeSeparators(u"/srv/Daten"_s));
        press(window, u"imgDatenbankpfad"_s);
        QCOMPARE(textOf(window, u"txtDatenbankpfad"_s), QDir::toNativeSeparators(u"/srv/Daten"_s));
    }

    void aLabelWithAnApostropheBreaksTheUpdateAndNothingIsSaved() {
        useEmptyDatabase();
        const auto before = wholeDatabase();
        auto& window = form();
        choose(window, at("cmbName", 0), u"Ungekürzt"_s);
        choose(window, at("cmbSchrift", 0), u"22"_s);
        type(window, at("txtKontakt", 0), u"Oma's Name"_s);
        type(window, u"txtDatenbankpfad"_s, scratch());
        doorsOfTest.expectBeginning(u"Einstellungen speichern: Syntaxfehler"_s);
        press(window);
        QVERIFY(window.isVisible());
        QCOMPARE(wholeDatabase(), before);
        QVERIFY(!QFile::exists(settingsFile()));
        QCOMPARE(Global().NameKurz[0], QString());
        QCOMPARE(Global().DB_Pfad, QDir::toNativeSeparators(home()));
        QCOMPARE(textOf(window, at("txtKontakt", 0)), u"Oma's Name"_s);
    }

    void theApostropheIsAllowedFromItsOwnSavingOnAndForbiddenAgain() {
        useEmptyDatabase();
        QCOMPARE(rowText(u"Apostroph"_s), QString());
        auto& window = form();
        tick(window, u"chkApostroph"_s);
        type(window, at("txtBeitrag", 0), u"x' OR '1'='1"_s);
        save(window);
        QCOMPARE(rowText(u"Apostroph"_s), u"Apostroph 1 Falsch Falsch"_s);
        QCOMPARE(rowText(u"Beitrag_0"_s), u"Beitrag_0 Falsch Falsch 1 x' OR '1'='1"_s);
        QCOMPARE(rowText(u"Beitrag_1"_s), u"Beitrag_1 Falsch Falsch 1 Betreuungsbeitrag"_s);
        startUp(scratch());
        QVERIFY(Global().Conn.ApostrophesAllowed());
        form();
        tick(window, u"chkApostroph"_s);
        doorsOfTest.expectBeginning(u"Einstellungen speichern: Syntaxfehler"_s);
        press(window);
        QVERIFY(Global().Conn.ApostrophesAllowed());
        type(window, at("txtBeitrag", 0), u"x"_s);
        save(window);
        QCOMPARE(rowText(u"Apostroph"_s), u"Apostroph 0 Falsch Falsch"_s);
        QVERIFY(!Global().Conn.ApostrophesAllowed());
    }

    void aSchoolThatNeverAllowsApostrophesHasNoRowOfThem() {
        useEmptyDatabase();
        save(form());
        QCOMPARE(rowText(u"Apostroph"_s), QString());
    }

    void aSizeOutsideTheListStaysAsItIs() {
        useEmptyDatabase();
        setRow(u"TabelleZeile"_s, {{u"Grösse"_s, 30}});
        QCOMPARE(chosen(form(), at("cmbSchrift", 1)), QString());
        tick(form(), at("chkKursiv", 1));
        save(form());
        QCOMPARE(rowText(u"TabelleZeile"_s), u"TabelleZeile 30 Falsch Wahr"_s);
    }

    void theOldSwitchOfTheOverlapCheckIsNotInUse() {
        useEmptyDatabase();
        QVERIFY(!control<QCheckBox>(form(), u"chkZÜ_ALT"_s).isEnabled());
        const QString before = rowText(u"Ü-Zeitüberschneidung"_s);
        save(form());
        QCOMPARE(rowText(u"Ü-Zeitüberschneidung"_s), before);
    }

    void theFormIsLoadedAtTheStartAndStaysUnshown() {
        useEmptyDatabase();
        setRow(u"Schwimmer"_s, {{u"SchülerZusatz"_s, 1}});
        bool loaded = false;
        QTimer::singleShot(0, this, [&] {
            auto* known = dynamic_cast<FormWindow*>(registeredForm(typeid(frmEinstellungen)));
            loaded = known && !known->isVisible() && checked(*known, u"chkSchwimmer"_s);
            Form<frmStart>().close();
        });
        QCOMPARE(runProgram(scratch()), 0);
        QVERIFY(loaded);
    }

    void withoutADatabaseTheMenuStillOpensTheForm() {
        doorsOfTest.expectBeginning(u"Datenbank ***KOLIBRI_Daten.mdb*** wurde nicht gefunden."_s);
        bool opened = false;
        QTimer::singleShot(0, this, [&] {
            Form<frmStart>().findChild<QAction*>(u"mnuEinstellungen"_s)->trigger();
            opened = Form<frmEinstellungen>().isVisible();
            Form<frmStart>().close();
        });
        QCOMPARE(runProgram(scratch()), 0);
        QVERIFY(opened);
    }

    void everyInputHasANameForTheReaderAndTheKeyboardReachesIt() {
        useEmptyDatabase();
        auto& window = form();
        QSet<QWidget*> reached;
        for (QWidget* next = window.nextInFocusChain(); !reached.contains(next);
             next = next->nextInFocusChain())
            reached << next;
        for (auto* input : window.findChildren<QWidget*>()) {
            const bool isInput = qobject_cast<QLineEdit*>(input) || qobject_cast<QComboBox*>(input)
                                 || qobject_cast<QCheckBox*>(input) || qobject_cast<QListWidget*>(input)
                                 || qobject_cast<QToolButton*>(input);
            if (!isInput || input->objectName().isEmpty())
                continue;
            const auto* box = qobject_cast<QCheckBox*>(input);
            QVERIFY2(!input->accessibleName().isEmpty() || (box && !box->text().isEmpty()),
                     qPrintable(input->objectName()));
            QVERIFY2(reached.contains(input) && (input->focusPolicy() & Qt::TabFocus) != 0,
                     qPrintable(input->objectName()));
        }
    }

    void theTabKeyGoesFromAContactFieldToItsCategory() {
        useEmptyDatabase();
        auto& window = form();
        control<QWidget>(window, at("txtKontakt", 7)).setFocus();
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(control<QWidget>(window, at("cmbKategorie", 7)).hasFocus());
        QTest::keyClick(&window, Qt::Key_Tab);
        QVERIFY(control<QWidget>(window, at("txtKontakt", 8)).hasFocus());
    }

    void enterSavesAndEscCloses() {
        useEmptyDatabase();
        auto& window = form();
        control<QWidget>(window, u"txtKategorie"_s).setFocus();
        doorsOfTest.expect(kDone);
        QTest::keyClick(&window, Qt::Key_Return);
        QVERIFY(!window.isVisible());
        QTest::keyClick(&form(), Qt::Key_Escape);
        QVERIFY(!window.isVisible());
    }

    void theFormFitsOnASmallScreen() {
        useEmptyDatabase();
        const QSize wanted = form().sizeHint();
        QVERIFY2(wanted.width() <= 1366 && wanted.height() <= 700,
                 qPrintable(u"%1 x %2"_s.arg(wanted.width()).arg(wanted.height())));
    }

private:
    /// The rows of Einstellungen by key and number, without empty columns.
    static QMap<QString, QString> EinstellungenVon(const QMap<QString, QStringList>& database) {
        QMap<QString, QString> rows;
        for (const auto& row : database.value(kSettings)) {
            QStringList cells;
            QString key;
            for (const auto& cell : row.split(u"; "_s)) {
                const QString value = cell.section(u'=', 1);
                const QString field = cell.section(u'=', 0, 0);
                if (field == u"Feld"_s || field == u"Nummer"_s)
                    key += value == u"<null>"_s ? QString() : value;
                if (value != u"<null>"_s)
                    cells << value;
            }
            rows.insert(key, cells.join(u' '));
        }
        return rows;
    }
};

KOLIBRI_TEST_MAIN(FrmEinstellungenTest)
#include "frmEinstellungen_test.moc"
