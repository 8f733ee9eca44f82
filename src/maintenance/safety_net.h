#pragma once

#include <functional>

namespace kolibri {

class Connection;

/// Does work on the open database that changes much and may stop half-way. A safety copy of the database is
/// made first. What the work has done up to an error stays done, and the error goes on to whoever shows it
/// with the place of the copy in it. All of it is one transaction of the store, so a program that is killed
/// meanwhile leaves the old state.
/// @throws StoreError when the copy cannot be made; the work has not begun then
void withSafetyCopy(Connection& conn, const std::function<void()>& work);

} // namespace kolibri
