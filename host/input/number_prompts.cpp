// Prompts answered with numbers: qxedGetReal and qxedGetInt.
#include <cwctype>
#include <optional>

#include "input/point_input.h"
#include "input/prompt_session.h"
#include "qx_input.h"

using korva::input::Answer;
using korva::input::PromptSession;
using Step = PromptSession::Step;

namespace {

// Whether the text is written as a whole number, whatever its size.
bool looksLikeInteger(std::wstring_view text) {
  while (!text.empty() && std::iswspace(text.front())) text.remove_prefix(1);
  while (!text.empty() && std::iswspace(text.back())) text.remove_suffix(1);
  if (!text.empty() && (text.front() == L'-' || text.front() == L'+')) text.remove_prefix(1);
  if (text.empty()) return false;
  for (wchar_t c : text) {
    if (c < L'0' || c > L'9') return false;
  }
  return true;
}

// Reads answers until one gives a number that parse accepts.
template <typename Parse, typename Value>
int askNumber(const wchar_t* prompt, Parse parse, Value* result,
              std::wstring_view (*messageFor)(std::wstring_view text, bool keywords)) {
  if (!result) return RTERROR;
  PromptSession session(prompt);
  for (;;) {
    const Answer answer = session.ask();
    int status = RTNORM;
    const Step step = session.handleCommon(answer, status);
    if (step == Step::Return) return status;
    if (step == Step::AskAgain) continue;
    const std::wstring_view message = messageFor(answer.text, session.hasKeywords());
    if (answer.kind != Answer::Kind::Text) {
      session.refuse(message);
      continue;
    }
    const std::optional<Value> value = parse(answer.text);
    if (!value) {
      if (session.handleOther(answer.text, message, status) == Step::Return) return status;
      continue;
    }
    if (!session.acceptsNumber(static_cast<double>(*value))) continue;
    *result = *value;
    return RTNORM;
  }
}

std::wstring_view realMessage(std::wstring_view, bool keywords) {
  return keywords ? L"Requires a real value or option keyword." : L"Requires a real value.";
}

std::wstring_view integerMessage(std::wstring_view text, bool keywords) {
  if (looksLikeInteger(text)) return L"Requires an integer between -32768 and 32767.";
  return keywords ? L"Requires an integer value or option keyword." : L"Requires an integer value.";
}

}  // namespace

int qxedGetReal(const wchar_t* prompt, double* result) {
  return askNumber(prompt, korva::input::parseRealInput, result, realMessage);
}

int qxedGetInt(const wchar_t* prompt, int* result) {
  return askNumber(prompt, korva::input::parseIntegerInput, result, integerMessage);
}
