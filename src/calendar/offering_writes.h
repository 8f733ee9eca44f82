#pragma once

#include "calendar/offerings.h"

namespace kolibri {

/// Adds a row of the offering for each chosen weekday, the database being open. A value that its column does
/// not take is left out and the row is written without it.
/// @returns the key of the first row, 0 without a weekday
qint64 ME_LZ_Daten_NEU(OfferingKind kind, const Offering& offering);
inline qint64 ME_Daten_NEU(const Offering& offering) {
    return ME_LZ_Daten_NEU(OfferingKind::Mensa, offering);
}
inline qint64 LZ_Daten_NEU(const Offering& offering) {
    return ME_LZ_Daten_NEU(OfferingKind::Lernzeit, offering);
}

/// Adds a working group to all five slots. GR3 gives each row its key; it is read back by long name and
/// weekday and written into the other four, so a second time of a group on one day gets the key of the first
/// there. Where a table numbers its rows by itself and that key is taken, it gives the row its own.
/// @returns the key of the first row in GR3, 0 without a weekday
qint64 AG_Daten_NEU(const Offering& offering);

/// Adds the capacity row of a new Mensa or Lernzeit, one for all its days, without looking for an existing
/// one.
void Tabelle_Parameter_Daten_NEU(OfferingKind kind, const Offering& offering);

/// Everything that a new offering writes, by its kind.
/// @returns the key of its first row in the list, 0 without a weekday
qint64 ME_LZ_AG_Daten_NEU(OfferingKind kind, const Offering& offering);

} // namespace kolibri
