#pragma once

namespace kolibri {

class PageWriter;

/// The notes on assignments that the options let through, by the pupils' family names. Notes that are equal
/// in everything show once. Opens and closes the store.
/// @throws StoreError for a class with an apostrophe
void NotizenZuweisungen_Sammeln();
/// The same for the notes of the Tagesplan. The class is not asked: these notes belong to a unit of the whole
/// school, and the office looks for them there.
void NotizenTagesplan_Sammeln();
/// Writes the body of either list.
void Notizen_Schreiben(PageWriter& page);

} // namespace kolibri
