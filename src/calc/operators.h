#pragma once

#include "item_interfaces.h"

// The sixteen operators, in the order in which an engine registers them.

class AddOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 1; }
  std::wstring symbol() const override;
};

class MinusOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 1; }
  std::wstring symbol() const override;
};

class MultOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 2; }
  std::wstring symbol() const override;
};

class DivOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 2; }
  std::wstring symbol() const override;
};

class ExpOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 3; }
  std::wstring symbol() const override;
};

class UnaryMinusOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 4; }
  std::wstring symbol() const override;
  bool isUnary() const override { return true; }
};

class ModuloOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 2; }
  std::wstring symbol() const override;
};

class GreaterThanOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 0; }
  std::wstring symbol() const override;
};

class LesserThanOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 0; }
  std::wstring symbol() const override;
};

class GreaterEqualThanOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 0; }
  std::wstring symbol() const override;
};

class LesserEqualThanOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 0; }
  std::wstring symbol() const override;
};

class NotEqualOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 0; }
  std::wstring symbol() const override;
};

class EqualOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 0; }
  std::wstring symbol() const override;
};

class AndOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 0; }
  std::wstring symbol() const override;
};

class OrOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 0; }
  std::wstring symbol() const override;
};

class NotOp final : public IMathOperator {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::uint32_t precedence() const override { return 2; }
  std::wstring symbol() const override;
  bool isUnary() const override { return true; }
};
