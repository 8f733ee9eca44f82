#pragma once

#include "calendar/offerings.h"

namespace kolibri {

// One offering of a day is given to all pupils of a class at once. The database is open.

/// The classes that have a pupil, active or not, school starters among them.
QStringList KlassenMitSchülern();
/// The days that the form offers; Saturday stands among them although no pupil has a cell for it.
const QStringList& zuweisungTage();
/// The offerings of a kind on a day, as pupils hold them: "13:00 - 13:45 ME1".
QStringList ME_LZ_AG_ZeitenEintragen(OfferingKind kind, const QString& tag);

/// Writes the offering, or nothing for an empty text, into the cell of every pupil of the class, active or
/// not, whatever stands there; a working group into its first slot. Pupils without all-day care get no Mensa
/// and no Lernzeit. False when the store refuses it, which the office is not told.
bool Klasse_ME_LZ_AG_Zuordnen(OfferingKind kind, const QString& klasse, const QString& tag,
                              const QString& einheit);

} // namespace kolibri
