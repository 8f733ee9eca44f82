#pragma once

#include <QString>

#include <array>

namespace kolibri {

/// Contact persons of a pupil.
inline constexpr int kContactPersons = 3;

/// Column of Stammdaten with a contact field (0 "GV_Name" to 9 "Verwandt") of a person (1 to 3).
/// @throws RuntimeError 9 for a field that is none
QString contactColumn(int field, int person);

} // namespace kolibri
