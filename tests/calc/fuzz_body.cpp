#include "fuzz_body.h"

#include <stdexcept>
#include <string>

#include "expr_exceptions.h"
#include "math_expression.h"

bool compileFuzzInput(const std::uint8_t* data, std::size_t size) {
  // The compiler is quadratic in the worst case by design; longer inputs only slow the search.
  constexpr std::size_t kLongestInput = 4096;
  if (size > kLongestInput) return false;

  // Each byte is one wide character, so every ASCII construct and the Latin-1 range appear.
  std::wstring text(data, data + size);
  MathExpression expression;
  expression.defineConst(L"pi", 3.14159265359);
  expression.defineConst(L"e", 2.718281828459045);
  *expression.defineVar(L"x") = 1.5;
  *expression.defineVar(L"y") = -2.0;
  expression.defineVar(L"a+b");
  try {
    expression.compile(text);
  } catch (const ParseError&) {
    // The engine must still be usable after a refusal.
    expression.compile(L"x+1");
    if (expression.evaluate() != 2.5) throw std::logic_error("engine unusable after a refusal");
    return false;
  }
  expression.evaluate();
  expression.evaluate();
  return true;
}
