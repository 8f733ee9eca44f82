// Files of the first data version from the first start on: taken over, brought up to date, and then worked
// with. What must come out is computed here from what is known to be in them, rule by rule, without the
// program's help.

#include "calendar/capacity_plan.h"
#include "core/frmEinstellungen.h"
#include "core/frmStart.h"
#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"
#include "core/menu_table.h"
#include "core/settings_file.h"
#include "core/startup.h"
#include "core/widgets/application.h"
#include "lists/care/care_options.h"
#include "lists/groups/group_options.h"
#include "lists/list_numbers.h"
#include "lists/list_state.h"
#include "lists/list_table.h"
#include "lists/page_production.h"
#include "maintenance/jet_takeover.h"
#include "maintenance/mdlVers111.h"
#include "maintenance/upgrade.h"
#include "students/frmSchuelerIn.h"
#include "support/driving.h"
#include "support/fixtures.h"
#include "support/old_school.h"
#include "support/test_base.h"

#include <QCheckBox>
#include <QDir>
#include <QJsonArray>

using namespace Qt::StringLiterals;
using namespace kolibri;
using namespace kolibri::test;

class OldFilesTest : public TestBase {
    Q_OBJECT

private:
    static void schools() {
        QTest::addColumn<QString>("name");
        QTest::newRow("alt") << u"alt"_s;
        QTest::newRow("uralt") << u"uralt"_s;
    }

    StartState start() {
        const TakeoverOptions options{.tool = QStringLiteral(KOLIBRI_BIN_DIR) + u"/kolibri-db"_s,
                                      .protocolFolder = home()};
        return startUp(scratch(),
                       {.beforeOpening = [=](const QString& file) { return offerTakeover(file, options); },
                        .bringUpToDate = bringUpToDate,
                        .finishUpgrade = fillNewSlots});
    }

    /// The first start on an old file. The file that comes of it is kept for the other tests.
    OldSchool startOn(const QString& name) {
        static QTemporaryDir cache;
        writeDatabaseFolder(settingsFile(), home());
        const QString kept = cache.filePath(name);
        if (QFile::exists(kept)) {
            if (!QFile::copy(kept, DatenbankDatei(home())))
                qFatal("cannot copy %s", qPrintable(kept));
        } else {
            writeFile(DatenbankDatei(home()), fixture(u"jet/%1/KOLIBRI_Daten.mdb"_s.arg(name)));
            doorsOfTest.expectBeginning(u"Die Datenbank stammt aus einer älteren Programmversion."_s,
                                        kAnswerYes);
        }
        if (start() != StartState::Ready)
            qFatal("the start on %s failed", qPrintable(name));
        QFile::copy(DatenbankDatei(home()), kept);
        return OldSchool(name);
    }

    /// Takes the file over and starts on it, whatever other tests have left.
    OldSchool startFirstOn(const QString& name) {
        writeDatabaseFolder(settingsFile(), home());
        writeFile(DatenbankDatei(home()), fixture(u"jet/%1/KOLIBRI_Daten.mdb"_s.arg(name)));
        doorsOfTest.expectBeginning(u"Die Datenbank stammt aus einer älteren Programmversion."_s, kAnswerYes);
        if (start() != StartState::Ready)
            qFatal("the start on %s failed", qPrintable(name));
        return OldSchool(name);
    }

    /// An occupancy needs to know how many places there are, which these files do not tell.
    static void enterPlaces(OfferingKind kind) {
        auto lines = Belegungsplan_lesen(kind);
        for (auto& line : lines) {
            line.Plätze.fill(u"30"_s);
            line.Gesamt = u"120"_s;
        }
        Belegungsplan_speichern(kind, lines);
    }

    /// What the office would choose in the option form of a list.
    static void chooseForList(quint8 listenArt) {
        auto& liste = Liste();
        const DbSession session(u"Auswahl"_s);
        Global().ListenUnterArt = kEineKlasse;
        liste.MensaLernzeit.cmbKlasse = u"2a"_s;
        liste.MensaLernzeit.cmbME_LZ = careOfferings(listenArt).front().langname;
        readCareOffering(listenArt, liste.MensaLernzeit);
        readGroup(groupEntries().front(), liste.Arbeitsgruppe);
        liste.Arbeitsgruppe.cmbAG = groupEntries().front().langname;
        liste.Wochenplan.cmbKlasse = u"a"_s;
        liste.Wochenplan.cmbTag = u"MO"_s;
        liste.MensaSchueler.lstKlassen = liste.MensaSchueler.lstKlassenIndividuell = Global().KlassenListe;
        liste.MensaSchueler.cmbMensa = u"Mensa 1. Schicht"_s;
        liste.BlattSchuelerID = 4;
        enterPlaces(OfferingKind::Mensa);
        enterPlaces(OfferingKind::Lernzeit);
    }

    QByteArray log(const QString& kind) const {
        return fileContent(home() + u"/DB_Konvert_%1_20261120-0930.txt"_s.arg(kind));
    }

private Q_SLOTS:
    void contactsFeesAndCellsAreWhatTheOldRowsGive_data() { schools(); }

    void contactsFeesAndCellsAreWhatTheOldRowsGive() {
        QFETCH(QString, name);
        const OldSchool school = startOn(name);
        const DbSession session(u"Vergleich"_s);
        Recordset rs = Global().Conn.Open(u"SELECT * FROM Stammdaten ORDER BY ID"_s);
        QCOMPARE(rs.RecordCount(), school.table(u"Stammdaten"_s).size());
        const QMap<QString, QString> carried{{u"GV_Name1"_s, u"GV_Name"_s},
                                             {u"GV_Vorname1"_s, u"GV_Vorname"_s},
                                             {u"Strasse1"_s, u"Strasse"_s},
                                             {u"PLZ1"_s, u"PLZ"_s},
                                             {u"Ort1"_s, u"Ort"_s},
                                             {u"Tel_privat1"_s, u"Tel_privat"_s},
                                             {u"Tel_Dienst1"_s, u"Tel_dienst_Mutter"_s},
                                             {u"Mobil1"_s, u"Handy_Mutter"_s},
                                             {u"Tel_Dienst2"_s, u"Tel_dienst_Vater"_s},
                                             {u"Mobil2"_s, u"Handy_Vater"_s},
                                             {u"GV_Name2"_s, QString()},
                                             {u"Strasse2"_s, QString()},
                                             {u"GV_Name3"_s, QString()},
                                             {u"NotfallRN"_s, QString()}};
        qint64 roundedHalves = 0;
        for (const auto& pupil : school.table(u"Stammdaten"_s)) {
            for (auto field = carried.begin(); field != carried.end(); ++field)
                QCOMPARE(rs.Text(field.key()), pupil.value(field.value()));
            const qint64 member = wholeEuros(pupil[u"MI_Beitrag"_s]);
            const qint64 care = wholeEuros(pupil[u"BT_Beitrag"_s]);
            QCOMPARE(rs.Amount(u"Beitrag_0"), static_cast<double>(member));
            QCOMPARE(rs.Amount(u"Beitrag_1"), static_cast<double>(care));
            QCOMPARE(rs.Amount(u"Beitrag_7"), static_cast<double>(member + care));
            QCOMPARE(rs.Amount(u"MI_Beitrag"), pupil[u"MI_Beitrag"_s].toDouble());
            roundedHalves += pupil[u"MI_Beitrag"_s].endsWith(u".5"_s) ? 1 : 0;
            for (int slot = 1; slot <= 7; ++slot)
                for (const auto& day : kDays) {
                    const QString cell = u"GR%1_%2"_s.arg(slot).arg(day);
                    QCOMPARE(rs.Text(cell), pupil.value(cell));
                }
            for (const auto& same : {u"SCH_Name"_s, u"SCH_Vorname"_s, u"SCH_Geb"_s, u"Klasse"_s,
                                     u"Schulstufe"_s, u"Kl_Nr"_s, u"GV_Name"_s, u"PLZ"_s, u"Handy_Vater"_s})
                QCOMPARE(rs.Text(same), pupil.value(same));
            QCOMPARE(rs.Bool(u"aktiv") ? u"Wahr"_s : u"Falsch"_s, pupil.value(u"aktiv"_s));
            rs.MoveNext();
        }
        QVERIFY(roundedHalves > 0);
    }

    void notesAreSplitAndTheLogsSayHow_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QList<int>>("counts");
        QTest::newRow("alt") << u"alt"_s << QList<int>{19, 8, 15};
        // Two of the notes on the third Mensa lose their pupil: a cell with the time alone takes the first
        // offering at that time.
        QTest::newRow("uralt") << u"uralt"_s << QList<int>{16, 10, 15};
    }

    void notesAreSplitAndTheLogsSayHow() {
        QFETCH(QString, name);
        QFETCH(QList<int>, counts);
        const OldSchool school = startFirstOn(name);
        const SplitNotes split(school);
        QCOMPARE(QList<int>({static_cast<int>(split.kept.size()), static_cast<int>(split.stale.size()),
                             static_cast<int>(split.tagesplan.size())}),
                 counts);
        QCOMPARE(log(u"OK"_s), logOf(split.kept));
        QCOMPARE(log(u"Fehler"_s), logOf(split.stale));
        QCOMPARE(log(u"WP"_s), logOf(split.tagesplan));
        QCOMPARE(rowsOf(u"WP_Notiz"_s), split.tagesplanRows);
        QStringList ids;
        for (const auto& line : split.kept)
            ids << line.section(u';', 0, 0);
        QCOMPARE(columnOf(u"SCH_Notiz"_s, u"ID"_s), ids);
        const DbSession session(u"Vergleich"_s);
        for (Recordset rs = Global().Conn.Open(u"SELECT * FROM SCH_Notiz"_s); !rs.Eof(); rs.MoveNext()) {
            const Row note = school.first(u"SCH_Notiz"_s, {{u"ID"_s, rs.Text(u"ID")}});
            QCOMPARE(rs.Text(kKey), note[kKey]);
            QCOMPARE(rs.Text(u"Notiz"), note[u"Notiz"_s]);
            QCOMPARE(rs.Text(u"WP_Notiz"), QString());
        }
    }

    void theSettingsRowsAreTheOldOnesAndThoseOfTheConversions_data() { schools(); }

    void theSettingsRowsAreTheOldOnesAndThoseOfTheConversions() {
        QFETCH(QString, name);
        startOn(name);
        QStringList rows;
        const DbSession session(u"Vergleich"_s);
        for (Recordset rs = Global().Conn.Open(u"SELECT * FROM Einstellungen"_s); !rs.Eof(); rs.MoveNext()) {
            QStringList cells;
            for (const auto* field :
                 {u"Feld", u"Grösse", u"Fett", u"Kursiv", u"NameKurz", u"NameZuerst", u"BeitragAktiv",
                  u"BeitragBezeichnung", u"SchülerZusatz", u"Bezeichnung", u"Nummer", u"KategorieKontakte"})
                cells << rs.Text(field);
            rows << cells.join(u'|');
        }
        rows.sort();
        QCOMPARE(rows, settingsRows());
        QCOMPARE(tableRows(Global().Conn, u"KategorieKontakte"_s),
                 QStringList({u"ID=0; Name=Name"_s, u"ID=1; Name=Adresse"_s, u"ID=2; Name=Telefon"_s,
                              u"ID=3; Name=E-Mail"_s, u"ID=4; Name=Sonstiges"_s}));
    }

    void theLateSlotsHoldTheOfferingsOfTheFirst_data() { schools(); }

    void theLateSlotsHoldTheOfferingsOfTheFirst() {
        QFETCH(QString, name);
        const OldSchool school = startOn(name);
        const DbSession session(u"Vergleich"_s);
        for (const auto& table : {u"GR6"_s, u"GR7"_s}) {
            Recordset rs = Global().Conn.Open(u"SELECT * FROM "_s + table);
            QCOMPARE(rs.RecordCount(), school.table(u"GR3"_s).size());
            QVERIFY(!Global().Conn.HasColumn(table, u"Anmerkung"_s));
            for (const auto& offering : school.table(u"GR3"_s)) {
                for (int field = 0; field < rs.FieldCount(); ++field)
                    QCOMPARE(rs.Text(field), offering.value(rs.FieldName(field)));
                rs.MoveNext();
            }
        }
    }

    void classesHaveGradeAndLetter_data() { schools(); }

    void classesHaveGradeAndLetter() {
        QFETCH(QString, name);
        const OldSchool school = startOn(name);
        const DbSession session(u"Vergleich"_s);
        Recordset rs = Global().Conn.Open(u"SELECT * FROM Klassen"_s);
        QCOMPARE(rs.RecordCount(), school.table(u"Klassen"_s).size());
        for (const auto& day : school.table(u"Klassen"_s)) {
            QCOMPARE(rs.Text(u"Schulstufe"), day[u"Klasse"_s].left(1));
            QCOMPARE(rs.Text(u"KlassenNR"), day[u"Klasse"_s].right(1));
            QCOMPARE(rs.Text(u"Unterrichtsende"), day[u"Unterrichtsende"_s]);
            QVERIFY(rs.IsNull(u"Unterrichtsbeginn"));
            rs.MoveNext();
        }
    }

    void aSecondStartChangesNothing_data() { schools(); }

    void aSecondStartChangesNothing() {
        QFETCH(QString, name);
        startFirstOn(name);
        const QByteArray once = fileContent(DatenbankDatei(home()));
        const QStringList files = QDir(home()).entryList(QDir::Files);
        QCOMPARE(files.filter(u"Sicherheitskopie"_s).size(), 1);
        QCOMPARE(start(), StartState::Ready);
        QCOMPARE(fileContent(DatenbankDatei(home())), once);
        QCOMPARE(QDir(home()).entryList(QDir::Files), files);
    }

    void theRepairFindsNothingMoreToDo_data() { schools(); }

    void theRepairFindsNothingMoreToDo() {
        QFETCH(QString, name);
        startOn(name);
        // The time of one list text and the group of another do not exist, so that their names are emptied
        // once.
        DatenbankAktualisieren();
        const auto once = wholeDatabase();
        DatenbankAktualisieren();
        QCOMPARE(wholeDatabase(), once);
    }

    void everyFormOpensOnIt_data() { schools(); }

    void everyFormOpensOnIt() {
        QFETCH(QString, name);
        startOn(name);
        auto& window = Form<frmStart>();
        window.setState(StartState::Ready);
        int opened = 0;
        for (const auto& entry : menuTable()) {
            if (!entry.task.target.startsWith(u"frm"_s))
                continue;
            window.findChild<QAction*>(entry.name)->trigger();
            FormWindow* form = nullptr;
            for (auto* widget : QApplication::topLevelWidgets())
                if (auto* candidate = dynamic_cast<FormWindow*>(widget); candidate && candidate->isVisible())
                    form = candidate;
            QVERIFY2(form, qPrintable(entry.name));
            QCOMPARE(form->objectName(), entry.task.target);
            form->hide();
            ++opened;
        }
        QVERIFY(opened > 20);
    }

    void everyPupilCanBeOpenedInTheForm_data() { schools(); }

    void everyPupilCanBeOpenedInTheForm() {
        QFETCH(QString, name);
        const OldSchool school = startOn(name);
        Global().ModusSchuelerKorrektur = true;
        auto& form = Form<frmSchülerIn>();
        QVERIFY(shown(form));
        auto& list = control<ListView>(form, u"lvwStammdaten"_s);
        int chosen = 0;
        for (const auto& pupil : school.table(u"Stammdaten"_s)) {
            const int row = list.rowOfKey(u"A%1"_s.arg(pupil[u"ID"_s].toInt(), 5, 10, QChar(u'0')));
            if (row == 0)
                continue;
            clickRow(list, row);
            QCOMPARE(textOf(form, u"txtSCH(0)"_s), pupil[u"SCH_Name"_s]);
            QCOMPARE(textOf(form, u"txtSCH(2)"_s), pupil[u"SCH_Geb"_s]);
            ++chosen;
        }
        QCOMPARE(chosen, 70);
    }

    void aPupilWithAnApostropheCanBeCorrectedOnceTheOfficeAllowsIt_data() { schools(); }

    void aPupilWithAnApostropheCanBeCorrectedOnceTheOfficeAllowsIt() {
        QFETCH(QString, name);
        const OldSchool school = startOn(name);
        const Row pupil = school.first(u"Stammdaten"_s, {{u"ID"_s, u"8"_s}});
        QVERIFY(pupil[u"SCH_Name"_s].contains(u'\''));
        auto& settings = Form<frmEinstellungen>();
        QVERIFY(shown(settings));
        control<QCheckBox>(settings, u"chkApostroph"_s).click();
        doorsOfTest.expect(u"Zur Übernahme der Daten bitte das Programm neu starten!"_s);
        press(settings);
        QCOMPARE(start(), StartState::Ready);
        Global().ModusSchuelerKorrektur = true;
        auto& form = Form<frmSchülerIn>();
        QVERIFY(shown(form));
        // The old file's times may overlap, which is another matter.
        Global().UeberschneidungPruefen = false;
        auto& list = control<ListView>(form, u"lvwStammdaten"_s);
        clickRow(list, list.rowOfKey(u"A00008"_s));
        type(form, u"txtSCH(1)"_s, u"D'Artagnan"_s);
        press(form);
        const DbSession session(u"Vergleich"_s);
        const Recordset rs = Global().Conn.Open(u"SELECT * FROM Stammdaten WHERE ID = 8"_s);
        QCOMPARE(rs.Text(u"SCH_Name"), pupil[u"SCH_Name"_s]);
        QCOMPARE(rs.Text(u"SCH_Vorname"), u"D'Artagnan"_s);
    }

    void everyListIsMadeOfIt_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("listenArt");
        for (const auto& name : {u"alt"_s, u"uralt"_s})
            for (const auto& entry : listTable())
                QTest::newRow(qPrintable(u"%1 %2"_s.arg(name).arg(entry.listenArt)))
                    << name << static_cast<int>(entry.listenArt);
    }

    void everyListIsMadeOfIt() {
        QFETCH(QString, name);
        QFETCH(int, listenArt);
        startOn(name);
        chooseForList(static_cast<quint8>(listenArt));
        prepareList(static_cast<quint8>(listenArt));
        producePage();
        QVERIFY(fileContent(pageFile()).trimmed().endsWith("</HTML>"));
        // These files are older than care modules and the mark of a pupil without all-day care.
        const bool isEmpty = listenArt == kBausteine || listenArt == kNichtOgSchueler;
        QVERIFY2((Liste().ZeilenAnzahl == 0) == isEmpty, qPrintable(QString::number(Liste().ZeilenAnzahl)));
    }
};

KOLIBRI_TEST_MAIN(OldFilesTest)
#include "old_files_test.moc"
