// The token sequences module commands script the drawing host commands with
// (qxedCommand): entity and selection set tokens, global keywords, points.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <sstream>

#include "cmd/processor.h"
#include "drawing_fixture.h"
#include "geom/vec.h"
#include "input/console.h"
#include "qx_command.h"
#include "qx_selection.h"
#include "qx_variables.h"

namespace korva::cmd::drawing {
namespace {

class ScriptedTokensTest : public HostCommandTest {
 protected:
  static double real(const wchar_t* name) {
    ResultBuffer value{};
    EXPECT_EQ(qxedGetVar(name, &value), RTNORM);
    return value.value.rreal;
  }
  static geom::Vec3 point(const wchar_t* name) {
    ResultBuffer value{};
    EXPECT_EQ(qxedGetVar(name, &value), RTNORM);
    return {value.value.rpoint[0], value.value.rpoint[1], value.value.rpoint[2]};
  }
};

TEST_F(ScriptedTokensTest, AreaOfAnEntityToken) {
  const double center[3] = {5, 5, 0};
  EntityName circle;
  make(qxutBuildList(RTDXF0, L"CIRCLE", 10, center, 40, 3.0, RTNONE), circle);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.AREA", RTSTR, L"_E", RTENAME, circle, RTNONE), RTNORM);
  EXPECT_NEAR(real(L"AREA"), 9 * std::numbers::pi, 1e-9);
  EXPECT_NEAR(real(L"PERIMETER"), 6 * std::numbers::pi, 1e-9);
  // The command ended: the next one starts at the command prompt.
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
}

TEST_F(ScriptedTokensTest, AnEntityWithoutAreaEndsTheCommandWithAreaZero) {
  const double center[3] = {0, 0, 0}, end[3] = {1, 0, 0};
  EntityName circle, line;
  make(qxutBuildList(RTDXF0, L"CIRCLE", 10, center, 40, 1.0, RTNONE), circle);
  make(qxutBuildList(RTDXF0, L"LINE", 10, center, 11, end, RTNONE), line);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.AREA", RTSTR, L"_E", RTENAME, circle, RTNONE), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.AREA", RTSTR, L"_E", RTENAME, line, RTNONE), RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  EXPECT_EQ(real(L"AREA"), 0);
  EXPECT_NE(transcript_.str().find("Selected object has no area."), std::string::npos);
}

TEST_F(ScriptedTokensTest, UserSystemFromAnObjectAndBack) {
  const double at[3] = {10, 20, 0};
  EntityName text;
  make(qxutBuildList(RTDXF0, L"TEXT", 10, at, 40, 1.0, 1, L"t", 50, 90.0, RTNONE), text);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_OB", RTENAME, text, RTNONE), RTNORM);
  geom::Vec3 origin = point(L"UCSORG"), xAxis = point(L"UCSXDIR");
  EXPECT_NEAR(origin.x, 10, 1e-12);
  EXPECT_NEAR(origin.y, 20, 1e-12);
  EXPECT_NEAR(xAxis.y, 1, 1e-12);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_P", RTNONE), RTNORM);
  EXPECT_NEAR(point(L"UCSORG").x, 0, 1e-12);

  const double base[3] = {1, 1, 0}, onX[3] = {1, 2, 0}, onY[3] = {0, 1, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_3", RT3DPOINT, base, RT3DPOINT, onX, RT3DPOINT,
                        onY, RTNONE),
            RTNORM);
  EXPECT_NEAR(point(L"UCSXDIR").y, 1, 1e-12);
  EXPECT_NEAR(point(L"UCSYDIR").x, -1, 1e-12);
}

TEST_F(ScriptedTokensTest, SavedSystemIsRestoredAndDeletedByName) {
  const double origin[3] = {3, 4, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_O", RT3DPOINT, origin, RTNONE), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_S", RTSTR, L"KEEP", RTNONE), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_W", RTNONE), RTNORM);
  EXPECT_NEAR(point(L"UCSORG").x, 0, 1e-12);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_R", RTSTR, L"KEEP", RTNONE), RTNORM);
  EXPECT_NEAR(point(L"UCSORG").x, 3, 1e-12);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.UCS", RTSTR, L"_D", RTSTR, L"KEEP", RTNONE), RTNORM);
  ResultBuffer* record = qxdbTblSearch(L"UCS", L"KEEP", 0);
  EXPECT_EQ(record, nullptr);
  qxutRelRb(record);
}

TEST_F(ScriptedTokensTest, CopyOfASelectionSetEndsAfterOneCopy) {
  const double from[3] = {0, 0, 0}, to[3] = {10, 0, 0};
  EntityName line;
  make(qxutBuildList(RTDXF0, L"LINE", 10, from, 11, to, RTNONE), line);
  SelectionSet set;
  ASSERT_EQ(qxedSSAdd(line, nullptr, set), RTNORM);
  const double origin[3] = {0, 0, 0}, target[3] = {0, 5, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.COPY", RTPICKS, set, RTSTR, L"", RTPOINT, origin, RTPOINT,
                        target, RTNONE),
            RTNORM);
  qxedSSFree(set);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  EntityName copy;
  ASSERT_EQ(qxdbEntLast(copy), RTNORM);
  ResultBuffer* list = qxdbEntGet(copy);
  ASSERT_NE(list, nullptr);
  bool moved = false;
  for (const ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 10) moved = node->value.rpoint[1] == 5;
  }
  qxutRelRb(list);
  EXPECT_TRUE(moved);

  // Erased through a set token; the copy stays.
  ASSERT_EQ(qxedSSAdd(line, nullptr, set), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.ERASE", RTPICKS, set, RTSTR, L"", RTNONE), RTNORM);
  qxedSSFree(set);
  EXPECT_EQ(qxedSSGet(L"X", nullptr, nullptr, nullptr, set), RTNORM);
  std::int32_t count = 0;
  qxedSSLength(set, &count);
  qxedSSFree(set);
  EXPECT_EQ(count, 1);
}

TEST_F(ScriptedTokensTest, EditingCommandsTakeThePickFirstSet) {
  const double from[3] = {0, 0, 0}, to[3] = {1, 0, 0};
  EntityName first, second;
  make(qxutBuildList(RTDXF0, L"LINE", 10, from, 11, to, RTNONE), first);
  make(qxutBuildList(RTDXF0, L"LINE", 10, to, 11, from, RTNONE), second);
  SelectionSet set;
  ASSERT_EQ(qxedSSAdd(first, nullptr, set), RTNORM);
  ASSERT_EQ(qxedSSSetFirst(set, nullptr), RTNORM);
  qxedSSFree(set);
  // No selection prompt: the command ends on its own tokens.
  const double by[3] = {0, 7, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.MOVE", RTSTR, L"_D", RTPOINT, by, RTNONE), RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  // The set was used up: it is no longer there for the next command.
  EXPECT_NE(qxedSSGet(L"_I", nullptr, nullptr, nullptr, set), RTNORM);
  ResultBuffer* list = qxdbEntGet(first);
  double y = 0;
  for (const ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 10) y = node->value.rpoint[1];
  }
  qxutRelRb(list);
  EXPECT_EQ(y, 7);
}

TEST_F(ScriptedTokensTest, ZoomExtentsAndRedrawTakeTheirTokens) {
  const double from[3] = {0, 0, 0}, to[3] = {40, 10, 0};
  EntityName line;
  make(qxutBuildList(RTDXF0, L"LINE", 10, from, 11, to, RTNONE), line);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.zoom", RTSTR, L"_e", RTNONE), RTNORM);
  geom::Vec3 center = point(L"VIEWCTR");
  EXPECT_NEAR(center.x, 20, 1e-9);
  EXPECT_NEAR(center.y, 5, 1e-9);
  EXPECT_GE(real(L"VIEWSIZE"), 10 - 1e-9);
  EXPECT_EQ(qxedCommand(RTSTR, L"_.redraw", RTNONE), RTNORM);
  EXPECT_EQ(qxedCommand(RTSTR, L"_.REDRAWALL", RTNONE), RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
}

}  // namespace
}  // namespace korva::cmd::drawing
