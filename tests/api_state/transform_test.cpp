#include <cmath>

#include "document_fixture.h"
#include "qx_coordinates.h"
#include "qx_types.h"

namespace {

ResultBuffer system(int code) {
  ResultBuffer node{};
  node.type = RTSHORT;
  node.value.rint = static_cast<int16_t>(code);
  return node;
}

void expectPoint(const double* actual, double x, double y, double z) {
  EXPECT_NEAR(actual[0], x, 1e-12);
  EXPECT_NEAR(actual[1], y, 1e-12);
  EXPECT_NEAR(actual[2], z, 1e-12);
}

class Transform : public CurrentDrawing {
 protected:
  // A user system turned 90 degrees about Z, with its origin at (10, 20, 0).
  void rotateUcs() {
    database().setHeaderVariable("$UCSORG", {{10, "10.0"}, {20, "20.0"}, {30, "0.0"}});
    database().setHeaderVariable("$UCSXDIR", {{10, "0.0"}, {20, "1.0"}, {30, "0.0"}});
    database().setHeaderVariable("$UCSYDIR", {{10, "-1.0"}, {20, "0.0"}, {30, "0.0"}});
  }
};

TEST_F(Transform, BetweenWorldAndUserSystem) {
  rotateUcs();
  ResultBuffer world = system(0), user = system(1);
  double point[3] = {1, 0, 0}, result[3];
  ASSERT_EQ(qxedTrans(point, &user, &world, 0, result), RTNORM);
  expectPoint(result, 10, 21, 0);
  // A displacement ignores the origin.
  ASSERT_EQ(qxedTrans(point, &user, &world, 1, result), RTNORM);
  expectPoint(result, 0, 1, 0);
  double back[3];
  double worldPoint[3] = {10, 21, 0};
  ASSERT_EQ(qxedTrans(worldPoint, &world, &user, 0, back), RTNORM);
  expectPoint(back, 1, 0, 0);
}

TEST_F(Transform, ObjectSystemFollowsTheArbitraryAxisRule) {
  ResultBuffer world = system(0);
  ResultBuffer extrusion{};
  extrusion.type = RT3DPOINT;
  extrusion.value.rpoint[2] = -1;  // seen from below: X flips
  double point[3] = {1, 2, 3}, result[3];
  ASSERT_EQ(qxedTrans(point, &extrusion, &world, 0, result), RTNORM);
  expectPoint(result, -1, 2, -3);
  // A tilted extrusion: the object X axis is Wz x N, normalised.
  extrusion.value.rpoint[0] = 1;
  extrusion.value.rpoint[1] = 0;
  extrusion.value.rpoint[2] = 0;
  double unitX[3] = {1, 0, 0};
  ASSERT_EQ(qxedTrans(unitX, &extrusion, &world, 1, result), RTNORM);
  expectPoint(result, 0, 1, 0);
}

TEST_F(Transform, RejectsUnknownSystems) {
  ResultBuffer world = system(0), unknown = system(7);
  double point[3] = {0, 0, 0}, result[3];
  EXPECT_EQ(qxedTrans(point, &unknown, &world, 0, result), RTERROR);
  ResultBuffer zeroExtrusion{};
  zeroExtrusion.type = RT3DPOINT;
  EXPECT_EQ(qxedTrans(point, &zeroExtrusion, &world, 0, result), RTERROR);
  EntityName missing = {0x7777, 1};
  ResultBuffer entity{};
  entity.type = RTENAME;
  entity.value.rlname[0] = missing[0];
  entity.value.rlname[1] = missing[1];
  EXPECT_EQ(qxedTrans(point, &entity, &world, 0, result), RTERROR);
}

TEST_F(Transform, EntityObjectSystemAndHighlight) {
  korva::db::Record* circle = database().addEntity(
      {{100, "AcDbEntity"}, {8, "0"}, {100, "AcDbCircle"}, {10, "1.0"}, {20, "2.0"},
       {30, "0.0"}, {40, "1.0"}, {210, "0.0"}, {220, "0.0"}, {230, "-1.0"}},
      "CIRCLE");
  EntityName name;
  korva::api::nameOf(*document_, *circle, name);
  ResultBuffer entity{}, world = system(0);
  entity.type = RTENAME;
  entity.value.rlname[0] = name[0];
  entity.value.rlname[1] = name[1];
  double center[3] = {1, 2, 0}, result[3];
  ASSERT_EQ(qxedTrans(center, &entity, &world, 0, result), RTNORM);
  expectPoint(result, -1, 2, 0);

  EXPECT_FALSE(qxedIsHighlighted(name));
  EXPECT_EQ(qxedRedraw(name, 3), RTNORM);
  EXPECT_TRUE(qxedIsHighlighted(name));
  EXPECT_EQ(qxedRedraw(name, 4), RTNORM);
  EXPECT_FALSE(qxedIsHighlighted(name));
  EXPECT_EQ(qxedRedraw(name, 9), RTERROR);
}

}  // namespace
