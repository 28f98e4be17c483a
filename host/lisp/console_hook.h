// Lets "(...)" typed or scripted at any prompt be evaluated.
#pragma once

namespace korva::lisp {

// At the "Command:" prompt the value is shown; at other prompts it is the answer.
void installConsoleHook();

}  // namespace korva::lisp
