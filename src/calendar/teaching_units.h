#pragma once

#include <QString>

#include <optional>
#include <vector>

namespace kolibri {

/// A period of the school day, a column of the Tagesplan. Zeit is "hh:mm - hh:mm" and the key by which the
/// offerings refer to it.
struct TeachingUnit {
    qint64 ID = 0;
    QString Zeit;
};

/// All units by their time. The database is open, here as below.
std::vector<TeachingUnit> Unterrichtseinheiten_DatenEinlesen();
/// The time of a unit by its key; no value when it is no longer there.
std::optional<QString> Unterrichtseinheit_Zeit(int id);

/// Adds a unit. A time that exists already is added once more. @returns its key
qint64 Unterrichtseinheiten_Daten_Neu(const QString& zeit);
/// Changes the time of a unit, and of the offerings that refer to the old one. Timetable and notes of the
/// Tagesplan keep the old time and no longer match. Offerings without a unit stay without one.
void Unterrichtseinheiten_Daten_Korrektur(int id, const QString& zeit, const QString& zeit_alt);
/// Deletes a unit; offerings that refer to it are left without one.
void Unterrichtseinheiten_Daten_Löschen(int id, const QString& zeit_alt);
/// Numbers the units by their time, from 1. Units with the same time all get the number of the last.
void Unterrichtseinheiten_Sortieren();

} // namespace kolibri
