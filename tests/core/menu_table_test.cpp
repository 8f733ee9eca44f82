#include "core/frmStart_targets.h"
#include "core/menu_table.h"
#include "core/widgets/application.h"
#include "support/test_base.h"

using namespace Qt::StringLiterals;
using namespace kolibri;

namespace {

struct Flag {
    QString name;
    bool mdlGlobal::*member;
};

const std::vector<Flag>& allFlags() {
    static const std::vector<Flag> flags{
        {u"ModusSchuelerNeu"_s, &mdlGlobal::ModusSchuelerNeu},
        {u"ModusSchuelerKorrektur"_s, &mdlGlobal::ModusSchuelerKorrektur},
        {u"ModusSchuelerLoeschen"_s, &mdlGlobal::ModusSchuelerLoeschen},
        {u"ModusSchuelerAktivieren"_s, &mdlGlobal::ModusSchuelerAktivieren},
        {u"ModusSchulanfaenger"_s, &mdlGlobal::ModusSchulanfaenger},
        {u"ModusSchulanfaengerNeu"_s, &mdlGlobal::ModusSchulanfaengerNeu},
        {u"ModusSchulanfaengerKorrektur"_s, &mdlGlobal::ModusSchulanfaengerKorrektur},
        {u"ModusSchulanfaengerLoeschen"_s, &mdlGlobal::ModusSchulanfaengerLoeschen},
        {u"ModusUE_Neu"_s, &mdlGlobal::ModusUE_Neu},
        {u"ModusUE_Korrektur"_s, &mdlGlobal::ModusUE_Korrektur},
        {u"ModusUE_Loeschen"_s, &mdlGlobal::ModusUE_Loeschen},
        {u"ModusTagesplanA"_s, &mdlGlobal::ModusTagesplanA},
        {u"ModusTagesplanB"_s, &mdlGlobal::ModusTagesplanB},
        {u"ListeMensa"_s, &mdlGlobal::ListeMensa},
        {u"ListeLernzeit"_s, &mdlGlobal::ListeLernzeit}};
    return flags;
}

QString plain(QString caption) {
    return caption.remove(u'&');
}

const MenuEntry& entryNamed(const QString& name) {
    const auto& table = menuTable();
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const auto& e) { return e.name == name; });
    if (found == table.end())
        qFatal("no entry %s", qPrintable(name));
    return *found;
}

/// "ModusSchuelerNeu 115/0": flags that are set, ListenArt and ListenUnterArt.
QString state() {
    QStringList set;
    for (const auto& flag : allFlags())
        if (Global().*flag.member)
            set << flag.name;
    return u"%1 %2/%3"_s.arg(set.join(u'+')).arg(Global().ListenArt).arg(Global().ListenUnterArt);
}

/// Name, target with mode and caption, and the state that the entry leaves behind when everything was clear
/// before.
QString taskLine(const MenuEntry& entry) {
    GlobalNeu();
    applyTask(entry.task);
    const auto& task = entry.task;
    return u"%1 -> %2 [%3] [%4]%5 %6"_s.arg(entry.name, task.target, task.mode, task.caption,
                                            task.reset ? u" reset"_s : QString(), state());
}

const char* const kTasks = R"(
mnuExcelDaten -> ExcelImport [] []  0/0
mnuDatensicherungTXTerstellen -> Datensicherung [] []  0/0
mnuDatenTXTwiederherstellen -> DatenWiederherstellen [] []  0/0
mnuBeenden -> Beenden [] []  0/0
mnuSchülerIn_Neu -> frmSchülerIn [] [] reset ModusSchuelerNeu 0/0
mnuSchülerIn_Korrektur -> frmSchülerIn [] [] reset ModusSchuelerKorrektur 0/0
mnuSchülerIn_Löschen -> frmSchülerIn [] [] reset ModusSchuelerLoeschen 0/0
mnuSchülerInAktivieren -> frmSchülerIn [] [] reset ModusSchuelerAktivieren 0/0
mnuMensaNeu -> frmME_LZ_AG [MensaNeu] [MENSA NEU]  0/0
mnuMensaKorrektur -> frmME_LZ_AG [MensaKorrektur] [MENSA KORREKTUR]  0/0
mnuMensaLöschen -> frmME_LZ_AG [MensaLöschen] [MENSA LÖSCHEN]  0/0
mnuBelegungplanME -> frmBelegungsplan_ME_LZ [BelegungME] []  0/0
mnuLernzeitNeu -> frmME_LZ_AG [LernzeitNeu] [LERNZEIT NEU]  0/0
mnuLernzeitKorrektur -> frmME_LZ_AG [LernzeitKorrektur] [LERNZEIT KORREKTUR]  0/0
mnuLernzeitLöschen -> frmME_LZ_AG [LernzeitLöschen] [LERNZEIT LÖSCHEN]  0/0
mnuBelegungsplanLZ -> frmBelegungsplan_ME_LZ [BelegungLZ] []  0/0
mnuArbeitsgruppenNeu -> frmME_LZ_AG [ArbeitsgruppeNeu] [ARBEITSGRUPPE NEU]  0/0
mnuArbeitsgruppenKorrektur -> frmME_LZ_AG [ArbeitsgruppeKorrektur] [ARBEITSGRUPPE KORREKTUR]  0/0
mnuArbeitsgruppenLöschen -> frmME_LZ_AG [ArbeitsgruppeLöschen] [ARBEITSGRUPPE LÖSCHEN]  0/0
mnuKlasseNeuLöschen -> frmKlassenNeuLöschen [] []  0/0
mnuUnterrichtBeginnEnde -> frmUnterrichtszeiten [] []  0/0
mnuStundenplan -> frmStundenplan [] []  0/0
mnuZuweisungMensa -> frmKlassenZuweisung [Mensa] [Klassen-Zuweisung MENSA]  0/0
mnuZuweisungLernzeiten -> frmKlassenZuweisung [Lernzeit] [Klassen-Zuweisung LERNZEIT]  0/0
mnuZuweisungArbeitsgruppen -> frmKlassenZuweisung [Arbeitsgruppe] [Klassen-Zuweisung ARBEITSGRUPPE]  0/0
mnuWP_Notizen_Neu -> frmWP_Notizen [Neu] []  0/0
mnuWP_Notizen_Korrektur -> frmWP_Notizen [Korrektur] []  0/0
mnuWP_Notizen_Löschen -> frmWP_Notizen [Löschen] []  0/0
mnuUnterrichtsEinheiten_Neu -> frmUnterrichtseinheiten [Neu] [] reset ModusUE_Neu 0/0
mnuUnterrichtsEinheiten_Korrektur -> frmUnterrichtseinheiten [Korrektur] [] reset ModusUE_Korrektur 0/0
mnuUnterrichtsEinheiten_Löschen -> frmUnterrichtseinheiten [Löschen] [] reset ModusUE_Loeschen 0/0
mnuBausteinNeu -> frmBaustein [Neu] []  0/0
mnuBausteinKorrektur -> frmBaustein [Korrektur] []  0/0
mnuBausteinLöschen -> frmBaustein [Löschen] []  0/0
mnuListentextMensa -> frmListentext [Mensa] []  0/0
mnuListentextLernzeit -> frmListentext [Lernzeit] []  0/0
mnuListentextArbeitsgruppe -> frmListentext [Arbeitsgruppe] []  0/0
mnuListeSchülerErweiterteListe -> frmDialog [] []  115/0
mnuListeSchülerNamensliste -> frmDialog [] []  111/0
mnuListeNeueSchüler -> SchülerListeSofort [] []  113/0
mnuListeNicht_OG_Schüler -> SchülerListeSofort [] []  114/0
mnuListeMensaKlasse -> frmME_LZ_Anzeigen [] [] ListeMensa 0/3
mnuListeMensaKlassenGruppiert -> frmME_LZ_Anzeigen [] [] ListeMensa 0/1
mnuListeMensaEinheit -> frmME_LZ_Anzeigen [] [] ListeMensa 0/2
mnuListeMensaNachKlasse -> frmME_jeSchüler [] [] reset  0/0
mnuMensaIndividuell -> frmME_Individuell [] [] reset  0/0
mnuListeLernzeitKlasse -> frmME_LZ_Anzeigen [] [] ListeLernzeit 0/3
mnuListeLernzeitKlassenGruppiert -> frmME_LZ_Anzeigen [] [] ListeLernzeit 0/1
mnuListeLernzeit_Lernzeiten -> frmME_LZ_Anzeigen [] [] ListeLernzeit 0/2
mnuListeArbeitsgruppen -> frmAG_Anzeigen [] []  0/0
mnuTagesplan -> frmWochenplan [] [] reset ModusTagesplanB 0/0
mnuListen_ME_LZ_AG -> frmListeNotizen [ME_LZ_AG] []  0/0
mnuNotizenTP -> frmListeNotizen [TP] []  0/0
mnuListeUnterrichtszeiten -> ListeUnterrichtszeiten [] []  3/0
mnuZeitüberschneidungen -> ListeZeitüberschneidungen [] []  7/0
mnuListeBausteine -> ListeBausteine [] []  0/0
mnuBerichtMensaGesamt -> BerichtMitFrage [] []  11/0
mnuBerichtMensaAnzahlJeKlasse -> BerichtMitFrage [] []  12/0
mnuBelegungME -> Belegung [] []  13/0
mnuBerichtLernzeitGesamt -> BerichtMitFrage [] []  21/0
mnuBerichtLernzeitNachKlassen -> BerichtMitFrage [] []  22/0
mnuBelegungLZ -> Belegung [] []  23/0
mnuBerichtArbeitsgruppenGesamt -> BerichtArbeitsgruppen [] []  31/0
mnuSchulanfänger_Neu -> frmSchülerIn [] [] reset ModusSchulanfaenger+ModusSchulanfaengerNeu 0/0
mnuSchulanänger_Korrektur -> frmSchülerIn [] [] reset ModusSchulanfaenger+ModusSchulanfaengerKorrektur 0/0
mnuSchulanfänger_Löschen -> frmSchülerIn [] [] reset ModusSchulanfaenger+ModusSchulanfaengerLoeschen 0/0
mnuSchulanfänger_Liste -> frmDialog [] []  101/0
mnuWechselSchuljahr -> WechselSchuljahr [] []  0/0
mnuEinstellungen -> frmEinstellungen [] []  0/0
mnuNeueDatenbank -> NeueDatenbank [] []  0/0
mnuBeispielschule -> Beispielschule [] []  0/0
mnuAdminDatenbankAktualsieren -> DatenbankAktualisieren [] []  0/0
mnuInfo -> Info [] []  0/0
mnuInfoDatenImport -> frmExcelInfo [] []  0/0
)";

} // namespace

class MenuTableTest : public kolibri::test::TestBase {
    Q_OBJECT

private:
    void setEverything() {
        for (const auto& flag : allFlags())
            Global().*flag.member = true;
        Global().ListenArt = 99;
        Global().ListenUnterArt = 9;
    }

private Q_SLOTS:
    void everyEntrySetsTheStateItsFormIsOpenedIn() {
        QStringList lines;
        for (const auto& entry : menuTable())
            if (!entry.task.target.isEmpty())
                lines << taskLine(entry);
        const QStringList expected = QString::fromUtf8(kTasks).trimmed().split(u'\n');
        for (qsizetype i = 0; i < qMin(lines.size(), expected.size()); ++i)
            QCOMPARE(lines.at(i), expected.at(i));
        QCOMPARE(lines.size(), expected.size());
    }

    void anEntryWithResetForgetsEveryEarlierModeAndList() {
        setEverything();
        applyTask(entryNamed(u"mnuSchülerIn_Korrektur"_s).task);
        QCOMPARE(state(), u"ModusSchuelerKorrektur 0/0"_s);
        setEverything();
        applyTask(entryNamed(u"mnuMensaIndividuell"_s).task);
        QCOMPARE(state(), u" 0/0"_s);
    }

    void anEntryWithoutResetLeavesEarlierModesAsTheyAre() {
        Global().ModusSchuelerNeu = true;
        Global().ListenUnterArt = 2;
        applyTask(entryNamed(u"mnuListeNeueSchüler"_s).task);
        QCOMPARE(state(), u"ModusSchuelerNeu 113/2"_s);
    }

    void aMensaListAfterALernzeitListIsOfTheMensaAlone() {
        applyTask(entryNamed(u"mnuListeLernzeitKlasse"_s).task);
        QCOMPARE(state(), u"ListeLernzeit 0/3"_s);
        applyTask(entryNamed(u"mnuListeMensaKlassenGruppiert"_s).task);
        QCOMPARE(state(), u"ListeMensa 0/1"_s);
    }

    void namesAreUnique() {
        QSet<QString> names;
        for (const auto& entry : menuTable()) {
            QVERIFY2(!names.contains(entry.name), qPrintable(entry.name));
            names.insert(entry.name);
        }
        for (const auto& large : largeButtons()) {
            QVERIFY2(!names.contains(large.name), qPrintable(large.name));
            names.insert(large.name);
        }
    }

    void everyCaptionHasALetterOfItsOwnOnItsLevel() {
        // The letters of the large buttons are pressed with Alt just as those of the menu bar are.
        QStringList used{QString()};
        const auto take = [&](const QString& caption) {
            const qsizetype at = caption.indexOf(u'&');
            QVERIFY2(at >= 0 && at + 1 < caption.size() && caption.count(u'&') == 1, qPrintable(caption));
            const QChar letter = caption.at(at + 1).toLower();
            QVERIFY2(!used.last().contains(letter), qPrintable(caption + u" in "_s + used.last()));
            used.last() += letter;
        };
        for (const auto& large : largeButtons())
            take(large.caption);
        for (const auto& entry : menuTable()) {
            while (used.size() > entry.depth + 1)
                used.removeLast();
            if (used.size() < entry.depth + 1)
                used << QString();
            take(entry.caption);
        }
    }

    void everyEntryThatDoesSomethingSaysWhatInTheStatusBar() {
        QStringList tips;
        for (const auto& entry : menuTable()) {
            QCOMPARE(!entry.tip.isEmpty(), !entry.task.target.isEmpty());
            if (!entry.tip.isEmpty())
                tips << entry.tip;
        }
        QVERIFY(tips.size() > 70);
        QCOMPARE(tips.removeDuplicates(), 0);
    }

    void theLargeButtonsHaveTheirCaptionsEntriesAndGroups() {
        QStringList lines;
        for (const auto& large : largeButtons()) {
            lines << u"%1: %2: %3 (%4)"_s.arg(large.group, large.name, plain(large.caption), large.entry);
            entryNamed(large.entry);
            QVERIFY2(QFile::exists(u":/kolibri/symbole/%1.svg"_s.arg(large.symbol)), qPrintable(large.name));
        }
        const QStringList expected{
            u"Schüler: SchülerNeu: Schüler Neu (mnuSchülerIn_Neu)"_s,
            u"Schüler: SchülerKorrektur: Schüler Korrektur (mnuSchülerIn_Korrektur)"_s,
            u"Schüler: SchülerLöschen: Schüler Löschen (mnuSchülerIn_Löschen)"_s,
            u"Listen: ListeSchüler: Liste Schüler (mnuListeSchülerErweiterteListe)"_s,
            u"Listen: Liste_Arbeitsgruppe: Liste Arbeitsgruppe (mnuListeArbeitsgruppen)"_s,
            u"Listen: Liste_Tagesplan: Liste Tagesplan (mnuTagesplan)"_s,
            u"Belegung: Belegug_Mensa: Belegung Mensa (mnuBelegungME)"_s,
            u"Belegung: Belegug_Lernzeit: Belegung Lernzeit (mnuBelegungLZ)"_s};
        QCOMPARE(lines, expected);
    }

    void whatRestsWithoutADatabaseStandsInTheTable() {
        for (const auto& name : menusOfADatabase() + entriesWithoutDatabase())
            QCOMPARE(entryNamed(name).name, name);
        QVERIFY(!menusOfADatabase().contains(u"mnuExtras"_s));
        QVERIFY(!menusOfADatabase().contains(u"mnuEinstellungen"_s));
    }

    void everyCommandOfTheTargetsIsAskedForByAnEntry() {
        QSet<QString> asked;
        for (const auto& entry : menuTable())
            asked << entry.task.target;
        for (const auto& [target, run] : menuTargets()) {
            QVERIFY2(asked.contains(target), qPrintable(target));
            QVERIFY(run);
        }
    }

    void everyEntryFindsItsTarget() {
        int found = 0;
        for (const auto& entry : menuTable()) {
            if (entry.task.target.isEmpty())
                continue;
            QVERIFY2(menuTargets().contains(entry.task.target), qPrintable(entry.name));
            ++found;
        }
        QVERIFY(found > 60);
    }
};

KOLIBRI_TEST_MAIN(MenuTableTest)
#include "menu_table_test.moc"
