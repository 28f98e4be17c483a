// Resource strings and the case changes of the string layer.
#pragma once

#include <string>

// The string with this id in the resource module (the host's current resource place
// before the module is initialised); empty when the id is unknown.
std::wstring LoadResourceString(unsigned id);
// As LoadResourceString; an unknown id also shows a message box saying so.
std::wstring LoadStringChecked(unsigned id);
// Prints the string on a line of its own: "\n%s\n".
void PrintResourceLine(unsigned id);

// Change the case of text in place. A failure of the string layer leaves text as it
// was and throws VnExceptionWithMsg, reported to the crash recorder first.
void SafeUpper(std::wstring& text);
void SafeLower(std::wstring& text);

// The guarded case change behind SafeUpper and SafeLower.
using CaseChange = void (*)(std::wstring& text);
void ChangeCaseSafely(std::wstring& text, CaseChange change);
