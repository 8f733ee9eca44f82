#pragma once

#include <QString>
#include <QStringList>

namespace kolibri {

/// As many categories as the boxes beside the contact fields offer.
inline constexpr int kMostCategories = 21;

/// Names of all contact categories in the order of their table. The database is open, here as below.
QStringList Kategorien_DatenEinlesen();
/// Adds a category. False when its name is empty or taken, which the user has been told then.
bool Kategorie_Daten_NEU(const QString& name);
/// Renames a category. Contact fields of the old name keep it until the settings are saved again.
void Kategorie_Daten_KORREKTUR(const QString& alt, const QString& neu);
void Kategorie_Daten_LÖSCHEN(const QString& name);

} // namespace kolibri
