// Numbers, lengths and angles as users type them.
#include <cmath>
#include <cstdlib>
#include <cwctype>
#include <string>

#include "api/angle_format.h"
#include "input/drawing_variables.h"
#include "input/point_input.h"

namespace korva::input {
namespace {

bool isDigit(wchar_t c) {
  return c >= L'0' && c <= L'9';
}

bool allDigits(std::wstring_view text) {
  if (text.empty()) return false;
  for (wchar_t c : text) {
    if (!isDigit(c)) return false;
  }
  return true;
}

// Splits a leading sign off; true when it was a minus.
bool takeSign(std::wstring_view& text) {
  if (text.empty() || (text.front() != L'+' && text.front() != L'-')) return false;
  const bool negative = text.front() == L'-';
  text.remove_prefix(1);
  return negative;
}

// "12", "1.5", ".5", "3.", "1e-3" without a sign.
std::optional<double> unsignedDecimal(std::wstring_view text) {
  size_t i = 0;
  bool anyDigit = false;
  while (i < text.size() && isDigit(text[i])) ++i, anyDigit = true;
  if (i < text.size() && text[i] == L'.') {
    ++i;
    while (i < text.size() && isDigit(text[i])) ++i, anyDigit = true;
  }
  if (!anyDigit) return std::nullopt;
  if (i < text.size() && (text[i] == L'e' || text[i] == L'E')) {
    size_t j = i + 1;
    if (j < text.size() && (text[j] == L'+' || text[j] == L'-')) ++j;
    if (j == text.size() || !isDigit(text[j])) return std::nullopt;
    while (j < text.size() && isDigit(text[j])) ++j;
    i = j;
  }
  if (i != text.size()) return std::nullopt;
  const std::string narrow(text.begin(), text.end());
  const double value = std::strtod(narrow.c_str(), nullptr);
  if (!std::isfinite(value)) return std::nullopt;
  return value;
}

// "3/4" or "1-3/4" without a sign.
std::optional<double> unsignedFraction(std::wstring_view text) {
  const size_t slash = text.find(L'/');
  if (slash == std::wstring_view::npos) return std::nullopt;
  std::wstring_view numerator = text.substr(0, slash);
  const std::wstring_view denominator = text.substr(slash + 1);
  double whole = 0;
  if (const size_t dash = numerator.find(L'-'); dash != std::wstring_view::npos) {
    const std::wstring_view wholeText = numerator.substr(0, dash);
    if (!allDigits(wholeText)) return std::nullopt;
    whole = std::wcstod(std::wstring(wholeText).c_str(), nullptr);
    numerator = numerator.substr(dash + 1);
  }
  if (!allDigits(numerator) || !allDigits(denominator)) return std::nullopt;
  const double over = std::wcstod(std::wstring(denominator).c_str(), nullptr);
  if (over == 0) return std::nullopt;
  return whole + std::wcstod(std::wstring(numerator).c_str(), nullptr) / over;
}

std::optional<double> unsignedPlainLength(std::wstring_view text) {
  if (std::optional<double> value = unsignedDecimal(text)) return value;
  return unsignedFraction(text);
}

// Feet and inches of engineering and architectural units, in inches: 1'2", 1'-2-1/2",
// 3', 14", 14.
std::optional<double> unsignedFeetAndInches(std::wstring_view text) {
  double feet = 0;
  const size_t mark = text.find(L'\'');
  if (mark != std::wstring_view::npos) {
    std::optional<double> feetValue = unsignedDecimal(text.substr(0, mark));
    if (!feetValue) return std::nullopt;
    feet = *feetValue;
    text = text.substr(mark + 1);
    if (!text.empty() && text.front() == L'-') text.remove_prefix(1);
    if (text.empty()) return feet * 12.0;
  }
  if (!text.empty() && text.back() == L'"') text.remove_suffix(1);
  std::optional<double> inches = unsignedPlainLength(text);
  if (!inches) return std::nullopt;
  return feet * 12.0 + *inches;
}

// An angle written with the mark of other units than the current ones: 100g, 1.2r,
// 45d30', N45dE.
std::optional<double> angleInOtherUnits(std::wstring_view text) {
  const wchar_t last = static_cast<wchar_t>(std::towlower(text.back()));
  const wchar_t first = static_cast<wchar_t>(std::towlower(text.front()));
  if (last == L'g') return api::parseAngle(text, 2);
  if (last == L'r') return api::parseAngle(text, 3);
  if (first == L'n' || first == L's' || first == L'e' || first == L'w') {
    return api::parseAngle(text, 4);
  }
  if (text.find_first_of(L"dD") != std::wstring_view::npos) return api::parseAngle(text, 1);
  return std::nullopt;
}

}  // namespace

std::optional<double> parseRealInput(std::wstring_view text) {
  text = trimmedInput(text);
  const bool negative = takeSign(text);
  std::optional<double> value = unsignedDecimal(text);
  if (!value) return std::nullopt;
  return negative ? -*value : *value;
}

std::optional<double> parseDistanceInput(std::wstring_view text) {
  text = trimmedInput(text);
  const bool negative = takeSign(text);
  const int units = integerVariable("LUNITS", 2);
  std::optional<double> value =
      units == 3 || units == 4 ? unsignedFeetAndInches(text) : unsignedPlainLength(text);
  if (!value) return std::nullopt;
  return negative ? -*value : *value;
}

std::optional<int> parseIntegerInput(std::wstring_view text) {
  text = trimmedInput(text);
  const bool negative = takeSign(text);
  if (!allDigits(text) || text.size() > 6) return std::nullopt;
  const long magnitude = std::wcstol(std::wstring(text).c_str(), nullptr, 10);
  const long value = negative ? -magnitude : magnitude;
  if (value < -32768 || value > 32767) return std::nullopt;
  return static_cast<int>(value);
}

std::optional<double> parseAngleInput(std::wstring_view text) {
  text = trimmedInput(text);
  if (text.empty()) return std::nullopt;
  if (std::optional<double> angle = api::parseAngle(text, integerVariable("AUNITS", 0))) {
    return angle;
  }
  return angleInOtherUnits(text);
}

std::wstring_view trimmedInput(std::wstring_view text) {
  while (!text.empty() && std::iswspace(text.front())) text.remove_prefix(1);
  while (!text.empty() && std::iswspace(text.back())) text.remove_suffix(1);
  return text;
}

}  // namespace korva::input
