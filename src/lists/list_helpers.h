#pragma once

#include "core/mdlGlobal.h"

#include <QString>

namespace kolibri {

/// A name as the lists shorten it: its first letter with a point, for two names both ("Anna Maria" becomes
/// "A. M.").
QString shortenedName(const QString& name);
/// Writes a pupil's name into a column of the current row, in the way that the office has chosen for this
/// kind of list. With a shortening that is none of the three the cell stays as it is.
void Name_Formatieren(const QString& vorname, const QString& nachname, int spalte, NameFormat format);

/// Names of classes or class letters in capitals, as some option forms offer them, each once.
QStringList namesInCapitals(const QStringList& names);

/// Ends a list because the settings lack something that it cannot do without: "die Zeile ..." .
/// @throws StoreError always
[[noreturn]] void settingMissing(const QString& what);

/// Number of pupils in the open database, active or not.
int pupilCount();

/// Sets FreitagBelegt: whether any pupil at all, active or not, holds something on Fridays in the Mensa or
/// the Lernzeit, whichever the list is about. For any other list the flag stays. Opens and closes the store.
void FreitagBelegt_Pruefen();
/// The same inside an open store; it leaves out the list of the Mensa by pupil.
void FreitagBelegt_Pruefen_Offen();

} // namespace kolibri
