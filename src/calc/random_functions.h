#pragma once

#include "item_interfaces.h"

// Draws from the C library generator, which nothing here seeds; never folded.

class RandFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  bool isConstant() const override { return false; }
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 0; }
};

class RandMinMaxFct final : public IMathFunction {
 public:
  std::wstring helpString() const override;
  std::wstring description() const override;
  bool isConstant() const override { return false; }
  double evaluate(std::uint32_t argumentCount, const double* arguments) const override;
  std::wstring symbol() const override;
  std::int32_t argumentCount() const override { return 2; }
};
