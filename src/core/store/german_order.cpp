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

const QCollator& collator() {
    static const QCollator instance = makeCollator();
    return instance;
}

/// Rank of every printable ASCII character in the collator's order, 0 for all other bytes. Class names, keys
/// and most names of the school are ASCII, and comparing ranks is many times quicker than asking the
/// collator.
const std::array<unsigned char, 256>& ranks() {
    static const auto table = [] {
        std::array<int, kLastPrintable - kFirstPrintable + 1> letters{};
        std::iota(letters.begin(), letters.end(), kFirstPrintable);
        const auto order = [](int a, int b) {
            return collator().compare(QString(QChar(a)), QString(QChar(b)));
        };
        std::stable_sort(letters.begin(), letters.end(), [&](int a, int b) { return order(a, b) < 0; });
        std::array<unsigned char, 256> result{};
        unsigned char rank = 1;
        for (std::size_t i = 0; i < letters.size(); ++i) {
            if (i > 0 && order(letters[i - 1], letters[i]) != 0)
                ++rank;
            result[static_cast<std::size_t>(letters[i])] = rank;
        }
        return result;
    }();
    return table;
}

int sign(qsizetype difference) {
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

int collatedOrder(QByteArrayView left, QByteArrayView right) {
    const QString a = QString::fromUtf8(left);
    const QString b = QString::fromUtf8(right);
    const int order = collator().compare(a, b);
    return order != 0 ? order : a.toLower().compare(b.toLower());
}

} // namespace

int germanOrder(QByteArrayView left, QByteArrayView right) {
    const auto& rank = ranks();
    const qsizetype common = std::min(left.size(), right.size());
    int order = 0;
    for (qsizetype i = 0; i < common; ++i) {
        const auto a = rank[static_cast<unsigned char>(left[i])];
        const auto b = rank[static_cast<unsigned char>(right[i])];
        if (a == 0 || b == 0)
            return collatedOrder(left, right);
        if (order == 0)
            order = sign(a - b);
    }
    const auto plain = [&](QByteArrayView rest) {
        return std::all_of(rest.begin(), rest.end(),
                           [&](char c) { return rank[static_cast<unsigned char>(c)] != 0; });
    };
    if (!plain(left.sliced(common)) || !plain(right.sliced(common)))
        return collatedOrder(left, right);
    return order != 0 ? order : sign(left.size() - right.size());
}

} // namespace kolibri
