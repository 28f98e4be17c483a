// Small pieces shared by the length and angle formatters.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace korva::api {

// 10^exponent for exponent 0-18.
std::uint64_t powerOfTen(int exponent);

// The next double above magnitude (> 0), so that a decimal tie stored a hair below
// its exact value still rounds up; 0 stays 0.
double nudgedUp(double magnitude);

// round(magnitude * scale) with decimal ties going up even when the binary value of
// the number lies a hair below them (2.675 -> 268 for scale 100). Nothing when the
// result wouldn't fit in 62 bits. magnitude must be >= 0.
std::optional<std::uint64_t> roundScaled(double magnitude, double scale);

// units / scale as "whole.fraction" with as many fraction digits as scale has zeros.
std::wstring fixedPoint(std::uint64_t units, int decimals);

// Drops trailing zeros after the decimal point, and the point when nothing follows.
void dropTrailingZeros(std::wstring& text);

}  // namespace korva::api
