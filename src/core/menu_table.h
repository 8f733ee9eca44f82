#pragma once

#include "core/mdlGlobal.h"

#include <QString>

#include <vector>

namespace kolibri {

/// What a menu entry or a large button asks for: the state to set, and then the form or command to run.
struct MenuTask {
    /// Object name of the form, or name of a command of the main window; empty for an entry without an
    /// action.
    QString target = {};
    /// The mode in which the form opens.
    QString mode = {};
    /// Window caption of the form in this mode, where it has one.
    QString caption = {};
    /// ModiZuruecksetzen runs first.
    bool reset = false;
    std::vector<bool mdlGlobal::*> flags = {};
    quint8 listenArt = 0;
    quint8 listenUnterArt = 0;
};

/// One line of the menu tree.
struct MenuEntry {
    /// 0 for a menu of the menu bar, one more for each level below.
    int depth;
    QString name;
    /// With "&" before the letter that opens it from the keyboard.
    QString caption;
    /// What the status bar says about it; empty for a menu.
    QString tip = {};
    MenuTask task = {};
    /// Stands in the tree, but the office does not see it.
    bool hidden = false;
};

/// One of the large buttons of the main window; it does what the menu entry does.
struct LargeButton {
    QString name;
    QString caption;
    QString entry;
    /// Heading of the group in which it stands.
    QString group;
    /// Its drawing in data/symbole, without folder and ending.
    QString symbol;
};

/// The whole menu tree, in its order.
const std::vector<MenuEntry>& menuTable();
/// The eight large buttons, in their order; those of a group stand together.
const std::vector<LargeButton>& largeButtons();
/// Menus that rest while there is no database.
const QStringList& menusOfADatabase();
/// Entries that are offered only while there is no database.
const QStringList& entriesWithoutDatabase();
/// Sets the state that a task asks for, before its form is shown.
void applyTask(const MenuTask& task);

} // namespace kolibri
