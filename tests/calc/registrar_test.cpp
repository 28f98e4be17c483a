// What the registrar lets into the vocabulary, and the code of each refusal.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "calc_test_support.h"
#include "expr_error_codes.h"
#include "expr_registrar.h"

namespace {

// Counts its destructions, to see that refused items are not leaked.
int gDestroyedItems = 0;

class TestOperator final : public IMathOperator {
 public:
  TestOperator(std::wstring symbol, std::uint32_t precedence, bool unary)
      : symbol_(std::move(symbol)), precedence_(precedence), unary_(unary) {}
  ~TestOperator() override { ++gDestroyedItems; }
  std::wstring helpString() const override { return L"x " + symbol_ + L" y"; }
  std::wstring description() const override { return L"test operator"; }
  double evaluate(std::uint32_t, const double* arguments) const override {
    return arguments[0] * 10 + (unary_ ? 0 : arguments[1]);
  }
  std::uint32_t precedence() const override { return precedence_; }
  std::wstring symbol() const override { return symbol_; }
  bool isUnary() const override { return unary_; }

 private:
  std::wstring symbol_;
  std::uint32_t precedence_;
  bool unary_;
};

class TestFunction final : public IMathFunction {
 public:
  TestFunction(std::wstring symbol, std::int32_t count)
      : symbol_(std::move(symbol)), count_(count) {}
  ~TestFunction() override { ++gDestroyedItems; }
  std::wstring helpString() const override { return symbol_ + L"()"; }
  std::wstring description() const override { return L"test function"; }
  double evaluate(std::uint32_t count, const double*) const override { return count; }
  std::wstring symbol() const override { return symbol_; }
  std::int32_t argumentCount() const override { return count_; }

 private:
  std::wstring symbol_;
  std::int32_t count_;
};

std::uint32_t refusalCode(const std::function<void()>& definition) {
  try {
    definition();
  } catch (const DefinitionError& error) {
    EXPECT_FALSE(error.records().empty());
    EXPECT_EQ(error.records().back().sourceFile, L"ExprRegistrar");
    return error.errorCode();
  }
  return 99;  // accepted
}

TEST(Registrar, SyntaxChecks) {
  TestEngine engine;
  ExprRegistrar& registrar = engine.expression.registrar();
  auto define = [&registrar](ExpressionSyntax syntax) {
    return refusalCode([&] { registrar.defineSyntax(syntax); });
  };
  EXPECT_EQ(define({L'.', L'.', L'[', L']'}), 0u);
  EXPECT_EQ(define({L'.', L'[', L'[', L']'}), 1u);
  EXPECT_EQ(define({L'.', L']', L'[', L']'}), 1u);
  EXPECT_EQ(define({L'[', L',', L'[', L']'}), 2u);
  EXPECT_EQ(define({L']', L',', L'[', L']'}), 2u);
  EXPECT_EQ(define({L'.', L',', L'{', L'{'}), 99u);  // one character may serve as both
  EXPECT_EQ(define({L'.', L'%', L'[', L']'}), 5u);   // the modulo operator holds it
  registrar.defineFunc(new TestFunction(L"f_g", 1), true);
  EXPECT_EQ(define({L'_', L',', L'[', L']'}), 9u);
  engine.expression.defineConst(L"k#", 1);
  EXPECT_EQ(define({L'.', L'#', L'[', L']'}), 20u);
  EXPECT_EQ(registrar.syntax().decimalPoint, L'.');
  EXPECT_EQ(registrar.syntax().openingBracket, L'{');
}

TEST(Registrar, SyntaxRefusalNamesTheSymbolAndCharacter) {
  MathExpression expression;
  try {
    expression.registrar().defineSyntax({L'.', L'^', L'[', L']'});
    ADD_FAILURE() << "accepted";
  } catch (const DefinitionError& error) {
    EXPECT_EQ(error.data().firstItem, L"^");
    EXPECT_EQ(error.data().secondItem, L"^");
  }
}

TEST(Registrar, OperatorChecks) {
  TestEngine engine;
  ExprRegistrar& registrar = engine.expression.registrar();
  auto define = [&registrar](const wchar_t* symbol, std::uint32_t precedence, bool unary) {
    return refusalCode(
        [&] { registrar.defineOp(new TestOperator(symbol, precedence, unary), true); });
  };
  const int destroyedBefore = gDestroyedItems;
  EXPECT_EQ(define(L"", 1, false), 4u);
  EXPECT_EQ(define(L"#", 5, false), 6u);
  EXPECT_EQ(define(L"+", 1, false), 3u);
  EXPECT_EQ(define(L"!", 1, true), 3u);
  EXPECT_EQ(define(L"a.", 1, false), 5u);
  EXPECT_EQ(define(L"(", 1, false), 5u);
  EXPECT_EQ(define(L"in", 1, false), 10u);  // inside "sin"
  EXPECT_EQ(define(L"q", 1, false), 10u);   // inside "sqrt"
  EXPECT_EQ(gDestroyedItems - destroyedBefore, 8);
  engine.expression.defineConst(L"kk", 1);
  EXPECT_EQ(define(L"k", 1, false), 21u);
  // A symbol may be shared between a unary and a binary operator.
  EXPECT_EQ(define(L"+", 4, true), 99u);
  EXPECT_EQ(define(L"#", 4, false), 99u);
}

TEST(Registrar, OperatorsAreMatchedLongestFirst) {
  MathExpression expression;
  ExprRegistrar& registrar = expression.registrar();
  registrar.defineOp(new TestOperator(L"=", 0, false), true);
  registrar.defineOp(new TestOperator(L"===", 0, false), true);
  const auto& operators = registrar.operators();
  EXPECT_EQ(operators.front().symbol, L"===");
  EXPECT_EQ(registrar.matchOperator(L"1===2", 1), registrar.findOperator(L"===", false));
  EXPECT_EQ(registrar.matchOperator(L"1==2", 1), registrar.findOperator(L"==", false));
  EXPECT_EQ(registrar.matchOperator(L"1=2", 1), registrar.findOperator(L"=", false));
  expression.compile(L"1=2");
  EXPECT_EQ(expression.evaluate(), 12.0);
  expression.compile(L"2==2");
  EXPECT_EQ(expression.evaluate(), 1.0);
}

TEST(Registrar, FunctionChecks) {
  TestEngine engine;
  ExprRegistrar& registrar = engine.expression.registrar();
  auto define = [&registrar](const wchar_t* symbol, std::int32_t count) {
    return refusalCode([&] { registrar.defineFunc(new TestFunction(symbol, count), true); });
  };
  const int destroyedBefore = gDestroyedItems;
  EXPECT_EQ(define(L"", 1), 8u);
  EXPECT_EQ(define(L"sin", 1), 7u);
  EXPECT_EQ(define(L"min", -1), 7u);
  EXPECT_EQ(define(L"f,", 1), 9u);
  EXPECT_EQ(define(L"f]", 1), 9u);
  EXPECT_EQ(define(L"a-b", 1), 10u);
  EXPECT_EQ(gDestroyedItems - destroyedBefore, 6);
  EXPECT_EQ(define(L"sin", 2), 99u);  // a new overload
  engine.expression.compile(L"sin(1,2)+sin(0)");
  EXPECT_EQ(engine.expression.evaluate(), 2.0);
}

TEST(Registrar, OverloadChoicePrefersAnExactCount) {
  MathExpression expression;
  ExprRegistrar& registrar = expression.registrar();
  registrar.defineFunc(new TestFunction(L"g", -1), true);
  registrar.defineFunc(new TestFunction(L"g", 2), true);
  const int any = registrar.findFunction(L"g");
  EXPECT_EQ(registrar.findFunction(L"g", 2), any + 1);
  EXPECT_EQ(registrar.findFunction(L"g", 5), any);
  EXPECT_EQ(registrar.findFunction(L"g", 0), ExprRegistrar::kNotFound);
  EXPECT_EQ(registrar.findFunction(L"min", 4), registrar.findFunction(L"min") + 2);
}

TEST(Registrar, VariableChecks) {
  TestEngine engine;
  auto define = [&engine](const wchar_t* name) {
    return refusalCode([&] { engine.expression.defineVar(name); });
  };
  EXPECT_EQ(define(L""), 12u);
  EXPECT_EQ(define(L"x"), 11u);
  EXPECT_EQ(define(L"12.5"), 13u);
  EXPECT_EQ(define(L"pi"), 14u);
  EXPECT_EQ(define(L"a[1]"), 15u);
  EXPECT_EQ(define(L"b]"), 15u);
  EXPECT_EQ(define(L"a+b"), 99u);  // reachable in brackets
  EXPECT_EQ(refusalCode([&] { engine.expression.registrar().variable(L"nothing"); }), 16u);
}

TEST(Registrar, RefusedVariableIsDestroyed) {
  class CountedVariable final : public IMathVariable {
   public:
    ~CountedVariable() override { ++gDestroyedItems; }
    double evaluate(std::uint32_t, const double*) const override { return value_; }
    std::wstring symbol() const override { return L"x"; }
    double* valuePointer() override { return &value_; }

   private:
    double value_ = 0;
  };
  TestEngine engine;
  const int destroyedBefore = gDestroyedItems;
  EXPECT_EQ(
      refusalCode([&] { engine.expression.registrar().defineVar(new CountedVariable, true); }),
      11u);
  EXPECT_EQ(gDestroyedItems - destroyedBefore, 1);
}

TEST(Registrar, ConstantChecks) {
  TestEngine engine;
  auto define = [&engine](const wchar_t* name) {
    return refusalCode([&] { engine.expression.defineConst(name, 1.0); });
  };
  EXPECT_EQ(define(L""), 18u);
  EXPECT_EQ(define(L"pi"), 17u);
  EXPECT_EQ(define(L"1.5"), 19u);
  EXPECT_EQ(define(L"a(b"), 20u);
  EXPECT_EQ(define(L"a,b"), 20u);
  EXPECT_EQ(define(L"a-b"), 21u);
  EXPECT_EQ(define(L"a>=b"), 21u);
  EXPECT_EQ(define(L"x"), 22u);
  EXPECT_EQ(define(L"tau"), 99u);
  EXPECT_EQ(engine.expression.registrar().constantIndex(L"tau"), 2);
  EXPECT_EQ(engine.expression.registrar().constantIndex(L"TAU"), ExprRegistrar::kNotFound);
}

TEST(Registrar, OwnedItemsGoWithTheEngine) {
  const int destroyedBefore = gDestroyedItems;
  TestOperator borrowed(L"#", 1, false);
  {
    MathExpression expression;
    expression.registrar().defineOp(new TestOperator(L"@", 1, false), true);
    expression.registrar().defineOp(&borrowed, false);
    expression.compile(L"1@2#3");
    EXPECT_EQ(expression.evaluate(), 123.0);
  }
  EXPECT_EQ(gDestroyedItems - destroyedBefore, 1);
}

}  // namespace
