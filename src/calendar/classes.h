#pragma once

#include <QString>

namespace kolibri {

/// Deletes a class, after a question. Refused while its first pupil is an active one; a class whose first
/// pupil is deactivated goes, and its pupils keep the name, as do timetable and list texts. Clears the name
/// when the class is gone or never was there. The database is open.
/// @returns true when the lists of classes have changed
bool Klasse_Löschen(QString& klasse);

} // namespace kolibri
