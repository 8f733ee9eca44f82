#include "walk_stations.h"

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

using Stations = std::vector<Station>;

// A girl of the sample school with a full week and notes.
const QString kPupil = u"Çağla"_s;
const QString kOffering = u"12:30 - 13:10 ME4"_s;
const QString kCorrected = u"12:30 - 13:15 ME4"_s;
const QString kEveryEntry = u"*"_s;

Station listAtOnce(const QString& entry, const QString& list) {
    return {.entry = entry, .list = list};
}

Stations calendar() {
    return {
        {u"mnuKlasseNeuLöschen"_s, {{u"lstKlassen"_s, u"3b"_s}}, u"klassen"_s},
        {u"mnuUnterrichtBeginnEnde"_s, {{u"lvwKlasse"_s, u"3b"_s}}, u"unterrichtszeiten"_s},
        {u"mnuUnterrichtBeginnEnde"_s, {{u"mnuErläuterung"_s}}, u"erlaeuterung"_s},
        {u"mnuStundenplan"_s, {{u"cmbKlasse"_s, u"3a"_s}}, u"stundenplan"_s},
        {u"mnuUnterrichtsEinheiten_Korrektur"_s, {{u"lvwUE"_s, u"12:30"_s}}, u"unterrichtseinheiten"_s},
        {u"mnuBausteinKorrektur"_s, {{u"lvwBausteine"_s, QString()}}, u"baustein"_s},
        {u"mnuMensaNeu"_s,
         {{u"txtME_LZ_AG(0)"_s, u"ME4"_s},
          {u"txtME_LZ_AG(1)"_s, u"Mensa vegetarisch"_s},
          {u"lstME_LZ_AG"_s, u"MO"_s},
          {u"txtME_LZ_AG(3)"_s, u"12:30"_s},
          {u"txtME_LZ_AG(4)"_s, u"13:10"_s},
          {u"cmbUE"_s, u"12:30 - 13:15"_s}},
         u"mensa-neu"_s,
         {},
         Leaving::Confirmed},
        {u"mnuLernzeitKorrektur"_s, {{u"lvwME_LZ_AG"_s, u"LZ2"_s}}, u"lernzeit-korrektur"_s},
        {u"mnuArbeitsgruppenNeu"_s,
         {{u"txtME_LZ_AG(0)"_s, u"CHOR"_s},
          {u"txtME_LZ_AG(1)"_s, u"Schulchor"_s},
          {u"lstME_LZ_AG"_s, u"DI"_s},
          {u"txtME_LZ_AG(3)"_s, u"14:45"_s},
          {u"txtME_LZ_AG(4)"_s, u"15:30"_s},
          {u"txtME_LZ_AG(5)"_s, u"Fr. Amsel"_s},
          {u"txtME_LZ_AG(6)"_s, u"Aula"_s},
          {u"cmbUE"_s, u"14:45 - 15:30"_s}},
         u"arbeitsgruppe-neu"_s},
        {u"mnuArbeitsgruppenLöschen"_s, {{u"lvwME_LZ_AG"_s, u"Tanzen"_s}}, u"arbeitsgruppe-loeschen"_s},
        {u"mnuBelegungplanME"_s,
         {{u"txtPlätze_A(4)"_s, u"5"_s},
          {u"txtPlätze_B(4)"_s, u"8"_s},
          {u"txtPlätze_C(4)"_s, u"5"_s},
          {u"txtPlätze_D(4)"_s, u"5"_s}},
         u"belegungsplan-mensa"_s,
         {},
         Leaving::Confirmed},
        {u"mnuBelegungsplanLZ"_s, {}, u"belegungsplan-lernzeit"_s},
        {u"mnuZuweisungMensa"_s,
         {{u"cmbEinheitTag"_s, u"MO"_s}, {u"cmbEinheit"_s, u"ME2"_s}, {u"cmbKlasse"_s, u"3b"_s}},
         u"klassen-zuweisung"_s},
        {u"mnuListentextMensa"_s,
         {{u"cmbKlasse"_s, u"A"_s}, {u"cmbME_LZ"_s, u"Mensa Mitte"_s}},
         u"listentext-mensa"_s},
        {u"mnuListentextArbeitsgruppe"_s, {{u"cmbText"_s, u"Frühsport"_s}}, u"listentext-arbeitsgruppe"_s},
        {u"mnuEinstellungen"_s, {{u"txtDatenbankpfad"_s, u"/home/buero/Kolibri"_s}}, u"einstellungen"_s},
        {u"mnuInfoDatenImport"_s, {}, u"excel-hinweis"_s},
    };
}

/// The Monday lunch of one pupil, and the windows of pupils beside it.
Stations pupils() {
    const QString correction = u"mnuSchülerIn_Korrektur"_s;
    const Filling row{u"lvwStammdaten"_s, kPupil};
    // The form opens with the page on which it was left.
    const Filling week{u"SSTab1"_s, u"Woche"_s};
    return {
        {u"mnuSchülerIn_Neu"_s, {week}, u"schueler-neu"_s},
        {correction, {row, {u"cmbGR1(0)"_s, kOffering}}, u"schueler-woche"_s, {}, Leaving::Confirmed},
        {correction, {row, {u"cmbGR2(0)"_s, u"12:30 - 13:15 LZ1"_s}}, u"schueler-konflikt"_s},
        {correction, {row, {u"SSTab1"_s, u"Kontakte"_s}}, u"schueler-kontakte"_s},
        {correction, {row, {u"SSTab1"_s, u"Beiträge"_s}}, u"schueler-beitraege"_s},
        {correction,
         {{u"lvwStammdaten"_s, u"Berger"_s}, {u"SSTab1"_s, u"Anmerkung"_s}},
         u"schueler-anmerkung"_s},
        {correction, {row, {u"Y_GR1(3)"_s}}, u"notiz"_s},
        {u"mnuSchülerIn_Löschen"_s, {row, week}, u"schueler-loeschen"_s},
        {u"mnuSchülerInAktivieren"_s, {{u"lvwStammdaten"_s, QString()}, week}, u"schueler-aktivieren"_s},
        {u"mnuSchulanänger_Korrektur"_s, {{u"lvwStammdaten"_s, QString()}, week}, u"schulanfaenger"_s},
        {u"mnuWP_Notizen_Neu"_s,
         {row, {u"cmbUE"_s, u"14:00 - 14:45"_s}, {u"cmbTag"_s, u"DI"_s}, {u"txtNotiz"_s, u"Logopädie"_s}},
         u"tagesplan-notiz"_s},
        {u"mnuMensaKorrektur"_s,
         {{u"lvwME_LZ_AG"_s, u"ME4"_s}, {u"txtME_LZ_AG(4)"_s, u"13:15"_s}},
         u"mensa-korrektur"_s,
         {},
         Leaving::Confirmed},
        // The corrected time has come to the pupil's cell, or the box would not find it.
        {correction, {row, {u"cmbGR1(0)"_s, kCorrected}, {u"imgPrinter"_s}}, {}, u"liste-stammdatenblatt"_s},
    };
}

Stations careLists() {
    return {
        {u"mnuListeMensaKlasse"_s,
         {{u"cmbKlasse"_s, u"3b"_s},
          {u"cmbME_LZ"_s, u"Mensa Mitte"_s},
          {u"txtVon"_s, u"14.09.2026"_s},
          {u"txtBis"_s, u"18.09.2026"_s},
          {u"rtfVorher"_s, u"Bitte bis 12:25 Uhr im Speiseraum sein."_s}},
         u"auswahl-mensa"_s,
         u"liste-mensa-klasse"_s},
        {u"mnuListeMensaKlassenGruppiert"_s,
         {{u"cmbKlasse"_s, u"b"_s}, {u"cmbME_LZ"_s, u"Mensa Mitte"_s}},
         {},
         u"liste-mensa-gruppiert"_s},
        {u"mnuListeMensaEinheit"_s,
         {{u"lstME_LZ"_s, kEveryEntry}},
         u"auswahl-mensa-einheit"_s,
         u"liste-mensa-einheit"_s},
        {u"mnuListeMensaNachKlasse"_s,
         {{u"lstKlassen"_s, u"3"_s}},
         u"auswahl-mensa-je-schueler"_s,
         u"liste-mensa-je-schueler"_s},
        {u"mnuMensaIndividuell"_s,
         {{u"lstKlassen"_s, u"3"_s}, {u"cmbMensa"_s, u"Mensa Mitte"_s}},
         u"auswahl-mensa-individuell"_s,
         u"liste-mensa-tag"_s},
        {u"mnuMensaIndividuell"_s,
         {{u"optTag(5)"_s}, {u"lstKlassen"_s, u"3"_s}, {u"cmbMensa"_s, u"Mensa Mitte"_s}},
         {},
         u"liste-mensa-woche"_s},
        {u"mnuListeLernzeitKlasse"_s,
         {{u"cmbKlasse"_s, u"3b"_s}, {u"cmbME_LZ"_s, u"Lernzeit am Nachmittag"_s}},
         u"auswahl-lernzeit"_s,
         u"liste-lernzeit-klasse"_s},
        {u"mnuListeLernzeit_Lernzeiten"_s,
         {{u"lstME_LZ"_s, u"Lernzeit am Nachmittag"_s}},
         {},
         u"liste-lernzeit-einheit"_s},
        {u"mnuListeArbeitsgruppen"_s,
         {{u"cmbAG"_s, u"Schach für Anfänger"_s}},
         u"auswahl-arbeitsgruppe"_s,
         u"liste-arbeitsgruppe"_s},
        {u"mnuTagesplan"_s,
         {{u"cmbKlasse"_s, u"B"_s}, {u"cmbTag"_s, u"MO"_s}},
         u"auswahl-tagesplan"_s,
         u"liste-tagesplan"_s},
    };
}

Stations pupilLists() {
    return {
        {u"mnuListeSchülerErweiterteListe"_s,
         {{u"chkKlasse"_s},
          {u"chkGebDatum"_s},
          {u"chkKontakteNeu"_s},
          {u"cmbKontakte(0)"_s, u"Telefon"_s},
          {u"optFormat(2)"_s}},
         u"auswahl-erweiterte-liste"_s,
         u"liste-erweitert"_s},
        listAtOnce(u"mnuListeNeueSchüler"_s, u"liste-neue-schueler"_s),
        listAtOnce(u"mnuListeNicht_OG_Schüler"_s, u"liste-nicht-og"_s),
        {u"mnuSchulanfänger_Liste"_s, {{u"chkGebDatum"_s}}, {}, u"liste-schulanfaenger"_s},
        {u"mnuListen_ME_LZ_AG"_s, {}, u"auswahl-notizen"_s, u"liste-notizen"_s},
        {u"mnuNotizenTP"_s, {}, {}, u"liste-notizen-tagesplan"_s},
        listAtOnce(u"mnuListeUnterrichtszeiten"_s, u"liste-unterrichtszeiten"_s),
        listAtOnce(u"mnuZeitüberschneidungen"_s, u"liste-zeitueberschneidungen"_s),
        listAtOnce(u"mnuListeBausteine"_s, u"liste-bausteine"_s),
    };
}

Stations reports() {
    return {
        listAtOnce(u"mnuBerichtMensaGesamt"_s, u"liste-bericht-mensa"_s),
        listAtOnce(u"mnuBerichtMensaAnzahlJeKlasse"_s, u"liste-bericht-mensa-klassen"_s),
        listAtOnce(u"mnuBelegungME"_s, u"liste-belegung-mensa"_s),
        listAtOnce(u"mnuBerichtLernzeitGesamt"_s, u"liste-bericht-lernzeit"_s),
        listAtOnce(u"mnuBerichtLernzeitNachKlassen"_s, u"liste-bericht-lernzeit-klassen"_s),
        listAtOnce(u"mnuBelegungLZ"_s, u"liste-belegung-lernzeit"_s),
        listAtOnce(u"mnuBerichtArbeitsgruppenGesamt"_s, u"liste-bericht-arbeitsgruppen"_s),
    };
}

} // namespace

const std::vector<Station>& stations() {
    static const Stations table = [] {
        Stations all;
        for (const auto& part : {calendar(), pupils(), careLists(), pupilLists(), reports()})
            all.insert(all.end(), part.begin(), part.end());
        return all;
    }();
    return table;
}

} // namespace kolibri
