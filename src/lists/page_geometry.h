#pragma once

#include "core/doors.h"

#include <optional>

namespace kolibri {

/// Rounds to a whole number as the page's measures always were: a half goes to the even neighbour.
/// @throws RuntimeError 6 when the result does not fit into 16 bits
int wholeNumber(double value);

/// Width of a page's tables in points: nine tenths of what the printer reaches on the sheet, so that the
/// screen shows what the sheet will hold. Tells the printer the format first, if one is chosen.
int computeTabellenBreite(std::optional<PaperOrientation> format);

} // namespace kolibri
