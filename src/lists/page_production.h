#pragma once

class QString;

namespace kolibri {

/// The one page file of the program: every list is written to it and shown from it.
QString pageFile();

/// Writes the page of the list that ListenArt names, from the shared list state. Runs each time the page
/// window opens. The page is replaced as a whole: after an error the old one stands untouched.
/// @throws RuntimeError when there is no such list, a bound is reached or the file cannot be written
/// @throws StoreError when the settings or the list's data cannot be read
void producePage();

} // namespace kolibri
