#include "core/menu_table.h"

#include "core/mdlAllgemein.h"
#include "core/menu_entries.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

MenuEntries extrasMenu() {
    return {menuLine(0, u"mnuExtras"_s, u"&Extras"_s),
            {1,
             u"mnuWechselSchuljahr"_s,
             u"&Wechsel Schuljahr"_s,
             u"Alle Klassen in das neue Schuljahr versetzen"_s,
             {.target = u"WechselSchuljahr"_s}},
            {1,
             u"mnuEinstellungen"_s,
             u"&Einstellungen"_s,
             u"Listenformate, Beiträge, Kontaktfelder und Datenbankpfad einstellen"_s,
             {.target = u"frmEinstellungen"_s}},
            // Shown by the main window while there is no database.
            hiddenEntry({1,
                         u"mnuNeueDatenbank"_s,
                         u"&Neue Datenbank anlegen..."_s,
                         u"Eine leere Datenbank in einem Ordner anlegen"_s,
                         {.target = u"NeueDatenbank"_s}}),
            hiddenEntry({1,
                         u"mnuBeispielschule"_s,
                         u"&Beispielschule anlegen..."_s,
                         u"Eine erfundene Schule zum Ausprobieren anlegen"_s,
                         {.target = u"Beispielschule"_s}})};
}

MenuEntries adminMenu() {
    return {hiddenEntry(menuLine(0, u"frmAdmin"_s, u"Adm&in"_s)),
            hiddenEntry({1,
                         u"mnuAdminDatenbankAktualsieren"_s,
                         u"&Datenbank für Version 1.1.x aktualisieren"_s,
                         u"Notizen und Zuweisungen älterer Datenbanken berichtigen"_s,
                         {.target = u"DatenbankAktualisieren"_s}})};
}

MenuEntries helpMenu() {
    return {menuLine(0, u"mnuFragezeichen"_s, u"&?"_s),
            {1, u"mnuInfo"_s, u"&Info"_s, u"Name und Version des Programms"_s, {.target = u"Info"_s}},
            hiddenEntry({1,
                         u"mnuInfoDatenImport"_s,
                         u"&Hinweis Import"_s,
                         u"Wie eine Excel-Datei für den Import aussehen muss"_s,
                         {.target = u"frmExcelInfo"_s}})};
}

MenuEntries makeTable() {
    MenuEntries table;
    for (const auto& part : {fileMenu(), editMenu(), listMenu(), reportMenu(), starterMenu(), extrasMenu(),
                             adminMenu(), helpMenu()})
        table.insert(table.end(), part.begin(), part.end());
    return table;
}

} // namespace

MenuEntry menuLine(int depth, const QString& name, const QString& caption) {
    return {depth, name, caption};
}

MenuEntry hiddenEntry(MenuEntry entry) {
    entry.hidden = true;
    return entry;
}

MenuEntry listEntry(int depth, const QString& name, const QString& caption, const QString& tip,
                    const QString& target, quint8 listenArt) {
    return {depth, name, caption, tip, {.target = target, .listenArt = listenArt}};
}

const std::vector<MenuEntry>& menuTable() {
    static const MenuEntries table = makeTable();
    return table;
}

const std::vector<LargeButton>& largeButtons() {
    const QString pupils = u"Schüler"_s;
    const QString lists = u"Listen"_s;
    const QString occupancy = u"Belegung"_s;
    // Their letters must differ from those of the menu bar, which are reached in the same way.
    static const std::vector<LargeButton> buttons{
        {u"SchülerNeu"_s, u"Schüler &Neu"_s, u"mnuSchülerIn_Neu"_s, pupils, u"schueler_neu"_s},
        {u"SchülerKorrektur"_s, u"Schüler &Korrektur"_s, u"mnuSchülerIn_Korrektur"_s, pupils,
         u"schueler_korrektur"_s},
        {u"SchülerLöschen"_s, u"Schüler Lös&chen"_s, u"mnuSchülerIn_Löschen"_s, pupils,
         u"schueler_loeschen"_s},
        {u"ListeSchüler"_s, u"Liste Sc&hüler"_s, u"mnuListeSchülerErweiterteListe"_s, lists,
         u"liste_schueler"_s},
        {u"Liste_Arbeitsgruppe"_s, u"Liste &Arbeitsgruppe"_s, u"mnuListeArbeitsgruppen"_s, lists,
         u"liste_arbeitsgruppe"_s},
        {u"Liste_Tagesplan"_s, u"Liste &Tagesplan"_s, u"mnuTagesplan"_s, lists, u"liste_tagesplan"_s},
        // The missing letter of the next two is part of their names.
        {u"Belegug_Mensa"_s, u"Belegung &Mensa"_s, u"mnuBelegungME"_s, occupancy, u"belegung_mensa"_s},
        {u"Belegug_Lernzeit"_s, u"Belegung Lern&zeit"_s, u"mnuBelegungLZ"_s, occupancy,
         u"belegung_lernzeit"_s}};
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

const QStringList& entriesWithoutDatabase() {
    static const QStringList names{u"mnuNeueDatenbank"_s, u"mnuBeispielschule"_s};
    return names;
}

void applyTask(const MenuTask& task) {
    auto& global = Global();
    if (task.reset)
        ModiZuruecksetzen();
    // A care list is either of Mensa or of Lernzeit; the choice before this one must not linger.
    if (task.target == u"frmME_LZ_Anzeigen"_s)
        global.ListeMensa = global.ListeLernzeit = false;
    for (const auto flag : task.flags)
        global.*flag = true;
    if (task.listenArt != 0)
        global.ListenArt = task.listenArt;
    if (task.listenUnterArt != 0)
        global.ListenUnterArt = task.listenUnterArt;
}

} // namespace kolibri
