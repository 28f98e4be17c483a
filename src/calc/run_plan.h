#pragma once

#include <cstdint>
#include <vector>

#include "program_item.h"

// The program turned into steps that a switch runs without virtual calls for the built-in
// items. A variable read by a built-in operator or function gets no step of its own: the
// consumer reads the variable's storage through its value pointer.
class RunPlan {
 public:
  RunPlan() = default;
  RunPlan(const RunPlan&) = delete;
  RunPlan& operator=(const RunPlan&) = delete;
  // Moving keeps the step buffer, so the steps' pointers into it stay valid.
  RunPlan(RunPlan&&) = default;
  RunPlan& operator=(RunPlan&&) = default;

  // The items must not move afterwards: steps point into their argument slots.
  void build(std::vector<ProgramItem>& items);
  void clear() { steps_.clear(); }
  void run() const;
  std::size_t stepCount() const { return steps_.size(); }

 private:
  enum class Kernel : std::uint8_t {
    kItem,  // any evaluator through its virtual evaluate
    kVariable,
    kUnaryFunction,
    kAdd,
    kSubtract,
    kMultiply,
    kDivide,
    kPower,
    kNegate,
    kModulo,
    kGreaterThan,
    kLesserThan,
    kGreaterEqualThan,
    kLesserEqualThan,
    kNotEqual,
    kEqual,
    kAnd,
    kOr,
    kNot,
    kMinimum,
    kMaximum,
    kMinimum3,
    kMaximum3,
    // Variable-count rules read the argument slots, which variable steps fill.
    kMinimumOf,
    kMaximumOf,
    kSum,
    kAverage,
  };
  static constexpr int kMaxOperands = 3;

  struct Step {
    Kernel kernel = Kernel::kItem;
    std::uint32_t argCount = 0;
    double* target = nullptr;
    // Each operand is read as **operand: it points either at a variable's value pointer or
    // at slotAddress below, which holds the address of the consumer's argument slot.
    const double* const* operands[kMaxOperands] = {};
    double (*unaryFunction)(double) = nullptr;
    IMathExprItemEvaluator* evaluator = nullptr;
    double* args = nullptr;
    const double* slotAddress[kMaxOperands] = {};
  };
  struct KernelChoice {
    Kernel kernel;
    double (*unaryFunction)(double);
  };

  static KernelChoice chooseKernel(const IMathExprItemEvaluator& evaluator);
  static bool readsOperandsDirectly(Kernel kernel) {
    return kernel != Kernel::kItem && kernel != Kernel::kVariable && kernel < Kernel::kMinimumOf;
  }

  std::vector<Step> steps_;
};
