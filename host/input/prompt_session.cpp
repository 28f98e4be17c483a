#include "input/prompt_session.h"

#include <algorithm>

#include "input/console.h"
#include "input/prompt_state.h"
#include "qx_types.h"

namespace korva::input {

PromptSession::PromptSession(const wchar_t* prompt, bool blanksAllowed)
    : prompt_(prompt ? prompt : L""), blanksAllowed_(blanksAllowed) {
  InitGetSettings settings = takeNextPromptSettings();
  flags_ = settings.flags;
  keywords_ = KeywordList(settings.keywords);
}

Answer PromptSession::ask() {
  Console& console = Console::instance();
  // A refusal message ends without a line end; a prompt that doesn't start its own line
  // must not run on after it.
  if (refused_ && !console.atLineStart() && (prompt_.empty() || prompt_.front() != L'\n')) {
    console.print(L"\n");
  }
  refused_ = false;
  AskOptions options;
  options.blanksAllowed = blanksAllowed_;
  return console.ask(prompt_, options);
}

void PromptSession::refuse(std::wstring_view message) {
  refused_ = true;
  if (message.empty()) return;
  Console& console = Console::instance();
  if (!console.atLineStart()) console.print(L"\n");
  console.print(message);
}

PromptSession::KeywordResult PromptSession::keyword(std::wstring_view text) {
  if (keywords_.empty()) return KeywordResult::NotKeyword;
  std::wstring global;
  switch (keywords_.match(text, global)) {
    case KeywordList::Match::None:
      return KeywordResult::NotKeyword;
    case KeywordList::Match::Ambiguous:
      refuse(L"Ambiguous response, please clarify...");
      return KeywordResult::Refused;
    case KeywordList::Match::Found:
      setLastKeywordInput(std::move(global));
      return KeywordResult::Given;
  }
  return KeywordResult::NotKeyword;
}

bool PromptSession::takeArbitrary(std::wstring_view text) {
  if (!takesArbitraryText()) return false;
  setLastKeywordInput(std::wstring(text));
  return true;
}

bool PromptSession::acceptsNumber(double value) {
  const bool noZero = (flags_ & 2) != 0;
  const bool noNegative = (flags_ & 4) != 0;
  if (!(noZero && value == 0) && !(noNegative && value < 0)) return true;
  refuse(noZero && noNegative ? L"Value must be positive and nonzero."
         : noZero             ? L"Value must be nonzero."
                              : L"Value must be positive.");
  return false;
}

PromptSession::Step PromptSession::handleCommon(const Answer& answer, int& status) {
  if (answer.isCancel()) {
    status = RTCAN;
    return Step::Return;
  }
  if (answer.kind != Answer::Kind::Text) return Step::Parse;
  if (answer.isEnter()) {
    if (refusesEnter()) {
      refuse({});
      return Step::AskAgain;
    }
    status = RTNONE;
    return Step::Return;
  }
  switch (keyword(answer.text)) {
    case KeywordResult::Given:
      status = RTKWORD;
      return Step::Return;
    case KeywordResult::Refused:
      return Step::AskAgain;
    case KeywordResult::NotKeyword:
      break;
  }
  return Step::Parse;
}

PromptSession::Step PromptSession::handleOther(std::wstring_view text, std::wstring_view message,
                                               int& status) {
  if (takeArbitrary(text)) {
    status = RTKWORD;
    return Step::Return;
  }
  refuse(message);
  return Step::AskAgain;
}

void copyToBuffer(std::wstring_view text, wchar_t* buffer, std::size_t bufferChars) {
  if (!buffer || bufferChars == 0) return;
  const std::size_t count = std::min(text.size(), bufferChars - 1);
  std::copy_n(text.data(), count, buffer);
  buffer[count] = L'\0';
}

}  // namespace korva::input
