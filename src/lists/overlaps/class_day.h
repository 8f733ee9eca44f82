#pragma once

#include "core/mdlAllgemein.h"
#include "lists/overlaps/teaching_overlap.h"

#include <QHash>
#include <QString>

#include <array>
#include <optional>

namespace kolibri {

inline constexpr int kClassTimes = 4;

/// What Klassen holds about a class on one day.
struct ClassDay {
    QString Tag;
    /// Begin and end of the morning's and the afternoon's teaching, "hh:mm"; "00:00" for one that is not set.
    std::array<QString, kClassTimes> Zeiten;
};
/// By Tag_Zahl; nothing for a day of which the class has no row.
using ClassWeek = std::array<std::optional<ClassDay>, kSchoolDays>;

/// The weeks of the classes, each read from the open store when the first of its pupils comes.
class ClassWeeks {
public:
    /// A class whose name the store refuses has no days.
    const ClassWeek& of(const QString& klasse);

private:
    QHash<QString, ClassWeek> m_weeks;
};

} // namespace kolibri
