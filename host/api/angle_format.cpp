#include "angle_format.h"

#include <cmath>
#include <cstdint>
#include <numbers>

#include "decimal_text.h"

namespace korva::api {
namespace {

constexpr int kDegrees = 0;
constexpr int kDegreesMinutesSeconds = 1;
constexpr int kGrads = 2;
constexpr int kRadians = 3;
constexpr int kSurveyor = 4;

constexpr double kFullTurn = 2.0 * std::numbers::pi;

double normalizedRadians(double radians) {
  double angle = std::fmod(radians, kFullTurn);
  if (angle < 0.0) angle += kFullTurn;
  return angle;
}

// A value in [0, full) with decimals; a value that rounds up to a full turn is 0.
std::optional<std::wstring> formatTurnFraction(double value, double full, int precision,
                                               const wchar_t* suffix) {
  const double scale = static_cast<double>(powerOfTen(precision));
  const std::optional<std::uint64_t> units = roundScaled(value, scale);
  const std::optional<std::uint64_t> fullUnits = roundScaled(full, scale);
  if (!units || !fullUnits) return std::nullopt;
  return fixedPoint(*units >= *fullUnits ? 0 : *units, precision) + suffix;
}

// Degrees are counted in steps of a degree, a minute, a second or a decimal of a
// second, by precision.
std::uint64_t stepsPerDegree(int precision) {
  if (precision == 0) return 1;
  if (precision <= 2) return 60;
  if (precision <= 4) return 3600;
  return 3600 * powerOfTen(precision - 4);
}

std::wstring dmsText(std::uint64_t steps, int precision) {
  const std::uint64_t perDegree = stepsPerDegree(precision);
  std::wstring text = std::to_wstring(steps / perDegree) + L"d";
  const std::uint64_t rest = steps % perDegree;
  if (precision == 0) return text;
  if (precision <= 2) return text + std::to_wstring(rest) + L"'";
  const std::uint64_t perMinute = perDegree / 60;
  text += std::to_wstring(rest / perMinute) + L"'";
  return text + fixedPoint(rest % perMinute, precision <= 4 ? 0 : precision - 4) + L"\"";
}

std::wstring bearingText(std::uint64_t steps, int precision, int unitmode) {
  const std::uint64_t quarter = 90 * stepsPerDegree(precision);
  if (steps == 0) return L"E";
  if (steps == quarter) return L"N";
  if (steps == 2 * quarter) return L"W";
  if (steps == 3 * quarter) return L"S";
  wchar_t from = L'N';
  wchar_t toward = L'E';
  std::uint64_t offset = 0;
  if (steps < quarter) {
    offset = quarter - steps;
  } else if (steps < 2 * quarter) {
    toward = L'W';
    offset = steps - quarter;
  } else if (steps < 3 * quarter) {
    from = L'S';
    toward = L'W';
    offset = 3 * quarter - steps;
  } else {
    from = L'S';
    offset = steps - 3 * quarter;
  }
  const std::wstring blank = unitmode == 0 ? L" " : L"";
  return std::wstring(1, from) + blank + dmsText(offset, precision) + blank + toward;
}

}  // namespace

std::optional<std::wstring> formatAngle(double radians, int units, int precision, int unitmode) {
  if (precision < 0 || precision > 8 || !std::isfinite(radians)) return std::nullopt;
  const double angle = normalizedRadians(radians);
  const double degrees = angle * 180.0 / std::numbers::pi;
  switch (units) {
    case kDegrees:
      return formatTurnFraction(degrees, 360.0, precision, L"");
    case kGrads:
      return formatTurnFraction(angle * 200.0 / std::numbers::pi, 400.0, precision, L"g");
    case kRadians:
      return formatTurnFraction(angle, kFullTurn, precision, L"r");
    case kDegreesMinutesSeconds:
    case kSurveyor: {
      const std::uint64_t perDegree = stepsPerDegree(precision);
      const std::optional<std::uint64_t> steps =
          roundScaled(degrees, static_cast<double>(perDegree));
      if (!steps) return std::nullopt;
      const std::uint64_t wrapped = *steps % (360 * perDegree);
      if (units == kSurveyor) return bearingText(wrapped, precision, unitmode);
      return dmsText(wrapped, precision);
    }
    default:
      return std::nullopt;
  }
}

}  // namespace korva::api
