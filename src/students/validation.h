#pragma once

#include <QString>

#include <array>
#include <optional>

namespace kolibri {

/// The four boxes of the master data: surname, first name, date of birth, class.
enum SchuelerFeld { kFeldName, kFeldVorname, kFeldGeburtsdatum, kFeldKlasse };
inline constexpr int kSchuelerFelder = 4;
using SchuelerFelder = std::array<QString, kSchuelerFelder>;

/// Which rules a record must meet: a school starter has no class yet, or a provisional one.
enum class SchuelerArt { Schueler, Schulanfaenger };

/// What the check of the master data found.
struct EingabePruefung {
    bool EingabeUnvollstaendig = false;
    bool DatumGueltig = true;
    bool KlasseOK = true;
    /// The boxes in error; all others are white again.
    std::array<bool, kSchuelerFelder> fehler{};
    /// The first required box that is empty: it gets the focus.
    std::optional<SchuelerFeld> fokus;
};

/// Checks the master data before a record is written. A date of birth that is none is told in a box; the
/// other faults are told by EingabeMeldung.
EingabePruefung Eingaben_Überprüfen(const SchuelerFelder& felder, SchuelerArt art);
/// What the user is told about the first fault; empty when there is none.
QString EingabeMeldung(const EingabePruefung& pruefung, SchuelerArt art);

/// Whether a pupil of that name is known, of whatever grade, active or not. The date of birth plays no part.
struct NamensPruefung {
    bool NameVorhanden = false;
    bool NameAktiv = false;
};
/// Looks in the open database. @throws StoreError, also for an apostrophe in a name
NamensPruefung Namensgleichheit_Überprüfen(const QString& name, const QString& vorname);
/// What the user is told when the name is known; empty when it is not.
QString NamensMeldung(const NamensPruefung& pruefung);

} // namespace kolibri
