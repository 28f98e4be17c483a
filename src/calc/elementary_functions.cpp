#include "elementary_functions.h"

#include "item_rules.h"

using namespace item_rules;

std::wstring SinFct::helpString() const {
  return L"sin(x)";
}
std::wstring SinFct::description() const {
  return L"Sine";
}
std::wstring SinFct::symbol() const {
  return L"sin";
}
double SinFct::evaluate(std::uint32_t, const double* arguments) const {
  return sine(arguments[0]);
}

std::wstring ArcSinFct::helpString() const {
  return L"asin(x)";
}
std::wstring ArcSinFct::description() const {
  return L"Arcsine";
}
std::wstring ArcSinFct::symbol() const {
  return L"asin";
}
double ArcSinFct::evaluate(std::uint32_t, const double* arguments) const {
  return arcSine(arguments[0]);
}

std::wstring SinhFct::helpString() const {
  return L"sinh(x)";
}
std::wstring SinhFct::description() const {
  return L"Hyperbolic sine";
}
std::wstring SinhFct::symbol() const {
  return L"sinh";
}
double SinhFct::evaluate(std::uint32_t, const double* arguments) const {
  return hyperbolicSine(arguments[0]);
}

std::wstring CosFct::helpString() const {
  return L"cos(x)";
}
std::wstring CosFct::description() const {
  return L"Cosine";
}
std::wstring CosFct::symbol() const {
  return L"cos";
}
double CosFct::evaluate(std::uint32_t, const double* arguments) const {
  return cosine(arguments[0]);
}

std::wstring ArcCosFct::helpString() const {
  return L"acos(x)";
}
std::wstring ArcCosFct::description() const {
  return L"Arccosine";
}
std::wstring ArcCosFct::symbol() const {
  return L"acos";
}
double ArcCosFct::evaluate(std::uint32_t, const double* arguments) const {
  return arcCosine(arguments[0]);
}

std::wstring CoshFct::helpString() const {
  return L"cosh(x)";
}
std::wstring CoshFct::description() const {
  return L"Hyperbolic cosine";
}
std::wstring CoshFct::symbol() const {
  return L"cosh";
}
double CoshFct::evaluate(std::uint32_t, const double* arguments) const {
  return hyperbolicCosine(arguments[0]);
}

std::wstring TanFct::helpString() const {
  return L"tan(x)";
}
std::wstring TanFct::description() const {
  return L"Tangent";
}
std::wstring TanFct::symbol() const {
  return L"tan";
}
double TanFct::evaluate(std::uint32_t, const double* arguments) const {
  return tangent(arguments[0]);
}

std::wstring ArcTanFct::helpString() const {
  return L"atan(x)";
}
std::wstring ArcTanFct::description() const {
  return L"Arctangent";
}
std::wstring ArcTanFct::symbol() const {
  return L"atan";
}
double ArcTanFct::evaluate(std::uint32_t, const double* arguments) const {
  return arcTangent(arguments[0]);
}

std::wstring TanhFct::helpString() const {
  return L"tanh(x)";
}
std::wstring TanhFct::description() const {
  return L"Hyperbolic tangent";
}
std::wstring TanhFct::symbol() const {
  return L"tanh";
}
double TanhFct::evaluate(std::uint32_t, const double* arguments) const {
  return hyperbolicTangent(arguments[0]);
}

std::wstring SqrtFct::helpString() const {
  return L"sqrt(x)";
}
std::wstring SqrtFct::description() const {
  return L"Square root";
}
std::wstring SqrtFct::symbol() const {
  return L"sqrt";
}
double SqrtFct::evaluate(std::uint32_t, const double* arguments) const {
  return squareRoot(arguments[0]);
}

std::wstring AbsFct::helpString() const {
  return L"abs(x)";
}
std::wstring AbsFct::description() const {
  return L"Absolute value";
}
std::wstring AbsFct::symbol() const {
  return L"abs";
}
double AbsFct::evaluate(std::uint32_t, const double* arguments) const {
  return absolute(arguments[0]);
}

std::wstring CeilFct::helpString() const {
  return L"ceil(x)";
}
std::wstring CeilFct::description() const {
  return L"Ceiling";
}
std::wstring CeilFct::symbol() const {
  return L"ceil";
}
double CeilFct::evaluate(std::uint32_t, const double* arguments) const {
  return ceiling(arguments[0]);
}

std::wstring FloorFct::helpString() const {
  return L"floor(x)";
}
std::wstring FloorFct::description() const {
  return L"Floor";
}
std::wstring FloorFct::symbol() const {
  return L"floor";
}
double FloorFct::evaluate(std::uint32_t, const double* arguments) const {
  return floorOf(arguments[0]);
}

std::wstring LogFct::helpString() const {
  return L"ln(x)";
}
std::wstring LogFct::description() const {
  return L"Natural logarithm";
}
std::wstring LogFct::symbol() const {
  return L"ln";
}
double LogFct::evaluate(std::uint32_t, const double* arguments) const {
  return naturalLogarithm(arguments[0]);
}

std::wstring Log10Fct::helpString() const {
  return L"log(x)";
}
std::wstring Log10Fct::description() const {
  return L"Base-10 logarithm";
}
std::wstring Log10Fct::symbol() const {
  return L"log";
}
double Log10Fct::evaluate(std::uint32_t, const double* arguments) const {
  return decimalLogarithm(arguments[0]);
}

std::wstring FactorialFct::helpString() const {
  return L"fact(x)";
}
std::wstring FactorialFct::description() const {
  return L"Return the factorial of x: x*(x-1)*(x-2)*...(x-x+1)";
}
std::wstring FactorialFct::symbol() const {
  return L"fact";
}
double FactorialFct::evaluate(std::uint32_t, const double* arguments) const {
  return factorial(arguments[0]);
}
