#pragma once

#include <QtGlobal>

namespace kolibri {

/// The reports of Mensa and Lernzeit: asks whether school starters count, looks whether anybody is there on
/// Fridays, and shows the report.
void Bericht_Zeigen(quint8 listenArt);

/// The occupancy plan of Mensa or Lernzeit: says what it shows, and shows it if places were entered.
void Belegung_Zeigen(quint8 listenArt);

} // namespace kolibri
