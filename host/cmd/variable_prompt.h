// A system variable's name typed at the command prompt shows it and asks for a new value.
#pragma once

#include <string_view>

namespace korva::cmd {

bool isVariableName(std::wstring_view typed);
// false when typed names no variable; otherwise asks, sets and reports.
bool promptForVariable(std::wstring_view typed);

}  // namespace korva::cmd
