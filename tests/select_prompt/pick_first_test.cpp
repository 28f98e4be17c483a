// The pick-first set handed to commands that take it, and the SELECT command.
#include "api/selection_sets.h"
#include "api/system_variables.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "input/console.h"
#include "prompt_fixture.h"
#include "qx_command.h"
#include "qx_memory.h"
#include "qx_selection.h"

namespace korva::testing {
namespace {

// The test commands' qxedSSGet call and what it gave.
const wchar_t* commandMode = nullptr;
ResultBuffer* commandFilter = nullptr;
std::set<db::Handle> selected;

void selectingCommand() {
  SelectionSet set;
  selected.clear();
  if (qxedSSGet(commandMode, nullptr, nullptr, commandFilter, set) != RTNORM) return;
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  for (std::int32_t i = 0; i < count; ++i) {
    EntityName name;
    qxedSSName(set, i, name);
    selected.insert(static_cast<db::Handle>(name[0]));
  }
  qxedSSFree(set);
}

class PickFirstTest : public PromptTest {
 protected:
  void SetUp() override {
    PromptTest::SetUp();
    static bool registered = false;
    if (!registered) {
      cmd::Processor& processor = cmd::Processor::instance();
      processor.addHostCommand(L"TAKESPICKED", selectingCommand, QXRX_CMD_USEPICKSET);
      processor.addHostCommand(L"IGNORESPICKED", selectingCommand);
      cmd::registerSelectCommands();
      registered = true;
    }
    commandMode = nullptr;
    commandFilter = nullptr;
  }
  void TearDown() override {
    pickFirstVariable(1);
    PromptTest::TearDown();
  }

  void pickFirstVariable(int value) {
    api::VariableValue number;
    number.number[0] = value;
    ASSERT_EQ(api::setVariable(&database(), "PICKFIRST", number), api::SetResult::Done);
  }
  void pickFirst(std::initializer_list<const db::Record*> records) {
    document().selection().pickFirst.clear();
    for (const db::Record* record : records) {
      document().selection().pickFirst.push_back(record->handle());
    }
  }
  void run(const wchar_t* command, std::vector<input::Answer> answers) {
    give(std::move(answers));
    cmd::Processor::instance().runCommand(command);
    while (input::Console::instance().hasInput()) input::Console::instance().popSource();
  }
  std::set<db::Handle> previous() {
    const auto& kept = document().selection().previous;
    return {kept.begin(), kept.end()};
  }
};

TEST_F(PickFirstTest, ACommandThatTakesItGetsItWithoutAPrompt) {
  pickFirst({a, b});
  run(L"TAKESPICKED", {typed(L"L"), typed(L"")});
  EXPECT_EQ(selected, handles({a, b}));
  EXPECT_FALSE(mentions(transcript(), L"Select objects"));
  EXPECT_TRUE(document().selection().pickFirst.empty());
  EXPECT_EQ(previous(), handles({a, b}));
  // With own prompts too; erased members are left out.
  commandMode = L":$";
  pickFirst({a, c});
  database().setErased(*a, true);
  run(L"TAKESPICKED", {});
  EXPECT_EQ(selected, handles({c}));
}

TEST_F(PickFirstTest, OtherwiseThePromptRuns) {
  // PICKFIRST 0, a command without the flag, a single selection, a filter none passes.
  pickFirstVariable(0);
  pickFirst({a, b});
  run(L"TAKESPICKED", {typed(L"L"), typed(L"")});
  EXPECT_EQ(selected, handles({c}));
  pickFirstVariable(1);
  pickFirst({a, b});
  run(L"IGNORESPICKED", {typed(L"L"), typed(L"")});
  EXPECT_EQ(selected, handles({c}));
  commandMode = L":S";
  pickFirst({a, b});
  run(L"TAKESPICKED", {typed(L"L")});
  EXPECT_EQ(selected, handles({c}));
  commandMode = nullptr;
  commandFilter = qxutBuildList(RTDXF0, L"CIRCLE", RTNONE);
  pickFirst({a, b});
  run(L"TAKESPICKED", {typed(L"ALL"), typed(L"")});
  EXPECT_EQ(selected, handles({c}));
  qxutRelRb(commandFilter);
}

TEST_F(PickFirstTest, SelectMakesThePreviousSet) {
  run(L"SELECT", {typed(L"W"), typed(L"-1,-1"), typed(L"10,10"), typed(L"")});
  EXPECT_EQ(previous(), handles({a, b}));
  EXPECT_TRUE(document().highlighted().empty());
  EXPECT_EQ(api::openSelectionSetCount(document()), 0);
  // Enter alone, an empty window, or a cancel keep it.
  run(L"SELECT", {typed(L"")});
  run(L"SELECT", {typed(L"W"), typed(L"30,30"), typed(L"40,40"), typed(L"")});
  run(L"SELECT", {typed(L"L")});
  EXPECT_EQ(previous(), handles({a, b}));
  // The pick-first set is where it starts.
  pickFirst({c});
  run(L"SELECT", {typed(L"")});
  EXPECT_EQ(previous(), handles({c}));
}

TEST_F(PickFirstTest, RemovingEverythingEmptiesPreviousAndPickFirst) {
  run(L"SELECT", {typed(L"L"), typed(L"")});
  run(L"_.select", {typed(L"_r"), typed(L"_all"), typed(L"")});
  EXPECT_TRUE(previous().empty());
  pickFirst({a, b});
  run(L"_.select", {typed(L"_r"), typed(L"_all"), typed(L"")});
  EXPECT_TRUE(document().selection().pickFirst.empty());
  EXPECT_TRUE(previous().empty());
  EXPECT_TRUE(mentions(transcript(), L"3 found, 2 removed, 0 total"));
}

}  // namespace
}  // namespace korva::testing
