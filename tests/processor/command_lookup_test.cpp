// Commands are found by the names users and scripts type.
#include "cmd/command_stack.h"
#include "cmd/processor.h"
#include "processor_fixture.h"
#include "test_commands.h"

namespace korva::test {
namespace {

void redefined() {
  events().push_back(L"module ASKTWO");
}

TEST_F(ProcessorTest, NamesAsTypedFindTheirCommands) {
  registerTestCommands();
  cmd::Processor& processor = cmd::Processor::instance();
  ASSERT_NE(processor.find(L"leaver"), nullptr);
  EXPECT_EQ(processor.find(L"Verlassen")->globalName, L"LEAVER");  // the local name
  EXPECT_EQ(processor.find(L"_LEAVER")->globalName, L"LEAVER");
  EXPECT_EQ(processor.find(L"_VERLASSEN"), nullptr);  // "_" reaches global names only
  EXPECT_EQ(processor.find(L"'TRANS")->globalName, L"TRANS");
  EXPECT_EQ(processor.find(L"NOSUCH"), nullptr);
  EXPECT_EQ(processor.find(L"_."), nullptr);
}

TEST_F(ProcessorTest, DotReachesTheHostCommandAModuleRedefined) {
  registerTestCommands();
  QxEdCommandStack* stack = cmd::commandStack();
  ASSERT_EQ(stack->addCommand(L"REDEFINE", L"ASKTWO", L"ASKTWO", 0, redefined), Qxad::eOk);
  EXPECT_EQ(stack->addCommand(L"REDEFINE", L"ASKTWO", L"ASKTWO", 0, redefined),
            Qxad::eDuplicateKey);
  cmd::Processor& processor = cmd::Processor::instance();
  EXPECT_FALSE(processor.find(L"ASKTWO")->builtIn);
  EXPECT_TRUE(processor.find(L"._ASKTWO")->builtIn);
  EXPECT_TRUE(processor.find(L"_.ASKTWO")->builtIn);
  EXPECT_EQ(stack->removeGroup(L"REDEFINE"), Qxad::eOk);
  EXPECT_EQ(stack->removeGroup(L"REDEFINE"), Qxad::eKeyNotFound);
  EXPECT_TRUE(processor.find(L"ASKTWO")->builtIn);
}

TEST_F(ProcessorTest, UnknownNamesAndVariablesAtTheCommandPrompt) {
  registerTestCommands();
  typeAnswers({L"FROBNICATE", L"LUPREC", L"6", L"LUPREC", L"99", L""});
  runAll();
  EXPECT_NE(transcript().find("Unknown command \"FROBNICATE\"."), std::string::npos);
  EXPECT_NE(transcript().find("Enter new value for LUPREC <4>: 6"), std::string::npos);
  EXPECT_NE(transcript().find("Enter new value for LUPREC <6>: 99"), std::string::npos);
  EXPECT_NE(transcript().find("Requires a value between 0 and 8."), std::string::npos);
}

}  // namespace
}  // namespace korva::test
