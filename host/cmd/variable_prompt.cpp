#include "cmd/variable_prompt.h"

#include <string>

#include "api/system_variables.h"
#include "api/utf8.h"
#include "cmd/drawing/setvar_command.h"

namespace korva::cmd {

bool isVariableName(std::wstring_view typed) {
  return api::findVariable(api::toUtf8(typed)) != nullptr;
}

bool promptForVariable(std::wstring_view typed) {
  if (!isVariableName(typed)) return false;
  drawing::askVariableValue(std::wstring(typed));
  return true;
}

}  // namespace korva::cmd
