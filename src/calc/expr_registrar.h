#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "expression_syntax.h"
#include "item_interfaces.h"

class MathExpression;

// The vocabulary of an engine and the rules on what may join it. Every refusal throws
// ExprExceptions<SExprDefExcepData>; an item handed in belongs to the registrar from the
// call on, also when it is refused.
class ExprRegistrar {
 public:
  static constexpr int kNotFound = -1;

  struct OperatorEntry {
    IMathOperator* item = nullptr;
    bool owned = false;
    std::size_t symbolLength = 0;
    // Cached so that matching a text does not ask the item for a new string each time.
    std::wstring symbol;
    bool isUnary = false;
  };
  struct FunctionEntry {
    IMathFunction* item = nullptr;
    bool owned = false;
    std::wstring symbol;
    std::int32_t argumentCount = 0;
  };
  struct VariableEntry {
    IMathVariable* item = nullptr;
    bool owned = false;
  };
  struct ConstantEntry {
    std::wstring name;
    double value = 0.0;
  };

  ExprRegistrar(MathExpression* expression, IMathVariableFactory* variableFactory);
  virtual ~ExprRegistrar();
  ExprRegistrar(const ExprRegistrar&) = delete;
  ExprRegistrar& operator=(const ExprRegistrar&) = delete;

  void defineSyntax(const ExpressionSyntax& syntax);
  void defineOp(IMathOperator* op, bool owned);
  void defineFunc(IMathFunction* function, bool owned);
  void defineVar(IMathVariable* variable, bool owned);
  // Has the variable factory make the variable; returns it.
  IMathVariable* defineVar(const std::wstring& name);
  void defineConst(const std::wstring& name, double value);

  const ExpressionSyntax& syntax() const { return syntax_; }
  MathExpression* expression() const { return expression_; }

  const std::vector<OperatorEntry>& operators() const { return operators_; }
  const std::vector<FunctionEntry>& functions() const { return functions_; }
  const std::vector<ConstantEntry>& constants() const { return constants_; }

  // The operator index, or kNotFound.
  int findOperator(std::wstring_view symbol, bool isUnary) const;
  // The longest operator symbol that starts at the position, or kNotFound.
  int matchOperator(std::wstring_view text, std::size_t position) const;
  // The first function of that symbol, or kNotFound.
  int findFunction(std::wstring_view symbol) const;
  // An exact argument count wins; else the last variable-count overload, for one argument
  // or more. kNotFound if neither exists.
  int findFunction(std::wstring_view symbol, std::int32_t argumentCount) const;
  int constantIndex(std::wstring_view name) const;
  bool hasVariable(std::wstring_view name) const;
  // Null if absent.
  IMathVariable* findVariable(std::wstring_view name) const;
  // Throws code 16 if absent.
  IMathVariable* variable(std::wstring_view name) const;

 private:
  void checkSyntax(const ExpressionSyntax& syntax) const;
  void checkOperator(const OperatorEntry& entry, std::uint32_t precedence) const;
  void checkFunction(const FunctionEntry& entry) const;
  void checkVariable(const std::wstring& name) const;
  void checkConstant(const std::wstring& name) const;

  std::vector<OperatorEntry> operators_;
  std::vector<FunctionEntry> functions_;
  std::map<std::wstring, VariableEntry, std::less<>> variables_;
  std::vector<ConstantEntry> constants_;
  ExpressionSyntax syntax_;
  MathExpression* expression_;
  IMathVariableFactory* variableFactory_;
};
