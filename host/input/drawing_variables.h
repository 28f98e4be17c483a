// The variables that shape what a prompt reads, taken from the current drawing.
#pragma once

#include <string_view>

namespace korva::input {

int integerVariable(std::string_view name, int fallback);
double realVariable(std::string_view name, double fallback);
// false (result untouched) when the variable is unknown.
bool pointVariable(std::string_view name, double result[3]);

void setIntegerVariable(std::string_view name, int value);
void setPointVariable(std::string_view name, const double point[3]);

// The direction (radians, counterclockwise from east) of an angle as users type it:
// measured from ANGBASE, clockwise when ANGDIR is 1.
double directionOfTypedAngle(double typed);

}  // namespace korva::input
