// Prompts of the table and file commands, answered as text or keywords.
#pragma once

#include <string>

namespace korva::cmd {

// qxedGetString into answer: RTNORM, RTNONE for Enter, RTCAN, RTERROR.
int askText(const wchar_t* prompt, std::wstring& answer);

// A keyword of the list (qxedInitGet's form) into answer: RTNORM, RTNONE, RTCAN.
// With arbitraryText, text that is no keyword is returned in answer with RTKWORD.
int askKeyword(const wchar_t* prompt, const wchar_t* keywords, std::wstring& answer,
               bool arbitraryText = false);

// Yes or No, with the default for Enter. RTNORM with yes set, or RTCAN.
int askYesNo(const wchar_t* prompt, bool defaultYes, bool& yes);

// A 16-bit variable's value, or fallback when it can't be read.
int shortVariable(const wchar_t* name, int fallback);

}  // namespace korva::cmd
