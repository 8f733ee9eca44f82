#pragma once

namespace kolibri {

/// Says that a correction or deletion needs a row of the list first.
void meldungKeineZeile();
/// Says that this part of the program is still to come.
void meldungNochNichtDa();

} // namespace kolibri
