#include "core/frmStart.h"
#include "core/frmStart_targets.h"
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

const QString kNotYet = u"Dieser Programmteil steht noch nicht zur Verfügung."_s;
const QString kMissing =
    u"Datenbank ***KOLIBRI_Daten.mdb*** wurde nicht gefunden. Bitte korrigieren Sie unter EXTRAS -> EINSTELLUNGEN den Datenbankpfad!"_s;
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

QStringList& unloadLog() {
    static QStringList lines;
    return lines;
}

/// A form of the test's own that says when it goes; the second one fails while it does.
template <int N> class Passing : public FormWindow {
public:
    Passing() : FormWindow(u"frmTest"_s) {}
    ~Passing() override { unloadLog() << u"gone %1"_s.arg(N); }
    void Unload() override {
        unloadLog() << u"unload %1"_s.arg(N);
        if (N == 2) {
            OpenDB();
            throw StoreError(StoreError::Kind::Busy, u"gesperrt"_s);
        }
    }
};

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

    /// Runs the whole program and has `act` happen in its event loop.
    template <class Act> int run(Act act) {
        QTimer::singleShot(0, this, act);
        return runProgram(scratch());
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

    void aLargeButtonIsPressedByEnterSpaceAndItsLetter() {
        show(StartState::Ready);
        window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        QAction* entry = action(u"mnuTagesplan"_s);
        disconnect(entry, &QAction::triggered, &window(), nullptr);
        const QSignalSpy triggered(entry, &QAction::triggered);
        auto* plan = button(u"Liste_Tagesplan"_s);
        plan->setFocus();
        QTest::keyClick(plan, Qt::Key_Return);
        QCOMPARE(triggered.size(), 1);
        QTest::keyClick(plan, Qt::Key_Space);
        QCOMPARE(triggered.size(), 2);
        QTest::keyClick(&window(), Qt::Key_T, Qt::AltModifier);
        QTRY_COMPARE(triggered.size(), 3);
    }

    void tabGoesThroughAllLargeButtonsInTheirOrder() {
        show(StartState::Ready);
        window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&window()));
        button(u"SchülerNeu"_s)->setFocus();
        QStringList order;
        for (std::size_t i = 0; i < largeButtons().size(); ++i) {
            order << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QStringList expected;
        for (const auto& large : largeButtons())
            expected << large.name;
        QCOMPARE(order, expected);
        QCOMPARE(QApplication::focusWidget()->objectName(), u"SchülerNeu"_s);
    }

    void aButtonTellsItsTipInTheStatusBar() {
        show(StartState::Ready);
        QCOMPARE(button(u"Belegug_Mensa"_s)->statusTip(), action(u"mnuBelegungME"_s)->statusTip());
        QStatusTipEvent tip(button(u"Belegug_Mensa"_s)->statusTip());
        QCoreApplication::sendEvent(&window(), &tip);
        QCOMPARE(window().statusBar()->currentMessage(), u"Freie und belegte Plätze der Mensa"_s);
    }

    void theSchoolStandsInTheHeadAsItIsWritten() {
        Global().SchuleOrganisation = u"Grundschule <b>Am Bach</b>"_s;
        Global().SchuleStrasse = u"Bachweg 1"_s;
        Global().SchulePLZOrt = u"53111 Bonn"_s;
        show(StartState::Ready);
        QCOMPARE(text(u"lblOrganisation"_s), u"Grundschule <b>Am Bach</b>"_s);
        QCOMPARE(window().findChild<QLabel*>(u"lblOrganisation"_s)->textFormat(), Qt::PlainText);
        QCOMPARE(text(u"lblAnschrift"_s), u"Bachweg 1, 53111 Bonn"_s);
        QVERIFY(window().findChild<QLabel*>(u"lblAnschrift"_s)->isVisible());
    }

    void withoutAnAddressTheHeadHasNoEmptyLines() {
        Global().SchulePLZOrt = u"53111 Bonn"_s;
        show(StartState::Ready);
        QVERIFY(!window().findChild<QLabel*>(u"lblOrganisation"_s)->isVisible());
        QCOMPARE(text(u"lblAnschrift"_s), u"53111 Bonn"_s);
        Global().SchulePLZOrt.clear();
        window().setState(StartState::Ready);
        QVERIFY(!window().findChild<QLabel*>(u"lblAnschrift"_s)->isVisible());
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

    void withoutDatabaseTheWindowTellsWhereItLooked() {
        Global().DB_Pfad = u"/srv/schule"_s;
        show(StartState::WithoutDatabase);
        QVERIFY(window().findChild<QLabel*>(u"lblOhneDatenbank"_s)->isVisible());
        QCOMPARE(text(u"lblGesucht"_s),
                 u"Gesucht wurde: "_s + QDir::toNativeSeparators(u"/srv/schule/KOLIBRI_Daten.mdb"_s));
        QVERIFY(text(u"lblAbhilfe"_s).contains(u"Extras → Einstellungen"_s));
    }

    void anEntryOfALaterPartSaysSoInTheCommonBox() {
        for (const auto& entry : menuTable())
            if (!entry.task.target.isEmpty() && menuTargets().count(entry.task.target) == 0) {
                doorsOfTest.expect(kNotYet);
                choose(entry.name);
            }
        doorsOfTest.expect(kNotYet);
        menuTargets().at(QString())(&window(), {});
        QCOMPARE(doorsOfTest.boxes().back().title, u"Kolibri"_s);
    }

    void aHiddenEntryWithoutHandlerDoesNothing() {
        choose(u"mnuDatensicherungErstellen"_s);
        choose(u"mnuDatenWiederherstellen"_s);
        QVERIFY(doorsOfTest.boxes().empty());
    }

    void theFourReportsAskForTheSchoolStartersFirst() {
        for (const auto& name : {u"mnuBerichtMensaGesamt"_s, u"mnuBerichtMensaAnzahlJeKlasse"_s,
                                 u"mnuBerichtLernzeitGesamt"_s, u"mnuBerichtLernzeitNachKlassen"_s}) {
            doorsOfTest.expectBeginning(u"Soll die Ausgabe"_s, kAnswerNo);
            doorsOfTest.expect(kNotYet);
            const std::size_t before = doorsOfTest.boxes().size();
            choose(name);
            QCOMPARE(doorsOfTest.boxes().at(before).title, u"Bericht Mensa"_s);
            QVERIFY(!Global().MitSchulanfaengern);
        }
        QCOMPARE(Global().ListenArt, 22);
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
        doorsOfTest.expect(kNotYet);
        choose(u"mnuBelegungLZ"_s);
        QCOMPARE(Global().ListenArt, 23);
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

    void closingTheWindowEndsTheProgramWithSuccess() {
        useEmptyDatabase();
        bool wasVisible = false;
        const int code = run([&] {
            wasVisible = window().isVisible();
            window().close();
        });
        QVERIFY(wasVisible);
        QCOMPARE(code, 0);
        QVERIFY(!registeredForm(typeid(frmStart)));
    }

    void beendenEndsTheProgramInTheSameWay() {
        useEmptyDatabase();
        QCOMPARE(run([&] { action(u"mnuBeenden"_s)->trigger(); }), 0);
        QVERIFY(!registeredForm(typeid(frmStart)));
    }

    void bothUnloadAllFormsOneAfterTheOtherWithErrorsPassedOver() {
        useEmptyDatabase();
        for (const bool byMenu : {true, false}) {
            unloadLog().clear();
            const int code = run([&] {
                Form<Passing<1>>();
                Form<Passing<2>>();
                byMenu ? action(u"mnuBeenden"_s)->trigger() : static_cast<void>(window().close());
            });
            QCOMPARE(code, 0);
            QCOMPARE(unloadLog(), QStringList({u"unload 2"_s, u"gone 2"_s, u"unload 1"_s, u"gone 1"_s}));
            QVERIFY(!Global().Conn.IsOpen());
            QVERIFY(!registeredForm(typeid(Passing<2>)));
        }
    }

    void closingEndsTheProgramAlsoWhileAFormStandsOpen() {
        useEmptyDatabase();
        QCOMPARE(run([&] {
                     Form<Passing<1>>().ShowOver(&window());
                     window().close();
                 }),
                 0);
    }

    void withoutDatabaseTheProgramGoesOnAfterItsBox() {
        doorsOfTest.expect(kMissing);
        bool reduced = false;
        QCOMPARE(run([&] {
                     reduced =
                         window().isVisible() && !action(u"mnuDatei"_s)->isEnabled() && Global().StartLaeuft;
                     window().close();
                 }),
                 0);
        QVERIFY(reduced);
        QCOMPARE(fileContent(settingsFile()), (u"Datenbankpfad;"_s + home() + u"\r\n"_s).toLatin1());
    }

    void aMissingBaseFolderEndsTheStartWithARuntimeError() {
        const QString missing = scratch() + u"/fehlt"_s;
        qputenv("KOLIBRI_HOME", missing.toLocal8Bit());
        doorsOfTest.expect(u"Laufzeitfehler '76': Pfad nicht gefunden"_s);
        QCOMPARE(runProgram(scratch()), 1);
        QVERIFY(!QFile::exists(missing));
        QVERIFY(!registeredForm(typeid(frmStart)));
    }

    void aDatabaseOfAnotherProgramEndsTheStart() {
        QFile file(DatenbankDatei(home()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(5000, 'x'));
        file.close();
        doorsOfTest.expectBeginning(u"Programmstart: "_s);
        QCOMPARE(runProgram(scratch()), 1);
        QCOMPARE(fileContent(file.fileName()), QByteArray(5000, 'x'));
    }

    void theWindowFitsASmallScreenAtDoubleScaleWithNoTextCut() {
        // 1366 x 768 dots at 200 percent, less the frame and the desktop's bar.
        const QSize small(683, 340);
        Global().SchuleOrganisation = u"Gemeinschaftsgrundschule Am Mühlenbach"_s;
        for (const auto state : {StartState::Ready, StartState::WithoutDatabase}) {
            show(state);
            QVERIFY(window().minimumSizeHint().width() <= small.width());
            QVERIFY(window().minimumSizeHint().height() <= small.height());
            window().resize(small);
            QCoreApplication::processEvents();
            QVERIFY(!window().findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
            for (auto* part : window().centralWidget()->findChildren<QWidget*>()) {
                const bool words = qobject_cast<QLabel*>(part) || qobject_cast<QPushButton*>(part);
                if (!words || !part->isVisible())
                    continue;
                const int needed = part->hasHeightForWidth() ? part->heightForWidth(part->width())
                                                             : part->minimumSizeHint().height();
                QVERIFY2(part->height() >= needed, qPrintable(part->objectName()));
                QVERIFY2(part->width() >= part->minimumSizeHint().width(), qPrintable(part->objectName()));
            }
        }
    }

    void theWindowOpensNoLargerThanTheScreenAndScrollsOnlyWhenItMust() {
        show(StartState::Ready);
        const QRect screen = window().screen()->availableGeometry();
        QVERIFY(window().width() <= screen.width() && window().height() <= screen.height());
        QVERIFY(!window().findChild<QScrollArea*>()->verticalScrollBar()->isVisible());
        QVERIFY(!window().findChild<QScrollArea*>()->horizontalScrollBar()->isVisible());
    }
};

KOLIBRI_TEST_MAIN(frmStartTest)
#include "frmStart_test.moc"
