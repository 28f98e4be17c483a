// PEDIT, EXPLODE and RECTANG driven by the token sequences of scripted commands.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "cmd/processor.h"
#include "drawing_fixture.h"
#include "qx_command.h"
#include "qx_selection.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

class EditCommandsTest : public HostCommandTest {
 protected:
  bool said(const std::string& text) const {
    return transcript_.str().find(text) != std::string::npos;
  }

  // An entity as its list tells it, read for polylines.
  struct Listed {
    int flags = -1;                             // 70
    double width = -1;                          // 43, the constant width
    std::vector<std::vector<double>> vertices;  // 10 and its 40, 41 and 42
  };
  // The live entities of the drawing of the type.
  static std::vector<Listed> entities(const wchar_t* type) {
    std::vector<Listed> found;
    EntityName name;
    for (int status = qxdbEntNext(nullptr, name); status == RTNORM;
         status = qxdbEntNext(name, name)) {
      ResultBuffer* list = qxdbEntGet(name);
      Listed entity;
      bool match = false;
      for (const ResultBuffer* node = list; node; node = node->next) {
        if (node->type == 0) match = std::wstring(node->value.rstring) == type;
        if (node->type == 70) entity.flags = node->value.rint;
        if (node->type == 43) entity.width = node->value.rreal;
        if (node->type == 10)
          entity.vertices.push_back({node->value.rpoint[0], node->value.rpoint[1], 0, 0, 0});
        if (node->type >= 40 && node->type <= 42 && !entity.vertices.empty())
          entity.vertices.back()[node->type - 38] = node->value.rreal;
      }
      qxutRelRb(list);
      if (match) found.push_back(entity);
    }
    return found;
  }
};

TEST_F(EditCommandsTest, APickedLineBecomesAPolylineThatJoinsALoop) {
  EntityName first, second, third, fourth;
  line(0, 0, 10, 0, first);
  line(10, 10, 10, 0, second);  // runs the other way
  line(10, 10, 0, 10, third);
  line(0, 10, 0, 0, fourth);
  SelectionSet others;
  ASSERT_EQ(qxedSSAdd(second, nullptr, others), RTNORM);
  SelectionSet result;
  qxedSSAdd(third, others, result);
  qxedSSAdd(fourth, others, result);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.PEDIT", RTENAME, first, RTSTR, L"", RTSTR, L"_J", RTPICKS,
                        others, RTSTR, L"", RTSTR, L"", RTNONE),
            RTNORM);
  qxedSSFree(others);
  EXPECT_TRUE(said("Do you want to turn it into one? <Y>"));
  EXPECT_TRUE(said("3 segments added to polyline"));
  EXPECT_TRUE(entities(L"LINE").empty());
  std::vector<Listed> polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 1u);
  EXPECT_EQ(polylines[0].flags & 1, 1);
  std::vector<std::vector<double>>& got = polylines[0].vertices;
  ASSERT_EQ(got.size(), 4u);
  EXPECT_EQ(got[1], (std::vector<double>{10, 0, 0, 0, 0}));
  EXPECT_EQ(got[3], (std::vector<double>{0, 10, 0, 0, 0}));
}

TEST_F(EditCommandsTest, UndoTakesBackOneOptionAtATime) {
  EntityName first;
  line(0, 0, 10, 0, first);
  ResultBuffer accept{nullptr, RTSHORT, {}};
  accept.value.rint = 1;
  ASSERT_EQ(qxedSetVar(L"PEDITACCEPT", &accept), RTNORM);
  ASSERT_EQ(
      qxedCommand(RTSTR, L"_.PEDIT", RTENAME, first, RTSTR, L"_W", RTSTR, L"2", RTSTR, L"_R", RTSTR,
                  L"_L", RTSTR, L"_ON", RTSTR, L"_U", RTSTR, L"_U", RTSTR, L"", RTNONE),
      RTNORM);
  // The question is not asked with PEDITACCEPT 1.
  EXPECT_FALSE(said("turn it into one"));
  std::vector<Listed> polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 1u);
  // Linetype generation and the reversal are undone, the width stays.
  EXPECT_EQ(polylines[0].flags & 128, 0);
  ASSERT_EQ(polylines[0].vertices.size(), 2u);
  EXPECT_EQ(polylines[0].vertices[0][0], 0);
  EXPECT_DOUBLE_EQ(polylines[0].width, 2);

  EntityName polyline;
  ASSERT_EQ(qxdbEntLast(polyline), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.PEDIT", RTENAME, polyline, RTSTR, L"_U", RTSTR, L"", RTNONE),
            RTNORM);
  accept.value.rint = 0;
  ASSERT_EQ(qxedSetVar(L"PEDITACCEPT", &accept), RTNORM);
  EXPECT_TRUE(said("All PEDIT operations have been undone."));
}

TEST_F(EditCommandsTest, MultipleJoinsWithinTheFuzzAndClosesAll) {
  EntityName a, b, c;
  line(0, 0, 10, 0, a);
  line(10.5, 0, 20, 0, b);
  line(0, 50, 10, 50, c);
  SelectionSet all;
  ASSERT_EQ(qxedSSGet(L"_X", nullptr, nullptr, nullptr, all), RTNORM);
  ASSERT_EQ(
      qxedCommand(RTSTR, L"_.PEDIT", RTSTR, L"_M", RTPICKS, all, RTSTR, L"", RTSTR, L"_Y", RTSTR,
                  L"_J", RTSTR, L"_J", RTSTR, L"_A", RTSTR, L"1", RTSTR, L"_C", RTSTR, L"", RTNONE),
      RTNORM);
  qxedSSFree(all);
  // Join type Add bridges the gap with a segment of its own.
  EXPECT_TRUE(said("Join Type = Add"));
  EXPECT_TRUE(said("2 segments added to polyline"));
  std::vector<Listed> polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 2u);
  EXPECT_EQ(polylines[0].vertices.size(), 4u);
  EXPECT_EQ(polylines[1].vertices.size(), 2u);
  for (const Listed& polyline : polylines) EXPECT_EQ(polyline.flags & 1, 1);
}

TEST_F(EditCommandsTest, EntitiesSelectedBeforehandAreEditedWithoutAPick) {
  EntityName a, b;
  line(0, 0, 10, 0, a);
  line(10, 0, 10, 10, b);
  SelectionSet both;
  ASSERT_EQ(qxedSSGet(L"_X", nullptr, nullptr, nullptr, both), RTNORM);
  ASSERT_EQ(qxedSSSetFirst(both, nullptr), RTNORM);
  qxedSSFree(both);
  // Two selected: straight to Multiple's question and options.
  ASSERT_EQ(
      qxedCommand(RTSTR, L"_.PEDIT", RTSTR, L"", RTSTR, L"_J", RTSTR, L"0", RTSTR, L"", RTNONE),
      RTNORM);
  EXPECT_FALSE(said("Select polyline"));
  std::vector<Listed> polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 1u);
  EXPECT_EQ(polylines[0].vertices.size(), 3u);

  // One selected: its options at once.
  EntityName polyline;
  ASSERT_EQ(qxdbEntLast(polyline), RTNORM);
  SelectionSet one;
  ASSERT_EQ(qxedSSAdd(polyline, nullptr, one), RTNORM);
  ASSERT_EQ(qxedSSSetFirst(one, nullptr), RTNORM);
  qxedSSFree(one);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.PEDIT", RTSTR, L"_C", RTSTR, L"", RTNONE), RTNORM);
  EXPECT_FALSE(said("Select polyline"));
  polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 1u);
  EXPECT_EQ(polylines[0].flags & 1, 1);
}

// Scripts EXPLODE with a set and no closing Enter, as module commands do.
void explodeScripted() {
  SelectionSet all;
  if (qxedSSGet(L"_X", nullptr, nullptr, nullptr, all) != RTNORM) return;
  qxedCommand(RTSTR, L"_.EXPLODE", RTPICKS, all, RTNONE);
  qxedSSFree(all);
}

TEST_F(EditCommandsTest, ExplodeFromACommandEndsWithItsSet) {
  EntityName kept;
  line(0, 0, 5, 5, kept);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.RECTANG", RTSTR, L"0,0", RTSTR, L"10,5", RTNONE), RTNORM);
  Processor::instance().addHostCommand(L"TESTEXPLODE", explodeScripted);
  ASSERT_EQ(qxedCommand(RTSTR, L"TESTEXPLODE", RTNONE), RTNORM);
  EXPECT_EQ(Processor::instance().activeCommand(), nullptr);
  EXPECT_TRUE(said("1 was not able to be exploded."));
  EXPECT_TRUE(entities(L"LWPOLYLINE").empty());
  EXPECT_EQ(entities(L"LINE").size(), 5u);
}

TEST_F(EditCommandsTest, RectangleKeepsItsModesAndLeavesTheCornerInLastpoint) {
  ASSERT_EQ(
      qxedCommand(RTSTR, L"_.RECTANG", RTSTR, L"_F", RTSTR, L"1", RTSTR, L"_W", RTSTR, L"0.5",
                  RTSTR, L"2,2", RTSTR, L"_D", RTSTR, L"6", RTSTR, L"4", RTSTR, L"0,0", RTNONE),
      RTNORM);
  std::vector<Listed> rectangles = entities(L"LWPOLYLINE");
  ASSERT_EQ(rectangles.size(), 1u);
  ASSERT_EQ(rectangles[0].vertices.size(), 8u);
  // The point below and left of the first corner puts the rectangle there.
  EXPECT_DOUBLE_EQ(rectangles[0].vertices[0][0], 2);
  EXPECT_DOUBLE_EQ(rectangles[0].vertices[0][1], 1);
  EXPECT_DOUBLE_EQ(rectangles[0].width, 0.5);
  ResultBuffer last{};
  ASSERT_EQ(qxedGetVar(L"LASTPOINT", &last), RTNORM);
  EXPECT_DOUBLE_EQ(last.value.rpoint[0], -4);
  EXPECT_DOUBLE_EQ(last.value.rpoint[1], -2);
  // The modes are kept and shown; a fillet of 0 turns rounding off again.
  ASSERT_EQ(qxedCommand(RTSTR, L"_.RECTANG", RTSTR, L"_F", RTSTR, L"0", RTSTR, L"_W", RTSTR, L"0",
                        RTSTR, L"20,20", RTSTR, L"30,30", RTNONE),
            RTNORM);
  EXPECT_TRUE(said("Current rectangle modes:  Fillet=1"));
  rectangles = entities(L"LWPOLYLINE");
  ASSERT_EQ(rectangles.size(), 2u);
  EXPECT_EQ(rectangles[1].vertices.size(), 4u);
}

}  // namespace
}  // namespace korva::cmd
