#pragma once

#include <QString>

namespace kolibri {

class Connection;

/// The grade that the user typed: the number at the beginning of the text, rounded to a whole one. 0 for a
/// text without one.
/// @throws RuntimeError 6 below 0 and above 255
int HoechsteSchulstufeAusText(const QString& text);

/// Moves every pupil up one grade in the open database; those of the highest grade leave, with their notes on
/// assignments. Deactivated pupils move like all others. Nothing remembers that it has been done: a second
/// run moves everybody again.
/// @returns false when the data could not be changed to the end; what was done until then stays
/// @throws StoreError when the notes of the leaving pupils cannot be deleted
bool changeSchoolYear(Connection& conn, int hoechsteSchulstufe);

/// The menu entry: asks for the highest grade, asks again, makes a safety copy and changes the school year.
void WechselSchuljahr();

} // namespace kolibri
