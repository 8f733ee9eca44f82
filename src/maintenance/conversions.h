#pragma once

namespace kolibri {

class Connection;

/// Splits the notes of the older kind: those of a pupil's assignment stay, stale ones go, and those of an
/// empty cell become notes of the Tagesplan. What went where stands in three files of the base folder.
void convertNotes(Connection& conn);
/// Copies the one contact of the first version to contacts 1 and 2.
void convertContacts(Connection& conn);
/// Gives the pupils the cells of the two late slots of working groups.
void addSlotCells(Connection& conn);
/// Carries the two fees of the first version over, in whole euros, and adds the rows of labels.
void convertFees(Connection& conn);
/// Makes the categories of the contact fields, and the rows that use them.
void convertCategories(Connection& conn);

} // namespace kolibri
