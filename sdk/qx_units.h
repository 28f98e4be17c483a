// Numbers and angles as drawing-unit strings, and angle strings back to radians.
#pragma once

#include <cstddef>

// Longest result the unsized forms write, terminator included; longer results fail.
constexpr std::size_t QX_UNSIZED_NUMBER_CHARS = 512;

// units: 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional.
// precision 0-8: decimal places for units 1-3; for units 4 and 5 the smallest
// fraction shown is 1/2^precision. -1 for units or precision takes LUNITS or LUPREC
// of the drawing. DIMZIN and UNITMODE of the drawing shape the result. Units 3 and 4
// take the value in inches. RTNORM, or RTERROR with an empty buffer.
int qxdbRToS(double value, int units, int precision, wchar_t* buffer);
int qxdbRToS(double value, int units, int precision, wchar_t* buffer, std::size_t bufferChars);

// units: 0 degrees, 1 degrees-minutes-seconds, 2 grads, 3 radians, 4 surveyor's
// bearing. precision 0-8. -1 takes AUNITS or AUPREC. The angle is in radians and is
// shown in [0, 360) degrees. RTNORM or RTERROR.
int qxdbAngToS(double angle, int units, int precision, wchar_t* buffer);
int qxdbAngToS(double angle, int units, int precision, wchar_t* buffer, std::size_t bufferChars);

// Parses an angle written in the given units (-1 for AUNITS) into radians in
// [0, 2*pi). RTNORM, or RTERROR for text that isn't such an angle.
int qxdbAngToF(const wchar_t* text, int units, double* result);
