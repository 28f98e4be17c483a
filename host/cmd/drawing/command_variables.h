// System variables as the drawing commands read and write them. Reads and user-level
// writes go through the flat layer; values the host itself keeps (AREA, UCSORG, ...)
// are written past their read-only mark.
#pragma once

#include <string>

#include "geom/vec.h"

namespace korva::cmd::drawing {

int shortVariable(const wchar_t* name, int fallback = 0);
double realVariable(const wchar_t* name, double fallback = 0);
geom::Vec3 pointVariable(const wchar_t* name);
std::wstring stringVariable(const wchar_t* name);

// As a user would; false when the table refuses the value.
bool setShortVariable(const wchar_t* name, int value);
bool setRealVariable(const wchar_t* name, double value);
bool setPointVariable(const wchar_t* name, geom::Vec3 value);
bool setStringVariable(const wchar_t* name, const std::wstring& value);

// The host's own updates of variables that users can only read. Names are upper case.
void hostSetReal(const char* name, double value);
void hostSetPoint(const char* name, geom::Vec3 value);
void hostSetString(const char* name, const std::wstring& value);

// LASTPOINT, in the user system: where "@" input starts when a prompt has no base.
void rememberLastPoint(geom::Vec3 userPoint);

}  // namespace korva::cmd::drawing
