// How texts are read: ranks, associativity, unary operators, separators, brackets, and what
// the compiled program looks like after folding.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "calc_test_support.h"
#include "expr_compiler.h"
#include "expr_registrar.h"

namespace {

struct ValueCase {
  std::wstring text;
  double expected;
};

void expectValues(std::initializer_list<ValueCase> cases) {
  for (const ValueCase& testCase : cases) {
    TestEngine engine;
    *engine.x = 3;
    *engine.y = 0;
    EXPECT_EQ(engine.valueOf(testCase.text), testCase.expected) << narrow(testCase.text);
  }
}

std::size_t itemCount(TestEngine& engine, const std::wstring& text) {
  engine.expression.compile(text);
  return engine.expression.compiler().program().items().size();
}

TEST(ParseShape, EmptyTextsGiveZero) {
  expectValues({{L"", 0}, {L"   ", 0}, {L"()", 0}, {L"(())", 0}});
}

TEST(ParseShape, RanksAndLeftAssociativity) {
  expectValues({{L"1+2*3", 7},
                {L"2^3^2", 64},
                {L"8/4/2", 1},
                {L"10-4-3", 3},
                {L"2*3%4", 2},
                {L"1+2>2", 1},
                // Comparisons, & and | share one rank and go left to right.
                {L"1|0&0", 0},
                {L"0&0|1", 1},
                {L"3>2>1", 0},
                {L"1==1==1", 1},
                {L"(1+2)*3", 9}});
}

TEST(ParseShape, UnaryOperators) {
  expectValues({{L"-2^2", 4},
                {L"2^-1", 0.5},
                {L"--1", 1},
                {L"!!5", 1},
                {L"!0", 1},
                {L"!5", 0},
                {L"2+!1", 2},
                {L"!-1", 0},
                {L"1--1", 2},
                {L"-x*2", -6},
                {L"-(x)", -3},
                {L"sin(1)-1", std::sin(1.0) - 1}});
}

TEST(ParseShape, NotBindsLikeMultiplication) {
  // !a*b is !(a*b), whereas !a+b is (!a)+b.
  expectValues({{L"!y*x", 1}, {L"!x*y", 1}, {L"!x+y", 0}, {L"!y+x", 4}});
}

TEST(ParseShape, BlanksGoTabsStay) {
  expectValues({{L"1 2", 12}, {L" 1 + 2 ", 3}, {L"s i n ( 0 )", 0}, {L"m a x(1 , 2)", 2}});
}

TEST(ParseShape, SeparatorOutsideAFunctionKeepsTheLastPart) {
  // Accepted only when something was emitted before the separator; (1,2) is an empty
  // argument.
  expectValues({{L"(1+2,3)", 3}, {L"(1)(2)", 2}, {L"1+(2,3)", 5}, {L"(-x,y)", 0}, {L"(y)(x)", 3}});
  TestEngine engine;
  EXPECT_EQ(engine.faultOf(L"(1,2)").errorCode, 12u);
  EXPECT_EQ(engine.faultOf(L"(1,2)").position, 2);
}

TEST(ParseShape, FunctionsCountTheirOwnArguments) {
  expectValues({{L"max(min(1,2),min(3,4))", 3},
                {L"max((1),2)", 2},
                {L"max(((5)),2,(3))", 5},
                {L"sum(max(1,2,3),min(4,5),6)", 13},
                {L"min(1,2,3,4)", 1},
                {L"min(5)", 5},
                {L"sin(0)+max(1,2,3,4)", 4},
                {L"sum(x,x*2,-x)", 6}});
}

TEST(ParseShape, LongestOperatorSymbolWins) {
  expectValues(
      {{L"1>=2", 0}, {L"2>=2", 1}, {L"1<=0", 0}, {L"1!=1", 0}, {L"2==2", 1}, {L"1!=!1", 1}});
}

TEST(ParseShape, NumbersAndConstants) {
  expectValues({{L"12.", 12},
                {L".5", 0.5},
                {L".", 0},
                {L"007", 7},
                {L"pi", 3.14159265359},
                {L"e", 2.718281828459045},
                {L"2*pi", 2 * 3.14159265359},
                {L"0.1", 0.1},
                {L"123456789012345678901234567890", 123456789012345678901234567890.0}});
}

TEST(ParseShape, BracketedNamesMayHoldAnything) {
  TestEngine engine;
  *engine.expression.defineVar(L"a+b") = 5;
  *engine.expression.defineVar(L"f(x),y") = 2;
  EXPECT_EQ(engine.valueOf(L"[a+b]*2"), 10);
  EXPECT_EQ(engine.valueOf(L"[f(x),y]^[a+b]"), 32);
  EXPECT_EQ(engine.valueOf(L"[x]+1"), 1);
}

TEST(ParseShape, IdenticalBracketCharactersOpenAndClose) {
  MathExpression expression;
  expression.registrar().defineSyntax({L'.', L',', L'\'', L'\''});
  *expression.defineVar(L"a-b") = 4;
  expression.compile(L"'a-b'*2");
  EXPECT_EQ(expression.evaluate(), 8);
}

TEST(ParseShape, OtherDecimalPointAndSeparator) {
  MathExpression expression;
  expression.registrar().defineSyntax({L',', L';', L'[', L']'});
  expression.compile(L"max(1,5;1)*2");
  EXPECT_EQ(expression.evaluate(), 3.0);
}

TEST(ParseShape, ConstantsFoldToOneValue) {
  TestEngine engine;
  EXPECT_EQ(itemCount(engine, L"1+2*3"), 1u);
  EXPECT_EQ(itemCount(engine, L"sin(0)+max(1,2,3,4)"), 1u);
  EXPECT_EQ(itemCount(engine, L"sum(1,2,fact(3))*pi"), 1u);
  // Variables stop folding above them but not beside them: x*(1+2) keeps x, 3 in its slot
  // and the multiplication.
  EXPECT_EQ(itemCount(engine, L"x*(1+2)"), 2u);
  EXPECT_EQ(itemCount(engine, L"x"), 1u);
  EXPECT_EQ(itemCount(engine, L"rand()"), 1u);
  EXPECT_EQ(itemCount(engine, L"rand()+1"), 2u);
  EXPECT_EQ(itemCount(engine, L"rand(1,2)*sin(0)"), 2u);
}

TEST(ParseShape, UsedVariablesAreListedOnce) {
  TestEngine engine;
  engine.expression.compile(L"x*y+x");
  const auto& used = engine.expression.compiler().usedVariables();
  ASSERT_EQ(used.size(), 2u);
  EXPECT_EQ(used[0], L"x");
  EXPECT_EQ(used[1], L"y");
  EXPECT_TRUE(engine.expression.compiler().automaticVariables().empty());
}

TEST(ParseShape, AutomaticDefinitionMakesUnknownWordsVariables) {
  MathExpression expression;
  expression.setAutomaticVariableDefinition(true);
  expression.compile(L"width*2+width+height");
  EXPECT_EQ(expression.evaluate(), 0.0);
  *expression.registrar().variable(L"width")->valuePointer() = 3;
  EXPECT_EQ(expression.evaluate(), 9.0);
  const auto& automatic = expression.compiler().automaticVariables();
  ASSERT_EQ(automatic.size(), 2u);
  EXPECT_EQ(automatic[0], L"width");
  EXPECT_EQ(automatic[1], L"height");
}

}  // namespace
