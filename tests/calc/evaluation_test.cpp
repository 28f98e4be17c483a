// Running a compiled program: repeated runs, variables read afresh, no allocation.
#include <gtest/gtest.h>

#include <atomic>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>
#include <numbers>

#include "calc_test_support.h"
#include "expr_compiler.h"
#include "expr_registrar.h"

namespace {
std::atomic<long> gAllocations{0};
}  // namespace

// Counts every allocation in this test program, to show that a run makes none. The
// replacement pairs malloc with free on purpose, which the compiler cannot see through.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
#endif
void* operator new(std::size_t size) {
  ++gAllocations;
  if (void* memory = std::malloc(size ? size : 1)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace {

TEST(Evaluation, FreshEngineGivesZero) {
  MathExpression expression;
  EXPECT_EQ(expression.evaluate(), 0.0);
  ASSERT_EQ(expression.compiler().program().items().size(), 1u);
  EXPECT_TRUE(expression.compiler().program().items()[0].isValue);
}

TEST(Evaluation, VariablesAreReadAtEachRun) {
  TestEngine engine;
  engine.expression.compile(L"x*x+y*sin(x)-max(x,y,1)/2");
  for (double x = -2; x <= 2; x += 0.5) {
    for (double y = -1; y <= 1; y += 1) {
      *engine.x = x;
      *engine.y = y;
      const double expected = x * x + y * std::sin(x) - std::fmax(std::fmax(x, y), 1) / 2;
      EXPECT_EQ(engine.expression.evaluate(), expected) << x << " " << y;
    }
  }
}

TEST(Evaluation, RebindingAfterCompileIsFollowed) {
  MathExpression expression;
  double first = 2;
  double second = 5;
  expression.defineVar(L"v", &first);
  expression.compile(L"v*3+v");
  EXPECT_EQ(expression.evaluate(), 8.0);
  auto* variable =
      static_cast<MathExpression::MemVariableEvaluator*>(expression.registrar().variable(L"v"));
  variable->rebind(&second);
  EXPECT_EQ(expression.evaluate(), 20.0);
}

TEST(Evaluation, CustomVariablesAreAskedEachRun) {
  class CountingVariable final : public IMathVariable {
   public:
    double evaluate(std::uint32_t, const double*) const override { return ++calls_; }
    std::wstring symbol() const override { return L"tick"; }
    double* valuePointer() override { return &calls_; }

   private:
    mutable double calls_ = 0;
  };
  MathExpression expression;
  expression.registrar().defineVar(new CountingVariable, true);
  expression.compile(L"tick*10");
  EXPECT_EQ(expression.evaluate(), 10.0);
  EXPECT_EQ(expression.evaluate(), 20.0);
}

TEST(Evaluation, NonConstantFunctionsRunAnew) {
  TestEngine engine;
  engine.expression.compile(L"rand()*0+rand()");
  std::srand(3);
  std::rand();
  const int expected = std::rand();
  std::srand(3);
  // Both draws happen, in order; the second is the result.
  EXPECT_EQ(engine.expression.evaluate(), expected / 32767.0);
}

TEST(Evaluation, LeftoverPartsStillRun) {
  TestEngine engine;
  engine.expression.compile(L"(rand(),x)");
  std::srand(5);
  std::rand();
  const int second = std::rand();
  std::srand(5);
  *engine.x = 4;
  EXPECT_EQ(engine.expression.evaluate(), 4.0);
  EXPECT_EQ(std::rand(), second);
}

TEST(Evaluation, InfinityAndNaNFlowThrough) {
  TestEngine engine;
  *engine.x = 0;
  engine.expression.compile(L"1/x");
  EXPECT_EQ(engine.expression.evaluate(), std::numeric_limits<double>::infinity());
  engine.expression.compile(L"x/x+1");
  EXPECT_TRUE(std::isnan(engine.expression.evaluate()));
  engine.expression.compile(L"!(x/x)");
  EXPECT_EQ(engine.expression.evaluate(), 0.0);
}

TEST(Evaluation, TheTruncatedPiIsKept) {
  TestEngine engine;
  EXPECT_NE(engine.valueOf(L"sin(pi)"), std::sin(std::numbers::pi));
  EXPECT_EQ(engine.valueOf(L"sin(pi)"), std::sin(3.14159265359));
}

TEST(Evaluation, ARunAllocatesNothing) {
  TestEngine engine;
  engine.expression.compile(L"sum(x,y,x*y)+avg(x,2)+rand()*sin(x)^2+fact(y)+min(x,y,1,2)");
  *engine.x = 1.5;
  *engine.y = 4;
  const long before = gAllocations.load();
  double total = 0;
  for (int run = 0; run < 100; ++run) total += engine.expression.evaluate();
  EXPECT_EQ(gAllocations.load(), before);
  EXPECT_TRUE(std::isfinite(total));
}

TEST(Evaluation, EnginesAreIndependent) {
  TestEngine first;
  TestEngine second;
  *first.x = 1;
  *second.x = 2;
  first.expression.compile(L"x+10");
  second.expression.compile(L"x+20");
  EXPECT_EQ(first.expression.evaluate(), 11.0);
  EXPECT_EQ(second.expression.evaluate(), 22.0);
}

}  // namespace
