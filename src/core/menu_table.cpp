#include "core/menu_table.h"

#include "core/mdlAllgemein.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

using Flag = bool mdlGlobal::*;
using Entries = std::vector<MenuEntry>;

MenuEntry menu(int depth, const QString& name, const QString& caption) {
    return {depth, name, caption};
}

MenuEntry hiddenEntry(MenuEntry entry) {
    entry.hidden = true;
    return entry;
}

MenuEntry pupilEntry(int depth, const QString& name, const QString& caption, std::vector<Flag> flags) {
    return {depth, name, caption, {.target = u"frmSchülerIn"_s, .reset = true, .flags = std::move(flags)}};
}

/// The three entries Neu, Korrektur, Löschen of one kind of offering, each a mode of the one offering form.
Entries offeringEntries(const QString& stem, const QString& kind) {
    Entries entries;
    for (const auto& action : {u"Neu"_s, u"Korrektur"_s, u"Löschen"_s})
        entries.push_back({2,
                           stem + action,
                           action,
                           {.target = u"frmME_LZ_AG"_s,
                            .mode = kind + action,
                            .caption = kind.toUpper() + u' ' + action.toUpper()}});
    return entries;
}

/// The three entries Neu, Korrektur, Löschen of a form whose modes bear the same names.
Entries editorEntries(const QString& stem, const QString& form) {
    Entries entries;
    for (const auto& action : {u"Neu"_s, u"Korrektur"_s, u"Löschen"_s})
        entries.push_back({2, stem + action, action, {.target = form, .mode = action}});
    return entries;
}

MenuEntry assignmentEntry(const QString& name, const QString& caption, const QString& kind) {
    return {3,
            name,
            caption,
            {.target = u"frmKlassenZuweisung"_s,
             .mode = kind,
             .caption = u"Klassen-Zuweisung "_s + kind.toUpper()}};
}

MenuEntry unitEntry(const QString& action, Flag flag) {
    return {2,
            u"mnuUnterrichtsEinheiten_"_s + action,
            action,
            {.target = u"frmUnterrichtseinheiten"_s, .mode = action, .reset = true, .flags = {flag}}};
}

MenuEntry careListEntry(const QString& name, const QString& caption, Flag kind, quint8 variant) {
    return {2, name, caption, {.target = u"frmME_LZ_Anzeigen"_s, .flags = {kind}, .listenUnterArt = variant}};
}

MenuEntry reportEntry(const QString& name, const QString& caption, quint8 listenArt) {
    return {2, name, caption, {.target = u"BerichtMitFrage"_s, .listenArt = listenArt}};
}

MenuEntry listEntry(int depth, const QString& name, const QString& caption, const QString& target,
                    quint8 listenArt) {
    return {depth, name, caption, {.target = target, .listenArt = listenArt}};
}

Entries fileMenu() {
    return {menu(0, u"mnuDatei"_s, u"Datei"_s),
            menu(1, u"mnuImport"_s, u"Import"_s),
            {2, u"mnuExcelDaten"_s, u"Excel Daten"_s, {.target = u"ExcelImport"_s}},
            menu(1, u"mnuSicherung"_s, u"Sicherung"_s),
            {2,
             u"mnuDatensicherungTXTerstellen"_s,
             u"Datensicherung erstellen"_s,
             {.target = u"Datensicherung"_s}},
            {2,
             u"mnuDatenTXTwiederherstellen"_s,
             u"Daten wiederherstellen"_s,
             {.target = u"DatenWiederherstellen"_s}},
            hiddenEntry(menu(2, u"mnuDatensicherungErstellen"_s, u"Datensicherung erstellen"_s)),
            hiddenEntry(menu(2, u"mnuDatenWiederherstellen"_s, u"Daten wiederherstellen"_s)),
            {1, u"mnuBeenden"_s, u"Beenden"_s, {.target = u"Beenden"_s}}};
}

Entries pupilMenu() {
    return {
        menu(1, u"mnuSchülerIn"_s, u"SchülerIn"_s),
        pupilEntry(2, u"mnuSchülerIn_Neu"_s, u"Neu"_s, {&mdlGlobal::ModusSchuelerNeu}),
        pupilEntry(2, u"mnuSchülerIn_Korrektur"_s, u"Korrektur"_s, {&mdlGlobal::ModusSchuelerKorrektur}),
        pupilEntry(2, u"mnuSchülerIn_Löschen"_s, u"Löschen"_s, {&mdlGlobal::ModusSchuelerLoeschen}),
        pupilEntry(2, u"mnuSchülerInAktivieren"_s, u"Aktivieren"_s, {&mdlGlobal::ModusSchuelerAktivieren})};
}

Entries classMenu() {
    return {menu(1, u"mnuKlasse"_s, u"Klasse"_s),
            {2, u"mnuKlasseNeuLöschen"_s, u"Neu/Löschen"_s, {.target = u"frmKlassenNeuLöschen"_s}},
            {2,
             u"mnuUnterrichtBeginnEnde"_s,
             u"Unterricht Beginn / Ende"_s,
             {.target = u"frmUnterrichtszeiten"_s}},
            {2, u"mnuStundenplan"_s, u"Stundenplan"_s, {.target = u"frmStundenplan"_s}},
            menu(2, u"mnuKlassen_Zuweisung"_s, u"Zuweisung"_s),
            assignmentEntry(u"mnuZuweisungMensa"_s, u"Mensa"_s, u"Mensa"_s),
            assignmentEntry(u"mnuZuweisungLernzeiten"_s, u"Lernzeiten"_s, u"Lernzeit"_s),
            assignmentEntry(u"mnuZuweisungArbeitsgruppen"_s, u"Arbeitsgruppen"_s, u"Arbeitsgruppe"_s)};
}

Entries listTextMenu() {
    Entries entries{hiddenEntry(menu(1, u"mnuListentexte"_s, u"Listentexte"_s))};
    for (const auto& kind : {u"Mensa"_s, u"Lernzeit"_s, u"Arbeitsgruppe"_s})
        entries.push_back(
            hiddenEntry({2, u"mnuListentext"_s + kind, kind, {.target = u"frmListentext"_s, .mode = kind}}));
    return entries;
}

Entries editMenu() {
    Entries entries{menu(0, u"mnuBearbeiten"_s, u"Bearbeiten"_s)};
    const auto add = [&](const Entries& more) { entries.insert(entries.end(), more.begin(), more.end()); };
    add(pupilMenu());
    add({menu(1, u"mnuMensa"_s, u"Mensa"_s)});
    add(offeringEntries(u"mnuMensa"_s, u"Mensa"_s));
    add({{2,
          u"mnuBelegungplanME"_s,
          u"Belegungsplan"_s,
          {.target = u"frmBelegungsplan_ME_LZ"_s, .mode = u"BelegungME"_s}}});
    add({menu(1, u"mnuLernzeit"_s, u"Lernzeit"_s)});
    add(offeringEntries(u"mnuLernzeit"_s, u"Lernzeit"_s));
    add({{2,
          u"mnuBelegungsplanLZ"_s,
          u"Belegungsplan"_s,
          {.target = u"frmBelegungsplan_ME_LZ"_s, .mode = u"BelegungLZ"_s}}});
    add({menu(1, u"mnuArbeitsgruppen"_s, u"Arbeitsgruppen"_s)});
    add(offeringEntries(u"mnuArbeitsgruppen"_s, u"Arbeitsgruppe"_s));
    add(classMenu());
    add({menu(1, u"mnuWP_Notizen"_s, u"Tagesplan Notizen"_s)});
    add(editorEntries(u"mnuWP_Notizen_"_s, u"frmWP_Notizen"_s));
    add({menu(1, u"mnuUnterrichts_Einheiten"_s, u"Unterrichtseinheiten"_s),
         unitEntry(u"Neu"_s, &mdlGlobal::ModusUE_Neu),
         unitEntry(u"Korrektur"_s, &mdlGlobal::ModusUE_Korrektur),
         unitEntry(u"Löschen"_s, &mdlGlobal::ModusUE_Loeschen)});
    add({menu(1, u"mnuBaustein"_s, u"Baustein"_s)});
    add(editorEntries(u"mnuBaustein"_s, u"frmBaustein"_s));
    add(listTextMenu());
    return entries;
}

Entries listMenu() {
    return {
        menu(0, u"mnuListen"_s, u"Listen"_s),
        menu(1, u"mnuListeSchüler"_s, u"Schüler"_s),
        listEntry(2, u"mnuListeSchülerErweiterteListe"_s, u"Erweiterte Liste"_s, u"frmDialog"_s, 115),
        hiddenEntry(listEntry(2, u"mnuListeSchülerNamensliste"_s, u"Namensliste"_s, u"frmDialog"_s, 111)),
        listEntry(2, u"mnuListeNeueSchüler"_s, u"Neue Schüler"_s, u"SchülerListeSofort"_s, 113),
        listEntry(2, u"mnuListeNicht_OG_Schüler"_s, u"Nicht OG Schüler"_s, u"SchülerListeSofort"_s, 114),
        menu(1, u"mnuListeMensa"_s, u"Mensa"_s),
        careListEntry(u"mnuListeMensaKlasse"_s, u"Klasse"_s, &mdlGlobal::ListeMensa, 3),
        careListEntry(u"mnuListeMensaKlassenGruppiert"_s, u"Klassen gruppiert"_s, &mdlGlobal::ListeMensa, 1),
        careListEntry(u"mnuListeMensaEinheit"_s, u"Mensa Einheit"_s, &mdlGlobal::ListeMensa, 2),
        {2,
         u"mnuListeMensaNachKlasse"_s,
         u"Mensa nach Klasse"_s,
         {.target = u"frmME_jeSchüler"_s, .reset = true}},
        {2,
         u"mnuMensaIndividuell"_s,
         u"Mensa Individuell"_s,
         {.target = u"frmME_Individuell"_s, .reset = true}},
        menu(1, u"mnuListeLernzeit"_s, u"Lernzeit"_s),
        careListEntry(u"mnuListeLernzeitKlasse"_s, u"Klasse"_s, &mdlGlobal::ListeLernzeit, 3),
        careListEntry(u"mnuListeLernzeitKlassenGruppiert"_s, u"Klassen gruppiert"_s,
                      &mdlGlobal::ListeLernzeit, 1),
        careListEntry(u"mnuListeLernzeit_Lernzeiten"_s, u"Lernzeiten"_s, &mdlGlobal::ListeLernzeit, 2),
        {1, u"mnuListeArbeitsgruppen"_s, u"Arbeitsgruppen"_s, {.target = u"frmAG_Anzeigen"_s}},
        {1,
         u"mnuTagesplan"_s,
         u"Tagesplan"_s,
         {.target = u"frmWochenplan"_s, .reset = true, .flags = {&mdlGlobal::ModusTagesplanB}}},
        menu(1, u"mnuNotizen"_s, u"Notizen"_s),
        {2, u"mnuListen_ME_LZ_AG"_s, u"ME LZ AG"_s, {.target = u"frmListeNotizen"_s, .mode = u"ME_LZ_AG"_s}},
        {2, u"mnuNotizenTP"_s, u"Tagesplan"_s, {.target = u"frmListeNotizen"_s, .mode = u"TP"_s}},
        listEntry(1, u"mnuListeUnterrichtszeiten"_s, u"Unterrichtszeiten"_s, u"ListeUnterrichtszeiten"_s, 3),
        listEntry(1, u"mnuZeitüberschneidungen"_s, u"Zeitüberschneidungen"_s, u"ListeZeitüberschneidungen"_s,
                  7),
        {1, u"mnuListeBausteine"_s, u"Bausteine"_s, {.target = u"ListeBausteine"_s}}};
}

Entries reportMenu() {
    return {menu(0, u"mnuBerichte"_s, u"Berichte"_s),
            menu(1, u"mnuBerichtMensa"_s, u"Mensa"_s),
            reportEntry(u"mnuBerichtMensaGesamt"_s, u"Gesamt"_s, 11),
            reportEntry(u"mnuBerichtMensaAnzahlJeKlasse"_s, u"Anzahl je Klasse"_s, 12),
            listEntry(2, u"mnuBelegungME"_s, u"Belegung"_s, u"Belegung"_s, 13),
            menu(1, u"mnuBerichtLernzeit"_s, u"Lernzeit"_s),
            reportEntry(u"mnuBerichtLernzeitGesamt"_s, u"Gesamt"_s, 21),
            reportEntry(u"mnuBerichtLernzeitNachKlassen"_s, u"Nach Klassen"_s, 22),
            listEntry(2, u"mnuBelegungLZ"_s, u"Belegung"_s, u"Belegung"_s, 23),
            menu(1, u"mnuBerichtArbeitsgruppen"_s, u"Arbeitsgruppen"_s),
            listEntry(2, u"mnuBerichtArbeitsgruppenGesamt"_s, u"Gesamt"_s, u"BerichtArbeitsgruppen"_s, 31)};
}

Entries starterMenu() {
    const Flag starter = &mdlGlobal::ModusSchulanfaenger;
    return {menu(0, u"mnuSchulanfänger"_s, u"Schulanfänger"_s),
            pupilEntry(1, u"mnuSchulanfänger_Neu"_s, u"Neu"_s, {starter, &mdlGlobal::ModusSchulanfaengerNeu}),
            // The missing letter is part of the entry's name, by which it is known outside.
            pupilEntry(1, u"mnuSchulanänger_Korrektur"_s, u"Korrektur"_s,
                       {starter, &mdlGlobal::ModusSchulanfaengerKorrektur}),
            pupilEntry(1, u"mnuSchulanfänger_Löschen"_s, u"Löschen"_s,
                       {starter, &mdlGlobal::ModusSchulanfaengerLoeschen}),
            listEntry(1, u"mnuSchulanfänger_Liste"_s, u"Liste"_s, u"frmDialog"_s, 101)};
}

Entries extrasAndHelpMenus() {
    return {menu(0, u"mnuExtras"_s, u"Extras"_s),
            {1, u"mnuWechselSchuljahr"_s, u"Wechsel Schuljahr"_s, {.target = u"WechselSchuljahr"_s}},
            {1, u"mnuEinstellungen"_s, u"Einstellungen"_s, {.target = u"frmEinstellungen"_s}},
            // Shown by the main window while there is no database.
            hiddenEntry(
                {1, u"mnuNeueDatenbank"_s, u"Neue Datenbank anlegen..."_s, {.target = u"NeueDatenbank"_s}}),
            hiddenEntry(
                {1, u"mnuBeispielschule"_s, u"Beispielschule anlegen..."_s, {.target = u"Beispielschule"_s}}),
            hiddenEntry(menu(0, u"frmAdmin"_s, u"Admin"_s)),
            hiddenEntry({1,
                         u"mnuAdminDatenbankAktualsieren"_s,
                         u"Datenbank für Version 1.1.x aktualisieren"_s,
                         {.target = u"DatenbankAktualisieren"_s}}),
            menu(0, u"mnuFragezeichen"_s, u"?"_s),
            {1, u"mnuInfo"_s, u"Info"_s, {.target = u"Info"_s}},
            hiddenEntry({1, u"mnuInfoDatenImport"_s, u"Hinweis Import"_s, {.target = u"frmExcelInfo"_s}})};
}

Entries makeTable() {
    Entries table;
    for (const auto& part :
         {fileMenu(), editMenu(), listMenu(), reportMenu(), starterMenu(), extrasAndHelpMenus()})
        table.insert(table.end(), part.begin(), part.end());
    return table;
}

} // namespace

const std::vector<MenuEntry>& menuTable() {
    static const Entries table = makeTable();
    return table;
}

const std::vector<LargeButton>& largeButtons() {
    static const std::vector<LargeButton> buttons{
        {u"SchülerNeu"_s, u"Schüler Neu"_s, u"mnuSchülerIn_Neu"_s},
        {u"SchülerKorrektur"_s, u"Schüler Korrektur"_s, u"mnuSchülerIn_Korrektur"_s},
        {u"SchülerLöschen"_s, u"Schüler Löschen"_s, u"mnuSchülerIn_Löschen"_s},
        {u"ListeSchüler"_s, u"Liste Schüler"_s, u"mnuListeSchülerErweiterteListe"_s},
        {u"Liste_Arbeitsgruppe"_s, u"Liste Arbeitsgruppe"_s, u"mnuListeArbeitsgruppen"_s},
        {u"Liste_Tagesplan"_s, u"Liste Tagesplan"_s, u"mnuTagesplan"_s},
        // The missing letter of the next two is part of their names.
        {u"Belegug_Mensa"_s, u"Belegung Mensa"_s, u"mnuBelegungME"_s},
        {u"Belegug_Lernzeit"_s, u"Belegung Lernzeit"_s, u"mnuBelegungLZ"_s}};
    return buttons;
}

const QStringList& menusOfADatabase() {
    static const QStringList names{u"mnuDatei"_s,
                                   u"mnuBearbeiten"_s,
                                   u"mnuListen"_s,
                                   u"mnuBerichte"_s,
                                   u"mnuSchulanfänger"_s,
                                   u"mnuUnterrichts_Einheiten"_s,
                                   u"mnuZeitüberschneidungen"_s,
                                   u"mnuWechselSchuljahr"_s};
    return names;
}

void applyTask(const MenuTask& task) {
    auto& global = Global();
    if (task.reset)
        ModiZuruecksetzen();
    // A care list is either of Mensa or of Lernzeit; the choice before this one must not linger.
    if (task.target == u"frmME_LZ_Anzeigen"_s)
        global.ListeMensa = global.ListeLernzeit = false;
    for (const Flag flag : task.flags)
        global.*flag = true;
    if (task.listenArt != 0)
        global.ListenArt = task.listenArt;
    if (task.listenUnterArt != 0)
        global.ListenUnterArt = task.listenUnterArt;
}

} // namespace kolibri
