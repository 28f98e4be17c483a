// CommandVarGuard and ScopedIntVar: what they save, clear and set back.
#include "frame/command_var_guard.h"
#include "frame/scoped_int_var.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

int shortVariable(const wchar_t* name) {
  ResultBuffer value{};
  EXPECT_EQ(qxedGetVar(name, &value), RTNORM);
  return value.value.rint;
}

void setShort(const wchar_t* name, int number) {
  ResultBuffer value{};
  value.type = RTSHORT;
  value.value.rint = static_cast<std::int16_t>(number);
  ASSERT_EQ(qxedSetVar(name, &value), RTNORM);
}

using VariableGuardsTest = ScriptTest;

TEST_F(VariableGuardsTest, CommandVariablesAreZeroInsideAndRestoredAfter) {
  setShort(L"CMDECHO", 1);
  setShort(L"BLIPMODE", 1);
  setShort(L"EXPERT", 3);
  {
    CommandVarGuard guard;
    guard.save();
    EXPECT_EQ(shortVariable(L"CMDECHO"), 0);
    EXPECT_EQ(shortVariable(L"BLIPMODE"), 0);
    EXPECT_EQ(shortVariable(L"EXPERT"), 0);
    guard.restore();
    EXPECT_EQ(shortVariable(L"EXPERT"), 3);
    setShort(L"EXPERT", 2);  // a second restore must not undo this
  }
  EXPECT_EQ(shortVariable(L"CMDECHO"), 1);
  EXPECT_EQ(shortVariable(L"BLIPMODE"), 1);
  EXPECT_EQ(shortVariable(L"EXPERT"), 2);
}

TEST_F(VariableGuardsTest, AGuardLeftByAnExceptionStillRestores) {
  setShort(L"CMDECHO", 1);
  try {
    CommandVarGuard guard;
    guard.save();
    throw std::runtime_error("leaving the command");
  } catch (const std::runtime_error&) {
  }
  EXPECT_EQ(shortVariable(L"CMDECHO"), 1);
}

TEST_F(VariableGuardsTest, ScopedIntVarClearsAndSetsBack) {
  setShort(L"REGENMODE", 1);
  {
    ScopedIntVar regeneration(L"REGENMODE");
    EXPECT_EQ(shortVariable(L"REGENMODE"), 1);
    EXPECT_EQ(regeneration.Clear(), RTNORM);
    EXPECT_EQ(shortVariable(L"REGENMODE"), 0);
  }
  EXPECT_EQ(shortVariable(L"REGENMODE"), 1);
}

TEST_F(VariableGuardsTest, ScopedIntVarWithoutANameDoesNothing) {
  setShort(L"REGENMODE", 1);
  {
    ScopedIntVar nothing(L"");
    EXPECT_EQ(nothing.Clear(), RTERROR);
    setShort(L"REGENMODE", 0);
  }
  EXPECT_EQ(shortVariable(L"REGENMODE"), 0);
}

}  // namespace
}  // namespace korva::test
