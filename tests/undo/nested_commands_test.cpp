// UNDO and U scripted by running commands, as module commands use them, and commands
// cut short. (The user's own use of UNDO and U is covered by the end-to-end cases.)
#include <iostream>
#include <sstream>

#include "api/document.h"
#include "api/system_variables.h"
#include "cmd/command_stack.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "input/console.h"
#include "qx_command.h"
#include "qx_entities.h"
#include "qx_input.h"
#include "qx_memory.h"
#include "undo_fixture.h"

namespace korva::test {
namespace {

void addPoint() {
  const double at[3] = {1, 2, 0};
  ResultBuffer* list = qxutBuildList(RTDXF0, L"POINT", 10, at, RTNONE);
  qxdbEntMake(list);
  qxutRelRb(list);
}

// POINTS: asks how many points to add until Enter.
void pointsCommand() {
  int count = 0;
  while (qxedGetInt(L"\nHow many more: ", &count) == RTNORM) {
    for (int i = 0; i < count; ++i) addPoint();
  }
}

// BACKOUT: adds two points, takes them back, adds one.
void backOutCommand() {
  addPoint();
  addPoint();
  qxedCommand(RTSTR, L"_.U", RTNONE);
  addPoint();
}

// STEPS: two steps of its own, each in a user group, then takes the last back.
void stepsCommand() {
  for (int step = 0; step < 2; ++step) {
    qxedCommand(RTSTR, L"_.UNDO", RTSTR, L"_BE", RTNONE);
    addPoint();
    addPoint();
    qxedCommand(RTSTR, L"_.UNDO", RTSTR, L"_E", RTNONE);
  }
  qxedCommand(RTSTR, L"_.UNDO", RTSTR, L"", RTNONE);
}

// HALFGROUP: opens a user group it never closes.
void halfGroupCommand() {
  qxedCommand(RTSTR, L"_.UNDO", RTSTR, L"_BE", RTNONE);
  addPoint();
}

class NestedUndo : public CurrentDocument {
 protected:
  void SetUp() override {
    static bool registered = false;
    if (!registered) {
      registered = true;
      cmd::registerHostCommands();
      QxEdCommandStack* stack = cmd::commandStack();
      stack->addCommand(L"UNDO_TESTS", L"POINTS", L"POINTS", QXRX_CMD_MODAL, pointsCommand);
      stack->addCommand(L"UNDO_TESTS", L"BACKOUT", L"BACKOUT", QXRX_CMD_MODAL, backOutCommand);
      stack->addCommand(L"UNDO_TESTS", L"STEPS", L"STEPS", QXRX_CMD_MODAL, stepsCommand);
      stack->addCommand(L"UNDO_TESTS", L"HALFGROUP", L"HALFGROUP", QXRX_CMD_MODAL,
                        halfGroupCommand);
    }
    CurrentDocument::SetUp();
    input::Console::instance().setOutput(&output_);
  }
  void TearDown() override {
    input::Console& console = input::Console::instance();
    while (console.hasInput()) console.popSource();
    console.setOutput(&std::cout);
    CurrentDocument::TearDown();
  }

  void type(std::vector<std::wstring> answers) {
    input::Console::instance().pushSource(input::makeAnswerSource(std::move(answers)));
    cmd::Processor::instance().run();
  }
  int points() {
    int count = 0;
    for (const db::Record* record : *database().entities()) {
      if (record->type() == "POINT" && !record->isErased()) ++count;
    }
    return count;
  }
  int groupOpenBit() {
    return static_cast<int>(api::getVariable(&database(), "UNDOCTL")->number[0]) & 8;
  }

  std::ostringstream output_;
};

TEST_F(NestedUndo, AScriptedUTakesBackWhatTheRunningCommandDidSoFar) {
  type({L"POINTS", L"1", L"", L"BACKOUT"});
  EXPECT_EQ(points(), 2);
  EXPECT_NE(output_.str().find("\nBACKOUT"), std::string::npos);
  type({L"U"});
  EXPECT_EQ(points(), 1);
}

TEST_F(NestedUndo, ScriptedGroupsAreStepsInsideTheCommandAndGoWithIt) {
  type({L"STEPS"});
  EXPECT_EQ(points(), 2);
  EXPECT_EQ(groupOpenBit(), 0);
  type({L"U"});
  EXPECT_EQ(points(), 0);
  EXPECT_NE(output_.str().find("\nSTEPS"), std::string::npos);
}

TEST_F(NestedUndo, AGroupTheCommandLeftOpenEndsWithIt) {
  type({L"HALFGROUP"});
  EXPECT_EQ(journal().openGroupCount(), 0u);
  EXPECT_EQ(groupOpenBit(), 0);
  type({L"POINTS", L"1", L"", L"U", L"U"});
  EXPECT_EQ(points(), 0);
}

TEST_F(NestedUndo, ACancelledCommandKeepsItsWorkAsOneStep) {
  type({L"POINTS", L"1", L"", L"POINTS", L"2", L"2"});  // the input runs out: cancelled
  ASSERT_EQ(points(), 5);
  EXPECT_EQ(journal().openGroupCount(), 0u);
  type({L"U"});
  EXPECT_EQ(points(), 1);
}

}  // namespace
}  // namespace korva::test
