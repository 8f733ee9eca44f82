#pragma once

namespace kolibri {

class PageWriter;

/// Gathers the sheet of the pupil BlattSchuelerID: what the office knows, the contact persons of whom
/// anything is known, and the week. An unknown pupil gives an empty sheet. Opens and closes the store.
void StammdatenBlatt_Sammeln();
/// Writes the body of the sheet.
void StammdatenBlatt_Schreiben(PageWriter& page);

} // namespace kolibri
