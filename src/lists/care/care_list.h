#pragma once

namespace kolibri {

class PageWriter;

/// Most columns of a Mensa or Lernzeit list: name and note of five weekdays.
inline constexpr int kCareColumns = 10;

/// A table for each offering asked for (one in the variants 1 and 3, the marked ones in variant 2), with the
/// pupils of each weekday below each other beside their notes and their number at the foot. Opens and closes
/// the store.
/// @throws RuntimeError 9 for more than 999 rows
void MensaLernzeit_Sammeln();
/// Writes the body of the page.
void MensaLernzeit_Schreiben(PageWriter& page);

} // namespace kolibri
