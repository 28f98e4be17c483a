#include "linear_format.h"

#include <cmath>
#include <cstdio>
#include <limits>
#include <numeric>
#include <string>

#include "decimal_text.h"

namespace korva::api {
namespace {

constexpr int kScientific = 1;
constexpr int kDecimal = 2;
constexpr int kEngineering = 3;
constexpr int kArchitectural = 4;
constexpr int kFractional = 5;

constexpr int kDropLeadingZero = 4;
constexpr int kDropTrailingZeros = 8;

// Lengths in units 3 to 5 go through 64-bit counts of the smallest step.
constexpr double kLargestFeetInches = 1.0e10;

// printf of one non-negative double, with decimal ties rounding up.
std::wstring printMagnitude(const char* format, int precision, double magnitude) {
  const double nudged = nudgedUp(magnitude);
  char text[400];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
  const int size = std::snprintf(text, sizeof text, format, precision, nudged);
#pragma GCC diagnostic pop
  if (size < 0) return L"0";
  return std::wstring(
      text, text + std::min<std::size_t>(static_cast<std::size_t>(size), sizeof text - 1));
}

bool hasNonZeroDigit(const std::wstring& text) {
  for (const wchar_t c : text) {
    if (c == L'E') break;
    if (c >= L'1' && c <= L'9') return true;
  }
  return false;
}

std::wstring withSign(bool negative, std::wstring text) {
  return negative ? L"-" + text : text;
}

void applyDecimalSuppression(std::wstring& number, int dimzin) {
  if ((dimzin & kDropTrailingZeros) != 0) dropTrailingZeros(number);
  if ((dimzin & kDropLeadingZero) != 0 && number.size() > 1 && number[0] == L'0' &&
      number[1] == L'.') {
    number.erase(0, 1);
  }
}

std::wstring formatDecimal(double value, int precision, int dimzin) {
  std::wstring number = printMagnitude("%.*f", precision, std::fabs(value));
  const bool negative = value < 0 && hasNonZeroDigit(number);
  applyDecimalSuppression(number, dimzin);
  return withSign(negative, number);
}

std::wstring formatScientific(double value, int precision, int dimzin) {
  std::wstring number = printMagnitude("%.*E", precision, std::fabs(value));
  const bool negative = value < 0 && hasNonZeroDigit(number);
  if ((dimzin & kDropTrailingZeros) != 0) {
    const std::size_t exponent = number.find(L'E');
    std::wstring mantissa = number.substr(0, exponent);
    dropTrailingZeros(mantissa);
    number = mantissa + number.substr(exponent);
  }
  return withSign(negative, number);
}

// Which of feet and inches a feet-and-inches length shows (bits 0-1 of DIMZIN).
struct FeetInchesParts {
  bool showFeet;
  bool showInches;
};

FeetInchesParts visibleParts(std::uint64_t feet, bool zeroInches, int dimzin) {
  const int mode = dimzin & 3;
  const bool showFeet = feet != 0 || mode == 1 || mode == 2;
  const bool showInches = !zeroInches || mode == 1 || mode == 3 || !showFeet;
  return {showFeet, showInches};
}

std::wstring joinFeetInches(bool negative, std::uint64_t feet, const FeetInchesParts& parts,
                            const std::wstring& inches, int unitmode) {
  std::wstring text = negative ? L"-" : L"";
  if (parts.showFeet) text += std::to_wstring(feet) + L"'";
  if (parts.showFeet && parts.showInches && unitmode == 0) text += L'-';
  if (parts.showInches) text += inches + L"\"";
  return text;
}

std::optional<std::wstring> formatEngineering(double value, int precision,
                                              const LinearStyle& style) {
  const std::uint64_t scale = powerOfTen(precision);
  const std::optional<std::uint64_t> total =
      roundScaled(std::fabs(value), static_cast<double>(scale));
  if (!total) return std::nullopt;
  const std::uint64_t feet = *total / (12 * scale);
  const std::uint64_t inchUnits = *total % (12 * scale);
  const FeetInchesParts parts = visibleParts(feet, inchUnits == 0, style.dimzin);
  std::wstring inches = fixedPoint(inchUnits, precision);
  if ((style.dimzin & kDropTrailingZeros) != 0) dropTrailingZeros(inches);
  // A bare ".5" after a feet mark would read badly, so the leading zero goes only
  // when the inches stand alone.
  if (!parts.showFeet) applyDecimalSuppression(inches, style.dimzin & kDropLeadingZero);
  return joinFeetInches(value < 0 && *total != 0, feet, parts, inches, style.unitmode);
}

// "n/d" of units/2^precision in lowest terms; units is below 2^precision.
std::wstring fractionText(std::uint64_t units, int precision) {
  std::uint64_t denominator = std::uint64_t{1} << precision;
  const std::uint64_t divisor = std::gcd(units, denominator);
  return std::to_wstring(units / divisor) + L"/" + std::to_wstring(denominator / divisor);
}

// Whole units and a fraction: "17 1/2", or "17-1/2" when unitmode is 1; "1/2" when the
// whole part is zero and may be left out.
std::wstring mixedNumber(std::uint64_t whole, std::uint64_t fractionUnits, int precision,
                         bool omitZeroWhole, int unitmode) {
  if (fractionUnits == 0) return std::to_wstring(whole);
  const std::wstring fraction = fractionText(fractionUnits, precision);
  if (whole == 0 && omitZeroWhole) return fraction;
  return std::to_wstring(whole) + (unitmode == 0 ? L" " : L"-") + fraction;
}

std::optional<std::wstring> formatArchitectural(double value, int precision,
                                                const LinearStyle& style) {
  const std::uint64_t scale = std::uint64_t{1} << precision;
  const std::optional<std::uint64_t> total =
      roundScaled(std::fabs(value), static_cast<double>(scale));
  if (!total) return std::nullopt;
  const std::uint64_t feet = *total / (12 * scale);
  const std::uint64_t inchUnits = *total % (12 * scale);
  const FeetInchesParts parts = visibleParts(feet, inchUnits == 0, style.dimzin);
  const std::wstring inches = mixedNumber(inchUnits >> precision, inchUnits & (scale - 1),
                                          precision, !parts.showFeet, style.unitmode);
  return joinFeetInches(value < 0 && *total != 0, feet, parts, inches, style.unitmode);
}

std::optional<std::wstring> formatFractional(double value, int precision,
                                             const LinearStyle& style) {
  const std::uint64_t scale = std::uint64_t{1} << precision;
  const std::optional<std::uint64_t> total =
      roundScaled(std::fabs(value), static_cast<double>(scale));
  if (!total) return std::nullopt;
  const std::wstring number =
      mixedNumber(*total >> precision, *total & (scale - 1), precision, true, style.unitmode);
  return withSign(value < 0 && *total != 0, number);
}

}  // namespace

std::optional<std::wstring> formatLinear(double value, int units, int precision,
                                         const LinearStyle& style) {
  if (precision < 0 || precision > 8 || !std::isfinite(value)) return std::nullopt;
  const bool feetInchesRange = std::fabs(value) <= kLargestFeetInches;
  switch (units) {
    case kScientific:
      return formatScientific(value, precision, style.dimzin);
    case kDecimal:
      if (std::fabs(value) >= 1.0e300) return std::nullopt;
      return formatDecimal(value, precision, style.dimzin);
    case kEngineering:
      if (!feetInchesRange) return std::nullopt;
      return formatEngineering(value, precision, style);
    case kArchitectural:
      if (!feetInchesRange) return std::nullopt;
      return formatArchitectural(value, precision, style);
    case kFractional:
      if (!feetInchesRange) return std::nullopt;
      return formatFractional(value, precision, style);
    default:
      return std::nullopt;
  }
}

}  // namespace korva::api
