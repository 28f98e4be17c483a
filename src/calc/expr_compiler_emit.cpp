#include "compile_fault.h"
#include "expr_compiler.h"
#include "expr_error_codes.h"
#include "expr_registrar.h"

using namespace ParseErrorCode;

void ExprCompiler::emit(PendingOperator pending) {
  IMathExprItemEvaluator* evaluator = pending.evaluator;
  if (pending.kind == kPendingFunction) {
    // Only now is the argument count known, and with it the overload.
    const std::wstring& symbol = registrar_.functions()[pending.index].symbol;
    const auto argumentCount = static_cast<std::int32_t>(pending.argCount);
    const int chosen = registrar_.findFunction(symbol, argumentCount);
    if (chosen == ExprRegistrar::kNotFound)
      throwCompileFault(kNoOverloadForArgumentCount, pending.position, symbol, argumentCount);
    evaluator = registrar_.functions()[chosen].item;
  }

  auto& items = program_.items();
  ProgramItem item;
  item.evaluator = evaluator;
  item.argCount = pending.argCount;
  item.position = pending.position;
  item.hasPlaceholder = pending.hasPlaceholder;
  if (item.argCount >= 1) item.args = std::make_unique<double[]>(item.argCount);
  items.push_back(std::move(item));

  double result = 0.0;
  try {
    result = operandWalk();
  } catch (ParseError& error) {
    error.addRecord(kCompilerSource);
    throw;
  }
  if (!constant_) return;

  // The whole subtree is known: the item becomes a value and its operands go.
  ProgramItem& folded = items.back();
  folded.isValue = true;
  folded.value = result;
  folded.args.reset();
  const std::size_t erased = consumed_ + (folded.hasPlaceholder ? 1 : 0);
  const auto end = items.end() - 1;
  items.erase(end - static_cast<std::ptrdiff_t>(erased), end);
}

double ExprCompiler::operandWalk() {
  constant_ = true;
  consumed_ = 0;
  auto& items = program_.items();
  if (items.empty()) return 0.0;
  const double result = walkLastItem();
  // Everything the walk touched lies above the cursor.
  for (std::size_t index = static_cast<std::size_t>(cursor_ + 1); index < items.size(); ++index)
    items[index].visited = false;
  return result;
}

double ExprCompiler::walkLastItem() {
  auto& items = program_.items();
  walkFrames_.clear();
  const std::size_t lastIndex = items.size() - 1;
  ProgramItem& last = items[lastIndex];
  cursor_ = static_cast<std::int64_t>(lastIndex) - 1;
  if (last.visited) missingOperand(static_cast<std::int32_t>(last.position));
  if (last.isValue) {
    last.visited = true;
    return last.value;
  }
  enterItem(lastIndex);

  double result = 0.0;
  while (!walkFrames_.empty()) {
    WalkFrame& frame = walkFrames_.back();
    ProgramItem& item = items[frame.itemIndex];
    if (frame.nextArgument > 0) {
      --frame.nextArgument;
      fetchOperand(&item.args[frame.nextArgument]);
      continue;
    }
    result = constant_ ? item.evaluator->evaluate(item.argCount, item.args.get()) : 0.0;
    if (item.hasPlaceholder) {
      // Exactly the function's arguments must lie between it and its opening mark.
      if (cursor_ < 0 || !items[static_cast<std::size_t>(cursor_)].isPlaceholder)
        missingOperand(static_cast<std::int32_t>(item.position));
      --cursor_;
    }
    walkFrames_.pop_back();
    if (!walkFrames_.empty()) {
      *item.resultTarget = result;
      item.visited = true;
    }
  }
  return result;
}

void ExprCompiler::enterItem(std::size_t index) {
  ProgramItem& item = program_.items()[index];
  if (!item.evaluator->isConstant()) constant_ = false;
  cursor_ = static_cast<std::int64_t>(index) - 1;
  walkFrames_.push_back({index, item.argCount});
}

void ExprCompiler::fetchOperand(double* target) {
  ++consumed_;
  if (cursor_ < 0) missingOperand(-1);
  auto& items = program_.items();
  ProgramItem& operand = items[static_cast<std::size_t>(cursor_)];
  if (operand.isPlaceholder || operand.visited)
    missingOperand(static_cast<std::int32_t>(operand.position));
  operand.resultTarget = target;
  if (operand.isValue) {
    operand.visited = true;
    --cursor_;
    *target = operand.value;
    return;
  }
  enterItem(static_cast<std::size_t>(cursor_));
}

void ExprCompiler::missingOperand(std::int32_t position) {
  throwCompileFault(kMissingOperand, position);
}
