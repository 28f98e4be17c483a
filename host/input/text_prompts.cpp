// qxedInitGet and the prompts answered with text: qxedGetString, qxedGetKword,
// qxedGetInput.
#include <cstdio>

#include "input/prompt_session.h"
#include "input/prompt_state.h"
#include "qx_input.h"

using korva::input::Answer;
using korva::input::PromptSession;
using Step = PromptSession::Step;

int qxedInitGet(int flags, const wchar_t* keywords) {
  korva::input::setNextPromptSettings(flags, keywords ? keywords : L"");
  return RTNORM;
}

int qxedGetString(int blanksAllowed, const wchar_t* prompt, wchar_t* buffer,
                  std::size_t bufferChars) {
  if (!buffer || bufferChars == 0) return RTERROR;
  PromptSession session(prompt, blanksAllowed != 0);
  const Answer answer = session.ask();
  switch (answer.kind) {
    case Answer::Kind::Cancel:
      return RTCAN;
    case Answer::Kind::Text:
      korva::input::copyToBuffer(answer.text, buffer, bufferChars);
      return RTNORM;
    case Answer::Kind::Point: {
      wchar_t text[128];
      std::swprintf(text, 128, L"%.17g,%.17g,%.17g", answer.point[0], answer.point[1],
                    answer.point[2]);
      korva::input::copyToBuffer(text, buffer, bufferChars);
      return RTNORM;
    }
    case Answer::Kind::Entity:
    case Answer::Kind::EntityPick:
    case Answer::Kind::Set:
      break;
  }
  return RTERROR;
}

int qxedGetKword(const wchar_t* prompt, wchar_t* buffer, std::size_t bufferChars) {
  if (!buffer || bufferChars == 0) return RTERROR;
  PromptSession session(prompt);
  for (;;) {
    const Answer answer = session.ask();
    int status = RTNORM;
    const Step step = session.handleCommon(answer, status);
    if (step == Step::AskAgain) continue;
    if (step == Step::Return) {
      if (status == RTKWORD) {
        korva::input::copyToBuffer(korva::input::lastKeywordInput(), buffer, bufferChars);
        return RTNORM;
      }
      if (status == RTNONE) buffer[0] = L'\0';
      return status;
    }
    if (answer.kind == Answer::Kind::Text && session.takeArbitrary(answer.text)) {
      korva::input::copyToBuffer(answer.text, buffer, bufferChars);
      return RTNORM;
    }
    session.refuse(L"Invalid option keyword.");
  }
}

int qxedGetInput(wchar_t* buffer, std::size_t bufferChars) {
  if (!buffer || bufferChars == 0) return RTERROR;
  korva::input::copyToBuffer(korva::input::lastKeywordInput(), buffer, bufferChars);
  return RTNORM;
}
