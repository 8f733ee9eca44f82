#include "students/validation.h"

#include "core/mdlAllgemein.h"
#include "core/mdlGlobal.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace kolibri {

EingabePruefung Eingaben_Überprüfen(const SchuelerFelder& felder, SchuelerArt art) {
    const bool starter = art == SchuelerArt::Schulanfaenger;
    EingabePruefung pruefung;
    std::vector<SchuelerFeld> required{kFeldName, kFeldVorname};
    if (!starter)
        required.push_back(kFeldKlasse);
    for (const SchuelerFeld feld : required) {
        // A box of blanks counts as filled.
        if (!felder[feld].isEmpty())
            continue;
        pruefung.EingabeUnvollstaendig = true;
        pruefung.fehler[feld] = true;
        if (!pruefung.fokus)
            pruefung.fokus = feld;
    }

    const QString datum = felder[kFeldGeburtsdatum].trimmed();
    pruefung.DatumGueltig = datum.isEmpty() || DatumPruefen(datum, u"dd.mm.yyyy"_s, true);
    pruefung.fehler[kFeldGeburtsdatum] = !pruefung.DatumGueltig;

    const QString& klasse = felder[kFeldKlasse];
    pruefung.KlasseOK = starter ? KlasseSchulanfaengerGueltig(klasse) : KlasseGueltig(klasse);
    pruefung.fehler[kFeldKlasse] |= !pruefung.KlasseOK;
    return pruefung;
}

QString EingabeMeldung(const EingabePruefung& pruefung, SchuelerArt art) {
    if (pruefung.EingabeUnvollstaendig)
        return u"Eingabe unvollständig!"_s;
    if (!pruefung.DatumGueltig)
        return u"Feld Geburtsdatum: das Format entspricht nicht der Form TT.MM.JJJJ!"_s;
    if (pruefung.KlasseOK)
        return {};
    return art == SchuelerArt::Schulanfaenger
               ? u"Bei Schulanfängern sind im Feld KLASSE folgende Eingaben erlautbt: Leer, 0, 0a bis 0z, a bis z !"_s
               : u"Feld Klasse: das Format entspricht nicht der Form 1a .... 99z!"_s;
}

NamensPruefung Namensgleichheit_Überprüfen(const QString& name, const QString& vorname) {
    const Recordset rs = Global().Conn.Open(
        u"SELECT aktiv FROM Stammdaten WHERE SCH_Name = ? AND SCH_Vorname = ?"_s, {name, vorname});
    // With several pupils of that name only the first decides.
    return rs.Eof() ? NamensPruefung{} : NamensPruefung{true, rs.Bool(u"aktiv")};
}

QString NamensMeldung(const NamensPruefung& pruefung) {
    if (!pruefung.NameVorhanden)
        return {};
    return pruefung.NameAktiv
               ? u"Schüler/Schülerin ist bereits vorhanden!"_s
               : u"Schüler/Schülerin ist in Datenbank vorhanden, wurde aber deaktiviert/gelöscht!"_s;
}

} // namespace kolibri
