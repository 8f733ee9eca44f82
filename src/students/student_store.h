#pragma once

#include "students/pupil_record.h"

namespace kolibri {

// How a pupil comes into the store and out of it. The database is open; what is changed is the pupil
// AktuelleSchuelerID. Each writes everything or nothing.
//
// A correction is refused for an apostrophe in any text. A new row takes it; and there an empty text in a
// column of numbers leaves the column at its default.

/// A new pupil. Makes the pupil's class if the school does not have it yet, and then says so.
void SchuelerNeuSchreiben(const SchuelerDatensatz& datensatz);
/// Writes all fields of the pupil and frees the record for other workstations. Makes the class as above.
void SchuelerAendern(const SchuelerDatensatz& datensatz);
/// Takes the pupil out of the lists; the row stays, with its assignments.
void SchuelerDeaktivieren();
/// Deletes the notes on the pupil's assignments. The notes of the Tagesplan stay.
void SchuelerNotizenLoeschen();
/// Takes a deactivated pupil into the lists again. The deleted notes do not come back.
void SchuelerAktivieren();

/// A new school starter: grade 0, a class of one letter gets a "0" in front, and no class is made.
void SchulanfaengerNeuSchreiben(const SchuelerDatensatz& datensatz);
/// Writes all fields of the school starter. An empty class becomes "00", one of one letter gets a "0" in
/// front, also in the record passed in, because the form shows it so.
void SchulanfaengerAendern(SchuelerDatensatz& datensatz);
/// Deletes the school starter for good; notes stay behind.
void SchulanfaengerLoeschen();

} // namespace kolibri
