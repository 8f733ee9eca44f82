#pragma once

#include <QString>

namespace kolibri {

/// Grade and letter of a class as the table Klassen holds them: "3a" has "3" and "a", "10a" has "10" and "a";
/// both are empty for a name of any other length.
struct ClassParts {
    QString Schulstufe;
    QString KlassenNR;
};
ClassParts splitClass(const QString& klasse);

/// Makes a class: one row of Klassen for each school day, with the teaching times unset. Any text that is not
/// empty becomes a class, unless it is one already. Says in a box what came of it, clears the name and loads
/// the shared lists of classes anew. The database is open.
void Klasse_Neu(QString& klasse);

/// Deletes a class, after a question. Refused while its first pupil is an active one; a class whose first
/// pupil is deactivated goes, and its pupils keep the name, as do timetable and list texts. Clears the name
/// when the class is gone or never was there. The database is open.
/// @returns true when the lists of classes have changed
bool Klasse_Löschen(QString& klasse);

} // namespace kolibri
