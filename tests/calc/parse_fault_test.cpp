// Every way a text can be refused, with the code, the position and the item reported.
#include <gtest/gtest.h>

#include <string>

#include "calc_test_support.h"
#include "expr_error_codes.h"

namespace {

struct FaultCase {
  std::wstring text;
  std::uint32_t code;
  std::int32_t position;
  std::wstring item;
};

void expectFaults(std::initializer_list<FaultCase> cases) {
  for (const FaultCase& expected : cases) {
    TestEngine engine;
    engine.expression.defineVar(L"a+b");
    const SExprParsingExcepData fault = engine.faultOf(expected.text);
    SCOPED_TRACE(narrow(expected.text));
    EXPECT_EQ(fault.errorCode, expected.code);
    EXPECT_EQ(fault.position, expected.position);
    EXPECT_EQ(fault.item, expected.item);
  }
}

TEST(ParseFaults, OperatorWithoutTheNeededArity) {
  expectFaults({{L"*3", 0, 0, L"*"},
                {L"1+*3", 0, 2, L"*"},
                {L"(>=2)", 0, 1, L">="},
                {L"sin(/1)", 0, 4, L"/"}});
}

TEST(ParseFaults, Brackets) {
  expectFaults({{L"[x[y]", 1, 2, L""},
                {L"x]", 2, 1, L""},
                {L"1+]", 2, 2, L""},
                {L"[a+b]+[zz]", 11, 9, L"zz"},
                {L"[a+b", 99, 0, L"compiled"}});  // an open bracket at the end is no fault
}

TEST(ParseFaults, OperatorWithNothingBehindIt) {
  expectFaults({{L"1+", 3, 1, L""},
                {L"1>=", 3, 2, L""},
                {L"(1+)", 3, 3, L""},
                {L"max(1-,2)", 3, 6, L""},
                {L"-", 3, 0, L""}});
}

TEST(ParseFaults, Parentheses) {
  expectFaults({{L"1)", 4, 1, L""},
                {L"(1))", 4, 3, L""},
                {L"1,2", 5, 1, L""},
                {L"(1", 6, 0, L""},
                {L"2*(3+(4)", 6, 2, L""},
                {L"sin(", 6, 3, L""}});
}

TEST(ParseFaults, NoOverloadForTheArgumentCount) {
  for (const auto& [text, name, count] :
       {std::tuple{L"rand(1)", L"rand", 1}, std::tuple{L"min()", L"min", 0},
        std::tuple{L"sum()", L"sum", 0}, std::tuple{L"sin(1,2)", L"sin", 2},
        std::tuple{L"1+fact()", L"fact", 0}}) {
    TestEngine engine;
    try {
      engine.expression.compile(text);
      ADD_FAILURE() << narrow(text) << " compiled";
    } catch (const ParseError& error) {
      EXPECT_EQ(error.errorCode(), 7u) << narrow(text);
      EXPECT_EQ(error.data().item, name);
      EXPECT_EQ(error.data().argumentCount, count) << narrow(text);
      EXPECT_EQ(error.data().position,
                static_cast<std::int32_t>(std::wstring_view(text).find(name)) + 1);
    }
  }
}

TEST(ParseFaults, WordsInTheWrongPlace) {
  expectFaults({{L"(1)2", 9, 4, L"2"},
                {L"x(1)", 10, 1, L"x"},
                {L"2(3)", 10, 1, L"2"},
                {L"pi(2)", 10, 1, L"pi"},
                {L"sin(1)x", 9, 7, L"x"},
                {L"sine", 11, 1, L"sine"},
                {L"1e5", 11, 1, L"1e5"},
                {L"a=1", 11, 1, L"a=1"},
                {L"1=>2", 11, 1, L"1="},
                {L"1.2.3", 11, 1, L"1.2.3"},
                {L"1\t2", 11, 1, L"1\t2"},
                {L"SIN(1)", 10, 1, L"SIN"},
                {L"2*zz", 11, 3, L"zz"}});
}

TEST(ParseFaults, EmptyArguments) {
  expectFaults({{L"max(1,)", 12, 5, L""},
                {L"max(,1)", 12, 4, L""},
                {L"sum(1,,2)", 12, 6, L""},
                {L"(,1)", 12, 1, L""}});
}

TEST(ParseFaults, MissingOperands) {
  expectFaults({{L"2*!1", 13, -1, L""},
                {L"2^!1", 13, -1, L""},
                {L"-!1", 13, -1, L""},
                // Inside a function the operand search runs into the opening mark.
                {L"sin(2*!1)", 13, 0, L""},
                // Parentheses that leave nothing give an operand that is not there.
                {L"1+()", 13, -1, L""}});
}

TEST(ParseFaults, OperandFaultsCarryARecordOfEachPlaceTheyPassed) {
  TestEngine engine;
  try {
    engine.expression.compile(L"2*!1");
    ADD_FAILURE() << "compiled";
  } catch (const ParseError& error) {
    ASSERT_EQ(error.records().size(), 2u);
    for (const auto& record : error.records()) {
      EXPECT_EQ(record.sourceFile, L"ExprCompiler");
      EXPECT_EQ(record.kind, 0u);
      EXPECT_EQ(record.data.errorCode, 13u);
    }
    EXPECT_NE(error.records()[0].line, error.records()[1].line);
  }
}

TEST(ParseFaults, EngineWorksAgainAfterARefusal) {
  TestEngine engine;
  EXPECT_EQ(engine.faultOf(L"(1").errorCode, 6u);
  // The half-made program is not left behind for a run.
  EXPECT_EQ(engine.expression.evaluate(), 0.0);
  *engine.x = 4;
  EXPECT_EQ(engine.valueOf(L"x*2"), 8.0);
}

}  // namespace
