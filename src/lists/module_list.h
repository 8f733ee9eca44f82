#pragma once

namespace kolibri {

class PageWriter;

/// A row for each care module with its ID and its name. Opens and closes the store.
void Bausteine_Sammeln();
/// Writes the body of the list of care modules.
void Bausteine_Schreiben(PageWriter& page);

} // namespace kolibri
