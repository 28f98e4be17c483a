// Reading angles back from the forms that formatAngle writes.
#include <cmath>
#include <cstdlib>
#include <cwctype>
#include <numbers>
#include <string>

#include "angle_format.h"

namespace korva::api {
namespace {

class AngleScanner {
 public:
  explicit AngleScanner(std::wstring_view text) : text_(text) {}

  void skipBlanks() {
    while (pos_ < text_.size() && std::iswspace(text_[pos_])) ++pos_;
  }

  bool atEnd() const { return pos_ == text_.size(); }

  // Takes letter when it is next, in either case.
  bool take(wchar_t letter) {
    if (pos_ < text_.size() && std::towupper(text_[pos_]) == std::towupper(letter)) {
      ++pos_;
      return true;
    }
    return false;
  }

  // A decimal number with an optional sign and exponent: [+-]digits[.digits][e[+-]digits].
  std::optional<double> number(bool allowSign) {
    std::string digits;
    std::size_t i = pos_;
    if (allowSign && i < text_.size() && (text_[i] == L'+' || text_[i] == L'-')) {
      digits += static_cast<char>(text_[i++]);
    }
    bool anyDigit = false;
    auto takeDigits = [&] {
      while (i < text_.size() && text_[i] >= L'0' && text_[i] <= L'9') {
        digits += static_cast<char>(text_[i++]);
        anyDigit = true;
      }
    };
    takeDigits();
    if (i < text_.size() && text_[i] == L'.') {
      digits += '.';
      ++i;
      takeDigits();
    }
    if (!anyDigit) return std::nullopt;
    // An exponent only counts when digits follow, so "45E" stays a bearing's "E".
    if (i < text_.size() && (text_[i] == L'e' || text_[i] == L'E')) {
      std::size_t j = i + 1;
      if (j < text_.size() && (text_[j] == L'+' || text_[j] == L'-')) ++j;
      if (j < text_.size() && text_[j] >= L'0' && text_[j] <= L'9') {
        while (i < j) digits += static_cast<char>(text_[i++]);
        takeDigits();
      }
    }
    pos_ = i;
    return std::strtod(digits.c_str(), nullptr);
  }

  // Degrees as a decimal number or as degrees, minutes and seconds: 45d30'15.5".
  std::optional<double> degrees(bool allowSign) {
    const std::optional<double> whole = number(allowSign);
    if (!whole || !take(L'd')) return whole;
    const bool negative = *whole < 0 || (std::signbit(*whole));
    double magnitude = std::fabs(*whole);
    if (const std::optional<double> minutes = number(false)) {
      if (!take(L'\'')) return std::nullopt;
      magnitude += *minutes / 60.0;
      if (const std::optional<double> seconds = number(false)) {
        if (!take(L'"')) return std::nullopt;
        magnitude += *seconds / 3600.0;
      }
    }
    return negative ? -magnitude : magnitude;
  }

  // A surveyor's bearing, "N 45d30' E", or one of the letters N, S, E, W alone.
  std::optional<double> bearingDegrees() {
    const bool north = take(L'n');
    const bool south = !north && take(L's');
    if (!north && !south) {
      if (take(L'e')) return 0.0;
      if (take(L'w')) return 180.0;
      return std::nullopt;
    }
    skipBlanks();
    const std::optional<double> offset = degrees(false);
    if (!offset) return north ? 90.0 : 270.0;
    if (*offset > 90.0) return std::nullopt;
    skipBlanks();
    const bool east = take(L'e');
    if (!east && !take(L'w')) return std::nullopt;
    if (north) return east ? 90.0 - *offset : 90.0 + *offset;
    return east ? 270.0 + *offset : 270.0 - *offset;
  }

 private:
  std::wstring_view text_;
  std::size_t pos_ = 0;
};

double normalized(double radians) {
  constexpr double kFullTurn = 2.0 * std::numbers::pi;
  double angle = std::fmod(radians, kFullTurn);
  if (angle < 0.0) angle += kFullTurn;
  return angle;
}

}  // namespace

std::optional<double> parseAngle(std::wstring_view text, int units) {
  AngleScanner scanner(text);
  scanner.skipBlanks();
  std::optional<double> radians;
  switch (units) {
    case 0:
    case 1:
      if (const std::optional<double> degrees = scanner.degrees(true)) {
        radians = *degrees * std::numbers::pi / 180.0;
      }
      break;
    case 2:
      if (const std::optional<double> grads = scanner.number(true)) {
        scanner.take(L'g');
        radians = *grads * std::numbers::pi / 200.0;
      }
      break;
    case 3:
      radians = scanner.number(true);
      if (radians) scanner.take(L'r');
      break;
    case 4:
      if (const std::optional<double> degrees = scanner.bearingDegrees()) {
        radians = *degrees * std::numbers::pi / 180.0;
      }
      break;
    default:
      return std::nullopt;
  }
  scanner.skipBlanks();
  if (!radians || !scanner.atEnd() || !std::isfinite(*radians)) return std::nullopt;
  return normalized(*radians);
}

}  // namespace korva::api
