#pragma once

namespace kolibri {

class PageWriter;

/// Offerings and classes that a report has room for.
inline constexpr int kReportOfferings = 9;
inline constexpr int kReportClasses = 20;

/// How many pupils each offering of Mensa or Lernzeit has on each weekday, with a line of sums. The database
/// is open, as for all of these. @throws RuntimeError 9 for more than nine offerings
void BerichtGesamt_Sammeln();
/// The same for each offering in a table of its own, class by class.
/// @throws RuntimeError 9 for more than nine offerings or twenty classes
void BerichtJeKlasse_Sammeln();
/// Every weekday of every Arbeitsgruppe with its pupils. @throws RuntimeError 9 for more than 999 rows
void BerichtArbeitsgruppen_Sammeln();
/// Writes the body of these reports.
void Bericht_Schreiben(PageWriter& page);

/// The places of each Mensa or Lernzeit by class letter, and then for each weekday the pupils who take them;
/// cells with more pupils than places are marked. Without any places it tells the office so, and the plan
/// stays empty.
/// @throws RuntimeError 9 for more than 999 rows, 13 for places that are no number
void Belegung_Sammeln();
/// Writes the body of the plan.
void Belegung_Schreiben(PageWriter& page);

} // namespace kolibri
