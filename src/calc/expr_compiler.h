#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "compiled_program.h"
#include "expression_syntax.h"

class ExprRegistrar;
class MathExpression;

// Turns a text into a flat postfix program in one left-to-right scan, with an operator
// stack and a state stack and no syntax tree. Operands are found by walking the program
// backwards at each emission, which also folds constants on the spot. Every fault throws
// ExprExceptions<SExprParsingExcepData>.
class ExprCompiler {
 public:
  ExprCompiler(ExprRegistrar& registrar, const MathExpression* owner);

  CompiledProgram& compile(std::wstring_view text);
  CompiledProgram& program() { return program_; }

  const std::vector<std::wstring>& usedVariables() const { return usedVariables_; }
  const std::vector<std::wstring>& automaticVariables() const { return automaticVariables_; }

 private:
  // What the scan last saw at a nesting level.
  enum TokenKind : std::uint32_t { kNothing = 0, kValue = 1, kOperator = 2, kFunctionName = 3 };
  struct ParseState {
    std::uint32_t previous = kNothing;
    std::uint32_t current = kNothing;
  };
  enum PendingKind : std::uint8_t { kMarker = 0, kPendingOperator = 2, kPendingFunction = 3 };
  struct PendingOperator {
    std::int32_t precedence = -1;
    std::uint32_t position = 0;
    bool hasPlaceholder = false;
    std::uint32_t argCount = 0;
    // Whether a value has been seen since the last separator or parenthesis: tells f() from
    // f(x) and finds empty arguments.
    bool valueSeen = false;
    PendingKind kind = kMarker;
    int index = -1;
    IMathExprItemEvaluator* evaluator = nullptr;
  };
  static constexpr std::int32_t kFunctionPrecedence = 5;

  // Scan.
  void reset();
  void scan(std::wstring_view text);
  void wordRule(wchar_t character, std::size_t index);
  void checkBracketedVariable(std::size_t index);
  void processWord(std::uint32_t position, wchar_t delimiter);
  void appendWordItem(std::uint32_t position);
  void openingRule(std::size_t index);
  void closingRule(wchar_t character, wchar_t next, std::size_t index);
  void operatorRule(int operatorIndex, std::wstring_view text, std::size_t& index);
  void finishScan(std::wstring_view text);
  void markStack(bool valueSeen = true);
  void shiftState(std::uint32_t kind);
  ParseState& state() { return states_.back(); }

  // Emission and the operand walk.
  void emit(PendingOperator pending);
  double operandWalk();
  double walkLastItem();
  void enterItem(std::size_t index);
  void fetchOperand(double* target);
  [[noreturn]] void missingOperand(std::int32_t position);

  ExprRegistrar& registrar_;
  const MathExpression* owner_;
  ExpressionSyntax syntax_;
  bool automaticDefinition_ = false;
  std::vector<std::wstring> usedVariables_;
  std::vector<std::wstring> automaticVariables_;
  CompiledProgram program_;

  std::vector<ParseState> states_;
  std::vector<PendingOperator> pending_;
  std::wstring word_;
  bool inBracket_ = false;

  // The walk is iterative so that deep nesting cannot exhaust the call stack.
  struct WalkFrame {
    std::size_t itemIndex;
    std::uint32_t nextArgument;  // counts down; arguments are fetched last first
  };
  std::vector<WalkFrame> walkFrames_;
  std::int64_t cursor_ = -1;
  bool constant_ = true;
  std::uint32_t consumed_ = 0;
};
