// The module's LISP functions, by the function number the host reports on a call.
// Only "ai_refedit_alert" is defined with the host; the rows of the calculator keep
// their places so that the numbers stay as they are.
#pragma once

#include <span>

#include "frame/host_interface.h"

namespace frame {

using LispFunction = int (*)(ResultBuffer* arguments);

struct LispFunctionRow {
  const wchar_t* name;
  unsigned localNameId;
  LispFunction function;
};

std::span<const LispFunctionRow> lispFunctionTable();

// Message 3: defines "ai_refedit_alert" for the drawing being loaded.
void defineLispFunctions();
// Message 5 for the function number: calls the row's function with the call's
// arguments and returns its result; RTERROR with "Incorrect function code." through
// qxdbFail for a number outside the table.
int dispatchLispCall(int functionCode);

}  // namespace frame
