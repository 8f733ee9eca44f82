#pragma once

namespace kolibri {

class ColumnBuilder;
class PageWriter;

/// Name, class and the teaching units; the units twice for two days on a sheet.
void buildDayPlanColumns(ColumnBuilder& builder);

/// A row for each pupil of a class letter, with what he does in each teaching unit of the day or of the pair
/// of days, and between the classes the rows that end a table and begin the next. Opens and closes the store.
/// @throws RuntimeError 9 for more than 999 rows, or more changes of class than 20 further rows have room for
void Tagesplan_Sammeln();
/// Writes the body of the page, with the store open: each table begins with the text of its class.
void Tagesplan_Schreiben(PageWriter& page);

} // namespace kolibri
