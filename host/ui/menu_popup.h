// Context menus without a screen: the menu is printed and the user chooses an item.
#pragma once

#include <string>

#include "qx_ui_dialog.h"

namespace korva::ui {

// How many context menus were shown so far (a right click that shows none says so).
unsigned popupMenusShown();
// The menu's items, one a line, submenus indented.
std::wstring describeMenu(const CQxUiMenu& menu);

}  // namespace korva::ui
