#include "operators.h"

#include "item_rules.h"

using namespace item_rules;

std::wstring AddOp::helpString() const {
  return L"x + y";
}
std::wstring AddOp::description() const {
  return L"Addition operator";
}
std::wstring AddOp::symbol() const {
  return L"+";
}
double AddOp::evaluate(std::uint32_t, const double* arguments) const {
  return add(arguments[0], arguments[1]);
}

std::wstring MinusOp::helpString() const {
  return L"x - y";
}
std::wstring MinusOp::description() const {
  return L"Minus operator";
}
std::wstring MinusOp::symbol() const {
  return L"-";
}
double MinusOp::evaluate(std::uint32_t, const double* arguments) const {
  return subtract(arguments[0], arguments[1]);
}

std::wstring MultOp::helpString() const {
  return L"x * y";
}
std::wstring MultOp::description() const {
  return L"Multiplication operator";
}
std::wstring MultOp::symbol() const {
  return L"*";
}
double MultOp::evaluate(std::uint32_t, const double* arguments) const {
  return multiply(arguments[0], arguments[1]);
}

std::wstring DivOp::helpString() const {
  return L"x / y";
}
std::wstring DivOp::description() const {
  return L"Division operator";
}
std::wstring DivOp::symbol() const {
  return L"/";
}
double DivOp::evaluate(std::uint32_t, const double* arguments) const {
  return divide(arguments[0], arguments[1]);
}

std::wstring ExpOp::helpString() const {
  return L"x ^ y";
}
std::wstring ExpOp::description() const {
  return L"Calculates x raised to the power of y";
}
std::wstring ExpOp::symbol() const {
  return L"^";
}
double ExpOp::evaluate(std::uint32_t, const double* arguments) const {
  return power(arguments[0], arguments[1]);
}

std::wstring UnaryMinusOp::helpString() const {
  return L"-x";
}
std::wstring UnaryMinusOp::description() const {
  return L"Unary minus operator";
}
std::wstring UnaryMinusOp::symbol() const {
  return L"-";
}
double UnaryMinusOp::evaluate(std::uint32_t, const double* arguments) const {
  return negate(arguments[0]);
}

std::wstring ModuloOp::helpString() const {
  return L"x % y";
}
std::wstring ModuloOp::description() const {
  return L"Modulo; find remainder of the division of x by y";
}
std::wstring ModuloOp::symbol() const {
  return L"%";
}
double ModuloOp::evaluate(std::uint32_t, const double* arguments) const {
  return modulo(arguments[0], arguments[1]);
}

std::wstring GreaterThanOp::helpString() const {
  return L"x > y";
}
std::wstring GreaterThanOp::description() const {
  return L"Greater than logical operator.  Return 1 if true, 0 if false.";
}
std::wstring GreaterThanOp::symbol() const {
  return L">";
}
double GreaterThanOp::evaluate(std::uint32_t, const double* arguments) const {
  return greaterThan(arguments[0], arguments[1]);
}

std::wstring LesserThanOp::helpString() const {
  return L"x < y";
}
std::wstring LesserThanOp::description() const {
  return L"Lesser than logical operator.  Return 1 if true, 0 if false.";
}
std::wstring LesserThanOp::symbol() const {
  return L"<";
}
double LesserThanOp::evaluate(std::uint32_t, const double* arguments) const {
  return lesserThan(arguments[0], arguments[1]);
}

std::wstring GreaterEqualThanOp::helpString() const {
  return L"x >= y";
}
std::wstring GreaterEqualThanOp::description() const {
  return L"Greater than or equal logical operator.  Return 1 if true, 0 if false.";
}
std::wstring GreaterEqualThanOp::symbol() const {
  return L">=";
}
double GreaterEqualThanOp::evaluate(std::uint32_t, const double* arguments) const {
  return greaterEqualThan(arguments[0], arguments[1]);
}

std::wstring LesserEqualThanOp::helpString() const {
  return L"x <= y";
}
std::wstring LesserEqualThanOp::description() const {
  return L"Lesser than or equal logical operator.  Return 1 if true, 0 if false.";
}
std::wstring LesserEqualThanOp::symbol() const {
  return L"<=";
}
double LesserEqualThanOp::evaluate(std::uint32_t, const double* arguments) const {
  return lesserEqualThan(arguments[0], arguments[1]);
}

std::wstring NotEqualOp::helpString() const {
  return L"x != y";
}
std::wstring NotEqualOp::description() const {
  return L"Not equal logical operator.  Return 1 if true, 0 if false.";
}
std::wstring NotEqualOp::symbol() const {
  return L"!=";
}
double NotEqualOp::evaluate(std::uint32_t, const double* arguments) const {
  return notEqual(arguments[0], arguments[1]);
}

std::wstring EqualOp::helpString() const {
  return L"x == y";
}
std::wstring EqualOp::description() const {
  return L"Equal logical operator.  Return 1 if true, 0 if false.";
}
std::wstring EqualOp::symbol() const {
  return L"==";
}
double EqualOp::evaluate(std::uint32_t, const double* arguments) const {
  return equal(arguments[0], arguments[1]);
}

std::wstring AndOp::helpString() const {
  return L"x & y";
}
std::wstring AndOp::description() const {
  return L"And logical operator.  Return 1 if true, 0 if false.";
}
std::wstring AndOp::symbol() const {
  return L"&";
}
double AndOp::evaluate(std::uint32_t, const double* arguments) const {
  return logicalAnd(arguments[0], arguments[1]);
}

std::wstring OrOp::helpString() const {
  return L"x | y";
}
std::wstring OrOp::description() const {
  return L"Or logical operator.  Return 1 if true, 0 if false.";
}
std::wstring OrOp::symbol() const {
  return L"|";
}
double OrOp::evaluate(std::uint32_t, const double* arguments) const {
  return logicalOr(arguments[0], arguments[1]);
}

std::wstring NotOp::helpString() const {
  return L"!x";
}
std::wstring NotOp::description() const {
  return L"Not logical operator. Return 1 if x is 0, else return 1";
}
std::wstring NotOp::symbol() const {
  return L"!";
}
double NotOp::evaluate(std::uint32_t, const double* arguments) const {
  return logicalNot(arguments[0]);
}
