// What each operator and function computes, checked twice: once folded at compile time
// (through the item's own evaluate) and once at run time with the operands in variables.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwctype>
#include <limits>
#include <string>

#include "calc_test_support.h"
#include "expr_compiler.h"

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::wstring literal(double value) {
  if (std::isnan(value)) return L"nan";
  if (std::isinf(value)) return value > 0 ? L"inf" : L"(-inf)";
  char text[64];
  std::snprintf(text, sizeof text, "%.17g", std::fabs(value));
  std::string digits(text);
  EXPECT_EQ(digits.find('e'), std::string::npos) << "pick a value without exponent";
  std::wstring wide(digits.begin(), digits.end());
  return std::signbit(value) ? L"(-" + wide + L")" : wide;
}

// Replaces the variables x and y, but not the letters of "max".
std::wstring substitute(const std::wstring& text, double x, double y) {
  std::wstring result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const wchar_t c = text[i];
    const bool alone = (i == 0 || !std::iswalpha(text[i - 1])) &&
                       (i + 1 == text.size() || !std::iswalpha(text[i + 1]));
    if (alone && c == L'x')
      result += literal(x);
    else if (alone && c == L'y')
      result += literal(y);
    else
      result += c;
  }
  return result;
}

struct ResultCase {
  std::wstring text;  // in x and y
  double x;
  double y;
  double expected;
};

void checkBothWays(const ResultCase& testCase) {
  TestEngine engine;
  engine.expression.defineConst(L"nan", kNaN);
  engine.expression.defineConst(L"inf", kInfinity);
  *engine.x = testCase.x;
  *engine.y = testCase.y;
  SCOPED_TRACE(narrow(testCase.text) + " x=" + std::to_string(testCase.x) +
               " y=" + std::to_string(testCase.y));
  const double run = engine.valueOf(testCase.text);
  EXPECT_TRUE(sameValue(run, testCase.expected)) << "run gave " << run;
  const std::wstring folded = substitute(testCase.text, testCase.x, testCase.y);
  const double constant = engine.valueOf(folded);
  EXPECT_EQ(engine.expression.compiler().program().items().size(), 1u) << narrow(folded);
  EXPECT_TRUE(sameValue(constant, testCase.expected)) << narrow(folded) << " gave " << constant;
}

TEST(ItemResults, ArithmeticOperators) {
  const ResultCase cases[] = {
      {L"x+y", 2, 3, 5},           {L"x-y", 2, 3, -1},        {L"x*y", 2, 3, 6},
      {L"x/y", 7, 2, 3.5},         {L"x/y", 1, 0, kInfinity}, {L"x/y", -1, 0, -kInfinity},
      {L"x/y", 0, 0, kNaN},        {L"x^y", 2, 10, 1024},     {L"x^y", 2, 0.5, std::pow(2.0, 0.5)},
      {L"x^y", -8, 1.0 / 3, kNaN}, {L"-x", 2, 0, -2},         {L"-x", 0, 0, -0.0},
      {L"-x", kNaN, 0, kNaN},      {L"x%y", 7, -2, 1},        {L"x%y", -7, 2, -1},
      {L"x%y", 5.5, 2, 1.5},       {L"x%y", 1, 0, kNaN},
  };
  for (const auto& testCase : cases) checkBothWays(testCase);
}

TEST(ItemResults, ComparisonsAreExactAndFalseForNaN) {
  const ResultCase cases[] = {
      {L"x>y", 3, 2, 1},        {L"x>y", 2, 3, 0},
      {L"x>y", kNaN, 1, 0},     {L"x<y", 2, 3, 1},
      {L"x<y", 3, 3, 0},        {L"x<y", 1, kNaN, 0},
      {L"x>=y", 2, 2, 1},       {L"x>=y", 1, 2, 0},
      {L"x>=y", kNaN, kNaN, 0}, {L"x<=y", 2, 2, 1},
      {L"x<=y", 3, 2, 0},       {L"x<=y", kNaN, 0, 0},
      {L"x==y", 1, 1, 1},       {L"x==y", 0.1 + 0.2, 0.3, 0},
      {L"x==y", kNaN, kNaN, 0}, {L"x==y", 0.0, -0.0, 1},
      {L"x!=y", 1, 1, 0},       {L"x!=y", 0.1 + 0.2, 0.3, 1},
      {L"x!=y", kNaN, kNaN, 1},
  };
  for (const auto& testCase : cases) checkBothWays(testCase);
}

TEST(ItemResults, LogicTreatsNaNAsTrue) {
  const ResultCase cases[] = {
      {L"x&y", 2, 3, 1},   {L"x&y", 2, 0, 0},    {L"x&y", kNaN, 1, 1}, {L"x|y", 0, 0, 0},
      {L"x|y", 0, -4, 1},  {L"x|y", 0, kNaN, 1}, {L"!x", 0, 0, 1},     {L"!x", 5, 0, 0},
      {L"!x", kNaN, 0, 0}, {L"!x", -0.0, 0, 1},
  };
  for (const auto& testCase : cases) checkBothWays(testCase);
}

TEST(ItemResults, ElementaryFunctionsAreTheLibrarys) {
  const double x = 0.37;
  const ResultCase cases[] = {
      {L"sin(x)", x, 0, std::sin(x)},
      {L"asin(x)", x, 0, std::asin(x)},
      {L"sinh(x)", x, 0, std::sinh(x)},
      {L"cos(x)", x, 0, std::cos(x)},
      {L"acos(x)", x, 0, std::acos(x)},
      {L"cosh(x)", x, 0, std::cosh(x)},
      {L"tan(x)", x, 0, std::tan(x)},
      {L"atan(x)", x, 0, std::atan(x)},
      {L"tanh(x)", x, 0, std::tanh(x)},
      {L"sqrt(x)", 2, 0, std::sqrt(2.0)},
      {L"sqrt(x)", -1, 0, kNaN},
      {L"abs(x)", -2.5, 0, 2.5},
      {L"abs(x)", -0.0, 0, 0.0},
      {L"ceil(x)", -1.5, 0, -1},
      {L"floor(x)", -1.5, 0, -2},
      {L"ln(x)", 2.718281828459045, 0, std::log(2.718281828459045)},
      {L"ln(x)", 0, 0, -kInfinity},
      {L"log(x)", 1000, 0, 3},
      {L"asin(x)", 2, 0, kNaN},
  };
  for (const auto& testCase : cases) checkBothWays(testCase);
}

TEST(ItemResults, MinimumAndMaximumKeepTheirOrderRules) {
  const ResultCase cases[] = {
      {L"min(x,y)", 1, 2, 1},
      {L"min(x,y)", 2, 1, 1},
      // "x if y > x, else y": a NaN on either side decides by that test alone.
      {L"min(x,y)", 1, kNaN, kNaN},
      {L"min(x,y)", kNaN, 1, 1},
      {L"max(x,y)", 1, 2, 2},
      {L"max(x,y)", 2, 1, 2},
      {L"min(x,y,3)", 4, 5, 3},
      {L"min(x,3,y)", 4, 2, 2},
      {L"max(x,y,3)", 4, 5, 5},
      {L"max(3,x,y)", 1, 2, 3},
      {L"min(x,y,3,0.5)", 4, 5, 0.5},
      {L"min(x,y,3,0.5,-1)", 4, 5, -1},
      {L"max(x,y,3,9)", 4, 5, 9},
      {L"min(x)", 7, 0, 7},
      {L"max(y)", 0, -7, -7},
  };
  for (const auto& testCase : cases) checkBothWays(testCase);
}

TEST(ItemResults, SumAndAverageAddInOrder) {
  const ResultCase cases[] = {
      {L"sum(x,y,3)", 1, 2, 6},
      {L"sum(x)", 4, 0, 4},
      {L"avg(x,y,3,4)", 1, 2, 2.5},
      // In order: (1e16 + 1) + 1 loses both ones, which a sorted sum would keep.
      {L"sum(x,1,1)", 1e16, 0, 1e16},
      {L"avg(x,y)", 1, kInfinity, kInfinity},
  };
  for (const auto& testCase : cases) checkBothWays(testCase);
}

TEST(ItemResults, FactorialTruncatesAndGivesZeroBelowOne) {
  const ResultCase cases[] = {
      {L"fact(x)", 0, 0, 0},
      {L"fact(x)", 1, 0, 1},
      {L"fact(x)", 5, 0, 120},
      {L"fact(x)", -3, 0, 0},
      {L"fact(x)", 3.9, 0, 6},
      {L"fact(x)", 0.9, 0, 0},
      {L"fact(x)", 20, 0, 2432902008176640000.0},
      {L"fact(x)", 171, 0, kInfinity},
      {L"fact(x)", 2000000000, 0, kInfinity},
      // Beyond 32 bits the truncation gives the indefinite integer, which is negative.
      {L"fact(x)", 3000000000.0, 0, 0},
      {L"fact(x)", kNaN, 0, 0},
  };
  for (const auto& testCase : cases) checkBothWays(testCase);
  // Formed from the top down in doubles; 170! is the largest finite one.
  double product = 1.0;
  for (int factor = 170; factor >= 2; --factor) product *= factor;
  checkBothWays({L"fact(x)", 170, 0, product});
}

TEST(ItemResults, RandomValuesUseTheWrittenDivisor) {
  TestEngine engine;
  engine.expression.compile(L"rand()");
  std::srand(7);
  const int first = std::rand();
  const int second = std::rand();
  std::srand(7);
  EXPECT_EQ(engine.expression.evaluate(), first / 32767.0);
  EXPECT_EQ(engine.expression.evaluate(), second / 32767.0);

  engine.expression.compile(L"rand(10,20)");
  std::srand(11);
  const int drawn = std::rand();
  std::srand(11);
  EXPECT_EQ(engine.expression.evaluate(), drawn / 32767.0 * (20.0 - 10.0) + 10.0);
}

}  // namespace
