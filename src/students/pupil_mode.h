#pragma once

#include "students/student_cache.h"
#include "students/validation.h"

#include <QString>

namespace kolibri {

/// What the button of the pupil form does.
enum class SchuelerAktion { Keine, Neu, Korrektur, Loeschen, Aktivieren };

/// A mode of the pupil form, as the menu set it.
struct SchuelerModus {
    SchuelerAktion aktion = SchuelerAktion::Keine;
    SchuelerArt art = SchuelerArt::Schueler;
    /// The pupils in the list.
    SchuelerMenge menge = SchuelerMenge::Aktive;
    /// The lamps are shown.
    bool ampel = false;

    bool istSchulanfaenger() const { return art == SchuelerArt::Schulanfaenger; }
    bool istNeu() const { return aktion == SchuelerAktion::Neu; }
    /// Deleting a pupil looks at nothing: whatever the record holds, it can go. That of a school starter
    /// does.
    bool prueftEingaben() const {
        return aktion != SchuelerAktion::Loeschen || art == SchuelerArt::Schulanfaenger;
    }
    /// The overlap check runs before the record is written, as far as the office switched it on.
    bool prueftZeiten() const { return prueftEingaben() && aktion != SchuelerAktion::Aktivieren; }
    /// The group boxes have entries: nothing of the week is needed to delete or activate a pupil.
    bool mitGruppen() const { return istSchulanfaenger() || istNeu() || aktion == SchuelerAktion::Korrektur; }
};

/// The mode that the flags of the shared state name.
SchuelerModus AktuellerSchuelerModus();
/// Caption of the button: "NEU", "KORREKTUR", "LÖSCHEN" or "AKTIVIEREN".
QString OkBeschriftung(SchuelerAktion aktion);

} // namespace kolibri
