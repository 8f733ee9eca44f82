#pragma once

#include <QString>

#include <array>
#include <vector>

namespace kolibri {

/// The four teaching times of a day, "hh:mm". A time that is not set is empty: the office keeps "00:00" for
/// it, and nobody teaches at midnight.
struct UnterrichtTag {
    QString Zeit_Unterrichtsbeginn;
    QString Zeit_Unterrichtsende;
    QString Zeit_UnterrichtsbeginnNM;
    QString Zeit_UnterrichtsendeNM;

    bool operator==(const UnterrichtTag&) const = default;
};

/// The teaching times of a class by weekday, at most those of a week; none when there is no such class. The
/// database is open. @throws StoreError, also for an apostrophe in the class
std::vector<UnterrichtTag> UnterrichtszeitenLesen(const QString& klasse);

} // namespace kolibri
