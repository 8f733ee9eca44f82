#include "students/overlap_check.h"

#include "core/runtime_error.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace kolibri {
namespace {

qint16 minutes16(int minutes, const QString& text) {
    using Limits = std::numeric_limits<qint16>;
    if (minutes < Limits::min() || minutes > Limits::max())
        throw RuntimeError::overflow(u"Uhrzeit: %1"_s.arg(text));
    return static_cast<qint16>(minutes);
}

/// Minutes of a teaching time; a time that is not set counts as midnight.
qint16 teachingTime(const QString& text) {
    return text.isEmpty() ? qint16{0} : minutes16(ZeitVonMinuten(text), text);
}

/// True if an assignment is under way at that minute; one that begins or ends then is not.
bool anyUnderWayAt(const GruppenZeiten& zeiten, qint16 minute) {
    for (std::size_t n = 0; n < kGruppen; ++n)
        if (!zeiten.GR_Leer[n] && zeiten.GR_Von[n] < minute && minute < zeiten.GR_Bis[n])
            return true;
    return false;
}

bool anyWithin(const GruppenZeiten& zeiten, qint16 from, qint16 to) {
    for (std::size_t n = 0; n < kGruppen; ++n)
        if (!zeiten.GR_Leer[n] && from < zeiten.GR_Bis[n] && to > zeiten.GR_Von[n])
            return true;
    return false;
}

bool hasConflict(const PruefTag& tag) {
    GruppenZeiten zeiten;
    for (int n = 0; n < kGruppen; ++n)
        GR_Von_Bis_Zeiten_ermitteln(n, tag.GR[static_cast<std::size_t>(n)], zeiten);
    bool ZeitKonflikt = Zeitüberschneidungen_Überprüfen(zeiten);
    // The boxes of the morning decide about the afternoon too: a class that is taught in the afternoon only
    // is the office's own affair.
    if (!tag.U_Beginn.isEmpty())
        ZeitKonflikt |= ZeitüberschneidungMitUnterrichtsbeginnÜberprüfen(zeiten, tag);
    if (!tag.U_Ende.isEmpty())
        ZeitKonflikt |= ZeitüberschneidungMitUnterrichtsendeÜberprüfen(zeiten, tag);
    if (!tag.U_Beginn.isEmpty())
        ZeitKonflikt |= ZeitüberschneidungMitUnterrichtsbeginnNMÜberprüfen(zeiten, tag);
    if (!tag.U_Ende.isEmpty())
        ZeitKonflikt |= ZeitüberschneidungMitUnterrichtsendeNMÜberprüfen(zeiten, tag);
    return ZeitKonflikt;
}

} // namespace

void GR_Von_Bis_Zeiten_ermitteln(int gruppe, const QString& text, GruppenZeiten& zeiten) {
    const auto n = static_cast<std::size_t>(gruppe);
    zeiten.GR_Leer[n] = text.isEmpty();
    if (zeiten.GR_Leer[n])
        return;
    zeiten.GR_Von[n] = minutes16(ZeitVonMinuten(text), text);
    zeiten.GR_Bis[n] = minutes16(ZeitBisMinuten(text), text);
}

bool Zeitüberschneidungen_Überprüfen(const GruppenZeiten& zeiten) {
    for (std::size_t a = 0; a < kGruppen; ++a)
        for (std::size_t b = a + 1; b < kGruppen; ++b)
            if (!zeiten.GR_Leer[a] && !zeiten.GR_Leer[b] && zeiten.GR_Von[b] < zeiten.GR_Bis[a]
                && zeiten.GR_Bis[b] > zeiten.GR_Von[a])
                return true;
    return false;
}

bool ZeitüberschneidungMitUnterrichtsbeginnÜberprüfen(const GruppenZeiten& zeiten, const PruefTag& tag) {
    return anyUnderWayAt(zeiten, teachingTime(tag.U_Beginn));
}

bool ZeitüberschneidungMitUnterrichtsendeÜberprüfen(const GruppenZeiten& zeiten, const PruefTag& tag) {
    return anyWithin(zeiten, teachingTime(tag.U_Beginn), teachingTime(tag.U_Ende));
}

bool ZeitüberschneidungMitUnterrichtsbeginnNMÜberprüfen(const GruppenZeiten& zeiten, const PruefTag& tag) {
    return anyUnderWayAt(zeiten, teachingTime(tag.U_BeginnNM));
}

bool ZeitüberschneidungMitUnterrichtsendeNMÜberprüfen(const GruppenZeiten& zeiten, const PruefTag& tag) {
    return anyWithin(zeiten, teachingTime(tag.U_BeginnNM), teachingTime(tag.U_EndeNM));
}

PruefErgebnis Check_ZeitÜberschneidungen_Vor_Datenübernahme(const PruefWoche& woche) {
    PruefErgebnis ergebnis;
    for (std::size_t d = 0; d < kSchoolDays; ++d) {
        // Read and compared even if waived: a box text without times is an error on any day.
        const bool conflict = hasConflict(woche[d]);
        ergebnis.Lampen[d] = woche[d].Ü_Nein ? Ampel::Neutral : conflict ? Ampel::Rot : Ampel::Gruen;
        ergebnis.ZeitKonflikt |= ergebnis.Lampen[d] == Ampel::Rot;
    }
    return ergebnis;
}

} // namespace kolibri
