#pragma once

namespace kolibri {

/// False where the browser engine cannot shut its processes off from the machine and would therefore end the
/// program: for the administrator, and in a container.
bool engineSandboxWorks();

} // namespace kolibri
