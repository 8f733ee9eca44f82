#pragma once

#include "core/store/connection.h"
#include "support/driving.h"

#include <QString>

namespace kolibri::test {

/// Adds an offering to a table "GR1" to "GR7"; its key is the time and the short name. With a unit it stands
/// in the Tagesplan.
void addOffering(const QString& gr, const QString& langname, const QString& kurzname, const QString& tag,
                 const QString& zeit, const QString& einheit = {}, const FieldValues& values = {});
/// An Arbeitsgruppe stands in all five tables.
void addGroup(const QString& langname, const QString& kurzname, const QString& tag, const QString& zeit,
              const QString& einheit = {}, const FieldValues& values = {});
/// Adds a note of a pupil on an assignment.
void addAssignmentNote(qint64 pupil, const QString& gr, const QString& tag, const QString& langname,
                       const QString& zeit, const QString& kurzname, const QString& text);
/// Adds a note of a pupil for a unit of the Tagesplan.
void addDayPlanNote(qint64 pupil, const QString& einheit, const QString& tag, const QString& text);
/// Adds teaching units.
void addUnits(const QStringList& zeiten);
/// Adds the row of a class for a weekday; a null end is not set.
void addTeaching(const QString& klasse, const QString& tag, const QVariant& ende);

} // namespace kolibri::test
