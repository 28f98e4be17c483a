#pragma once

#include <cmath>
#include <cstdint>
#include <cstdlib>

// The arithmetic of the built-in items. The item classes and the fast run of a compiled
// program both call these, so a folded constant and a run give the same bits.
namespace item_rules {

inline double add(double x, double y) {
  return x + y;
}
inline double subtract(double x, double y) {
  return x - y;
}
inline double multiply(double x, double y) {
  return x * y;
}
// A zero divisor is left to the floating-point rules: infinity or NaN.
inline double divide(double x, double y) {
  return x / y;
}
inline double power(double x, double y) {
  return std::pow(x, y);
}
inline double negate(double x) {
  return -x;
}
inline double modulo(double x, double y) {
  return std::fmod(x, y);
}

inline double greaterThan(double x, double y) {
  return x > y ? 1.0 : 0.0;
}
inline double lesserThan(double x, double y) {
  return y > x ? 1.0 : 0.0;
}
inline double greaterEqualThan(double x, double y) {
  return x >= y ? 1.0 : 0.0;
}
inline double lesserEqualThan(double x, double y) {
  return y >= x ? 1.0 : 0.0;
}
inline double notEqual(double x, double y) {
  return x == y ? 0.0 : 1.0;
}
inline double equal(double x, double y) {
  return x == y ? 1.0 : 0.0;
}
// NaN is non-zero here, as it compares unequal to 0.
inline double logicalAnd(double x, double y) {
  return (x != 0.0 && y != 0.0) ? 1.0 : 0.0;
}
inline double logicalOr(double x, double y) {
  return (x != 0.0 || y != 0.0) ? 1.0 : 0.0;
}
inline double logicalNot(double x) {
  return x == 0.0 ? 1.0 : 0.0;
}

inline double sine(double x) {
  return std::sin(x);
}
inline double arcSine(double x) {
  return std::asin(x);
}
inline double hyperbolicSine(double x) {
  return std::sinh(x);
}
inline double cosine(double x) {
  return std::cos(x);
}
inline double arcCosine(double x) {
  return std::acos(x);
}
inline double hyperbolicCosine(double x) {
  return std::cosh(x);
}
inline double tangent(double x) {
  return std::tan(x);
}
inline double arcTangent(double x) {
  return std::atan(x);
}
inline double hyperbolicTangent(double x) {
  return std::tanh(x);
}
inline double squareRoot(double x) {
  return std::sqrt(x);
}
inline double ceiling(double x) {
  return std::ceil(x);
}
inline double floorOf(double x) {
  return std::floor(x);
}
inline double naturalLogarithm(double x) {
  return std::log(x);
}
inline double decimalLogarithm(double x) {
  return std::log10(x);
}

inline double minimum(double x, double y) {
  return y > x ? x : y;
}
// On a tie the first value stays, as with the variable-count maximum.
inline double maximum(double x, double y) {
  return y > x ? y : x;
}
inline double minimum3(double x, double y, double z) {
  return minimum(minimum(x, y), z);
}
inline double maximum3(double x, double y, double z) {
  return maximum(maximum(x, y), z);
}
inline double absolute(double x) {
  return std::fabs(x);
}

// Variable-count rules: the first value is the start, later ones replace it when better.
inline double minimumOf(std::uint32_t count, const double* values) {
  double result = values[0];
  for (std::uint32_t i = 1; i < count; ++i)
    if (values[i] < result) result = values[i];
  return result;
}
inline double maximumOf(std::uint32_t count, const double* values) {
  double result = values[0];
  for (std::uint32_t i = 1; i < count; ++i)
    if (values[i] > result) result = values[i];
  return result;
}
inline double sumOf(std::uint32_t count, const double* values) {
  double sum = 0.0;
  for (std::uint32_t i = 0; i < count; ++i) sum += values[i];
  return sum;
}
inline double averageOf(std::uint32_t count, const double* values) {
  return sumOf(count, values) / count;
}

// The divisor is written out rather than taken from RAND_MAX on purpose: a library whose
// generator reaches further yields values above 1.
inline constexpr double kRandomDivisor = 32767.0;
inline double randomUnit() {
  return std::rand() / kRandomDivisor;
}
inline double randomBetween(double low, double high) {
  return std::rand() / kRandomDivisor * (high - low) + low;
}

// Truncation toward zero as the processor does it: NaN and out-of-range values give the
// indefinite integer instead of undefined behaviour.
inline std::int32_t truncateToInt32(double x) {
  if (!(x > -2147483649.0 && x < 2147483648.0)) return INT32_MIN;
  return static_cast<std::int32_t>(x);
}

// fact(0) is 0 on purpose; the fraction is dropped.
inline double factorial(double x) {
  const std::int32_t n = truncateToInt32(x);
  if (n <= 0) return 0.0;
  double product = 1.0;
  for (std::int32_t factor = n; factor >= 2; --factor) {
    product *= factor;
    // Infinity stays infinity; stopping keeps fact(2e9) from running for seconds.
    if (std::isinf(product)) break;
  }
  return product;
}

}  // namespace item_rules
