// PEDIT, EXPLODE and RECTANG driven by the token sequences of scripted commands.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "api/document.h"
#include "cmd/processor.h"
#include "dxf/new_drawing.h"
#include "input/console.h"
#include "qx_command.h"
#include "qx_db_core.h"
#include "qx_entities.h"
#include "qx_memory.h"
#include "qx_selection.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

struct Group {
  int code;
  double real = 0;
  std::wstring text;
  double point[3] = {0, 0, 0};
};

class EditCommandsTest : public ::testing::Test {
 protected:
  void SetUp() override {
    document_ = &api::DocumentList::instance().add(dxf::createNewDrawing(), "");
    registerHostCommands();
    input::Console::instance().setOutput(&transcript_);
  }
  void TearDown() override {
    // No command may leave an object open.
    EXPECT_EQ(qxdbOpenObjectCount(), 0u);
    input::Console::instance().setOutput(&std::cout);
    api::DocumentList::instance().close(document_);
  }

  void line(double x1, double y1, double x2, double y2, EntityName name) {
    const double a[3] = {x1, y1, 0}, b[3] = {x2, y2, 0};
    ResultBuffer* list = qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE);
    ASSERT_EQ(qxdbEntMake(list), RTNORM);
    qxutRelRb(list);
    ASSERT_EQ(qxdbEntLast(name), RTNORM);
  }

  // The live entities of the drawing, each as its type and the list's groups.
  std::vector<ResultBuffer*> entities(const wchar_t* type) {
    std::vector<ResultBuffer*> found;
    EntityName name;
    for (int status = qxdbEntNext(nullptr, name); status == RTNORM;
         status = qxdbEntNext(name, name)) {
      ResultBuffer* list = qxdbEntGet(name);
      bool match = false;
      for (ResultBuffer* node = list; node; node = node->next) {
        if (node->type == 0) match = std::wstring(node->value.rstring) == type;
      }
      if (match) {
        found.push_back(list);
      } else {
        qxutRelRb(list);
      }
    }
    owned_.insert(owned_.end(), found.begin(), found.end());
    return found;
  }

  static std::vector<std::vector<double>> vertices(const ResultBuffer* list) {
    std::vector<std::vector<double>> result;
    for (const ResultBuffer* node = list; node; node = node->next) {
      if (node->type == 10)
        result.push_back({node->value.rpoint[0], node->value.rpoint[1], 0, 0, 0});
      if (result.empty()) continue;
      if (node->type == 40) result.back()[2] = node->value.rreal;
      if (node->type == 41) result.back()[3] = node->value.rreal;
      if (node->type == 42) result.back()[4] = node->value.rreal;
    }
    return result;
  }
  static int integer(const ResultBuffer* list, int code) {
    for (const ResultBuffer* node = list; node; node = node->next) {
      if (node->type == code) return node->value.rint;
    }
    return -1;
  }
  static double real(const ResultBuffer* list, int code) {
    for (const ResultBuffer* node = list; node; node = node->next) {
      if (node->type == code) return node->value.rreal;
    }
    return -1;
  }

  ~EditCommandsTest() override {
    for (ResultBuffer* list : owned_) qxutRelRb(list);
  }

  api::Document* document_ = nullptr;
  std::ostringstream transcript_;
  std::vector<ResultBuffer*> owned_;
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
  EXPECT_NE(transcript_.str().find("Do you want to turn it into one? <Y>"), std::string::npos);
  EXPECT_NE(transcript_.str().find("3 segments added to polyline"), std::string::npos);
  EXPECT_TRUE(entities(L"LINE").empty());
  std::vector<ResultBuffer*> polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 1u);
  EXPECT_EQ(integer(polylines[0], 70) & 1, 1);
  std::vector<std::vector<double>> got = vertices(polylines[0]);
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
  EXPECT_EQ(transcript_.str().find("turn it into one"), std::string::npos);
  std::vector<ResultBuffer*> polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 1u);
  // Linetype generation and the reversal are undone, the width stays.
  EXPECT_EQ(integer(polylines[0], 70) & 128, 0);
  std::vector<std::vector<double>> got = vertices(polylines[0]);
  ASSERT_EQ(got.size(), 2u);
  EXPECT_EQ(got[0][0], 0);
  EXPECT_DOUBLE_EQ(real(polylines[0], 43), 2);

  EntityName polyline;
  ASSERT_EQ(qxdbEntLast(polyline), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.PEDIT", RTENAME, polyline, RTSTR, L"_U", RTSTR, L"", RTNONE),
            RTNORM);
  accept.value.rint = 0;
  ASSERT_EQ(qxedSetVar(L"PEDITACCEPT", &accept), RTNORM);
  EXPECT_NE(transcript_.str().find("All PEDIT operations have been undone."), std::string::npos);
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
  EXPECT_NE(transcript_.str().find("Join Type = Add"), std::string::npos);
  EXPECT_NE(transcript_.str().find("2 segments added to polyline"), std::string::npos);
  std::vector<ResultBuffer*> polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 2u);
  EXPECT_EQ(vertices(polylines[0]).size(), 4u);
  EXPECT_EQ(vertices(polylines[1]).size(), 2u);
  for (ResultBuffer* polyline : polylines) EXPECT_EQ(integer(polyline, 70) & 1, 1);
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
  EXPECT_EQ(transcript_.str().find("Select polyline"), std::string::npos);
  std::vector<ResultBuffer*> polylines = entities(L"LWPOLYLINE");
  ASSERT_EQ(polylines.size(), 1u);
  EXPECT_EQ(vertices(polylines[0]).size(), 3u);

  // One selected: its options at once.
  EntityName polyline;
  ASSERT_EQ(qxdbEntLast(polyline), RTNORM);
  SelectionSet one;
  ASSERT_EQ(qxedSSAdd(polyline, nullptr, one), RTNORM);
  ASSERT_EQ(qxedSSSetFirst(one, nullptr), RTNORM);
  qxedSSFree(one);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.PEDIT", RTSTR, L"_C", RTSTR, L"", RTNONE), RTNORM);
  EXPECT_EQ(transcript_.str().find("Select polyline"), std::string::npos);
  EXPECT_EQ(integer(entities(L"LWPOLYLINE")[0], 70) & 1, 1);
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
  EXPECT_NE(transcript_.str().find("1 was not able to be exploded."), std::string::npos);
  EXPECT_TRUE(entities(L"LWPOLYLINE").empty());
  EXPECT_EQ(entities(L"LINE").size(), 5u);
}

TEST_F(EditCommandsTest, RectangleKeepsItsModesAndLeavesTheCornerInLastpoint) {
  ASSERT_EQ(
      qxedCommand(RTSTR, L"_.RECTANG", RTSTR, L"_F", RTSTR, L"1", RTSTR, L"_W", RTSTR, L"0.5",
                  RTSTR, L"2,2", RTSTR, L"_D", RTSTR, L"6", RTSTR, L"4", RTSTR, L"0,0", RTNONE),
      RTNORM);
  std::vector<ResultBuffer*> rectangles = entities(L"LWPOLYLINE");
  ASSERT_EQ(rectangles.size(), 1u);
  std::vector<std::vector<double>> got = vertices(rectangles[0]);
  ASSERT_EQ(got.size(), 8u);
  // The point below and left of the first corner puts the rectangle there.
  EXPECT_DOUBLE_EQ(got[0][0], 2);
  EXPECT_DOUBLE_EQ(got[0][1], 1);
  EXPECT_DOUBLE_EQ(real(rectangles[0], 43), 0.5);
  ResultBuffer last{};
  ASSERT_EQ(qxedGetVar(L"LASTPOINT", &last), RTNORM);
  EXPECT_DOUBLE_EQ(last.value.rpoint[0], -4);
  EXPECT_DOUBLE_EQ(last.value.rpoint[1], -2);
  // The modes are kept and shown; a fillet of 0 turns rounding off again.
  ASSERT_EQ(qxedCommand(RTSTR, L"_.RECTANG", RTSTR, L"_F", RTSTR, L"0", RTSTR, L"_W", RTSTR, L"0",
                        RTSTR, L"20,20", RTSTR, L"30,30", RTNONE),
            RTNORM);
  EXPECT_NE(transcript_.str().find("Current rectangle modes:  Fillet=1"), std::string::npos);
  rectangles = entities(L"LWPOLYLINE");
  ASSERT_EQ(rectangles.size(), 2u);
  EXPECT_EQ(vertices(rectangles[1]).size(), 4u);
}

}  // namespace
}  // namespace korva::cmd
