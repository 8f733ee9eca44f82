#pragma once

#include "students/fees.h"

#include <QString>

#include <array>

namespace kolibri {

/// A fee as the office set it up: whether it is in use, and what it is called.
struct BeitragEinstellung {
    bool aktiv = false;
    QString bezeichnung;

    bool operator==(const BeitragEinstellung&) const = default;
};
using BeitragEinstellungen = std::array<BeitragEinstellung, kBeitraege>;

/// The seven fees of the settings. The database is open, here as below.
BeitragEinstellungen BeitragEinstellungenLesen();

/// Switches the overlap check on or off: at once here, and for every other workstation from its next start
/// on.
void ZeitpruefungSchalten(bool an);

} // namespace kolibri
