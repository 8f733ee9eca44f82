#include "core/time_check.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kolibri {

bool ZeitGueltig(const QString& text) {
    constexpr int kLength = 5;
    return text.size() == kLength && ZeitAlsMinuten(text).has_value();
}

std::optional<int> ZeitAlsMinuten(const QString& text) {
    constexpr int kMinutesOfHour = 60;
    constexpr int kEndOfDay = 24 * kMinutesOfHour;
    // No \d and $ here: they would take digits of other scripts and a line break behind the time.
    static const QRegularExpression form(u"\\A([0-9]{1,2}):([0-9]{2})\\z"_s);
    const auto match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    const int minutes = match.captured(2).toInt();
    const int sinceMidnight = match.captured(1).toInt() * kMinutesOfHour + minutes;
    if (minutes >= kMinutesOfHour || sinceMidnight > kEndOfDay)
        return std::nullopt;
    return sinceMidnight;
}

} // namespace kolibri
