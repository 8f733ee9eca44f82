#pragma once

namespace kolibri {

/// Brings the database in DB_Pfad up to the current shape at the start of the program: the schema pass, and
/// the conversions of the data whose target is new in this start. A safety copy is made before the first
/// change. A conversion that fails leaves what it has done so far; a later start does not repeat it.
/// @throws StoreError, RuntimeError with the path of the safety copy in its words
void bringUpToDate();

/// The second step for the two late slots of working groups, at the end of the start: fills GR6 and GR7 from
/// GR3 when they are new.
void fillNewSlots();

} // namespace kolibri
