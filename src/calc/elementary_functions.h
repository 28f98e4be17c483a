#pragma once

#include "item_interfaces.h"

// Functions of one argument.

class SinFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class ArcSinFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class SinhFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class CosFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class ArcCosFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class CoshFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class TanFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class ArcTanFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class TanhFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class SqrtFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class AbsFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class CeilFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class FloorFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

// The names run against the class names on purpose: LogFct answers to "ln", Log10Fct to "log".
class LogFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class Log10Fct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};

class FactorialFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 1; }
};
