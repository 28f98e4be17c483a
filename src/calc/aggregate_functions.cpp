#include "aggregate_functions.h"

#include "item_rules.h"

using namespace item_rules;

std::wstring MinFct::helpString() const {
  return L"min(x,y)";
}
std::wstring MinFct::description() const {
  return L"Return smaller of two values";
}
std::wstring MinFct::symbol() const {
  return L"min";
}
double MinFct::evaluate(std::uint32_t, const double* arguments) const {
  return minimum(arguments[0], arguments[1]);
}

std::wstring Min3Fct::helpString() const {
  return L"min(x,y,z)";
}
std::wstring Min3Fct::description() const {
  return L"Return smaller of three values";
}
std::wstring Min3Fct::symbol() const {
  return L"min";
}
double Min3Fct::evaluate(std::uint32_t, const double* arguments) const {
  return minimum3(arguments[0], arguments[1], arguments[2]);
}

std::wstring MinUndefFct::helpString() const {
  return L"min(v1,v2,v3,...)";
}
std::wstring MinUndefFct::description() const {
  return L"Return smaller of a set of values";
}
std::wstring MinUndefFct::symbol() const {
  return L"min";
}
double MinUndefFct::evaluate(std::uint32_t argumentCount, const double* arguments) const {
  return minimumOf(argumentCount, arguments);
}

std::wstring MaxFct::helpString() const {
  return L"max(x,y)";
}
std::wstring MaxFct::description() const {
  return L"Return larger of two values";
}
std::wstring MaxFct::symbol() const {
  return L"max";
}
double MaxFct::evaluate(std::uint32_t, const double* arguments) const {
  return maximum(arguments[0], arguments[1]);
}

std::wstring Max3Fct::helpString() const {
  return L"max(x,y,z)";
}
std::wstring Max3Fct::description() const {
  return L"Return larger of three values";
}
std::wstring Max3Fct::symbol() const {
  return L"max";
}
double Max3Fct::evaluate(std::uint32_t, const double* arguments) const {
  return maximum3(arguments[0], arguments[1], arguments[2]);
}

std::wstring MaxUndefFct::helpString() const {
  return L"max(v1,v2,v3,...)";
}
std::wstring MaxUndefFct::description() const {
  return L"Return larger of a set of values";
}
std::wstring MaxUndefFct::symbol() const {
  return L"max";
}
double MaxUndefFct::evaluate(std::uint32_t argumentCount, const double* arguments) const {
  return maximumOf(argumentCount, arguments);
}

std::wstring AvgFct::helpString() const {
  return L"avg(v1,v2,v3,...)";
}
std::wstring AvgFct::description() const {
  return L"Return the average of a set of values";
}
std::wstring AvgFct::symbol() const {
  return L"avg";
}
double AvgFct::evaluate(std::uint32_t argumentCount, const double* arguments) const {
  return averageOf(argumentCount, arguments);
}

std::wstring SumFct::helpString() const {
  return L"sum(v1,v2,v3,...)";
}
std::wstring SumFct::description() const {
  return L"Return the sum of a set of values";
}
std::wstring SumFct::symbol() const {
  return L"sum";
}
double SumFct::evaluate(std::uint32_t argumentCount, const double* arguments) const {
  return sumOf(argumentCount, arguments);
}
