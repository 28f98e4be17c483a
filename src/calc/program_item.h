#pragma once

#include <cstdint>
#include <memory>

#include "item_interfaces.h"

// One entry of a compiled program, in postfix order. A run stores each result straight into
// the argument slot of its consumer, so no stack is needed.
struct ProgramItem {
  // Not owned; null for a value and for a placeholder.
  IMathExprItemEvaluator* evaluator = nullptr;
  // The known value of a value item; the result of the last item of the program.
  double value = 0.0;
  bool isValue = false;
  std::unique_ptr<double[]> args;
  std::uint32_t argCount = 0;
  double* resultTarget = nullptr;
  bool visited = false;  // only during an operand walk
  std::uint32_t position = 0;
  // The mark left at a function's opening parenthesis, so its argument list can be checked.
  bool isPlaceholder = false;
  bool hasPlaceholder = false;
};
