// The measuring commands print their sums in the drawing's own length units.
#pragma once

#include <string>

// value formatted by LUNITS and LUPREC of the current drawing.
std::wstring FormatDrawingLength(double value);
