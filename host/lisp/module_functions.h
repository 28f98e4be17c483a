// The LISP functions modules define with qxedDefunEx, and their calls through message 5.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "lisp/value.h"

namespace korva::lisp {

// Calls the module function of that name (upper case): message 5 to its module, with
// qxedGetFunCode and qxedGetArgs answering inside. The value set by a qxedRet* function,
// nil when none was set. nullopt when no module defines the name. A qxdbFail inside, or an
// exception out of the module, fails the evaluation.
std::optional<Value> callModuleFunction(const std::wstring& name,
                                        const std::vector<Value>& arguments);
bool isModuleFunction(const std::wstring& name);
// Message 5 to a loaded module (by its file name) for a function number it keeps in its
// table without defining it with the host. nullopt when no such module is loaded.
std::optional<Value> callModuleFunctionNumber(const std::wstring& moduleName, int functionNumber,
                                              const std::vector<Value>& arguments);
// The module is going away: its functions go with it.
void forgetModuleFunctions(const void* moduleId);

}  // namespace korva::lisp
