#include "run_plan.h"

#include <algorithm>
#include <typeinfo>

#include "aggregate_functions.h"
#include "elementary_functions.h"
#include "item_rules.h"
#include "math_expression.h"
#include "operators.h"

namespace {

using Variable = MathExpression::MemVariableEvaluator;

// The exact class decides: a class derived from a built-in may compute something else.
template <class Item>
bool is(const IMathExprItemEvaluator& evaluator) {
  return typeid(evaluator) == typeid(Item);
}

struct SlotOwner {
  const double* slot;
  std::size_t stepIndex;
  int operandIndex;
  bool operator<(const SlotOwner& other) const { return slot < other.slot; }
};

}  // namespace

RunPlan::KernelChoice RunPlan::chooseKernel(const IMathExprItemEvaluator& evaluator) {
  using namespace item_rules;
  struct Entry {
    bool (*matches)(const IMathExprItemEvaluator&);
    KernelChoice choice;
  };
  static constexpr Entry kTable[] = {
      {is<Variable>, {Kernel::kVariable, nullptr}},
      {is<AddOp>, {Kernel::kAdd, nullptr}},
      {is<MinusOp>, {Kernel::kSubtract, nullptr}},
      {is<MultOp>, {Kernel::kMultiply, nullptr}},
      {is<DivOp>, {Kernel::kDivide, nullptr}},
      {is<ExpOp>, {Kernel::kPower, nullptr}},
      {is<UnaryMinusOp>, {Kernel::kNegate, nullptr}},
      {is<ModuloOp>, {Kernel::kModulo, nullptr}},
      {is<GreaterThanOp>, {Kernel::kGreaterThan, nullptr}},
      {is<LesserThanOp>, {Kernel::kLesserThan, nullptr}},
      {is<GreaterEqualThanOp>, {Kernel::kGreaterEqualThan, nullptr}},
      {is<LesserEqualThanOp>, {Kernel::kLesserEqualThan, nullptr}},
      {is<NotEqualOp>, {Kernel::kNotEqual, nullptr}},
      {is<EqualOp>, {Kernel::kEqual, nullptr}},
      {is<AndOp>, {Kernel::kAnd, nullptr}},
      {is<OrOp>, {Kernel::kOr, nullptr}},
      {is<NotOp>, {Kernel::kNot, nullptr}},
      {is<SinFct>, {Kernel::kUnaryFunction, sine}},
      {is<ArcSinFct>, {Kernel::kUnaryFunction, arcSine}},
      {is<SinhFct>, {Kernel::kUnaryFunction, hyperbolicSine}},
      {is<CosFct>, {Kernel::kUnaryFunction, cosine}},
      {is<ArcCosFct>, {Kernel::kUnaryFunction, arcCosine}},
      {is<CoshFct>, {Kernel::kUnaryFunction, hyperbolicCosine}},
      {is<TanFct>, {Kernel::kUnaryFunction, tangent}},
      {is<ArcTanFct>, {Kernel::kUnaryFunction, arcTangent}},
      {is<TanhFct>, {Kernel::kUnaryFunction, hyperbolicTangent}},
      {is<SqrtFct>, {Kernel::kUnaryFunction, squareRoot}},
      {is<AbsFct>, {Kernel::kUnaryFunction, absolute}},
      {is<CeilFct>, {Kernel::kUnaryFunction, ceiling}},
      {is<FloorFct>, {Kernel::kUnaryFunction, floorOf}},
      {is<LogFct>, {Kernel::kUnaryFunction, naturalLogarithm}},
      {is<Log10Fct>, {Kernel::kUnaryFunction, decimalLogarithm}},
      {is<FactorialFct>, {Kernel::kUnaryFunction, factorial}},
      {is<MinFct>, {Kernel::kMinimum, nullptr}},
      {is<MaxFct>, {Kernel::kMaximum, nullptr}},
      {is<Min3Fct>, {Kernel::kMinimum3, nullptr}},
      {is<Max3Fct>, {Kernel::kMaximum3, nullptr}},
      {is<MinUndefFct>, {Kernel::kMinimumOf, nullptr}},
      {is<MaxUndefFct>, {Kernel::kMaximumOf, nullptr}},
      {is<SumFct>, {Kernel::kSum, nullptr}},
      {is<AvgFct>, {Kernel::kAverage, nullptr}},
  };
  for (const Entry& entry : kTable)
    if (entry.matches(evaluator)) return entry.choice;
  return {Kernel::kItem, nullptr};
}

void RunPlan::build(std::vector<ProgramItem>& items) {
  steps_.clear();
  std::vector<SlotOwner> directSlots;
  for (ProgramItem& item : items) {
    if (item.isValue) continue;
    const KernelChoice choice = chooseKernel(*item.evaluator);
    Step step;
    step.kernel = choice.kernel;
    step.unaryFunction = choice.unaryFunction;
    step.argCount = item.argCount;
    step.target = item.resultTarget;
    step.evaluator = item.evaluator;
    step.args = item.args.get();
    if (choice.kernel == Kernel::kVariable) {
      step.operands[0] = static_cast<Variable*>(item.evaluator)->valuePointerAddress();
    } else if (readsOperandsDirectly(choice.kernel)) {
      for (std::uint32_t operand = 0; operand < item.argCount; ++operand) {
        step.slotAddress[operand] = &item.args[operand];
        directSlots.push_back({&item.args[operand], steps_.size(), static_cast<int>(operand)});
      }
    }
    steps_.push_back(step);
  }

  // A variable whose consumer reads operands directly is read at the consumer; its own
  // step goes.
  std::sort(directSlots.begin(), directSlots.end());
  std::vector<bool> dropped(steps_.size(), false);
  for (std::size_t index = 0; index < steps_.size(); ++index) {
    const Step& step = steps_[index];
    if (step.kernel != Kernel::kVariable) continue;
    auto owner =
        std::lower_bound(directSlots.begin(), directSlots.end(), SlotOwner{step.target, 0, 0});
    if (owner == directSlots.end() || owner->slot != step.target) continue;
    steps_[owner->stepIndex].operands[owner->operandIndex] = step.operands[0];
    dropped[index] = true;
  }
  std::size_t kept = 0;
  for (std::size_t index = 0; index < steps_.size(); ++index)
    if (!dropped[index]) steps_[kept++] = steps_[index];
  steps_.resize(kept);
  steps_.shrink_to_fit();

  // Only now do the steps stay where they are.
  for (Step& step : steps_) {
    if (!readsOperandsDirectly(step.kernel)) continue;
    for (std::uint32_t operand = 0; operand < step.argCount; ++operand)
      if (step.operands[operand] == nullptr) step.operands[operand] = &step.slotAddress[operand];
  }
}

void RunPlan::run() const {
  using namespace item_rules;
  for (const Step& step : steps_) {
    const auto operand = [&step](int index) { return **step.operands[index]; };
    double result;
    switch (step.kernel) {
      case Kernel::kItem:
        result = step.evaluator->evaluate(step.argCount, step.args);
        break;
      case Kernel::kVariable:
        result = operand(0);
        break;
      case Kernel::kUnaryFunction:
        result = step.unaryFunction(operand(0));
        break;
      case Kernel::kAdd:
        result = add(operand(0), operand(1));
        break;
      case Kernel::kSubtract:
        result = subtract(operand(0), operand(1));
        break;
      case Kernel::kMultiply:
        result = multiply(operand(0), operand(1));
        break;
      case Kernel::kDivide:
        result = divide(operand(0), operand(1));
        break;
      case Kernel::kPower:
        result = power(operand(0), operand(1));
        break;
      case Kernel::kNegate:
        result = negate(operand(0));
        break;
      case Kernel::kModulo:
        result = modulo(operand(0), operand(1));
        break;
      case Kernel::kGreaterThan:
        result = greaterThan(operand(0), operand(1));
        break;
      case Kernel::kLesserThan:
        result = lesserThan(operand(0), operand(1));
        break;
      case Kernel::kGreaterEqualThan:
        result = greaterEqualThan(operand(0), operand(1));
        break;
      case Kernel::kLesserEqualThan:
        result = lesserEqualThan(operand(0), operand(1));
        break;
      case Kernel::kNotEqual:
        result = notEqual(operand(0), operand(1));
        break;
      case Kernel::kEqual:
        result = equal(operand(0), operand(1));
        break;
      case Kernel::kAnd:
        result = logicalAnd(operand(0), operand(1));
        break;
      case Kernel::kOr:
        result = logicalOr(operand(0), operand(1));
        break;
      case Kernel::kNot:
        result = logicalNot(operand(0));
        break;
      case Kernel::kMinimum:
        result = minimum(operand(0), operand(1));
        break;
      case Kernel::kMaximum:
        result = maximum(operand(0), operand(1));
        break;
      case Kernel::kMinimum3:
        result = minimum3(operand(0), operand(1), operand(2));
        break;
      case Kernel::kMaximum3:
        result = maximum3(operand(0), operand(1), operand(2));
        break;
      case Kernel::kMinimumOf:
        result = minimumOf(step.argCount, step.args);
        break;
      case Kernel::kMaximumOf:
        result = maximumOf(step.argCount, step.args);
        break;
      case Kernel::kSum:
        result = sumOf(step.argCount, step.args);
        break;
      case Kernel::kAverage:
        result = averageOf(step.argCount, step.args);
        break;
      default:
        result = step.evaluator->evaluate(step.argCount, step.args);
        break;
    }
    *step.target = result;
  }
}
