// Angles as text in the five angular units and back, without touching any drawing.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace korva::api {

// units: 0 degrees "45.0000", 1 degrees-minutes-seconds "45d30'0\"", 2 grads
// "50.0000g", 3 radians "0.7854r", 4 surveyor's bearing "N 45d0' E".
// precision 0-8: decimal places for units 0, 2 and 3. For units 1 and 4: 0 degrees
// only, 1-2 with minutes, 3-4 with seconds, 5-8 with precision-4 decimals of seconds.
// The angle is shown in [0, 360) degrees. unitmode 1 writes bearings without blanks.
// Nothing for other units or precisions, or an angle that isn't finite.
std::optional<std::wstring> formatAngle(double radians, int units, int precision, int unitmode = 0);

// Reads an angle written in units (0-4, as above) into radians in [0, 2*pi). Units
// 0 and 1 both take decimal degrees and the d ' " form; blanks around the text and
// inside bearings are allowed, letters in either case. Nothing when the text isn't
// such an angle.
std::optional<double> parseAngle(std::wstring_view text, int units);

}  // namespace korva::api
