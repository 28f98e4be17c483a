#pragma once

#include <cstdint>
#include <string>

// Every operator, function and variable an expression may hold. The compiler only reads
// symbols, precedence, arity and constancy from them; the mathematics lives in evaluate().
class IMathExprItemEvaluator {
 public:
  virtual ~IMathExprItemEvaluator() = default;
  virtual std::wstring helpString() const = 0;
  virtual std::wstring description() const = 0;
  // True when the result depends on the arguments only, so the compiler may fold it.
  virtual bool isConstant() const = 0;
  // The compiler has checked the count already; implementations neither check nor allocate.
  virtual double evaluate(std::uint32_t argumentCount, const double* arguments) const = 0;
};

class IMathOperator : public IMathExprItemEvaluator {
 public:
  bool isConstant() const override { return true; }
  // Higher binds tighter; 5 and above are reserved for functions.
  virtual std::uint32_t precedence() const = 0;
  virtual std::wstring symbol() const = 0;
  virtual bool isUnary() const { return false; }
};

class IMathFunction : public IMathExprItemEvaluator {
 public:
  static constexpr std::int32_t kAnyArgumentCount = -1;  // one or more

  bool isConstant() const override { return true; }
  virtual std::wstring symbol() const = 0;
  virtual std::int32_t argumentCount() const = 0;
};

class IMathVariable : public IMathExprItemEvaluator {
 public:
  std::wstring helpString() const override { return {}; }
  std::wstring description() const override { return {}; }
  bool isConstant() const override { return false; }
  virtual std::int32_t argumentCount() const { return 0; }
  virtual std::wstring symbol() const = 0;
  virtual double* valuePointer() = 0;
};

class IMathVariableFactory {
 public:
  virtual ~IMathVariableFactory() = default;
  // The caller owns the result.
  virtual IMathVariable* createVariable(const std::wstring& name) = 0;
};
