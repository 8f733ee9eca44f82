#pragma once

#include "calendar/offerings.h"

#include <optional>
#include <vector>

namespace kolibri {

// The most places of each Mensa and Lernzeit, by the letters of the classes. They hang on the short name
// alone: two times of one short name, and a Mensa and a Lernzeit of one, share their places.

/// Class letters A to D.
inline constexpr int kCapacityLetters = 4;
/// The text boxes of an offering, A to D.
using Places = std::array<QString, kCapacityLetters>;

/// An offering of the plan, with what stands in its boxes.
struct CapacityLine {
    QString L_Name;
    QString Zeit;
    QString K_Name;
    QString Zeit_K_Name;
    Places Plätze;
    QString Gesamt;
};

/// The offerings of a kind by long name, each time of one once, with their places and the stored total. The
/// database is open.
std::vector<CapacityLine> Belegungsplan_lesen(OfferingKind kind);

/// Which boxes hold a text that is no number.
using PlacesFaults = std::array<bool, kCapacityLetters>;
PlacesFaults Plätze_prüfen(const Places& plätze);
/// What the boxes add up to, the empty ones as nothing; no value when one holds no number.
/// @throws RuntimeError 6 for a number or a sum beyond 16 bits
std::optional<int> Plätze_zählen(const Places& plätze);
/// The total that a stored one shows as: counted anew, and nothing where nothing is stored or the sum is
/// below
/// 1. @throws RuntimeError 6 as above
QString Gesamt_anzeigen(const QString& gespeichert, const Places& plätze);

/// Writes all lines, one after the other, so that the last of a short name counts; the database is open.
/// Either all are written or none.
/// @throws RuntimeError 6 when the next key of a row does not fit into a byte
void Belegungsplan_speichern(OfferingKind kind, const std::vector<CapacityLine>& lines);

} // namespace kolibri
