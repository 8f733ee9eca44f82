#pragma once

#include "core/mdlAllgemein.h"

#include <QStringList>

#include <array>
#include <vector>

namespace kolibri {

/// Lines that the timetable has room for.
inline constexpr int kTimetableLines = 10;

/// A class's timetable in one teaching unit: a text for each weekday.
struct TimetableLine {
    QString UE;
    std::array<QString, kSchoolDays> Tage;
};

/// What is missing for a timetable.
enum class TimetableError : quint8 { None = 0, NoEntry = 1, NoBegin = 2, NoEnd = 3 };

/// The teaching units that a timetable is made for.
struct TimetableUnits {
    /// Times of all units in their order; there may be more than kTimetableLines.
    QStringList zeiten;
    TimetableError fehler = TimetableError::None;
};

/// Finds the units. Nothing that is missing has ever been counted as an error here. The database is open,
/// here as below.
TimetableUnits UE_feststellen();
/// The stored lines of a class. Lines of a teaching unit that has changed its time since are among them.
std::vector<TimetableLine> Stundenplan_lesen(const QString& klasse);
/// Writes the lines of a class: a line of a unit that the class has no row for is added, any other changed.
void Stundenplan_schreiben(const QString& klasse, const std::vector<TimetableLine>& lines);
/// Says in a box what is missing for a class; nothing when nothing is.
void MeldungVorbereitung(TimetableError error, const QString& klasse);

} // namespace kolibri
