#pragma once

class QString;

namespace kolibri {

/// Asks whether a report counts the school starters, and keeps the answer in MitSchulanfaengern: yes unless
/// the user says no.
void askForSchoolStarters();

/// Says what the occupancy plan shows, and tells the user where to enter the places when none were entered
/// yet. `kind` is "ME" or "LZ". True when the plan can be made.
bool occupancyCanBeShown(const QString& kind);

} // namespace kolibri
