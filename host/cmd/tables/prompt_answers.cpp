// Prompts of the table and file commands.
#include "cmd/tables/prompt_answers.h"

#include "qx_input.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

constexpr std::size_t kAnswerChars = 1024;

}  // namespace

int askText(const wchar_t* prompt, std::wstring& answer) {
  wchar_t buffer[kAnswerChars] = {};
  int status = qxedGetString(0, prompt, buffer, kAnswerChars);
  answer = status == RTNORM ? buffer : L"";
  if (status == RTNORM && answer.empty()) return RTNONE;
  return status;
}

int askKeyword(const wchar_t* prompt, const wchar_t* keywords, std::wstring& answer,
               bool arbitraryText) {
  wchar_t buffer[kAnswerChars] = {};
  qxedInitGet(arbitraryText ? QXED_ARBITRARY : 0, keywords);
  int status = qxedGetKword(prompt, buffer, kAnswerChars);
  if (status == RTKWORD) qxedGetInput(buffer, kAnswerChars);
  answer = (status == RTNORM || status == RTKWORD) ? buffer : L"";
  return status;
}

int askYesNo(const wchar_t* prompt, bool defaultYes, bool& yes) {
  std::wstring answer;
  int status = askKeyword(prompt, L"Yes No _ Yes No", answer);
  if (status == RTNONE) {
    yes = defaultYes;
    return RTNORM;
  }
  if (status != RTNORM) return RTCAN;
  yes = answer == L"Yes";
  return RTNORM;
}

int shortVariable(const wchar_t* name, int fallback) {
  ResultBuffer value{};
  if (qxedGetVar(name, &value) != RTNORM || value.type != RTSHORT) return fallback;
  return value.value.rint;
}

}  // namespace korva::cmd
