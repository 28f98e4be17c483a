// How values print on the command line.
//
// Reals show six significant digits and always a decimal point ("3.14159", "100.0",
// "1.0e+07"). Entity names print as "<Entity name: 7ff" followed by the drawing's serial
// in hexadecimal and the record's handle as eight hexadecimal digits, e.g.
// "<Entity name: 7ff10000002a>" for handle 2A of the first drawing. Selection sets print
// as "<Selection set: N>" with the set's number in hexadecimal, defuns as
// "#<function NAME>".
#pragma once

#include <string>

#include "lisp/value.h"

namespace korva::lisp {

// The form that reads back (prin1, the value shown at the command prompt): strings quoted
// with their escapes.
std::wstring printed(const Value& value);
// The form for people (princ): strings as they are.
std::wstring displayed(const Value& value);
// A real as LISP shows it.
std::wstring realText(double value);
// A number as a command token: every digit needed to read the same value back.
std::wstring exactNumberText(const Value& number);

}  // namespace korva::lisp
