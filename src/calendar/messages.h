#pragma once

namespace kolibri {

/// Says that a correction or deletion needs a row of the list first.
void meldungKeineZeile();

} // namespace kolibri
