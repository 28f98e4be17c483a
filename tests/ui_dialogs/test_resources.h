// Resources of the test dialog, built in memory so that the dialog tests don't depend
// on reading a resource source.
#pragma once

#include "ui/resource_module.h"

namespace korva::testing {

constexpr unsigned kTestDialogId = 9000;
constexpr unsigned kTestMenuId = 9100;
constexpr unsigned kHoldItem = 9101;
constexpr unsigned kReleaseItem = 9102;
constexpr unsigned kSelectAllItem = 9103;
constexpr unsigned kNoId = 0xFFFF;

// Dialog 9000 with one control of each kind, and menu 9100 whose submenu 0 holds the
// list's context menu.
ui::ResourceModule makeTestResources();

}  // namespace korva::testing
