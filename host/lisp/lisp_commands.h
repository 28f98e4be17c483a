// LISP functions named "C:NAME" are commands NAME at the command prompt.
#pragma once

#include <string>

namespace korva::lisp {

// Registers the command when name (upper case) is "C:NAME" and no other command has
// that name.
void defineLispCommand(const std::wstring& name);
// Removes it once no defun or module function of that name is left.
void forgetLispCommand(const std::wstring& name);

}  // namespace korva::lisp
