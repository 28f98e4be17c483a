// Lengths as text in the five drawing units, without touching any drawing.
#pragma once

#include <optional>
#include <string>

namespace korva::api {

// The drawing variables that shape a length.
struct LinearStyle {
  // Zero suppression. Bits 0-1 for feet and inches: 0 drops zero feet and exactly
  // zero inches, 1 keeps both, 2 keeps zero feet and drops zero inches, 3 keeps zero
  // inches and drops zero feet. 4 drops the leading zero and 8 the trailing zeros of
  // decimal numbers.
  int dimzin = 0;
  // 1 writes feet and inches without the blanks and hyphen between them: 1'5-1/2".
  int unitmode = 0;
};

// units: 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional.
// precision 0-8: decimal places, or for units 4 and 5 the smallest fraction 1/2^p.
// Values are in inches for units 3 and 4. Nothing for other units or precisions, for
// values that aren't finite, and for lengths beyond 10^10 in units 3 to 5.
std::optional<std::wstring> formatLinear(double value, int units, int precision,
                                         const LinearStyle& style = {});

}  // namespace korva::api
