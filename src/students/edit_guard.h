#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace kolibri {

/// So many seconds a workstation holds the pupil whose record it opened. It is not renewed while the form
/// stands open, so a workstation that crashed blocks nobody for long.
inline constexpr int kStempelSekunden = 300;

/// The moment of opening a record as the column ZeitStempel keeps it: "dd.mm.yyyy hh:mm:ss".
QString StempelText(const QDateTime& zeit);
/// True if a stamp still holds at that moment: made on the same day, less than 300 seconds before or after. A
/// stamp of another day never holds, not even that of a minute before midnight.
/// @throws RuntimeError 13 for a text that is no stamp
bool StempelGilt(const QString& stempel, const QDateTime& jetzt);

/// Writes the stamp of the pupil AktuelleSchuelerID into the open database; two empty texts free the record.
void ZeitStempelSchreiben(const QString& stempel, const QString& pc);
/// Frees the pupil AktuelleSchuelerID in the open database if this workstation holds it. A stamp of another
/// workstation stays.
void StempelFreigeben();

/// Opens a record for this workstation: frees the one held before, makes the new one AktuelleSchuelerID, and
/// stamps it unless a stamp of anyone, this workstation included, still holds. Of two workstations that open
/// the same free record in the same instant exactly one gets it. The database is open.
/// @returns the name of the workstation that holds the record; no value when it is ours, or does not exist
/// @throws RuntimeError 13 for a stamp that cannot be read
std::optional<QString> DatensatzBeanspruchen(qint16 id);

/// What the user is told about a record that another workstation holds.
QString BelegtMeldung(const QString& pc);

} // namespace kolibri
