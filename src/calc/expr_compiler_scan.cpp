#include <algorithm>

#include "compile_fault.h"
#include "expr_compiler.h"
#include "expr_error_codes.h"
#include "expr_registrar.h"
#include "math_expression.h"

using namespace ParseErrorCode;

namespace {

// A failed compile must not leave a half-made program behind for evaluate() to run.
class ResetProgramOnFailure {
 public:
  explicit ResetProgramOnFailure(CompiledProgram& program) : program_(program) {}
  ~ResetProgramOnFailure() {
    if (!dismissed_) program_.reset();
  }
  void dismiss() { dismissed_ = true; }

 private:
  CompiledProgram& program_;
  bool dismissed_ = false;
};

void appendOnce(std::vector<std::wstring>& names, const std::wstring& name) {
  if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
}

}  // namespace

ExprCompiler::ExprCompiler(ExprRegistrar& registrar, const MathExpression* owner)
    : registrar_(registrar), owner_(owner) {}

CompiledProgram& ExprCompiler::compile(std::wstring_view text) {
  ResetProgramOnFailure guard(program_);
  reset();
  syntax_ = registrar_.syntax();
  automaticDefinition_ = owner_ != nullptr && owner_->automaticVariableDefinition();

  // Only the blank goes; a tab stays and ends up inside a word.
  std::wstring withoutBlanks;
  withoutBlanks.reserve(text.size());
  for (wchar_t character : text)
    if (character != L' ') withoutBlanks.push_back(character);

  scan(withoutBlanks);

  auto& items = program_.items();
  if (items.empty()) {
    ProgramItem zero;
    zero.isValue = true;
    items.push_back(std::move(zero));
  }
  // Items no consumer took, such as the part before a stray separator in (1+2,3), still run
  // and keep their result to themselves.
  for (ProgramItem& item : items)
    if (item.resultTarget == nullptr) item.resultTarget = &item.value;
  items.back().resultTarget = &items.back().value;
  program_.seal();
  guard.dismiss();
  return program_;
}

void ExprCompiler::reset() {
  usedVariables_.clear();
  automaticVariables_.clear();
  program_.unseal();
  program_.items().clear();
  states_.clear();
  pending_.clear();
  word_.clear();
  inBracket_ = false;
}

void ExprCompiler::scan(std::wstring_view text) {
  states_.push_back({});
  for (std::size_t index = 0; index < text.size(); ++index) {
    const wchar_t character = text[index];
    const wchar_t next = index + 1 < text.size() ? text[index + 1] : 0;
    if (inBracket_) {
      wordRule(character, index);
      continue;
    }
    const int operatorIndex = registrar_.matchOperator(text, index);
    if (operatorIndex == ExprRegistrar::kNotFound && character != syntax_.argumentSeparator &&
        character != kOpeningParenthesis && character != kClosingParenthesis) {
      wordRule(character, index);
      continue;
    }
    if (!word_.empty()) {
      processWord(static_cast<std::uint32_t>(index - word_.size() + 1), character);
      word_.clear();
    }
    if (operatorIndex != ExprRegistrar::kNotFound) {
      operatorRule(operatorIndex, text, index);
    } else if (character == kOpeningParenthesis) {
      openingRule(index);
    } else {
      closingRule(character, next, index);
    }
  }
  finishScan(text);
}

void ExprCompiler::wordRule(wchar_t character, std::size_t index) {
  if (character == syntax_.openingBracket) {
    if (!inBracket_) {
      inBracket_ = true;
      return;
    }
    // With one character for both brackets, the second one closes.
    if (syntax_.openingBracket != syntax_.closingBracket)
      throwCompileFault(kBracketInsideBrackets, index);
    inBracket_ = false;
    checkBracketedVariable(index);
  } else if (character == syntax_.closingBracket) {
    if (!inBracket_) throwCompileFault(kClosingBracketWithoutOpening, index);
    inBracket_ = false;
    checkBracketedVariable(index);
  } else {
    word_.push_back(character);
  }
}

void ExprCompiler::checkBracketedVariable(std::size_t index) {
  if (!registrar_.hasVariable(word_)) throwCompileFault(kUndefinedVariable, index, word_);
}

void ExprCompiler::processWord(std::uint32_t position, wchar_t delimiter) {
  if (state().current != kNothing && state().current != kOperator)
    throwCompileFault(kValueAfterValue, position, word_);
  if (delimiter != kOpeningParenthesis) {
    appendWordItem(position);
    return;
  }
  const int functionIndex = registrar_.findFunction(word_);
  if (functionIndex == ExprRegistrar::kNotFound) throwCompileFault(kNotAFunction, position, word_);
  markStack();
  shiftState(kFunctionName);
  PendingOperator function;
  function.precedence = kFunctionPrecedence;
  function.position = position;
  function.hasPlaceholder = true;
  function.kind = kPendingFunction;
  function.index = functionIndex;
  function.evaluator = registrar_.functions()[functionIndex].item;
  pending_.push_back(function);
}

void ExprCompiler::appendWordItem(std::uint32_t position) {
  ProgramItem item;
  if (isNumberWord(word_, syntax_.decimalPoint)) {
    item.isValue = true;
    item.value = numberWordValue(word_, syntax_.decimalPoint);
  } else if (const int constant = registrar_.constantIndex(word_);
             constant != ExprRegistrar::kNotFound) {
    item.isValue = true;
    item.value = registrar_.constants()[constant].value;
  } else {
    IMathVariable* variable = registrar_.findVariable(word_);
    if (variable == nullptr) {
      if (!automaticDefinition_) throwCompileFault(kUndefinedVariable, position, word_);
      try {
        registrar_.defineVar(word_);
      } catch (const DefinitionError&) {
        throwCompileFault(kUndefinedVariable, position, word_);
      }
      appendOnce(automaticVariables_, word_);
      variable = registrar_.findVariable(word_);
      if (variable == nullptr) throwCompileFault(kUndefinedVariable, position, word_);
    }
    appendOnce(usedVariables_, word_);
    item.evaluator = variable;
  }
  shiftState(kValue);
  item.position = position;
  program_.items().push_back(std::move(item));
  markStack();
}

void ExprCompiler::openingRule(std::size_t index) {
  markStack(false);
  PendingOperator marker;
  marker.position = static_cast<std::uint32_t>(index);
  pending_.push_back(marker);
  if (state().current == kFunctionName) {
    ProgramItem placeholder;
    placeholder.isPlaceholder = true;
    placeholder.visited = true;
    program_.items().push_back(std::move(placeholder));
  }
  states_.push_back({});
}

void ExprCompiler::closingRule(wchar_t character, wchar_t next, std::size_t index) {
  const bool isSeparator = character != kClosingParenthesis;
  if (state().current == kOperator) throwCompileFault(kOperatorWithoutOperand, index);
  states_.pop_back();
  if (isSeparator) {
    states_.push_back({});
    if (next == kClosingParenthesis) throwCompileFault(kEmptyArgument, index);
  }
  std::uint32_t emissions = 0;
  while (!pending_.empty() && pending_.back().kind != kMarker) {
    PendingOperator top = pending_.back();
    pending_.pop_back();
    emit(top);
    ++emissions;
  }
  if (pending_.empty()) {
    throwCompileFault(
        isSeparator ? kSeparatorOutsideParentheses : kClosingParenthesisWithoutOpening, index);
  }
  bool seen = false;
  if (pending_.size() >= 2) {
    PendingOperator& below = pending_[pending_.size() - 2];
    seen = below.valueSeen;
    if (seen && below.kind == kPendingFunction) ++below.argCount;
  }
  if (!isSeparator) {
    pending_.pop_back();
    // The function stays on the stack, and the state at its name, until something emits it.
    if (state().current != kFunctionName) shiftState(kValue);
  }
  if (emissions == 0 && isSeparator && !seen) throwCompileFault(kEmptyArgument, index);
  // Passes the knowledge of a value out through nested parentheses: f((1),2).
  const bool passOn = !isSeparator && (next == character || next == syntax_.argumentSeparator);
  markStack(passOn && seen);
}

void ExprCompiler::operatorRule(int operatorIndex, std::wstring_view text, std::size_t& index) {
  const std::size_t stackSize = pending_.size();
  markStack();
  shiftState(kOperator);
  const bool isUnary = state().previous == kNothing || state().previous == kOperator;
  const auto& matched = registrar_.operators()[operatorIndex];
  const int chosen = registrar_.findOperator(matched.symbol, isUnary);
  if (chosen == ExprRegistrar::kNotFound)
    throwCompileFault(kNoOperatorOfThatArity, index, matched.symbol);
  index += matched.symbolLength - 1;
  if (index + 1 >= text.size()) throwCompileFault(kOperatorWithoutOperand, index);

  const auto& entry = registrar_.operators()[chosen];
  const auto precedence = static_cast<std::int32_t>(entry.item->precedence());
  if (stackSize != 0 && pending_.back().kind != kMarker) {
    const PendingOperator& top = pending_.back();
    // A unary operator of equal rank stays put, so --1 and !!5 keep their prefix order.
    std::int32_t rank = precedence;
    if (rank == top.precedence && top.kind == kPendingOperator &&
        registrar_.operators()[top.index].isUnary) {
      ++rank;
    }
    while (!pending_.empty() && pending_.back().kind != kMarker &&
           rank <= pending_.back().precedence) {
      PendingOperator emitted = pending_.back();
      pending_.pop_back();
      emit(emitted);
    }
  }
  PendingOperator pending;
  pending.precedence = precedence;
  pending.position = static_cast<std::uint32_t>(index);
  pending.argCount = isUnary ? 1 : 2;
  pending.kind = kPendingOperator;
  pending.index = chosen;
  pending.evaluator = entry.item;
  pending_.push_back(pending);
}

void ExprCompiler::finishScan(std::wstring_view text) {
  if (!word_.empty()) {
    processWord(static_cast<std::uint32_t>(text.size() - word_.size() + 1), text.back());
    word_.clear();
  }
  while (!pending_.empty()) {
    PendingOperator top = pending_.back();
    if (top.kind == kMarker) throwCompileFault(kParenthesisNeverClosed, top.position);
    pending_.pop_back();
    emit(top);
  }
  auto& items = program_.items();
  // Values that remain were already stored into their consumers' slots; only the last one,
  // which is the result, stays.
  const ProgramItem* last = items.empty() ? nullptr : &items.back();
  std::erase_if(items, [last](const ProgramItem& item) {
    return item.isPlaceholder || (item.isValue && &item != last);
  });
}

void ExprCompiler::markStack(bool valueSeen) {
  if (pending_.empty()) return;
  PendingOperator* entry = &pending_.back();
  if (entry->kind == kMarker) {
    if (pending_.size() < 2) return;
    entry = &pending_[pending_.size() - 2];
  }
  entry->valueSeen = valueSeen;
}

void ExprCompiler::shiftState(std::uint32_t kind) {
  state().previous = state().current;
  state().current = kind;
}
