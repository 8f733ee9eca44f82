#include "core/store/german_order.h"

#include <QCollator>
#include <QString>

#include <algorithm>
#include <array>
#include <numeric>

namespace kolibri {
namespace {

constexpr int kFirstPrintable = 0x20;
constexpr int kLastPrintable = 0x7e;

QCollator makeCollator() {
    QCollator collator(QLocale(QLocale::German, QLocale::Germany));
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setIgnorePunctuation(false);
    return collator;
}

int collatorOrder(const QString& left, const QString& right) {
    static const QCollator collator = makeCollator();
    return collator.compare(left, right);
}

int sign(qsizetype difference) {
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

/// Some platforms pass over hyphens and apostrophes inside a word; such a character has no fixed place.
bool hasFixedPlace(const QString& letter) {
    const QString a(u'a');
    const int alone = collatorOrder(letter, a);
    return alone == 0 || sign(collatorOrder(letter + u'z', a)) == sign(alone);
}

/// Rank of every printable ASCII character in the collator's order, 0 for all other bytes. Nearly all of the
/// school's texts differ from each other first in such a character, and comparing ranks is many times quicker
/// than asking the collator.
std::array<unsigned char, 256> makeRanks() {
    std::array<int, kLastPrintable - kFirstPrintable + 1> letters{};
    std::iota(letters.begin(), letters.end(), kFirstPrintable);
    const auto order = [](int a, int b) { return collatorOrder(QString(QChar(a)), QString(QChar(b))); };
    std::stable_sort(letters.begin(), letters.end(), [&](int a, int b) { return order(a, b) < 0; });
    std::array<unsigned char, 256> ranks{};
    unsigned char rank = 1;
    for (std::size_t i = 0; i < letters.size(); ++i) {
        if (i > 0 && order(letters[i - 1], letters[i]) != 0)
            ++rank;
        if (hasFixedPlace(QString(QChar(letters[i]))))
            ranks[static_cast<std::size_t>(letters[i])] = rank;
    }
    return ranks;
}

int rankOf(char byte) {
    static const auto ranks = makeRanks();
    return ranks[static_cast<unsigned char>(byte)];
}

int collatedOrder(QByteArrayView left, QByteArrayView right) {
    const QString a = QString::fromUtf8(left);
    const QString b = QString::fromUtf8(right);
    const int order = collatorOrder(a, b);
    return order != 0 ? order : a.toLower().compare(b.toLower());
}

} // namespace

int germanOrder(QByteArrayView left, QByteArrayView right) {
    const qsizetype common = std::min(left.size(), right.size());
    qsizetype same = 0;
    while (same < common
           && (left[same] == right[same]
               || (rankOf(left[same]) != 0 && rankOf(left[same]) == rankOf(right[same]))))
        ++same;
    if (same == left.size() && same == right.size())
        return 0;
    // The end of a text comes before every character that has a place of its own.
    const bool leftPlain = same == left.size() || rankOf(left[same]) != 0;
    const bool rightPlain = same == right.size() || rankOf(right[same]) != 0;
    if (!leftPlain || !rightPlain)
        return collatedOrder(left, right);
    const int leftRank = same == left.size() ? 0 : rankOf(left[same]);
    const int rightRank = same == right.size() ? 0 : rankOf(right[same]);
    return sign(leftRank - rightRank);
}

} // namespace kolibri
