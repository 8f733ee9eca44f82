#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace kolibri {

/// A care module, a named package of care that a pupil can have booked. A pupil holds a copy of its text.
struct CareModule {
    qint64 ID = 0;
    QString Bausteine;
};

/// All modules in the order in which they were entered. The database is open, here as below.
std::vector<CareModule> Bausteine_DatenEinlesen();
/// The text of a module by its key; no value when it is no longer there.
std::optional<QString> Baustein_Text(int id);

/// Adds a module. A text that exists already is added once more. @returns its key
qint64 Bausteine_Daten_Neu(const QString& baustein);
/// Renames a module, and with it what all pupils hold who booked it, deactivated ones too. Pupils without a
/// module stay without one.
void Bausteine_Daten_Korrektur(int id, const QString& baustein, const QString& baustein_alt);
/// Deletes a module and empties the cell of all pupils who hold its text, also where another module bears the
/// same.
void Bausteine_Daten_Löschen(int id, const QString& baustein_alt);

} // namespace kolibri
