// MPEDIT scripts the host's polyline editor with its Multiple option and leaves it
// waiting for the user. A stand-in in PEDIT's place records what it is given.
#include <string>
#include <vector>

#include "command_fixture.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"

namespace {

std::vector<std::wstring>& seen() {
  static std::vector<std::wstring> answers;
  return answers;
}

int commandEcho() {
  ResultBuffer value{};
  qxedGetVar(L"CMDECHO", &value);
  return value.value.rint;
}

// Asks for two options, noting each with the CMDECHO it was given under.
void standInPolylineEdit() {
  for (int option = 0; option < 2; ++option) {
    wchar_t answer[64] = {};
    const int status = qxedGetString(0, L"\nEnter an option: ", answer, std::size(answer));
    if (status != RTNORM) return;
    seen().push_back(std::wstring(answer) + L" echo " + std::to_wstring(commandEcho()));
  }
}

class PolylineEditTest : public CommandTest {};

TEST_F(PolylineEditTest, TheEditorGetsMultipleThenGoesOnWithTheUser) {
  seen().clear();
  korva::cmd::Processor::instance().addHostCommand(L"PEDIT", standInPolylineEdit);
  addModuleCommand(L"MPEDIT", cmdMpEdit);
  type({L"MPEDIT", L"Join"});
  // "_M" came from MPEDIT, silently; "Join" from the user after MPEDIT had ended and
  // given CMDECHO back.
  EXPECT_EQ(seen(), (std::vector<std::wstring>{L"_M echo 0", L"Join echo 1"}));
  EXPECT_EQ(commandEcho(), 1);
  EXPECT_EQ(transcript_.str().find("_M"), std::string::npos) << transcript_.str();
}

}  // namespace
