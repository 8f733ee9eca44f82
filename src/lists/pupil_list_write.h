#pragma once

namespace kolibri {

class PageWriter;

/// Writes the body of the pupil lists and of the class times.
void Schuelerliste_Schreiben(PageWriter& page);

} // namespace kolibri
