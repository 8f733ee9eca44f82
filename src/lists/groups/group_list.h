#pragma once

namespace kolibri {

class PageWriter;

/// Classes that can stay away from one meeting, and how many of them the sheet looks at.
inline constexpr int kMostAbsentClasses = 99;
inline constexpr int kAbsentClassesRead = 16;

/// The pupils of an Arbeitsgruppe, in whichever of the five slots of the day they hold it, with a cell for
/// each meeting: empty, to be filled in by hand, or crossed out for a class that does not take part. Opens
/// and closes the store.
/// @throws RuntimeError 9 for more than 999 rows, or more than 99 classes chosen for a date
void Arbeitsgruppe_Sammeln();
/// Writes the body of the page.
void Arbeitsgruppe_Schreiben(PageWriter& page);

} // namespace kolibri
