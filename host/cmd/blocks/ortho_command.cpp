// ORTHO: turns the orthogonal mode (ORTHOMODE) on or off.
#include <string>

#include "cmd/blocks/block_commands.h"
#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_variables.h"

namespace korva::cmd::blocks {

void orthoCommand() {
  bool on = drawing::shortVariable(L"ORTHOMODE", 0) != 0;
  std::wstring prompt = std::wstring(L"\nEnter mode [ON/OFF] <") + (on ? L"ON" : L"OFF") + L">: ";
  drawing::Answer answer = drawing::askKeyword(prompt.c_str(), {0, L"ON OFF _ ON OFF"});
  if (answer.stop() || answer.enter()) return;
  drawing::setShortVariable(L"ORTHOMODE", answer.is(L"ON") ? 1 : 0);
}

}  // namespace korva::cmd::blocks
