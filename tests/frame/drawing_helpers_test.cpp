// The entity, selection, layer and variable helpers against a drawing, through the
// host's flat layer.
#include "cmd/host_commands.h"
#include "frame/entity_helpers.h"
#include "frame/selection_helpers.h"
#include "frame/variable_helpers.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

class DrawingHelpersTest : public ScriptTest {
 protected:
  void SetUp() override {
    static const bool registered =
        (cmd::registerTableCommands(), cmd::registerDrawingCommands(), true);
    (void)registered;
    ScriptTest::SetUp();
    runScript("-LAYER\nNew\nWalls,Locked\nLOck\nLocked\n\n");
    line_ = makeLine(L"Walls", 0.0);
    other_ = makeLine(L"Locked", 5.0);
  }

  struct Name {
    EntityName value{};
  };

  static Name makeLine(const wchar_t* layer, double y) {
    const double start[3] = {0, y, 1.5};
    const double end[3] = {10, y, 1.5};
    ResultBuffer* list = qxutBuildList(RTDXF0, L"LINE", 8, layer, 10, start, 11, end, RTNONE);
    Name made;
    EXPECT_EQ(qxdbEntMakeX(list, made.value), RTNORM);
    qxutRelRb(list);
    return made;
  }

  Name line_;
  Name other_;
};

TEST_F(DrawingHelpersTest, EntityGroupsAreCopiedAndMissingOnesLeaveTheTarget) {
  wchar_t type[16] = L"";
  ASSERT_EQ(GetEntityType(line_.value, type, 16), RTNORM);
  EXPECT_STREQ(type, L"LINE");
  wchar_t layer[16] = L"";
  ASSERT_EQ(GetEntityString(line_.value, 8, layer, 16), RTNORM);
  EXPECT_STREQ(layer, L"Walls");
  wchar_t missing[16] = L"cleared";
  EXPECT_EQ(GetEntityString(line_.value, 1, missing, 16), RTNORM);
  EXPECT_STREQ(missing, L"cleared");

  double point[3] = {};
  ASSERT_EQ(GetEntityPoint(line_.value, 11, point), RTNORM);
  EXPECT_EQ(point[0], 10);
  EXPECT_EQ(point[2], 1.5);
  int color = -1;
  EXPECT_EQ(GetEntityInt(line_.value, 62, color), RTNORM);
  EXPECT_EQ(color, -1);
  double thickness = -1;
  EXPECT_EQ(GetEntityReal(line_.value, 39, thickness), RTNORM);
  EXPECT_EQ(thickness, -1);

  std::wstring layerName;
  EXPECT_EQ(GetEntityLayer(other_.value, layerName), 1);
  EXPECT_EQ(layerName, L"Locked");
}

TEST_F(DrawingHelpersTest, AnEntityThatIsntThereFails) {
  EntityName nowhere = {0x7FFFFF, 1};
  wchar_t type[16] = L"kept";
  EXPECT_EQ(GetEntityType(nowhere, type, 16), RTERROR);
  EXPECT_STREQ(type, L"kept");
  double point[3] = {};
  EXPECT_EQ(GetEntityPoint(nowhere, 10, point), RTERROR);
  std::wstring layer = L"kept";
  EXPECT_EQ(GetEntityLayer(nowhere, layer), 0);
  EXPECT_EQ(layer, L"kept");
}

TEST_F(DrawingHelpersTest, LayersAreLockedByTheirFlags) {
  EXPECT_NE(IsLayerLocked(L"Locked"), 0);
  EXPECT_EQ(IsLayerLocked(L"Walls"), 0);
  EXPECT_EQ(IsLayerLocked(L"NoSuchLayer"), 0);
}

TEST_F(DrawingHelpersTest, SetsAreJoinedAndHighlightingFollowsTheLayer) {
  SelectionSet first{};
  SelectionSet second{};
  ASSERT_EQ(qxedSSAdd(line_.value, nullptr, first), RTNORM);
  ASSERT_EQ(qxedSSAdd(nullptr, nullptr, second), RTNORM);
  EXPECT_EQ(AddSetToSet(second, first), RTNORM);  // nothing to add
  ASSERT_EQ(qxedSSAdd(other_.value, second, second), RTNORM);
  EXPECT_EQ(AddSetToSet(second, first), RTNORM);
  std::int32_t count = 0;
  qxedSSLength(first, &count);
  EXPECT_EQ(count, 2);

  EXPECT_EQ(HighlightLayerEntities(L"Walls", 1), RTNORM);
  EXPECT_TRUE(qxedIsHighlighted(line_.value));
  EXPECT_FALSE(qxedIsHighlighted(other_.value));
  qxedRedraw(other_.value, 3);
  EXPECT_EQ(UnhighlightSet(first), RTNORM);
  EXPECT_FALSE(qxedIsHighlighted(line_.value));
  EXPECT_FALSE(qxedIsHighlighted(other_.value));
  EXPECT_EQ(HighlightLayerEntities(L"Empty", 1), RTERROR);  // nothing selected
  qxedSSFree(first);
  qxedSSFree(second);
}

TEST_F(DrawingHelpersTest, VariablesAndCurrentNames) {
  EXPECT_EQ(SetIntVar(L"ORTHOMODE", 1), 1);
  ResultBuffer value{};
  qxedGetVar(L"ORTHOMODE", &value);
  EXPECT_EQ(value.value.rint, 1);

  runScript("-LAYER\nSet\nWalls\n\n");
  wchar_t layer[256] = L"";
  ASSERT_EQ(GetCurrentLayerName(layer), RTNORM);
  EXPECT_STREQ(layer, L"Walls");
  wchar_t style[256] = L"";
  ASSERT_EQ(GetCurrentTextStyleName(style), RTNORM);
  EXPECT_STREQ(style, L"Standard");
  EXPECT_EQ(GetCurrentLayerName(nullptr), RTERROR);

  EXPECT_EQ(IsStringInArray(L"Walls", {L"walls", L"Walls"}), 1);
  EXPECT_EQ(IsStringInArray(L"Wall", {L"walls", L"Walls"}), 0);
}

TEST_F(DrawingHelpersTest, PointsAndVectorsBetweenTheUserSystemAndTheWorld) {
  runScript("UCS\nOrigin\n10,5,0\n");
  const double point[3] = {1, 1, 0};
  double world[3] = {};
  ASSERT_TRUE(UcsToWcs(point, world, false));
  EXPECT_DOUBLE_EQ(world[0], 11);
  EXPECT_DOUBLE_EQ(world[1], 6);
  ASSERT_TRUE(UcsToWcs(point, world, true));  // a vector doesn't move with the origin
  EXPECT_DOUBLE_EQ(world[0], 1);
  double user[3] = {};
  ASSERT_TRUE(WcsToUcs(point, user, false));
  EXPECT_DOUBLE_EQ(user[0], -9);
  EXPECT_DOUBLE_EQ(user[1], -4);

  const double x[3] = {1, 0, 0};
  const double y[3] = {0, 1, 0};
  double z[3] = {};
  CrossProduct(x, y, z);
  EXPECT_EQ(z[2], 1);
  CrossProduct(y, x, z);
  EXPECT_EQ(z[2], -1);
}

}  // namespace
}  // namespace korva::test
