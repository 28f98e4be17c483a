#include "expr_registrar.h"

#include <memory>

#include "expr_error_codes.h"
#include "expr_exceptions.h"

namespace {

constexpr const wchar_t* kSource = L"ExprRegistrar";

[[noreturn]] void refuse(std::uint32_t code, std::wstring firstItem = {},
                         std::wstring secondItem = {}, std::uint32_t line = __builtin_LINE()) {
  throw DefinitionError({code, std::move(firstItem), std::move(secondItem)}, kSource, line);
}

bool contains(std::wstring_view text, std::wstring_view part) {
  return text.find(part) != std::wstring_view::npos;
}

}  // namespace

ExprRegistrar::ExprRegistrar(MathExpression* expression, IMathVariableFactory* variableFactory)
    : expression_(expression), variableFactory_(variableFactory) {}

ExprRegistrar::~ExprRegistrar() {
  for (auto& entry : operators_)
    if (entry.owned) delete entry.item;
  for (auto& entry : functions_)
    if (entry.owned) delete entry.item;
  for (auto& [name, entry] : variables_)
    if (entry.owned) delete entry.item;
}

void ExprRegistrar::defineSyntax(const ExpressionSyntax& syntax) {
  checkSyntax(syntax);
  syntax_ = syntax;
}

void ExprRegistrar::checkSyntax(const ExpressionSyntax& syntax) const {
  using namespace DefinitionErrorCode;
  if (syntax.argumentSeparator == syntax.decimalPoint) refuse(kSeparatorIsDecimalPoint);
  if (syntax.argumentSeparator == syntax.openingBracket ||
      syntax.argumentSeparator == syntax.closingBracket) {
    refuse(kSeparatorIsBracket);
  }
  if (syntax.decimalPoint == syntax.openingBracket || syntax.decimalPoint == syntax.closingBracket)
    refuse(kDecimalPointIsBracket);
  for (const auto& entry : operators_)
    if (wchar_t found = findSyntaxCharacter(entry.symbol, syntax))
      refuse(kOperatorHoldsSyntaxCharacter, entry.symbol, std::wstring(1, found));
  for (const auto& entry : functions_)
    if (wchar_t found = findSyntaxCharacter(entry.symbol, syntax))
      refuse(kFunctionHoldsSyntaxCharacter, entry.symbol, std::wstring(1, found));
  for (const auto& entry : constants_)
    if (wchar_t found = findSyntaxCharacter(entry.name, syntax))
      refuse(kConstantHoldsSyntaxCharacter, entry.name, std::wstring(1, found));
}

void ExprRegistrar::defineOp(IMathOperator* op, bool owned) {
  std::unique_ptr<IMathOperator> refusedItem(owned ? op : nullptr);
  OperatorEntry entry{op, owned, 0, op->symbol(), op->isUnary()};
  entry.symbolLength = entry.symbol.size();
  try {
    checkOperator(entry, op->precedence());
  } catch (DefinitionError& error) {
    error.addRecord(kSource);
    throw;
  }
  refusedItem.release();
  auto shorter = operators_.begin();
  while (shorter != operators_.end() && shorter->symbolLength >= entry.symbolLength) ++shorter;
  operators_.insert(shorter, std::move(entry));
}

void ExprRegistrar::checkOperator(const OperatorEntry& entry, std::uint32_t precedence) const {
  using namespace DefinitionErrorCode;
  const std::wstring& symbol = entry.symbol;
  if (symbol.empty()) refuse(kOperatorSymbolEmpty);
  if (precedence >= 5) refuse(kOperatorPrecedenceTooHigh, symbol);
  if (findOperator(symbol, entry.isUnary) != kNotFound) refuse(kOperatorAlreadyDefined, symbol);
  if (wchar_t found = findSyntaxCharacter(symbol, syntax_))
    refuse(kOperatorHoldsSyntaxCharacter, symbol, std::wstring(1, found));
  for (const auto& function : functions_)
    if (contains(function.symbol, symbol))
      refuse(kFunctionOverlapsOperator, function.symbol, symbol);
  for (const auto& constant : constants_)
    if (contains(constant.name, symbol)) refuse(kConstantHoldsOperator, constant.name, symbol);
}

void ExprRegistrar::defineFunc(IMathFunction* function, bool owned) {
  std::unique_ptr<IMathFunction> refusedItem(owned ? function : nullptr);
  FunctionEntry entry{function, owned, function->symbol(), function->argumentCount()};
  try {
    checkFunction(entry);
  } catch (DefinitionError& error) {
    error.addRecord(kSource);
    throw;
  }
  refusedItem.release();
  functions_.push_back(std::move(entry));
}

void ExprRegistrar::checkFunction(const FunctionEntry& entry) const {
  using namespace DefinitionErrorCode;
  const std::wstring& symbol = entry.symbol;
  if (symbol.empty()) refuse(kFunctionSymbolEmpty);
  for (const auto& function : functions_)
    if (function.symbol == symbol && function.argumentCount == entry.argumentCount)
      refuse(kFunctionAlreadyDefined, symbol);
  if (wchar_t found = findSyntaxCharacter(symbol, syntax_))
    refuse(kFunctionHoldsSyntaxCharacter, symbol, std::wstring(1, found));
  for (const auto& op : operators_)
    if (contains(symbol, op.symbol)) refuse(kFunctionOverlapsOperator, symbol, op.symbol);
}

void ExprRegistrar::defineVar(IMathVariable* variable, bool owned) {
  std::unique_ptr<IMathVariable> refusedItem(owned ? variable : nullptr);
  std::wstring name = variable->symbol();
  try {
    checkVariable(name);
  } catch (DefinitionError& error) {
    error.addRecord(kSource);
    throw;
  }
  refusedItem.release();
  variables_.emplace(std::move(name), VariableEntry{variable, owned});
}

IMathVariable* ExprRegistrar::defineVar(const std::wstring& name) {
  IMathVariable* variable = variableFactory_->createVariable(name);
  defineVar(variable, true);
  return variable;
}

void ExprRegistrar::checkVariable(const std::wstring& name) const {
  using namespace DefinitionErrorCode;
  if (name.empty()) refuse(kVariableNameEmpty);
  if (hasVariable(name)) refuse(kVariableAlreadyDefined, name);
  if (isNumberWord(name, syntax_.decimalPoint)) refuse(kVariableNameIsNumber, name);
  if (constantIndex(name) != kNotFound) refuse(kVariableNameIsConstant, name);
  if (name.find(syntax_.openingBracket) != std::wstring::npos ||
      name.find(syntax_.closingBracket) != std::wstring::npos) {
    refuse(kVariableNameHoldsBracket, name);
  }
}

void ExprRegistrar::defineConst(const std::wstring& name, double value) {
  checkConstant(name);
  constants_.push_back({name, value});
}

void ExprRegistrar::checkConstant(const std::wstring& name) const {
  using namespace DefinitionErrorCode;
  if (name.empty()) refuse(kConstantNameEmpty);
  if (constantIndex(name) != kNotFound) refuse(kConstantAlreadyDefined, name);
  if (isNumberWord(name, syntax_.decimalPoint)) refuse(kConstantNameIsNumber, name);
  if (wchar_t found = findSyntaxCharacter(name, syntax_))
    refuse(kConstantHoldsSyntaxCharacter, name, std::wstring(1, found));
  for (const auto& op : operators_)
    if (contains(name, op.symbol)) refuse(kConstantHoldsOperator, name, op.symbol);
  if (hasVariable(name)) refuse(kConstantNameIsVariable, name);
}

int ExprRegistrar::findOperator(std::wstring_view symbol, bool isUnary) const {
  for (std::size_t i = 0; i < operators_.size(); ++i)
    if (operators_[i].isUnary == isUnary && operators_[i].symbol == symbol)
      return static_cast<int>(i);
  return kNotFound;
}

int ExprRegistrar::matchOperator(std::wstring_view text, std::size_t position) const {
  const std::wstring_view rest = text.substr(position);
  for (std::size_t i = 0; i < operators_.size(); ++i)
    if (rest.starts_with(operators_[i].symbol)) return static_cast<int>(i);
  return kNotFound;
}

int ExprRegistrar::findFunction(std::wstring_view symbol) const {
  for (std::size_t i = 0; i < functions_.size(); ++i)
    if (functions_[i].symbol == symbol) return static_cast<int>(i);
  return kNotFound;
}

int ExprRegistrar::findFunction(std::wstring_view symbol, std::int32_t argumentCount) const {
  int candidate = kNotFound;
  for (std::size_t i = 0; i < functions_.size(); ++i) {
    const FunctionEntry& entry = functions_[i];
    if (entry.symbol != symbol) continue;
    if (entry.argumentCount == argumentCount) return static_cast<int>(i);
    if (entry.argumentCount == IMathFunction::kAnyArgumentCount && argumentCount >= 1)
      candidate = static_cast<int>(i);
  }
  return candidate;
}

int ExprRegistrar::constantIndex(std::wstring_view name) const {
  for (std::size_t i = 0; i < constants_.size(); ++i)
    if (constants_[i].name == name) return static_cast<int>(i);
  return kNotFound;
}

bool ExprRegistrar::hasVariable(std::wstring_view name) const {
  return variables_.find(name) != variables_.end();
}

IMathVariable* ExprRegistrar::findVariable(std::wstring_view name) const {
  auto found = variables_.find(name);
  return found == variables_.end() ? nullptr : found->second.item;
}

IMathVariable* ExprRegistrar::variable(std::wstring_view name) const {
  if (IMathVariable* found = findVariable(name)) return found;
  refuse(DefinitionErrorCode::kVariableNotDefined, std::wstring(name));
}
