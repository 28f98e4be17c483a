// qxedCommand: tokens feed host commands, which wait for more when the tokens run out.
#include "cmd/processor.h"
#include "processor_fixture.h"
#include "test_commands.h"

namespace korva::test {
namespace {

using Events = std::vector<std::wstring>;

TEST_F(ProcessorTest, AWaitingHostCommandTakesTheNextCallsTokens) {
  registerTestCommands();
  typeAnswers({L"SCRIPTER"});
  runAll();
  EXPECT_EQ(events(), (Events{L"ASKTWO:one", L"SCRIPTER:status 5100", L"ASKTWO:two",
                              L"SCRIPTER:status 5100"}));
}

TEST_F(ProcessorTest, AHostCommandLeftWaitingGoesOnWithTheUsersInput) {
  registerTestCommands();
  typeAnswers({L"LEAVER", L"yours", L"TRANS"});
  runAll();
  EXPECT_EQ(events(), (Events{L"ASKTWO:mine", L"ASKTWO:yours", L"TRANS"}));
}

TEST_F(ProcessorTest, TheEndOfInputCancelsTheWaitingPrompt) {
  registerTestCommands();
  typeAnswers({L"LEAVER"});
  runAll();
  EXPECT_EQ(events(), (Events{L"ASKTWO:mine", L"ASKTWO:cancel"}));
}

TEST_F(ProcessorTest, TransparentCommandsRunInsideAPromptWhichIsAskedAgain) {
  registerTestCommands();
  typeAnswers({L"ASKTWO", L"'TRANS", L"a", L"'SCRIPTER", L"b"});
  runAll();
  EXPECT_EQ(events(), (Events{L"TRANS", L"ASKTWO:a", L"ASKTWO:b"}));
  EXPECT_NE(transcript().find("Resuming ASKTWO command."), std::string::npos);
  EXPECT_NE(transcript().find("SCRIPTER can't run while another command is active."),
            std::string::npos);
}

TEST_F(ProcessorTest, EnterAtTheCommandPromptRepeatsTheLastCommand) {
  registerTestCommands();
  typeAnswers({L"TRANS", L"", L""});
  runAll();
  EXPECT_EQ(events(), (Events{L"TRANS", L"TRANS", L"TRANS"}));
}

TEST_F(ProcessorTest, UnknownScriptedCommandsAndBadTokensFail) {
  registerTestCommands();
  EXPECT_EQ(qxedCommand(RTSTR, L"_.NOSUCH", RTNONE), RTERROR);
  const double point[3] = {1, 2, 3};
  EXPECT_EQ(qxedCommand(RTPOINT, point, RTNONE), RTERROR);  // not a command name
  EXPECT_EQ(qxedCommand(9999, RTNONE), RTERROR);
  EXPECT_EQ(qxedCommand(RTSTR, L"_.TRANS", RTNONE), RTERROR);  // "." reaches host commands only
  EXPECT_EQ(qxedCommand(RTSTR, L"_TRANS", RTNONE), RTNORM);
  EXPECT_EQ(events(), (Events{L"TRANS"}));
}

}  // namespace
}  // namespace korva::test
