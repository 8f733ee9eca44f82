#pragma once

#include "calendar/offerings.h"

namespace kolibri {

// Pupils, notes, list texts and capacities hold an offering by the text of its key, so a correction or
// deletion walks through every copy of it. The database is open; each walk is one transaction, and one that
// fails leaves everything as it was. A text with an apostrophe is refused.

/// The row that the office clicked in the list: its key, and its time, day and Zeit_K_Name as they stood
/// then.
struct ClickedOffering {
    int id = 0;
    QString Zeit_alt;
    QString Tag_alt;
    QString Zeit_K_Name_alt;
};

/// Most pupils that a walk takes along at one time.
inline constexpr int kMostPupilsOfACascade = 999;

/// Moves a Mensa or Lernzeit to other times or another teaching unit. Every note of a pupil who holds it, on
/// any offering and day, takes the new time; so do all list texts and capacity rows of the short name, of
/// both kinds and all days.
/// @throws RuntimeError 9 when more than kMostPupilsOfACascade pupils hold it
void ME_LZ_Daten_KORREKTUR(OfferingKind kind, const Offering& neu, const ClickedOffering& alt);
inline void ME_Daten_KORREKTUR(const Offering& neu, const ClickedOffering& alt) {
    ME_LZ_Daten_KORREKTUR(OfferingKind::Mensa, neu, alt);
}
inline void LZ_Daten_KORREKTUR(const Offering& neu, const ClickedOffering& alt) {
    ME_LZ_Daten_KORREKTUR(OfferingKind::Lernzeit, neu, alt);
}

/// Changes a working group in all five slots, found by the key of its row in the first. With another time or
/// day each pupil's cell moves within its slot and overwrites what stands in the new one. The texts of all
/// days of the long name take the new values, the notes only those of GR1 to GR3.
/// @throws RuntimeError 9 when more than kMostPupilsOfACascade pupils hold it in one slot
void AG_Daten_KORREKTUR(const Offering& neu, const ClickedOffering& alt);

/// Deletes a Mensa or Lernzeit of one day and empties the cells of its pupils. List texts, capacity and notes
/// of its key go for all days, also where the offering remains on another one.
void ME_LZ_Daten_LÖSCHEN(OfferingKind kind, const Offering& offering, const ClickedOffering& alt);
inline void ME_Daten_LÖSCHEN(const Offering& offering, const ClickedOffering& alt) {
    ME_LZ_Daten_LÖSCHEN(OfferingKind::Mensa, offering, alt);
}
inline void LZ_Daten_LÖSCHEN(const Offering& offering, const ClickedOffering& alt) {
    ME_LZ_Daten_LÖSCHEN(OfferingKind::Lernzeit, offering, alt);
}

/// Deletes one day of a working group from all five slots, with its text and notes; the rows behind the first
/// slot are found by long name, day and time.
/// @throws RuntimeError 9 when more than kMostPupilsOfACascade pupils hold it in one slot
void AG_Daten_LÖSCHEN(const Offering& offering, const ClickedOffering& alt);

/// The correction or deletion of a mode other than a new offering.
void ME_LZ_AG_Daten_ÄNDERN(const OfferingMode& mode, const Offering& offering, const ClickedOffering& alt);

} // namespace kolibri
