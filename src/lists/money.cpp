#include "lists/money.h"

#include <cmath>

namespace kolibri {
namespace {

constexpr qint64 kUnits = 10000;
constexpr qint64 kCents = 100;
constexpr qsizetype kDecimals = 3; // the comma and two digits
constexpr qsizetype kGroup = 3;

} // namespace

qint64 toTenThousandths(double amount) {
    return std::llround(amount * static_cast<double>(kUnits));
}

QString moneyText(qint64 tenThousandths) {
    const qint64 size = tenThousandths < 0 ? -tenThousandths : tenThousandths;
    const qint64 cents = (size + kUnits / kCents / 2) / (kUnits / kCents);
    QString text = QString::number(cents).rightJustified(kDecimals, u'0');
    text.insert(text.size() - 2, u',');
    return tenThousandths < 0 && cents != 0 ? u'-' + text : text;
}

QString moneySumText(qint64 tenThousandths) {
    QString text = moneyText(tenThousandths);
    const qsizetype first = text.startsWith(u'-') ? 1 : 0;
    for (qsizetype i = text.size() - kDecimals - kGroup; i > first; i -= kGroup)
        text.insert(i, u'.');
    return text;
}

} // namespace kolibri
