// Reading LISP text and printing values back.
#include <gtest/gtest.h>

#include "lisp/printer.h"
#include "lisp/reader.h"

namespace korva::lisp {
namespace {

// Reads one expression and prints it in the readable form.
std::wstring roundTrip(std::wstring_view text) {
  ReadResult result = read(text);
  if (!result.ok()) return L"error: " + result.error;
  std::wstring printedForms;
  for (const Value& each : result.expressions) {
    if (!printedForms.empty()) printedForms += L" | ";
    printedForms += printed(each);
  }
  return printedForms;
}

TEST(ReaderTest, NumbersAreIntegersUnlessTheyNeedToBeReal) {
  EXPECT_EQ(roundTrip(L"42 -7 +3"), L"42 | -7 | 3");
  EXPECT_EQ(roundTrip(L"2.5 .5 -1. 1e3 2.5E-2"), L"2.5 | 0.5 | -1.0 | 1000.0 | 0.025");
  EXPECT_EQ(read(L"2147483647").expressions[0].kind, Value::Kind::Integer);
  EXPECT_EQ(read(L"2147483648").expressions[0].kind, Value::Kind::Real);
  // Names that merely hold digits stay symbols.
  EXPECT_EQ(roundTrip(L"1+ x2 0x10 inf"), L"1+ | X2 | 0X10 | INF");
}

TEST(ReaderTest, StringsKeepTheirEscapes) {
  ReadResult result = read(LR"("a\"b\\c\nd\te\101")");
  ASSERT_TRUE(result.ok());
  EXPECT_EQ(result.expressions[0].text, L"a\"b\\c\nd\teA");
  EXPECT_EQ(printed(result.expressions[0]), LR"("a\"b\\c\nd\teA")");
  EXPECT_EQ(displayed(result.expressions[0]), L"a\"b\\c\nd\teA");
}

TEST(ReaderTest, SymbolsListsAndQuotes) {
  EXPECT_EQ(roundTrip(L"(setq Abc '(1 \"x\" (nil t)))"), L"(SETQ ABC (QUOTE (1 \"x\" (nil T))))");
  EXPECT_EQ(roundTrip(L"()"), L"nil");
  EXPECT_EQ(roundTrip(L"NIL"), L"nil");
  EXPECT_EQ(roundTrip(L"(a;comment\n b ;|block\ncomment|; c)"), L"(A B C)");
}

TEST(ReaderTest, BrokenTextIsReportedAndNothingIsKept) {
  EXPECT_EQ(roundTrip(L"(a (b)"), L"error: malformed list on input");
  EXPECT_EQ(roundTrip(L"(a))"), L"error: extra right paren on input");
  EXPECT_EQ(roundTrip(L"\"open"), L"error: malformed string on input");
  EXPECT_EQ(roundTrip(L"'"), L"error: malformed list on input");
  EXPECT_EQ(roundTrip(L"(1 . 2)"), L"error: dotted pairs are not read");
  EXPECT_TRUE(read(L"1 (").expressions.empty());
  EXPECT_TRUE(read(L"  ; only a comment").ok());
}

TEST(PrinterTest, RealsShowSixSignificantDigitsAndAPoint) {
  EXPECT_EQ(realText(3.14159265358979), L"3.14159");
  EXPECT_EQ(realText(100.0), L"100.0");
  EXPECT_EQ(realText(-0.5), L"-0.5");
  EXPECT_EQ(realText(1234567.0), L"1.23457e+06");
  EXPECT_EQ(realText(1e7), L"1.0e+07");
  EXPECT_EQ(realText(1.0 / 0.0), L"inf");
}

TEST(PrinterTest, CommandTokensKeepEveryDigit) {
  EXPECT_EQ(exactNumberText(Value::ofReal(0.1)), L"0.1");
  EXPECT_EQ(exactNumberText(Value::ofReal(1.0 / 3.0)), L"0.3333333333333333");
  EXPECT_EQ(exactNumberText(Value::ofInteger(-12)), L"-12");
}

TEST(PrinterTest, NamesSetsAndNothing) {
  const std::int64_t entity[2] = {0x1F, 2};
  const std::int64_t set[2] = {26, 0};
  EXPECT_EQ(printed(Value::ofEntity(entity)), L"<Entity name: 7ff20000001f>");
  EXPECT_EQ(printed(Value::ofSelectionSet(set)), L"<Selection set: 1a>");
  EXPECT_EQ(printed(Value::nothing()), L"");
  EXPECT_EQ(displayed(Value::ofList({Value::ofString(L"a b"), Value::ofInteger(1)})), L"(a b 1)");
}

}  // namespace
}  // namespace korva::lisp
