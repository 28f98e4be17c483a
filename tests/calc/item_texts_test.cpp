// The texts and the ranks of the vocabulary are part of its contract: the compiler matches
// symbols and ranks, and the help texts are shown as they are, misspellings included.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

#include "aggregate_functions.h"
#include "calc_test_support.h"
#include "elementary_functions.h"
#include "expr_registrar.h"
#include "operators.h"
#include "random_functions.h"

namespace {

struct OperatorText {
  std::function<std::unique_ptr<IMathOperator>()> make;
  std::wstring symbol;
  std::uint32_t precedence;
  bool isUnary;
  std::wstring helpString;
  std::wstring description;
};

template <class Item>
std::unique_ptr<Item> make() {
  return std::make_unique<Item>();
}

const OperatorText kOperators[] = {
    {make<AddOp>, L"+", 1, false, L"x + y", L"Addition operator"},
    {make<MinusOp>, L"-", 1, false, L"x - y", L"Minus operator"},
    {make<MultOp>, L"*", 2, false, L"x * y", L"Multiplication operator"},
    {make<DivOp>, L"/", 2, false, L"x / y", L"Division operator"},
    {make<ExpOp>, L"^", 3, false, L"x ^ y", L"Calculates x raised to the power of y"},
    {make<UnaryMinusOp>, L"-", 4, true, L"-x", L"Unary minus operator"},
    {make<ModuloOp>, L"%", 2, false, L"x % y", L"Modulo; find remainder of the division of x by y"},
    {make<GreaterThanOp>, L">", 0, false, L"x > y",
     L"Greater than logical operator.  Return 1 if true, 0 if false."},
    {make<LesserThanOp>, L"<", 0, false, L"x < y",
     L"Lesser than logical operator.  Return 1 if true, 0 if false."},
    {make<GreaterEqualThanOp>, L">=", 0, false, L"x >= y",
     L"Greater than or equal logical operator.  Return 1 if true, 0 if false."},
    {make<LesserEqualThanOp>, L"<=", 0, false, L"x <= y",
     L"Lesser than or equal logical operator.  Return 1 if true, 0 if false."},
    {make<NotEqualOp>, L"!=", 0, false, L"x != y",
     L"Not equal logical operator.  Return 1 if true, 0 if false."},
    {make<EqualOp>, L"==", 0, false, L"x == y",
     L"Equal logical operator.  Return 1 if true, 0 if false."},
    {make<AndOp>, L"&", 0, false, L"x & y",
     L"And logical operator.  Return 1 if true, 0 if false."},
    {make<OrOp>, L"|", 0, false, L"x | y", L"Or logical operator.  Return 1 if true, 0 if false."},
    {make<NotOp>, L"!", 2, true, L"!x", L"Not logical operator. Return 1 if x is 0, else return 1"},
};

struct FunctionText {
  std::function<std::unique_ptr<IMathFunction>()> make;
  std::wstring symbol;
  std::int32_t argumentCount;
  std::wstring helpString;
  std::wstring description;
};

const FunctionText kFunctions[] = {
    {make<SinFct>, L"sin", 1, L"sin(x)", L"Sine"},
    {make<ArcSinFct>, L"asin", 1, L"asin(x)", L"Arcsine"},
    {make<SinhFct>, L"sinh", 1, L"sinh(x)", L"Hyperbolic sine"},
    {make<CosFct>, L"cos", 1, L"cos(x)", L"Cosine"},
    {make<ArcCosFct>, L"acos", 1, L"acos(x)", L"Arccosine"},
    {make<CoshFct>, L"cosh", 1, L"cosh(x)", L"Hyperbolic cosine"},
    {make<TanFct>, L"tan", 1, L"tan(x)", L"Tangent"},
    {make<ArcTanFct>, L"atan", 1, L"atan(x)", L"Arctangent"},
    {make<TanhFct>, L"tanh", 1, L"tanh(x)", L"Hyperbolic tangent"},
    {make<SqrtFct>, L"sqrt", 1, L"sqrt(x)", L"Square root"},
    {make<MinFct>, L"min", 2, L"min(x,y)", L"Return smaller of two values"},
    {make<Min3Fct>, L"min", 3, L"min(x,y,z)", L"Return smaller of three values"},
    {make<MinUndefFct>, L"min", -1, L"min(v1,v2,v3,...)", L"Return smaller of a set of values"},
    {make<MaxFct>, L"max", 2, L"max(x,y)", L"Return larger of two values"},
    {make<Max3Fct>, L"max", 3, L"max(x,y,z)", L"Return larger of three values"},
    {make<MaxUndefFct>, L"max", -1, L"max(v1,v2,v3,...)", L"Return larger of a set of values"},
    {make<AbsFct>, L"abs", 1, L"abs(x)", L"Absolute value"},
    {make<RandFct>, L"rand", 0, L"rand()", L"Random value between 0 and 1"},
    {make<RandMinMaxFct>, L"rand", 2, L"rand(min, max)", L"Random value between min and max"},
    {make<CeilFct>, L"ceil", 1, L"ceil(x)", L"Ceiling"},
    {make<FloorFct>, L"floor", 1, L"floor(x)", L"Floor"},
    {make<LogFct>, L"ln", 1, L"ln(x)", L"Natural logarithm"},
    {make<Log10Fct>, L"log", 1, L"log(x)", L"Base-10 logarithm"},
    {make<AvgFct>, L"avg", -1, L"avg(v1,v2,v3,...)", L"Return the average of a set of values"},
    {make<SumFct>, L"sum", -1, L"sum(v1,v2,v3,...)", L"Return the sum of a set of values"},
    {make<FactorialFct>, L"fact", 1, L"fact(x)",
     L"Return the factorial of x: x*(x-1)*(x-2)*...(x-x+1)"},
};

TEST(ItemTexts, OperatorsCarryTheirSymbolRankAndTexts) {
  for (const OperatorText& expected : kOperators) {
    const auto op = expected.make();
    SCOPED_TRACE(narrow(expected.helpString));
    EXPECT_EQ(op->symbol(), expected.symbol);
    EXPECT_EQ(op->precedence(), expected.precedence);
    EXPECT_EQ(op->isUnary(), expected.isUnary);
    EXPECT_EQ(op->helpString(), expected.helpString);
    EXPECT_EQ(op->description(), expected.description);
    EXPECT_TRUE(op->isConstant());
  }
}

TEST(ItemTexts, FunctionsCarryTheirNameCountAndTexts) {
  for (const FunctionText& expected : kFunctions) {
    const auto function = expected.make();
    SCOPED_TRACE(narrow(expected.helpString));
    EXPECT_EQ(function->symbol(), expected.symbol);
    EXPECT_EQ(function->argumentCount(), expected.argumentCount);
    EXPECT_EQ(function->helpString(), expected.helpString);
    EXPECT_EQ(function->description(), expected.description);
    EXPECT_EQ(function->isConstant(), expected.symbol != L"rand");
  }
}

TEST(ItemTexts, EngineRegistersFunctionsInTableOrder) {
  MathExpression expression;
  const auto& functions = expression.registrar().functions();
  ASSERT_EQ(functions.size(), std::size(kFunctions));
  for (std::size_t i = 0; i < functions.size(); ++i) {
    EXPECT_EQ(functions[i].symbol, kFunctions[i].symbol) << i;
    EXPECT_EQ(functions[i].argumentCount, kFunctions[i].argumentCount) << i;
    EXPECT_TRUE(functions[i].owned);
  }
}

TEST(ItemTexts, EngineKeepsOperatorsLongestSymbolFirstThenInDefinitionOrder) {
  MathExpression expression;
  std::wstring order;
  for (const auto& entry : expression.registrar().operators()) order += entry.symbol + L" ";
  EXPECT_EQ(order, L">= <= != == + - * / ^ - % > < & | ! ");
}

TEST(ItemTexts, MemoryVariableHasNoTextsAndFollowsItsStorage) {
  MathExpression::MemVariableFactory factory;
  std::unique_ptr<IMathVariable> variable(factory.createVariable(L"width"));
  EXPECT_EQ(variable->symbol(), L"width");
  EXPECT_EQ(variable->helpString(), L"");
  EXPECT_EQ(variable->description(), L"");
  EXPECT_FALSE(variable->isConstant());
  EXPECT_EQ(variable->argumentCount(), 0);
  *variable->valuePointer() = 4.5;
  EXPECT_EQ(variable->evaluate(0, nullptr), 4.5);

  double outside = -1.0;
  static_cast<MathExpression::MemVariableEvaluator&>(*variable).rebind(&outside);
  EXPECT_EQ(variable->valuePointer(), &outside);
  EXPECT_EQ(variable->evaluate(0, nullptr), -1.0);
}

}  // namespace
