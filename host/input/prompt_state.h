// What prompts remember between calls: the settings of qxedInitGet waiting for the
// next prompt, and the keyword or text of the last prompt that returned RTKWORD.
#pragma once

#include <string>
#include <string_view>

namespace korva::input {

struct InitGetSettings {
  int flags = 0;
  std::wstring keywords;
};

void setNextPromptSettings(int flags, std::wstring_view keywords);
// The settings for this prompt; the next prompt starts without any.
InitGetSettings takeNextPromptSettings();

void setLastKeywordInput(std::wstring text);
const std::wstring& lastKeywordInput();

}  // namespace korva::input
