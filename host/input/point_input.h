// Points, numbers and angles typed at a prompt.
#pragma once

#include <optional>
#include <string_view>

namespace korva::input {

// The text without blanks at either end.
std::wstring_view trimmedInput(std::wstring_view text);

// Point input in the current user system: "x,y", "x,y,z", "@dx,dy[,dz]" relative to base
// (or LASTPOINT when base is null), "@d<a" and "d<a" polar (angle in AUNITS from
// ANGBASE/ANGDIR like real hosts), numbers in the current LUNITS (architectural 1'-2",
// fractional 3/4 etc. where sensible). false when the text is not a point.
bool parsePointInput(std::wstring_view text, const double* base, double result[3]);

// A distance in the current LUNITS (also plain decimals and scientific notation).
std::optional<double> parseDistanceInput(std::wstring_view text);
// A real number as typed: decimal or scientific notation.
std::optional<double> parseRealInput(std::wstring_view text);
// An integer in the 16-bit range.
std::optional<int> parseIntegerInput(std::wstring_view text);
// An angle typed in AUNITS, in radians as typed (ANGBASE and ANGDIR not applied).
std::optional<double> parseAngleInput(std::wstring_view text);

}  // namespace korva::input
