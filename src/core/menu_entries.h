#pragma once

#include "core/menu_table.h"

namespace kolibri {

// The parts of the menu tree, put together by menuTable().

using MenuEntries = std::vector<MenuEntry>;

/// A menu, or an entry that does nothing.
MenuEntry menuLine(int depth, const QString& name, const QString& caption);
MenuEntry hiddenEntry(MenuEntry entry);
/// An entry that asks for a list: the target that makes it, and which list it is.
MenuEntry listEntry(int depth, const QString& name, const QString& caption, const QString& tip,
                    const QString& target, quint8 listenArt);

MenuEntries fileMenu();
MenuEntries editMenu();
MenuEntries listMenu();
MenuEntries reportMenu();
MenuEntries starterMenu();

} // namespace kolibri
