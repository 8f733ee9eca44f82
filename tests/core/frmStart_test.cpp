#include "core/frmStart.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/menu_table.h"
#include "core/settings_file.h"
#include "core/widgets/application.h"
#include "core/widgets/forms.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

const QString kStartAnew = u"Zur Übernahme der Daten bitte das Programm neu starten!"_s;
const QString kFourClasses = u"Es werden nur die Klassen 'A bis D' dargestellt!"_s;

// The menu as the office sees it; "-" before an entry that it does not see.
const char* const kTree = R"(
mnuDatei: Datei
  mnuImport: Import
    mnuExcelDaten: Excel Daten
  mnuSicherung: Sicherung
    mnuDatensicherungTXTerstellen: Datensicherung erstellen
    mnuDatenTXTwiederherstellen: Daten wiederherstellen
    -mnuDatensicherungErstellen: Datensicherung erstellen
    -mnuDatenWiederherstellen: Daten wiederherstellen
  mnuBeenden: Beenden
mnuBearbeiten: Bearbeiten
  mnuSchülerIn: SchülerIn
    mnuSchülerIn_Neu: Neu
    mnuSchülerIn_Korrektur: Korrektur
    mnuSchülerIn_Löschen: Löschen
    mnuSchülerInAktivieren: Aktivieren
  mnuMensa: Mensa
    mnuMensaNeu: Neu
    mnuMensaKorrektur: Korrektur
    mnuMensaLöschen: Löschen
    mnuBelegungplanME: Belegungsplan
  mnuLernzeit: Lernzeit
    mnuLernzeitNeu: Neu
    mnuLernzeitKorrektur: Korrektur
    mnuLernzeitLöschen: Löschen
    mnuBelegungsplanLZ: Belegungsplan
  mnuArbeitsgruppen: Arbeitsgruppen
    mnuArbeitsgruppenNeu: Neu
    mnuArbeitsgruppenKorrektur: Korrektur
    mnuArbeitsgruppenLöschen: Löschen
  mnuKlasse: Klasse
    mnuKlasseNeuLöschen: Neu/Löschen
    mnuUnterrichtBeginnEnde: Unterricht Beginn / Ende
    mnuStundenplan: Stundenplan
    mnuKlassen_Zuweisung: Zuweisung
      mnuZuweisungMensa: Mensa
      mnuZuweisungLernzeiten: Lernzeiten
      mnuZuweisungArbeitsgruppen: Arbeitsgruppen
  mnuWP_Notizen: Tagesplan Notizen
    mnuWP_Notizen_Neu: Neu
    mnuWP_Notizen_Korrektur: Korrektur
    mnuWP_Notizen_Löschen: Löschen
  mnuUnterrichts_Einheiten: Unterrichtseinheiten
    mnuUnterrichtsEinheiten_Neu: Neu
    mnuUnterrichtsEinheiten_Korrektur: Korrektur
    mnuUnterrichtsEinheiten_Löschen: Löschen
  mnuBaustein: Baustein
    mnuBausteinNeu: Neu
    mnuBausteinKorrektur: Korrektur
    mnuBausteinLöschen: Löschen
  -mnuListentexte: Listentexte
    -mnuListentextMensa: Mensa
    -mnuListentextLernzeit: Lernzeit
    -mnuListentextArbeitsgruppe: Arbeitsgruppe
mnuListen: Listen
  mnuListeSchüler: Schüler
    mnuListeSchülerErweiterteListe: Erweiterte Liste
    -mnuListeSchülerNamensliste: Namensliste
    mnuListeNeueSchüler: Neue Schüler
    mnuListeNicht_OG_Schüler: Nicht OG Schüler
  mnuListeMensa: Mensa
    mnuListeMensaKlasse: Klasse
    mnuListeMensaKlassenGruppiert: Klassen gruppiert
    mnuListeMensaEinheit: Mensa Einheit
    mnuListeMensaNachKlasse: Mensa nach Klasse
    mnuMensaIndividuell: Mensa Individuell
  mnuListeLernzeit: Lernzeit
    mnuListeLernzeitKlasse: Klasse
    mnuListeLernzeitKlassenGruppiert: Klassen gruppiert
    mnuListeLernzeit_Lernzeiten: Lernzeiten
  mnuListeArbeitsgruppen: Arbeitsgruppen
  mnuTagesplan: Tagesplan
  mnuNotizen: Notizen
    mnuListen_ME_LZ_AG: ME LZ AG
    mnuNotizenTP: Tagesplan
  mnuListeUnterrichtszeiten: Unterrichtszeiten
  mnuZeitüberschneidungen: Zeitüberschneidungen
  mnuListeBausteine: Bausteine
mnuBerichte: Berichte
  mnuBerichtMensa: Mensa
    mnuBerichtMensaGesamt: Gesamt
    mnuBerichtMensaAnzahlJeKlasse: Anzahl je Klasse
    mnuBelegungME: Belegung
  mnuBerichtLernzeit: Lernzeit
    mnuBerichtLernzeitGesamt: Gesamt
    mnuBerichtLernzeitNachKlassen: Nach Klassen
    mnuBelegungLZ: Belegung
  mnuBerichtArbeitsgruppen: Arbeitsgruppen
    mnuBerichtArbeitsgruppenGesamt: Gesamt
mnuSchulanfänger: Schulanfänger
  mnuSchulanfänger_Neu: Neu
  mnuSchulanänger_Korrektur: Korrektur
  mnuSchulanfänger_Löschen: Löschen
  mnuSchulanfänger_Liste: Liste
mnuExtras: Extras
  mnuWechselSchuljahr: Wechsel Schuljahr
  mnuEinstellungen: Einstellungen
  -mnuNeueDatenbank: Neue Datenbank anlegen...
  -mnuBeispielschule: Beispielschule anlegen...
-frmAdmin: Admin
  -mnuAdminDatenbankAktualsieren: Datenbank für Version 1.1.x aktualisieren
mnuFragezeichen: ?
  mnuInfo: Info
  -mnuInfoDatenImport: Hinweis Import
)";

QString plain(QString caption) {
    return caption.remove(u'&');
}

void writeTree(const QList<QAction*>& actions, int depth, QStringList& lines) {
    for (const auto* action : actions) {
        const QString name = action->menu() ? action->menu()->objectName() : action->objectName();
        lines << QString(depth * 2, u' ') + (action->isVisible() ? QString() : u"-"_s) + name + u": "_s
                     + plain(action->text());
        if (action->menu())
            writeTree(action->menu()->actions(), depth + 1, lines);
    }
}

} // namespace

class frmStartTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    frmStart& window() { return Form<frmStart>(); }
    QAction* action(const QString& name) {
        if (auto* menu = window().findChild<QMenu*>(name))
            return menu->menuAction();
        auto* found = window().findChild<QAction*>(name);
        if (!found)
            qFatal("no action %s", qPrintable(name));
        return found;
    }
    QPushButton* button(const QString& name) { return window().findChild<QPushButton*>(name); }
    QString text(const QString& label) { return window().findChild<QLabel*>(label)->text(); }

    /// As from the menu: within the event loop, above the net.
    void choose(const QString& name) {
        QMetaObject::invokeMethod(action(name), &QAction::trigger, Qt::QueuedConnection);
        QCoreApplication::processEvents();
    }

    void show(StartState state) {
        window().setState(state);
        window().show();
        QVERIFY(QTest::qWaitForWindowExposed(&window()));
    }

    QByteArray fileContent(const QString& name) {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void addPlaces(const QString& kind) {
        const DbSession session(u"Test"_s);
        Global().Conn.AddNew(u"Parameter"_s).Set(u"Feld1"_s, kind).Update();
    }

private Q_SLOTS:
    void theWholeMenuTreeStandsInItsOrder() {
        QStringList lines;
        writeTree(window().menuBar()->actions(), 0, lines);
        const QStringList expected = QString::fromUtf8(kTree).mid(1).chopped(1).split(u'\n');
        for (qsizetype i = 0; i < qMin(lines.size(), expected.size()); ++i)
            QCOMPARE(lines.at(i), expected.at(i));
        QCOMPARE(lines.size(), expected.size());
    }

    void captionVersionAndPicture() {
        QCOMPARE(window().windowTitle(), u"Kolibri"_s);
        QCOMPARE(text(u"lblVersion"_s), u"Version   1.2.0"_s);
        QVERIFY(window().findChild<QWidget*>(u"imgStart"_s));
        QVERIFY(!QApplication::windowIcon().isNull());
    }

    void eachLargeButtonDoesWhatItsEntryDoes() {
        show(StartState::Ready);
        for (const auto& large : largeButtons()) {
            QCOMPARE(plain(button(large.name)->text()), plain(large.caption));
            QAction* entry = action(large.entry);
            // What the entry then does is not of interest here.
            disconnect(entry, &QAction::triggered, &window(), nullptr);
            const QSignalSpy triggered(entry, &QAction::triggered);
            button(large.name)->click();
            QCOMPARE(triggered.size(), 1);
        }
    }

    void everythingWorksWhenReady() {
        show(StartState::Ready);
        for (const auto& name : menusOfADatabase())
            QVERIFY2(action(name)->isEnabled(), qPrintable(name));
        for (const auto& large : largeButtons())
            QVERIFY2(button(large.name)->isEnabled(), qPrintable(large.name));
        QVERIFY(!action(u"mnuNeueDatenbank"_s)->isVisible());
        QVERIFY(!action(u"mnuBeispielschule"_s)->isVisible());
        QVERIFY(!window().findChild<QLabel*>(u"lblOhneDatenbank"_s)->isVisible());
    }

    void withoutDatabaseExactlyTheToldMenusAndButtonsRest() {
        show(StartState::WithoutDatabase);
        const QSet<QString> resting{u"mnuDatei"_s,
                                    u"mnuBearbeiten"_s,
                                    u"mnuListen"_s,
                                    u"mnuBerichte"_s,
                                    u"mnuSchulanfänger"_s,
                                    u"mnuUnterrichts_Einheiten"_s,
                                    u"mnuZeitüberschneidungen"_s,
                                    u"mnuWechselSchuljahr"_s};
        for (const auto& entry : menuTable())
            if (!entry.hidden)
                QCOMPARE(std::pair(entry.name, action(entry.name)->isEnabled()),
                         std::pair(entry.name, !resting.contains(entry.name)));
        for (const auto& large : largeButtons())
            QVERIFY2(!button(large.name)->isEnabled(), qPrintable(large.name));
        QVERIFY(action(u"mnuExtras"_s)->isEnabled());
        QVERIFY(action(u"mnuEinstellungen"_s)->isEnabled());
        QVERIFY(action(u"mnuInfo"_s)->isEnabled());
        for (const auto& name : {u"mnuNeueDatenbank"_s, u"mnuBeispielschule"_s})
            QVERIFY2(action(name)->isVisible() && action(name)->isEnabled(), qPrintable(name));
    }

    void aHiddenEntryWithoutHandlerDoesNothing() {
        choose(u"mnuDatensicherungErstellen"_s);
        choose(u"mnuDatenWiederherstellen"_s);
        QVERIFY(doorsOfTest.boxes().empty());
    }

    void theFourReportsAskForTheSchoolStartersFirst() {
        useEmptyDatabase();
        for (const auto& name : {u"mnuBerichtMensaGesamt"_s, u"mnuBerichtMensaAnzahlJeKlasse"_s,
                                 u"mnuBerichtLernzeitGesamt"_s, u"mnuBerichtLernzeitNachKlassen"_s}) {
            doorsOfTest.expectBeginning(u"Soll die Ausgabe"_s, kAnswerNo);
            const std::size_t before = doorsOfTest.boxes().size();
            choose(name);
            QCOMPARE(doorsOfTest.boxes().at(before).title, u"Bericht Mensa"_s);
            QVERIFY(!Global().MitSchulanfaengern);
        }
        QCOMPARE(Global().ListenArt, 22);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>({11, 12, 21, 22}));
    }

    void theOccupancyOfTheMensaNeedsItsPlaces() {
        useEmptyDatabase();
        addPlaces(u"LZ"_s);
        doorsOfTest.expect(kFourClasses);
        doorsOfTest.expect(
            u"Geben Sie zuerst unter BEARBEITEN -> MENSA -> BELEGUNGSPLAN die Anzahl der maximal möglichen Plätze ein!"_s);
        choose(u"mnuBelegungME"_s);
        QCOMPARE(Global().ListenArt, 13);
        QVERIFY(!Global().Conn.IsOpen());
    }

    void theOccupancyOfTheLernzeitIsMadeWhenItsPlacesAreThere() {
        useEmptyDatabase();
        addPlaces(u"LZ"_s);
        doorsOfTest.expect(kFourClasses);
        choose(u"mnuBelegungLZ"_s);
        QCOMPARE(Global().ListenArt, 23);
        QCOMPARE(doorsOfTest.pages(), std::vector<quint8>{23});
    }

    void infoTellsNameAndVersion() {
        doorsOfTest.expect(u"Kolibri\nVersion   1.2.0"_s);
        choose(u"mnuInfo"_s);
        QCOMPARE(doorsOfTest.boxes().front().title, u"Info"_s);
    }

    void aNewDatabaseIsMadeAndUsedFromTheNextStartOn() {
        show(StartState::WithoutDatabase);
        doorsOfTest.answerPath(scratch());
        doorsOfTest.expect(kStartAnew);
        choose(u"mnuNeueDatenbank"_s);
        QCOMPARE(doorsOfTest.dialogs(), QStringList(u"Bitte wählen Sie einen Ordner aus..."_s));
        QCOMPARE(fileContent(settingsFile()), (u"Datenbankpfad;"_s + scratch() + u"\r\n"_s).toLatin1());
        QCOMPARE(Global().DB_Pfad, scratch());
        QVERIFY(action(u"mnuNeueDatenbank"_s)->isVisible());
        const auto tables = kolibri::test::wholeDatabase();
        QCOMPARE(tables.value(u"Stammdaten"_s), QStringList());
        QVERIFY(!tables.value(u"Einstellungen"_s).isEmpty());
        QVERIFY(!QGuiApplication::overrideCursor());
    }

    void aSampleSchoolIsMadeAndUsedFromTheNextStartOn() {
        show(StartState::WithoutDatabase);
        doorsOfTest.answerPath(scratch());
        doorsOfTest.expect(kStartAnew);
        choose(u"mnuBeispielschule"_s);
        QVERIFY(QFile::exists(DatenbankDatei(scratch())));
        QCOMPARE(Global().DB_Pfad, scratch());
        GlobalNeu();
        QCOMPARE(startUp(scratch()), StartState::Ready);
        QCOMPARE(Global().DB_Pfad, scratch());
    }

    void aCancelledFolderDialogChangesNothing() {
        show(StartState::WithoutDatabase);
        choose(u"mnuNeueDatenbank"_s);
        choose(u"mnuBeispielschule"_s);
        QCOMPARE(doorsOfTest.dialogs().size(), 2);
        QVERIFY(!QFile::exists(settingsFile()));
        QCOMPARE(Global().DB_Pfad, home());
        QCOMPARE(QDir(scratch()).entryList(QDir::Files), QStringList());
    }

    void anExistingFileIsRefusedInWordsAndNotTouched() {
        QFile file(DatenbankDatei(scratch()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("Wichtige Daten");
        file.close();
        show(StartState::WithoutDatabase);
        for (const auto& name : {u"mnuNeueDatenbank"_s, u"mnuBeispielschule"_s}) {
            doorsOfTest.answerPath(scratch());
            doorsOfTest.expectBeginning(u"Neue Datenbank anlegen: "_s);
            choose(name);
            QVERIFY(doorsOfTest.boxes().back().text.contains(u"KOLIBRI_Daten.mdb"_s));
            QCOMPARE(fileContent(file.fileName()), QByteArray("Wichtige Daten"));
        }
        QVERIFY(!QFile::exists(settingsFile()));
        QCOMPARE(Global().DB_Pfad, home());
        QVERIFY(!QGuiApplication::overrideCursor());
    }
};

KOLIBRI_TEST_MAIN(frmStartTest)
#include "frmStart_test.moc"
