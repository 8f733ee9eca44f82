#pragma once

#include <exception>

namespace kolibri {

/// Shows an error that ended an operation in one box, with a details section, and brings the program back to
/// rest: the connection is closed. Knows the program's own errors and takes any other as an unexpected one.
void reportError(std::exception_ptr error);

} // namespace kolibri
