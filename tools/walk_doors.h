#pragma once

#include <functional>

namespace kolibri {

/// What the walk puts in the place of the user and of the day: it answers questions with No, it sees a page
/// as `page` does, and it is always the first school day of the sample school, so that the pictures of one
/// day are those of any other.
void openWalkDoors(const std::function<void()>& page);

/// Boxes that told of an error or warned since the start of the walk.
int boxesOfTrouble();

/// An invented address on the lists, whatever the settings of whoever starts the walk say.
void inventAddress();

} // namespace kolibri
