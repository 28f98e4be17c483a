#include "cmd/variable_prompt.h"

#include <string>

#include "api/system_variables.h"
#include "api/utf8.h"
#include "cmd/drawing/setvar_command.h"

namespace korva::cmd {

namespace {

// Scripts name variables as they name commands: "_.OFFSETGAPTYPE" is OFFSETGAPTYPE.
std::wstring_view withoutPrefixes(std::wstring_view typed) {
  while (!typed.empty() && (typed.front() == L'_' || typed.front() == L'.')) typed.remove_prefix(1);
  return typed;
}

}  // namespace

bool isVariableName(std::wstring_view typed) {
  return api::findVariable(api::toUtf8(withoutPrefixes(typed))) != nullptr;
}

bool promptForVariable(std::wstring_view typed) {
  if (!isVariableName(typed)) return false;
  drawing::askVariableValue(std::wstring(withoutPrefixes(typed)));
  return true;
}

}  // namespace korva::cmd
