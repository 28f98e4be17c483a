// One call of a prompt function: the qxedInitGet settings taken for it, reading answers,
// and refusing input with a message before asking again.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "input/answer.h"
#include "input/keywords.h"

namespace korva::input {

class PromptSession {
 public:
  explicit PromptSession(const wchar_t* prompt, bool blanksAllowed = false);

  bool refusesEnter() const { return (flags_ & 1) != 0; }
  bool takesArbitraryText() const { return (flags_ & 128) != 0; }
  bool hasKeywords() const { return !keywords_.empty(); }

  // The next answer; after a refusal the prompt is shown again.
  Answer ask();
  // Prints why the answer was refused (nothing for an empty message).
  void refuse(std::wstring_view message);

  enum class KeywordResult { NotKeyword, Given, Refused };
  // Given: the keyword's global form is kept for qxedGetInput. Refused: ambiguous text,
  // told and to be asked again.
  KeywordResult keyword(std::wstring_view text);
  // With flag 128 keeps the text for qxedGetInput and returns true.
  bool takeArbitrary(std::wstring_view text);
  // Flags 2 and 4: false (and told) for a zero or negative value they refuse.
  bool acceptsNumber(double value);

  enum class Step { Return, AskAgain, Parse };
  // What every prompt does alike: Cancel gives RTCAN; Enter gives RTNONE or is refused
  // (flag 1); a keyword gives RTKWORD. Parse: the answer is for the caller to read.
  Step handleCommon(const Answer& answer, int& status);
  // Text that isn't a value: RTKWORD with flag 128, else refused with the message.
  Step handleOther(std::wstring_view text, std::wstring_view message, int& status);

 private:
  std::wstring prompt_;
  bool blanksAllowed_;
  int flags_;
  KeywordList keywords_;
  bool refused_ = false;
};

// Copies text into a caller's buffer of bufferChars characters, cutting what doesn't fit.
void copyToBuffer(std::wstring_view text, wchar_t* buffer, std::size_t bufferChars);

}  // namespace korva::input
