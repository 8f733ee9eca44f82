#pragma once

#include <QHash>
#include <QString>
#include <QVariantList>

#include <vector>

namespace kolibri {

/// A note on an assignment of a pupil.
struct AssignmentNote {
    /// "GR1" to "GR7".
    QString gr;
    QString tag;
    QString langname;
    QString zeit;
    QString zeitKName;
    QString notiz;
};

/// Notes on assignments, read once for a page and looked up for each pupil.
class AssignmentNotes {
public:
    /// Reads the notes of a condition on SCH_Notiz from the open store.
    AssignmentNotes(const QString& condition, const QVariantList& values);

    /// The notes of a pupil, in the order in which the office wrote them.
    const std::vector<AssignmentNote>& of(qint64 pupil) const;
    /// The first note of a pupil that fits; null when there is none.
    template <typename Fits> const AssignmentNote* first(qint64 pupil, Fits fits) const {
        for (const auto& note : of(pupil))
            if (fits(note))
                return &note;
        return nullptr;
    }

private:
    QHash<qint64, std::vector<AssignmentNote>> m_notes;
};

/// Notes of the pupils for one weekday of the Tagesplan, by teaching unit.
class DayPlanNotes {
public:
    /// Reads them from the open store.
    explicit DayPlanNotes(const QString& tag);

    /// The first note of a pupil for the unit; empty when there is none.
    QString text(qint64 pupil, const QString& unit) const;

private:
    struct Note {
        QString unit;
        QString notiz;
    };
    QHash<qint64, std::vector<Note>> m_notes;
};

} // namespace kolibri
