// The token sequences the module scripts OFFSET, TRIM and FILLET with (qxedCommand):
// a distance or Through, entity names, entity-and-point picks, variables set first.
#include <gtest/gtest.h>

#include <array>
#include <sstream>

#include "../drawing_commands/drawing_fixture.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "input/console.h"
#include "qx_command.h"
#include "qx_db_core.h"
#include "qx_selection.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

class ScriptedModifyTest : public HostCommandTest {
 protected:
  // The group's point of the entity's list.
  static std::array<double, 3> pointOf(const EntityName name, int code) {
    std::array<double, 3> point{};
    ResultBuffer* list = qxdbEntGet(name);
    for (ResultBuffer* node = list; node; node = node->next) {
      if (node->type == code)
        point = {node->value.rpoint[0], node->value.rpoint[1], node->value.rpoint[2]};
    }
    qxutRelRb(list);
    return point;
  }

  static bool sameName(const EntityName a, const EntityName b) {
    return a[0] == b[0] && a[1] == b[1];
  }
};

TEST_F(ScriptedModifyTest, OffsetByDistanceEntityAndSide) {
  EntityName source, made;
  line(0, 0, 10, 0, source);
  const double side[3] = {5, 3, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.OFFSET", RTREAL, 0.5, RTENAME, source, RTPOINT, side, RTSTR, L"",
                        RTNONE),
            RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  ASSERT_EQ(qxdbEntLast(made), RTNORM);
  ASSERT_FALSE(sameName(made, source));
  EXPECT_NEAR(pointOf(made, 10)[1], 0.5, 1e-12);
  EXPECT_NEAR(pointOf(made, 11)[0], 10, 1e-12);
}

TEST_F(ScriptedModifyTest, ACircleOffsetInwardPastItsCenterMakesNothing) {
  const double center[3] = {0, 0, 0}, inside[3] = {0.1, 0, 0};
  EntityName circle, last;
  make(qxutBuildList(RTDXF0, L"CIRCLE", 10, center, 40, 1.0, RTNONE), circle);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.OFFSET", RTREAL, 2.0, RTENAME, circle, RTPOINT, inside, RTSTR,
                        L"", RTNONE),
            RTNORM);
  ASSERT_EQ(qxdbEntLast(last), RTNORM);
  EXPECT_TRUE(sameName(last, circle));
}

TEST_F(ScriptedModifyTest, GapTypeByItsVariableNameThenThrough) {
  ASSERT_EQ(qxedCommand(RTSTR, L"_.OFFSETGAPTYPE", RTSHORT, 1, RTNONE), RTNORM);
  ResultBuffer gap{};
  ASSERT_EQ(qxedGetVar(L"OFFSETGAPTYPE", &gap), RTNORM);
  EXPECT_EQ(gap.value.rint, 1);
  const double a[3] = {0, 0, 0}, b[3] = {10, 0, 0}, c[3] = {10, 10, 0};
  EntityName polyline, made;
  make(qxutBuildList(RTDXF0, L"LWPOLYLINE", 90, 3, 10, a, 10, b, 10, c, RTNONE), polyline);
  // Through a point 2 to the right of the first segment: an arc rounds the outer corner.
  const double through[3] = {5, -2, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.Offset", RTSTR, L"_T", RTENAME, polyline, RTPOINT, through,
                        RTSTR, L"", RTNONE),
            RTNORM);
  ASSERT_EQ(qxdbEntLast(made), RTNORM);
  ResultBuffer* list = qxdbEntGet(made);
  int vertices = 0, arcs = 0;
  for (ResultBuffer* node = list; node; node = node->next) {
    if (node->type == 10) ++vertices;
    if (node->type == 42 && node->value.rreal != 0) ++arcs;
  }
  qxutRelRb(list);
  EXPECT_EQ(vertices, 4);
  EXPECT_EQ(arcs, 1);
}

TEST_F(ScriptedModifyTest, TrimWithAnEdgeSetAndAPickedEntity) {
  EntityName edge, trimmed;
  line(5, -5, 5, 5, edge);
  line(0, 0, 10, 0, trimmed);
  SelectionSet edges;
  ASSERT_EQ(qxedSSAdd(edge, nullptr, edges), RTNORM);
  const double pick[3] = {8, 0, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"_.Trim", RTPICKS, edges, RTSTR, L"", RTLB, RTENAME, trimmed,
                        RTPOINT, pick, RTLE, RTSTR, L"", RTNONE),
            RTNORM);
  qxedSSFree(edges);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  EXPECT_NEAR(pointOf(trimmed, 11)[0], 5, 1e-12);
  EXPECT_NEAR(pointOf(trimmed, 10)[0], 0, 1e-12);
}

TEST_F(ScriptedModifyTest, FilletRadiusZeroAfterItsVariablesInOneCall) {
  EntityName first, second;
  line(0, 0, 8, 0, first);
  line(10, 3, 10, 10, second);
  const double firstPick[3] = {2, 0, 0}, secondPick[3] = {10, 8, 0};
  ASSERT_EQ(qxedCommand(RTSTR, L"FILLETRAD", RTSTR, L"0", RTSTR, L"TRIMMODE", RTSTR, L"1", RTSTR,
                        L"_FILLET", RTLB, RTENAME, first, RTPOINT, firstPick, RTLE, RTLB, RTENAME,
                        second, RTPOINT, secondPick, RTLE, RTNONE),
            RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  EXPECT_NEAR(pointOf(first, 11)[0], 10, 1e-12);
  EXPECT_NEAR(pointOf(second, 10)[1], 0, 1e-12);
}

}  // namespace
}  // namespace korva::cmd
