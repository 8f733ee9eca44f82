#pragma once

#include <QString>

#include <optional>

namespace kolibri {

/// The time check of every editor: exactly five characters "hh:mm" from 00:00 to 23:59, or 24:00, the end of
/// the day. The leading zero is required.
bool ZeitGueltig(const QString& text);

/// Minutes since midnight of a text that can be read as a time of day, leading zero or not ("8:05" is 485);
/// no value for any other text.
std::optional<int> ZeitAlsMinuten(const QString& text);

} // namespace kolibri
