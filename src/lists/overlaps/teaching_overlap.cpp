#include "lists/overlaps/teaching_overlap.h"

#include <array>

namespace kolibri {
namespace {

using Minute = qint16 TeachingMinutes::*;
using Compare = bool (*)(qint16, qint16);

bool below(qint16 a, qint16 b) {
    return a < b;
}
bool atMost(qint16 a, qint16 b) {
    return a <= b;
}
bool atLeast(qint16 a, qint16 b) {
    return a >= b;
}
bool above(qint16 a, qint16 b) {
    return a > b;
}

enum class Begin { Set, NotSet };

/// A block applies while the one teaching time is set, or is not, and the other is. It finds a conflict when
/// begin and end of the assignment stand so to the teaching.
struct TeachingBlock {
    Begin begin;
    Minute beginOf;
    Minute endOf;
    Compare von;
    Minute vonLimit;
    Compare bis;
    Minute bisLimit;
};

constexpr std::array<TeachingBlock, kTeachingBlocks> makeBlocks() {
    using T = TeachingMinutes;
    using enum Begin;
    constexpr Minute kBeginn = &T::U_Beginn;
    constexpr Minute kEnde = &T::U_Ende;
    constexpr Minute kBeginnNM = &T::U_BeginnNM;
    constexpr Minute kEndeNM = &T::U_EndeNM;
    return {{
        {Set, kBeginn, kEnde, atMost, kBeginn, above, kBeginn},
        {Set, kBeginn, kEnde, atMost, kBeginn, atLeast, kEnde},
        {Set, kBeginn, kEnde, atLeast, kBeginn, atMost, kEnde},
        {NotSet, kBeginn, kEnde, below, kEnde, atLeast, kEnde},
        {NotSet, kBeginn, kEnde, below, kEnde, atMost, kEnde},
        {Set, kBeginnNM, kEndeNM, atMost, kBeginnNM, above, kBeginnNM},
        {Set, kBeginnNM, kEndeNM, atMost, kBeginnNM, atLeast, kEndeNM},
        {Set, kBeginnNM, kEndeNM, atLeast, kBeginnNM, atMost, kEndeNM},
        // The begin of the morning, for an end in the afternoon: a class that comes only for the afternoon
        // has no morning at all, and the office wants its children listed who are here before that.
        {NotSet, kBeginn, kEndeNM, below, kEndeNM, atLeast, kEndeNM},
        {NotSet, kBeginnNM, kEndeNM, below, kEndeNM, atMost, kEndeNM},
    }};
}

constexpr std::array<TeachingBlock, kTeachingBlocks> kBlocks = makeBlocks();

bool finds(const TeachingBlock& block, const TeachingMinutes& teaching, qint16 von, qint16 bis) {
    const qint16 begin = teaching.*block.beginOf;
    const bool applies = (block.begin == Begin::Set ? begin > 0 : begin == 0) && teaching.*block.endOf > 0;
    return applies && block.von(von, teaching.*block.vonLimit) && block.bis(bis, teaching.*block.bisLimit);
}

} // namespace

std::vector<int> conflictingBlocks(const TeachingMinutes& teaching, qint16 von, qint16 bis) {
    std::vector<int> numbers;
    for (int number = 1; number <= kTeachingBlocks; ++number)
        if (finds(kBlocks[static_cast<std::size_t>(number - 1)], teaching, von, bis))
            numbers.push_back(number);
    return numbers;
}

bool overlapsTeaching(const TeachingMinutes& teaching, qint16 von, qint16 bis) {
    for (const auto& block : kBlocks)
        if (finds(block, teaching, von, bis))
            return true;
    return false;
}

} // namespace kolibri
