#pragma once

namespace kolibri {

// Each of these opens and closes the store, and fills the list state with the rows of its pupils.

/// Active pupils of the all-day care, filtered and sorted by the options: the Namensliste and the Erweiterte
/// Liste.
void Namensliste_Sammeln();
/// Active school starters, sorted by the options.
void Schulanfaenger_Sammeln();
/// Pupils new in this school year, deactivated ones too.
void NeueSchueler_Sammeln();
/// Pupils who take no part in the all-day care, deactivated ones too.
void NichtOgSchueler_Sammeln();

} // namespace kolibri
