#pragma once

namespace kolibri {

class PageWriter;

/// A row for each active pupil, school starters included, and each weekday on which the assignments overlap
/// each other or the class's teaching. What cannot be read is passed over, and the value before it stays: a
/// text without times has those of the cell read last for its group, a class without rows in Klassen the
/// teaching and the day of the class before. Opens and closes the store.
void Zeitueberschneidungen_Sammeln();

/// Writes the body of the page. @throws RuntimeError 9 when more than 999 rows were gathered
void Zeitueberschneidungen_Schreiben(PageWriter& page);

} // namespace kolibri
