#pragma once

#include "item_interfaces.h"

// Functions over several values. "min" and "max" each exist for two, three and any count;
// the compiler picks among them by the number of arguments.

class MinFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 2; }
};

class Min3Fct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 3; }
};

class MinUndefFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return -1; }
};

class MaxFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 2; }
};

class Max3Fct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 3; }
};

class MaxUndefFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return -1; }
};

class AvgFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return -1; }
};

class SumFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return -1; }
};
