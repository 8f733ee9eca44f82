#pragma once

namespace kolibri {

/// A row for each class with its teaching times by weekday: the morning, and below it the afternoon where
/// one is set. A time that is not set reads 00:00. Opens and closes the store.
void Unterrichtszeiten_Sammeln();

} // namespace kolibri
