#include "core/menu_entries.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

using Flag = bool mdlGlobal::*;

/// What an editor can be opened for.
struct EditAction {
    QString name;
    QString caption;
    /// Ends a sentence that begins with the object: "Ein Baustein: neu eingeben".
    QString verb;
};

const std::vector<EditAction>& editActions() {
    static const std::vector<EditAction> actions{{u"Neu"_s, u"&Neu"_s, u"neu eingeben"_s},
                                                 {u"Korrektur"_s, u"&Korrektur"_s, u"ändern"_s},
                                                 {u"Löschen"_s, u"&Löschen"_s, u"löschen"_s}};
    return actions;
}

MenuEntry pupilEntry(int depth, const QString& name, const QString& caption, const QString& tip,
                     std::vector<Flag> flags) {
    return {
        depth, name, caption, tip, {.target = u"frmSchülerIn"_s, .reset = true, .flags = std::move(flags)}};
}

/// The three entries of one kind of offering, each a mode of the one offering form.
MenuEntries offeringEntries(const QString& stem, const QString& kind, const QString& object) {
    MenuEntries entries;
    for (const auto& action : editActions())
        entries.push_back({2,
                           stem + action.name,
                           action.caption,
                           object + u' ' + action.verb,
                           {.target = u"frmME_LZ_AG"_s,
                            .mode = kind + action.name,
                            .caption = kind.toUpper() + u' ' + action.name.toUpper()}});
    return entries;
}

/// The three entries of a form whose modes bear the same names.
MenuEntries editorEntries(const QString& stem, const QString& form, const QString& object) {
    MenuEntries entries;
    for (const auto& action : editActions())
        entries.push_back({2,
                           stem + action.name,
                           action.caption,
                           object + u' ' + action.verb,
                           {.target = form, .mode = action.name}});
    return entries;
}

MenuEntries unitEntries() {
    const std::array<Flag, 3> flags{&mdlGlobal::ModusUE_Neu, &mdlGlobal::ModusUE_Korrektur,
                                    &mdlGlobal::ModusUE_Loeschen};
    MenuEntries entries = editorEntries(u"mnuUnterrichtsEinheiten_"_s, u"frmUnterrichtseinheiten"_s,
                                        u"Eine Unterrichtseinheit"_s);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        entries[i].task.reset = true;
        entries[i].task.flags = {flags.at(i)};
    }
    return entries;
}

MenuEntry placesEntry(const QString& name, const QString& mode, const QString& offerings) {
    return {2,
            name,
            u"&Belegungsplan"_s,
            u"Die höchstmöglichen Plätze der "_s + offerings + u" festlegen"_s,
            {.target = u"frmBelegungsplan_ME_LZ"_s, .mode = mode}};
}

MenuEntry assignmentEntry(const QString& name, const QString& caption, const QString& kind,
                          const QString& offering) {
    return {3,
            name,
            caption,
            u"Einer ganzen Klasse "_s + offering + u" zuweisen"_s,
            {.target = u"frmKlassenZuweisung"_s,
             .mode = kind,
             .caption = u"Klassen-Zuweisung "_s + kind.toUpper()}};
}

MenuEntries pupilMenu() {
    return {menuLine(1, u"mnuSchülerIn"_s, u"&SchülerIn"_s),
            pupilEntry(2, u"mnuSchülerIn_Neu"_s, u"&Neu"_s,
                       u"Eine Schülerin oder einen Schüler neu eingeben"_s, {&mdlGlobal::ModusSchuelerNeu}),
            pupilEntry(2, u"mnuSchülerIn_Korrektur"_s, u"&Korrektur"_s,
                       u"Die Angaben zu einer Schülerin oder einem Schüler ändern"_s,
                       {&mdlGlobal::ModusSchuelerKorrektur}),
            pupilEntry(2, u"mnuSchülerIn_Löschen"_s, u"&Löschen"_s,
                       u"Eine Schülerin oder einen Schüler löschen"_s, {&mdlGlobal::ModusSchuelerLoeschen}),
            pupilEntry(2, u"mnuSchülerInAktivieren"_s, u"&Aktivieren"_s,
                       u"Eine gelöschte Schülerin oder einen gelöschten Schüler zurückholen"_s,
                       {&mdlGlobal::ModusSchuelerAktivieren})};
}

MenuEntries classMenu() {
    return {menuLine(1, u"mnuKlasse"_s, u"&Klasse"_s),
            {2,
             u"mnuKlasseNeuLöschen"_s,
             u"&Neu/Löschen"_s,
             u"Klassen anlegen und löschen"_s,
             {.target = u"frmKlassenNeuLöschen"_s}},
            {2,
             u"mnuUnterrichtBeginnEnde"_s,
             u"&Unterricht Beginn / Ende"_s,
             u"Unterrichtszeiten der Klassen festlegen"_s,
             {.target = u"frmUnterrichtszeiten"_s}},
            {2,
             u"mnuStundenplan"_s,
             u"&Stundenplan"_s,
             u"Den Stundenplan einer Klasse bearbeiten"_s,
             {.target = u"frmStundenplan"_s}},
            menuLine(2, u"mnuKlassen_Zuweisung"_s, u"&Zuweisung"_s),
            assignmentEntry(u"mnuZuweisungMensa"_s, u"&Mensa"_s, u"Mensa"_s, u"eine Mensazeit"_s),
            assignmentEntry(u"mnuZuweisungLernzeiten"_s, u"&Lernzeiten"_s, u"Lernzeit"_s, u"eine Lernzeit"_s),
            assignmentEntry(u"mnuZuweisungArbeitsgruppen"_s, u"&Arbeitsgruppen"_s, u"Arbeitsgruppe"_s,
                            u"eine Arbeitsgruppe"_s)};
}

MenuEntries listTextMenu() {
    MenuEntries entries{hiddenEntry(menuLine(1, u"mnuListentexte"_s, u"Listente&xte"_s))};
    for (const auto& kind : {u"Mensa"_s, u"Lernzeit"_s, u"Arbeitsgruppe"_s})
        entries.push_back(hiddenEntry({2,
                                       u"mnuListentext"_s + kind,
                                       u'&' + kind,
                                       u"Den Text unter den Listen bearbeiten: "_s + kind,
                                       {.target = u"frmListentext"_s, .mode = kind}}));
    return entries;
}

} // namespace

MenuEntries fileMenu() {
    return {menuLine(0, u"mnuDatei"_s, u"&Datei"_s),
            menuLine(1, u"mnuImport"_s, u"&Import"_s),
            {2,
             u"mnuExcelDaten"_s,
             u"&Excel Daten"_s,
             u"Schülerdaten aus einer Excel-Datei übernehmen"_s,
             {.target = u"ExcelImport"_s}},
            menuLine(1, u"mnuSicherung"_s, u"&Sicherung"_s),
            {2,
             u"mnuDatensicherungTXTerstellen"_s,
             u"Datensicherung &erstellen"_s,
             u"Alle Daten in eine Sicherungsdatei schreiben"_s,
             {.target = u"Datensicherung"_s}},
            {2,
             u"mnuDatenTXTwiederherstellen"_s,
             u"Daten &wiederherstellen"_s,
             u"Alle Daten aus einer Sicherungsdatei zurückholen"_s,
             {.target = u"DatenWiederherstellen"_s}},
            hiddenEntry(menuLine(2, u"mnuDatensicherungErstellen"_s, u"&Datensicherung erstellen"_s)),
            hiddenEntry(menuLine(2, u"mnuDatenWiederherstellen"_s, u"D&aten wiederherstellen"_s)),
            {1, u"mnuBeenden"_s, u"&Beenden"_s, u"Das Programm beenden"_s, {.target = u"Beenden"_s}}};
}

MenuEntries editMenu() {
    MenuEntries entries{menuLine(0, u"mnuBearbeiten"_s, u"&Bearbeiten"_s)};
    const auto add = [&](const MenuEntries& more) {
        entries.insert(entries.end(), more.begin(), more.end());
    };
    add(pupilMenu());
    add({menuLine(1, u"mnuMensa"_s, u"&Mensa"_s)});
    add(offeringEntries(u"mnuMensa"_s, u"Mensa"_s, u"Eine Mensazeit"_s));
    add({placesEntry(u"mnuBelegungplanME"_s, u"BelegungME"_s, u"Mensa"_s)});
    add({menuLine(1, u"mnuLernzeit"_s, u"&Lernzeit"_s)});
    add(offeringEntries(u"mnuLernzeit"_s, u"Lernzeit"_s, u"Eine Lernzeit"_s));
    add({placesEntry(u"mnuBelegungsplanLZ"_s, u"BelegungLZ"_s, u"Lernzeiten"_s)});
    add({menuLine(1, u"mnuArbeitsgruppen"_s, u"&Arbeitsgruppen"_s)});
    add(offeringEntries(u"mnuArbeitsgruppen"_s, u"Arbeitsgruppe"_s, u"Eine Arbeitsgruppe"_s));
    add(classMenu());
    add({menuLine(1, u"mnuWP_Notizen"_s, u"&Tagesplan Notizen"_s)});
    add(editorEntries(u"mnuWP_Notizen_"_s, u"frmWP_Notizen"_s, u"Eine Notiz im Tagesplan"_s));
    add({menuLine(1, u"mnuUnterrichts_Einheiten"_s, u"&Unterrichtseinheiten"_s)});
    add(unitEntries());
    add({menuLine(1, u"mnuBaustein"_s, u"&Baustein"_s)});
    add(editorEntries(u"mnuBaustein"_s, u"frmBaustein"_s, u"Einen Baustein"_s));
    add(listTextMenu());
    return entries;
}

MenuEntries starterMenu() {
    const Flag starter = &mdlGlobal::ModusSchulanfaenger;
    return {menuLine(0, u"mnuSchulanfänger"_s, u"&Schulanfänger"_s),
            pupilEntry(1, u"mnuSchulanfänger_Neu"_s, u"&Neu"_s,
                       u"Ein Kind neu eingeben, das erst zur Schule kommt"_s,
                       {starter, &mdlGlobal::ModusSchulanfaengerNeu}),
            // The missing letter is part of the entry's name, by which it is known outside.
            pupilEntry(1, u"mnuSchulanänger_Korrektur"_s, u"&Korrektur"_s,
                       u"Die Angaben zu einem Schulanfänger ändern"_s,
                       {starter, &mdlGlobal::ModusSchulanfaengerKorrektur}),
            pupilEntry(1, u"mnuSchulanfänger_Löschen"_s, u"&Löschen"_s, u"Einen Schulanfänger löschen"_s,
                       {starter, &mdlGlobal::ModusSchulanfaengerLoeschen}),
            listEntry(1, u"mnuSchulanfänger_Liste"_s, u"L&iste"_s, u"Liste der Schulanfänger"_s,
                      u"frmDialog"_s, 101)};
}

} // namespace kolibri
