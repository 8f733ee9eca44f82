#pragma once

#include "calendar/offerings.h"

namespace kolibri {

/// What the check makes of a box.
enum class BoxMark { AsItWas, Passed, Faulty };

/// The result of checking the offering form: the mark of each box, the messages in the order in which they
/// are to be shown, and whether the entry must not be written.
struct OfferingCheck {
    std::array<BoxMark, kOfferingBoxes> marks{};
    QStringList meldungen;
    bool fehler = false;
};

/// Longest short name of an offering.
inline constexpr int kLongestKName = 5;

/// Checks what stands in the offering form. The end is not compared with the start. Opens the database itself
/// where it looks for existing rows.
OfferingCheck Eingaben_ME_LZ_AG_überprüfen(const OfferingMode& mode, const Offering& offering);

/// Chosen weekdays on which an offering with the same names and times exists already, each once, in the order
/// in which they are found. A text that is no time is taken as not set and so equals none. The database is
/// open.
QStringList vorhandeneTage(OfferingKind kind, const Offering& offering);

} // namespace kolibri
