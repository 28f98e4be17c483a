// What korva does when a command ends: failures are caught and reported, and objects
// and sets left open are counted.
#include "cmd/processor.h"
#include "processor_fixture.h"
#include "rt/modules.h"
#include "test_commands.h"

namespace korva::test {
namespace {

TEST_F(ProcessorTest, AnExceptionEndsOnlyItsCommand) {
  registerTestCommands();
  rt::clearRecordedCrashes();
  typeAnswers({L"THROWER", L"TRANS"});
  runAll();
  EXPECT_NE(transcript().find("THROWER failed: broken on purpose"), std::string::npos);
  ASSERT_EQ(rt::recordedCrashes().size(), 1u);
  EXPECT_EQ(rt::recordedCrashes()[0], L"broken on purpose");
  EXPECT_EQ(events(), (std::vector<std::wstring>{L"TRANS"}));
  EXPECT_EQ(cmd::Processor::instance().commandDepth(), 0);
}

TEST_F(ProcessorTest, SetsLeftUnfreedAreReportedOnce) {
  registerTestCommands();
  typeAnswers({L"LEAKER", L"TRANS"});
  runAll();
  EXPECT_NE(transcript().find("** LEAKER left 0 objects open and 1 selection set unfreed **"),
            std::string::npos);
  EXPECT_EQ(transcript().find("TRANS left"), std::string::npos);
}

}  // namespace
}  // namespace korva::test
