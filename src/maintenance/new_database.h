#pragma once

#include "core/store/connection.h"

#include <QString>

#include <functional>

namespace kolibri {

/// Makes an empty database in a folder, in the current shape and with every settings row that the program
/// expects. All or nothing: after a failure no file is left. `fill` may add rows before the file counts as
/// made.
/// @returns the path of the file
/// @throws StoreError when the folder does not exist or cannot be written, or the file exists already
QString createDatabase(const QString& folder, const std::function<void(Connection&)>& fill = {});

} // namespace kolibri
