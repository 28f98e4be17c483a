#include "random_functions.h"

#include "item_rules.h"

using namespace item_rules;

std::wstring RandFct::helpString() const {
  return L"rand()";
}
std::wstring RandFct::description() const {
  return L"Random value between 0 and 1";
}
std::wstring RandFct::symbol() const {
  return L"rand";
}
double RandFct::evaluate(std::uint32_t, const double*) const {
  return randomUnit();
}

std::wstring RandMinMaxFct::helpString() const {
  return L"rand(min, max)";
}
std::wstring RandMinMaxFct::description() const {
  return L"Random value between min and max";
}
std::wstring RandMinMaxFct::symbol() const {
  return L"rand";
}
double RandMinMaxFct::evaluate(std::uint32_t, const double* arguments) const {
  return randomBetween(arguments[0], arguments[1]);
}
