#pragma once

#include <QString>

#include <array>
#include <optional>

namespace kolibri {

/// Meetings on one sheet of an Arbeitsgruppe.
inline constexpr int kMeetings = 6;
/// Their dates, as the office types them.
using GroupDates = std::array<QString, kMeetings>;

/// Six dates a week apart, the first on the group's weekday in the week of a Monday; none for an empty text.
/// @throws RuntimeError 13 for a text that is no date
std::optional<GroupDates> datesFromMonday(const QString& montag, const QString& tag);
/// A date as it stands over its column, "14.09.26"; a text that is no date stays as it is.
QString dateHeading(const QString& datum);

/// The Monday of the first week, from the open store; empty when none was kept.
QString readFirstMonday();
void saveFirstMonday(const QString& montag);

/// The dates used last, for whichever group, from the open store.
GroupDates readLastDates();
/// The dates of one group; nothing when it has none yet.
std::optional<GroupDates> readDatesOf(const QString& langname);
/// Keeps the dates as the last used ones and, if one is chosen, as those of the group.
void saveDates(const GroupDates& dates, const QString& langname);

} // namespace kolibri
