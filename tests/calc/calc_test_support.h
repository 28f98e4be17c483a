#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <string>

#include "expr_exceptions.h"
#include "math_expression.h"

// An engine dressed as the calculator command dresses it, with two variables besides.
struct TestEngine {
  MathExpression expression;
  double* x;
  double* y;

  TestEngine() {
    expression.defineConst(L"pi", 3.14159265359);
    expression.defineConst(L"e", 2.718281828459045);
    x = expression.defineVar(L"x");
    y = expression.defineVar(L"y");
  }

  double valueOf(const std::wstring& text) {
    expression.compile(text);
    return expression.evaluate();
  }

  // The fault of a text that must not compile; code 99 marks one that compiled.
  SExprParsingExcepData faultOf(const std::wstring& text) {
    try {
      expression.compile(text);
    } catch (const ParseError& error) {
      return error.data();
    }
    return {99, 0, L"compiled", 0, 0, {}};
  }
};

inline std::string narrow(const std::wstring& text) {
  return std::string(text.begin(), text.end());
}

// Equal bit for bit, which tells -0 from +0; any NaN equals any NaN.
inline bool sameValue(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::memcmp(&a, &b, sizeof a) == 0;
}
