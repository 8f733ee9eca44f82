#pragma once

#include <QString>

namespace kolibri {

/// An amount in ten-thousandths, as the store keeps it.
qint64 toTenThousandths(double amount);
/// The amount with two decimals and a decimal comma: "12,50". Half a cent is rounded away from zero.
QString moneyText(qint64 tenThousandths);
/// The same with points between the thousands: "1.234,50".
QString moneySumText(qint64 tenThousandths);

} // namespace kolibri
