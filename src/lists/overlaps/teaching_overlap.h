#pragma once

#include <QtGlobal>

#include <vector>

namespace kolibri {

/// Teaching times of a class on one day, in minutes since midnight; 0 for one that is not set.
struct TeachingMinutes {
    qint16 U_Beginn = 0;
    qint16 U_Ende = 0;
    qint16 U_BeginnNM = 0;
    qint16 U_EndeNM = 0;

    bool operator==(const TeachingMinutes&) const = default;
};

/// The blocks in which the report of overlaps compares an assignment with the class's teaching, counted from
/// 1. They are not the rules of the pupil form, and the two are meant to differ: the office reads the report
/// as a second opinion.
inline constexpr int kTeachingBlocks = 10;

/// The blocks that find an assignment from one minute to another in conflict with the teaching.
std::vector<int> conflictingBlocks(const TeachingMinutes& teaching, qint16 von, qint16 bis);

/// True if any block does.
bool overlapsTeaching(const TeachingMinutes& teaching, qint16 von, qint16 bis);

} // namespace kolibri
