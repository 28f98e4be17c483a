// SETVAR's second half, for the command processor too: a variable name typed at the
// "Command:" prompt asks for the new value the same way.
#pragma once

#include <string>

namespace korva::cmd::drawing {

// Shows the variable's value and asks for a new one ("(read only)" variables are only
// shown). Prints a message for an unknown name.
void askVariableValue(const std::wstring& name);

}  // namespace korva::cmd::drawing
