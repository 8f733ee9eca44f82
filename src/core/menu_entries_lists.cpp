#include "core/menu_entries.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

using Flag = bool mdlGlobal::*;

MenuEntry careListEntry(const QString& name, const QString& caption, const QString& tip, Flag kind,
                        quint8 variant) {
    return {2,
            name,
            caption,
            tip,
            {.target = u"frmME_LZ_Anzeigen"_s, .flags = {kind}, .listenUnterArt = variant}};
}

MenuEntry resettingEntry(int depth, const QString& name, const QString& caption, const QString& tip,
                         const QString& form, std::vector<Flag> flags = {}) {
    return {depth, name, caption, tip, {.target = form, .reset = true, .flags = std::move(flags)}};
}

MenuEntry notesEntry(const QString& name, const QString& caption, const QString& tip, const QString& mode) {
    return {2, name, caption, tip, {.target = u"frmListeNotizen"_s, .mode = mode}};
}

/// A report that first asks whether school starters count.
MenuEntry reportEntry(const QString& name, const QString& caption, const QString& tip, quint8 listenArt) {
    return listEntry(2, name, caption, tip, u"BerichtMitFrage"_s, listenArt);
}

MenuEntry occupancyEntry(const QString& name, const QString& offerings, quint8 listenArt) {
    return listEntry(2, name, u"&Belegung"_s, u"Freie und belegte Plätze der "_s + offerings, u"Belegung"_s,
                     listenArt);
}

MenuEntries pupilLists() {
    return {menuLine(1, u"mnuListeSchüler"_s, u"&Schüler"_s),
            listEntry(2, u"mnuListeSchülerErweiterteListe"_s, u"&Erweiterte Liste"_s,
                      u"Schülerliste mit wählbaren Spalten"_s, u"frmDialog"_s, 115),
            hiddenEntry(listEntry(2, u"mnuListeSchülerNamensliste"_s, u"N&amensliste"_s, u"Liste der Namen"_s,
                                  u"frmDialog"_s, 111)),
            listEntry(2, u"mnuListeNeueSchüler"_s, u"&Neue Schüler"_s,
                      u"Liste der Schüler, die neu an der Schule sind"_s, u"SchülerListeSofort"_s, 113),
            listEntry(2, u"mnuListeNicht_OG_Schüler"_s, u"Nicht &OG Schüler"_s,
                      u"Liste der Schüler ohne Ganztagsbetreuung"_s, u"SchülerListeSofort"_s, 114)};
}

MenuEntries mensaLists() {
    const Flag mensa = &mdlGlobal::ListeMensa;
    return {menuLine(1, u"mnuListeMensa"_s, u"&Mensa"_s),
            careListEntry(u"mnuListeMensaKlasse"_s, u"&Klasse"_s, u"Mensaliste einer Klasse"_s, mensa, 3),
            careListEntry(u"mnuListeMensaKlassenGruppiert"_s, u"Klassen &gruppiert"_s,
                          u"Mensaliste, nach Klassen gruppiert"_s, mensa, 1),
            careListEntry(u"mnuListeMensaEinheit"_s, u"Mensa &Einheit"_s, u"Mensaliste einer Mensazeit"_s,
                          mensa, 2),
            resettingEntry(2, u"mnuListeMensaNachKlasse"_s, u"Mensa &nach Klasse"_s,
                           u"Mensazeiten je Schüler, nach Klassen"_s, u"frmME_jeSchüler"_s),
            resettingEntry(2, u"mnuMensaIndividuell"_s, u"Mensa &Individuell"_s,
                           u"Mensaliste nach eigener Auswahl"_s, u"frmME_Individuell"_s)};
}

MenuEntries studyLists() {
    const Flag study = &mdlGlobal::ListeLernzeit;
    return {
        menuLine(1, u"mnuListeLernzeit"_s, u"&Lernzeit"_s),
        careListEntry(u"mnuListeLernzeitKlasse"_s, u"&Klasse"_s, u"Lernzeitliste einer Klasse"_s, study, 3),
        careListEntry(u"mnuListeLernzeitKlassenGruppiert"_s, u"Klassen &gruppiert"_s,
                      u"Lernzeitliste, nach Klassen gruppiert"_s, study, 1),
        careListEntry(u"mnuListeLernzeit_Lernzeiten"_s, u"&Lernzeiten"_s, u"Liste einer Lernzeit"_s, study,
                      2)};
}

} // namespace

MenuEntries listMenu() {
    MenuEntries entries{menuLine(0, u"mnuListen"_s, u"&Listen"_s)};
    for (const auto& part : {pupilLists(), mensaLists(), studyLists()})
        entries.insert(entries.end(), part.begin(), part.end());
    const MenuEntries rest{
        {1,
         u"mnuListeArbeitsgruppen"_s,
         u"&Arbeitsgruppen"_s,
         u"Anwesenheitslisten der Arbeitsgruppen"_s,
         {.target = u"frmAG_Anzeigen"_s}},
        resettingEntry(1, u"mnuTagesplan"_s, u"&Tagesplan"_s, u"Der Tagesplan der Klassen"_s,
                       u"frmWochenplan"_s, {&mdlGlobal::ModusTagesplanB}),
        menuLine(1, u"mnuNotizen"_s, u"&Notizen"_s),
        notesEntry(u"mnuListen_ME_LZ_AG"_s, u"&ME LZ AG"_s,
                   u"Liste der Notizen zu Mensa, Lernzeit und Arbeitsgruppen"_s, u"ME_LZ_AG"_s),
        notesEntry(u"mnuNotizenTP"_s, u"&Tagesplan"_s, u"Liste der Notizen im Tagesplan"_s, u"TP"_s),
        listEntry(1, u"mnuListeUnterrichtszeiten"_s, u"&Unterrichtszeiten"_s,
                  u"Liste der Unterrichtszeiten aller Klassen"_s, u"ListeUnterrichtszeiten"_s, 3),
        listEntry(1, u"mnuZeitüberschneidungen"_s, u"&Zeitüberschneidungen"_s,
                  u"Liste der Schüler, deren Zeiten sich überschneiden"_s, u"ListeZeitüberschneidungen"_s, 7),
        listEntry(1, u"mnuListeBausteine"_s, u"&Bausteine"_s, u"Liste der Bausteine"_s, u"ListeBausteine"_s,
                  0)};
    entries.insert(entries.end(), rest.begin(), rest.end());
    return entries;
}

MenuEntries reportMenu() {
    return {
        menuLine(0, u"mnuBerichte"_s, u"Be&richte"_s),
        menuLine(1, u"mnuBerichtMensa"_s, u"&Mensa"_s),
        reportEntry(u"mnuBerichtMensaGesamt"_s, u"&Gesamt"_s, u"Wie viele Kinder in der Mensa essen"_s, 11),
        reportEntry(u"mnuBerichtMensaAnzahlJeKlasse"_s, u"&Anzahl je Klasse"_s,
                    u"Wie viele Kinder je Klasse in der Mensa essen"_s, 12),
        occupancyEntry(u"mnuBelegungME"_s, u"Mensa"_s, 13),
        menuLine(1, u"mnuBerichtLernzeit"_s, u"&Lernzeit"_s),
        reportEntry(u"mnuBerichtLernzeitGesamt"_s, u"&Gesamt"_s,
                    u"Wie viele Kinder die Lernzeiten besuchen"_s, 21),
        reportEntry(u"mnuBerichtLernzeitNachKlassen"_s, u"&Nach Klassen"_s,
                    u"Wie viele Kinder je Klasse die Lernzeiten besuchen"_s, 22),
        occupancyEntry(u"mnuBelegungLZ"_s, u"Lernzeiten"_s, 23),
        menuLine(1, u"mnuBerichtArbeitsgruppen"_s, u"&Arbeitsgruppen"_s),
        listEntry(2, u"mnuBerichtArbeitsgruppenGesamt"_s, u"&Gesamt"_s,
                  u"Wie viele Kinder die Arbeitsgruppen besuchen"_s, u"BerichtArbeitsgruppen"_s, 31)};
}

} // namespace kolibri
