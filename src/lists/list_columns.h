#pragma once

namespace kolibri {

/// Defines the columns of the list that ListenArt names; those of the pupil lists follow the options of
/// frmDialog, and then the store is read. A list without columns of its own gets none.
/// @throws RuntimeError 9 for more than 99 columns
void defineColumns();

/// Shares out the width of the table by the weights of the columns, in whole points, and puts their
/// alignment into words. Because the points for one unit of weight are whole, the columns together are not
/// exactly as wide as the table, which stretches or squeezes them.
/// @throws RuntimeError 11 when all weights are zero
void computeWidths();

} // namespace kolibri
