// Numbers, angles and points as the drawing commands show them: in the drawing's
// current units and precision.
#pragma once

#include <string>

#include "geom/vec.h"

namespace korva::cmd::drawing {

// A length in LUNITS and LUPREC.
std::wstring distanceText(double value);
// An angle in AUNITS and AUPREC; radians in, shown from east counterclockwise.
std::wstring angleText(double radians);
// "x,y,z" with each coordinate as distanceText.
std::wstring pointText(geom::Vec3 point);
// Right-aligned in a field of width characters.
std::wstring padded(const std::wstring& text, size_t width);

// Case-insensitive comparison of ASCII keywords and names.
bool sameText(const std::wstring& a, const std::wstring& b);
std::wstring upperText(std::wstring text);

}  // namespace korva::cmd::drawing
