// The statements of a resource source: STRINGTABLE, DIALOG/DIALOGEX, MENU, ICON and
// #define, read into a ResourceModule (docs/RESOURCES.md tells the language).
#pragma once

#include <string>
#include <vector>

#include "ui/resource_module.h"
#include "ui/resource_script_lexer.h"

namespace korva::ui {

// Adds what the tokens define to module's maps. False with error ("line N: ...") at the
// first fault; module then holds what was read before it.
bool parseResourceScript(const std::vector<ResourceToken>& tokens, ResourceModule& module,
                         std::string& error);

}  // namespace korva::ui
