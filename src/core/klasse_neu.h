#pragma once

#include <QString>

namespace kolibri {

/// Grade and letter of a class, as the table Klassen keeps them.
struct KlassenTeile {
    QString Schulstufe;
    QString KlassenNR;
};

/// "3a" is grade "3" and letter "a", "10a" is "10" and "a"; a name of any other length has neither.
KlassenTeile KlasseTeilen(const QString& klasse);

/// What became of the wish for a class.
enum class KlasseErgebnis {
    Leer,      ///< no name was given
    Vorhanden, ///< the class is there already; nothing was written
    Erstellt   ///< its five rows were written
};

/// Writes the five weekday rows of a class into the open database unless the class is there already. Shows
/// nothing, so that it can run inside a transaction without holding up the other workstations.
/// @throws StoreError, also for an apostrophe in the name
KlasseErgebnis KlasseAnlegen(const QString& klasse);
/// Tells the user what became of it and reads the shared lists of classes anew.
void KlasseMelden(KlasseErgebnis ergebnis, const QString& klasse);

/// A new class with its five weekday rows: writes it, tells the user, and clears the name. The database is
/// open.
void Klasse_Neu(QString& klasse);

} // namespace kolibri
