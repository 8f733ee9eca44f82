#pragma once

#include "lists/dayplan/day_plan_cell.h"
#include "lists/pupil_notes.h"

#include <optional>

namespace kolibri {

/// One weekday of the Tagesplan: its offerings, ends of teaching and notes, read once from the open store,
/// and the pupil whose cells are being filled.
class DayPlanDay {
public:
    /// On a sheet with two days the notes on assignments stand in the place of offerings that are not taken;
    /// on a sheet with one day the notes of the Tagesplan stand below each cell.
    DayPlanDay(const QString& tag, bool zweiTage);

    const QString& tag() const { return m_tag; }

    /// Goes on to the next pupil. Where the class has no end of teaching, that of the pupil before stays.
    void setPupil(qint64 id, const QString& klasse, std::array<QString, kGroups>&& cells);
    /// The pupil's cell for a teaching unit.
    QString cell(const QString& unit) const;

private:
    QString endOfTeaching(const QString& klasse) const;
    void readOfferings();
    void readEndsOfTeaching();

    const QString m_tag;
    DayOfferings m_offerings;
    struct ClassEnd {
        QString klasse;
        QString ende;
    };
    std::vector<ClassEnd> m_ends;
    std::optional<AssignmentNotes> m_assignmentNotes;
    std::optional<DayPlanNotes> m_dayPlanNotes;

    qint64 m_pupil = 0;
    PlanDay m_day;
};

} // namespace kolibri
