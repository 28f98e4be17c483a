// qxedPrompt, qxedAlert, qxedUsrBrk and the screen switches of a host without a screen.
#include "input/console.h"
#include "input/user_break.h"
#include "qx_input.h"

int qxedPrompt(const wchar_t* text) {
  if (!text) return RTERROR;
  korva::input::Console::instance().print(text);
  return RTNORM;
}

int qxedAlert(const wchar_t* text) {
  if (!text) return RTERROR;
  korva::input::Console& console = korva::input::Console::instance();
  if (!console.atLineStart()) console.print(L"\n");
  console.print(text);
  return RTNORM;
}

bool qxedUsrBrk() {
  return korva::input::takeUserBreak();
}

int qxedTextScr() {
  return RTNORM;
}

int qxedGraphScr() {
  return RTNORM;
}
