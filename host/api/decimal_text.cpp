#include "decimal_text.h"

#include <cmath>
#include <limits>

namespace korva::api {

std::uint64_t powerOfTen(int exponent) {
  std::uint64_t value = 1;
  for (int i = 0; i < exponent; ++i) value *= 10;
  return value;
}

double nudgedUp(double magnitude) {
  if (magnitude == 0.0) return 0.0;
  return std::nextafter(magnitude, std::numeric_limits<double>::infinity());
}

std::optional<std::uint64_t> roundScaled(double magnitude, double scale) {
  const double nudged = nudgedUp(magnitude);
  const double scaled = std::round(nudged * scale);
  if (!(scaled >= 0.0) || scaled >= 4.0e18) return std::nullopt;
  return static_cast<std::uint64_t>(scaled);
}

std::wstring fixedPoint(std::uint64_t units, int decimals) {
  const std::uint64_t scale = powerOfTen(decimals);
  std::wstring text = std::to_wstring(units / scale);
  if (decimals > 0) {
    std::wstring fraction = std::to_wstring(units % scale);
    text += L'.';
    text.append(static_cast<std::size_t>(decimals) - fraction.size(), L'0');
    text += fraction;
  }
  return text;
}

void dropTrailingZeros(std::wstring& text) {
  if (text.find(L'.') == std::wstring::npos) return;
  while (!text.empty() && text.back() == L'0') text.pop_back();
  if (!text.empty() && text.back() == L'.') text.pop_back();
}

}  // namespace korva::api
