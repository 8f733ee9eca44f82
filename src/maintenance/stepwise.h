#pragma once

namespace kolibri {

class Connection;

/// Runs one step of an upgrade or repair. What it has done when it fails stays done, as it always was in
/// these files: the rows already carried over are right, and the safety copy has the rest.
void runKeepingWhatIsDone(Connection& conn, void (*step)(Connection& conn));

} // namespace kolibri
