// Evaluating LISP: variables, arithmetic, lists, strings, control and defuns.
#include <gtest/gtest.h>

#include "lisp/interpreter.h"
#include "lisp/printer.h"

namespace korva::lisp {
namespace {

std::wstring evaluate(std::wstring_view text) {
  Outcome outcome = Interpreter::instance().run(text);
  return outcome.value ? printed(*outcome.value) : L"error: " + outcome.error;
}

TEST(EvaluatorTest, ArithmeticKeepsIntegersUntilARealJoins) {
  EXPECT_EQ(evaluate(L"(+ 1 2 3)"), L"6");
  EXPECT_EQ(evaluate(L"(+ 1 2.0)"), L"3.0");
  EXPECT_EQ(evaluate(L"(- 10 4 1)"), L"5");
  EXPECT_EQ(evaluate(L"(- 5)"), L"-5");
  EXPECT_EQ(evaluate(L"(* 2 3.5)"), L"7.0");
  EXPECT_EQ(evaluate(L"(/ 7 2)"), L"3");
  EXPECT_EQ(evaluate(L"(/ -7 2)"), L"-3");
  EXPECT_EQ(evaluate(L"(/ 7 2.0)"), L"3.5");
  EXPECT_EQ(evaluate(L"(+)"), L"0");
  EXPECT_EQ(evaluate(L"(+ 2147483647 1)"), L"-2147483648");
  EXPECT_EQ(evaluate(L"(/ 1 0)"), L"error: divide by zero");
  EXPECT_EQ(evaluate(L"(/ 1.0 0)"), L"error: divide by zero");
  EXPECT_EQ(evaluate(L"(+ 1 \"a\")"), L"error: bad argument type: numberp: \"a\"");
}

TEST(EvaluatorTest, ComparisonsChainOverNumbersAndStrings) {
  EXPECT_EQ(evaluate(L"(= 1 1.0)"), L"T");
  EXPECT_EQ(evaluate(L"(= 1 1 2)"), L"nil");
  EXPECT_EQ(evaluate(L"(/= 1 2)"), L"T");
  EXPECT_EQ(evaluate(L"(/= 1 1)"), L"nil");
  EXPECT_EQ(evaluate(L"(< 1 2 3)"), L"T");
  EXPECT_EQ(evaluate(L"(< 1 3 2)"), L"nil");
  EXPECT_EQ(evaluate(L"(>= 3 3 1)"), L"T");
  EXPECT_EQ(evaluate(L"(<= 2 1)"), L"nil");
  EXPECT_EQ(evaluate(L"(> \"b\" \"a\")"), L"T");
  EXPECT_EQ(evaluate(L"(= \"a\" \"a\")"), L"T");
  EXPECT_EQ(evaluate(L"(< 1 \"a\")"), L"error: bad argument type: numberp: \"a\"");
}

TEST(EvaluatorTest, VariablesAreGlobalAndUnboundOnesAreNil) {
  EXPECT_EQ(evaluate(L"(setq va 1 vb (+ va 1))"), L"2");
  EXPECT_EQ(evaluate(L"(list va vb)"), L"(1 2)");
  EXPECT_EQ(evaluate(L"never-set"), L"nil");
  EXPECT_EQ(evaluate(L"(setq va)"), L"error: too few arguments");
  EXPECT_EQ(evaluate(L"(setq 1 2)"), L"error: bad argument type: symbolp 1");
  EXPECT_EQ(evaluate(L"(setq t 2)"), L"error: bad argument type: symbolp T");
  EXPECT_EQ(evaluate(L"t"), L"T");
}

TEST(EvaluatorTest, ListFunctions) {
  EXPECT_EQ(evaluate(L"(car '(1 2 3))"), L"1");
  EXPECT_EQ(evaluate(L"(cdr '(1 2 3))"), L"(2 3)");
  EXPECT_EQ(evaluate(L"(cdr '(1))"), L"nil");
  EXPECT_EQ(evaluate(L"(cadr '(1 2 3))"), L"2");
  EXPECT_EQ(evaluate(L"(car nil)"), L"nil");
  EXPECT_EQ(evaluate(L"(nth 2 '(a b c))"), L"C");
  EXPECT_EQ(evaluate(L"(nth 3 '(a b c))"), L"nil");
  EXPECT_EQ(evaluate(L"(nth -1 '(a b c))"), L"nil");
  EXPECT_EQ(evaluate(L"(list)"), L"nil");
  EXPECT_EQ(evaluate(L"(car 5)"), L"error: bad argument type: consp 5");
  EXPECT_EQ(evaluate(L"(not nil)"), L"T");
  EXPECT_EQ(evaluate(L"(null '(1))"), L"nil");
}

TEST(EvaluatorTest, StringFunctions) {
  EXPECT_EQ(evaluate(L"(strcat \"ab\" \"\" \"c\")"), L"\"abc\"");
  EXPECT_EQ(evaluate(L"(strcat)"), L"\"\"");
  EXPECT_EQ(evaluate(L"(itoa -12)"), L"\"-12\"");
  EXPECT_EQ(evaluate(L"(itoa 1.5)"), L"error: bad argument type: fixnump: 1.5");
  EXPECT_EQ(evaluate(L"(atoi \"42abc\")"), L"42");
  EXPECT_EQ(evaluate(L"(atoi \"x\")"), L"0");
  EXPECT_EQ(evaluate(L"(atof \"2.5\")"), L"2.5");
  EXPECT_EQ(evaluate(L"(strcat \"a\" 1)"), L"error: bad argument type: stringp 1");
}

TEST(EvaluatorTest, ControlForms) {
  EXPECT_EQ(evaluate(L"(if (> 2 1) \"yes\" \"no\")"), L"\"yes\"");
  EXPECT_EQ(evaluate(L"(if nil 1)"), L"nil");
  EXPECT_EQ(evaluate(L"(progn 1 2 3)"), L"3");
  EXPECT_EQ(evaluate(L"(progn)"), L"nil");
  EXPECT_EQ(
      evaluate(L"(setq n 0 total 0) (while (< n 5) (setq total (+ total n) n (+ n 1))) total"),
      L"10");
  EXPECT_EQ(evaluate(L"(while nil 1)"), L"nil");
  EXPECT_EQ(evaluate(L"(and 1 nil (/ 1 0))"), L"nil");
  EXPECT_EQ(evaluate(L"(or nil 2 (/ 1 0))"), L"T");
  EXPECT_EQ(evaluate(L"(if)"), L"error: too few arguments");
  EXPECT_EQ(evaluate(L"(undefined-function 1)"),
            L"error: no function definition: UNDEFINED-FUNCTION");
  EXPECT_EQ(evaluate(L"((1) 2)"), L"error: bad function: (1)");
}

TEST(EvaluatorTest, DefunsBindParametersAndLocalsForTheCallOnly) {
  EXPECT_EQ(evaluate(L"(defun square (x) (* x x))"), L"SQUARE");
  EXPECT_EQ(evaluate(L"(square 7)"), L"49");
  EXPECT_EQ(evaluate(L"(setq x 'outer scratch 'kept)"), L"KEPT");
  EXPECT_EQ(evaluate(L"(defun uses-local (x / scratch) (setq scratch (* 2 x)) scratch)"),
            L"USES-LOCAL");
  EXPECT_EQ(evaluate(L"(uses-local 4)"), L"8");
  EXPECT_EQ(evaluate(L"(list x scratch)"), L"(OUTER KEPT)");
  // Dynamic scope: a called function sees its caller's bindings.
  EXPECT_EQ(evaluate(L"(defun inner () y) (defun outer (y) (inner)) (outer 5)"), L"5");
  EXPECT_EQ(evaluate(L"(square)"), L"error: too few arguments");
  EXPECT_EQ(evaluate(L"(square 1 2)"), L"error: too many arguments");
  // A failing call still gives the earlier values back.
  EXPECT_EQ(evaluate(L"(uses-local \"a\")"), L"error: bad argument type: numberp: \"a\"");
  EXPECT_EQ(evaluate(L"scratch"), L"KEPT");
  EXPECT_EQ(evaluate(L"(defun fact (n) (if (< n 2) 1 (* n (fact (- n 1))))) (fact 10)"),
            L"3628800");
  EXPECT_EQ(evaluate(L"(defun forever () (forever)) (forever)"), L"error: too deeply nested");
  EXPECT_EQ(evaluate(L"square"), L"#<function SQUARE>");
}

}  // namespace
}  // namespace korva::lisp
