// Moving set members: the groups written back, checked through the geometry they give.
#include <cmath>

#include "db/value_text.h"
#include "qx_selection.h"
#include "selection_fixture.h"

namespace korva::testing {
namespace {

constexpr double kTolerance = 1e-9;

struct Matrix {
  double m[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};

Matrix translation(double x, double y, double z) {
  Matrix t;
  t.m[0][3] = x;
  t.m[1][3] = y;
  t.m[2][3] = z;
  return t;
}

Matrix rotationZ(double degrees, double scale = 1) {
  Matrix r;
  double a = degrees * 3.141592653589793 / 180;
  r.m[0][0] = scale * std::cos(a);
  r.m[0][1] = -scale * std::sin(a);
  r.m[1][0] = scale * std::sin(a);
  r.m[1][1] = scale * std::cos(a);
  r.m[2][2] = scale;
  return r;
}

class TransformTest : public SelectionTest {
 protected:
  int transform(std::initializer_list<db::Record*> records, const Matrix& matrix) {
    SelectionSet set;
    qxedSSAdd(nullptr, nullptr, set);
    for (db::Record* record : records) {
      EntityName name;
      api::nameOf(document(), *record, name);
      SelectionSet same;
      qxedSSAdd(name, set, same);
    }
    int status = qxedXformSS(set, matrix.m);
    qxedSSFree(set);
    return status;
  }
};

TEST_F(TransformTest, MovesACircle) {
  db::Record* c = circle(1, 2, 3);
  ASSERT_EQ(transform({c}, translation(10, 5, 0)), RTNORM);
  EXPECT_NEAR(real(c, 10), 11, kTolerance);
  EXPECT_NEAR(real(c, 20), 7, kTolerance);
  EXPECT_NEAR(real(c, 40), 3, kTolerance);
  EXPECT_EQ(window(L"W", 7.9, 3.9, 14.1, 10.1), handles({c}));
}

TEST_F(TransformTest, ScalesAndRotatesACircleAndArc) {
  db::Record* c = circle(1, 0, 1);
  db::Record* a = arc(0, 0, 1, 0, 90);
  ASSERT_EQ(transform({c, a}, rotationZ(90, 2)), RTNORM);
  EXPECT_NEAR(real(c, 10), 0, kTolerance);
  EXPECT_NEAR(real(c, 20), 2, kTolerance);
  EXPECT_NEAR(real(c, 40), 2, kTolerance);
  // The quarter arc now runs from 90 to 180 degrees with radius 2.
  EXPECT_NEAR(real(a, 50), 90, 1e-7);
  EXPECT_NEAR(real(a, 51), 180, 1e-7);
  EXPECT_EQ(window(L"W", -2.1, -0.1, 0.1, 2.1), handles({a}));
}

TEST_F(TransformTest, MirroredArcStaysOnItsMirroredSide) {
  db::Record* a = arc(0, 0, 1, 0, 90);  // first quadrant
  Matrix mirror;
  mirror.m[0][0] = -1;
  ASSERT_EQ(transform({a}, mirror), RTNORM);
  EXPECT_EQ(window(L"W", -1.1, -0.1, 0.1, 1.1), handles({a}));
  EXPECT_TRUE(window(L"C", 0.2, 0.2, 1.1, 1.1).empty());
}

TEST_F(TransformTest, RotatesAText) {
  db::Record* t = text(1, 0, 1, "WWWW");
  ASSERT_EQ(transform({t}, rotationZ(90)), RTNORM);
  EXPECT_NEAR(real(t, 10), 0, kTolerance);
  EXPECT_NEAR(real(t, 20), 1, kTolerance);
  EXPECT_NEAR(real(t, 50), 90, 1e-7);
  // The text now runs up from (0, 1) and leans left of x = 0.
  EXPECT_EQ(window(L"W", -1.5, 0.5, 0.5, 7), handles({t}));
}

TEST_F(TransformTest, MovesPolylineVerticesAndInsertAttributes) {
  db::Record* head = add("POLYLINE", "8 0|66 1|10 0|20 0|30 0|70 0");
  db::Record* v1 = add("VERTEX", "8 0|10 0|20 0|30 0");
  db::Record* v2 = add("VERTEX", "8 0|10 4|20 0|30 0");
  add("SEQEND", {{8, "0"}});
  db::Record* light = lightPolyline({{0, 0}, {1, 1}}, {0.5}, false);
  db::Record* ref = add("INSERT", "8 0|66 1|2 B|10 1|20 1|30 0");
  db::Record* attribute = add("ATTRIB", "8 0|10 2|20 1|30 0|40 1|1 v|2 T");
  add("SEQEND", {{8, "0"}});
  ASSERT_EQ(transform({head, light, ref}, translation(0, 10, 0)), RTNORM);
  EXPECT_NEAR(real(v1, 20), 10, kTolerance);
  EXPECT_NEAR(real(v2, 10), 4, kTolerance);
  EXPECT_NEAR(real(v2, 20), 10, kTolerance);
  EXPECT_NEAR(real(ref, 20), 11, kTolerance);
  EXPECT_NEAR(real(attribute, 20), 11, kTolerance);
  EXPECT_EQ(light->find(42).value_or(""), "0.5");
  std::vector<db::Group> groups = light->groupList();
  int ys = 0;
  for (const db::Group& group : groups) {
    if (group.code == 20) {
      EXPECT_GE(db::parseReal(group.value).value_or(0), 10);
      ++ys;
    }
  }
  EXPECT_EQ(ys, 2);
}

TEST_F(TransformTest, CircleWithDownwardExtrusionMovesInWorld) {
  db::Record* c =
      add("CIRCLE", "8 0|10 5|20 0|30 0|40 1|210 0|220 0|230 -1");  // world center (-5, 0)
  ASSERT_EQ(transform({c}, translation(2, 0, 0)), RTNORM);
  EXPECT_EQ(window(L"W", -4.1, -1.1, -1.9, 1.1), handles({c}));
}

Matrix scaling(double x, double y, double z) {
  Matrix s;
  s.m[0][0] = x;
  s.m[1][1] = y;
  s.m[2][2] = z;
  return s;
}

// The value of the occurrence-th group with the code.
double nth(const db::Record* record, int code, int occurrence) {
  for (const db::Group& group : record->groups()) {
    if (group.code == code && occurrence-- == 0) return db::parseReal(group.value).value_or(0);
  }
  ADD_FAILURE() << "no group " << code;
  return 0;
}

TEST_F(TransformTest, RefusesSkewAndUnsupportedKindsWithoutChanging) {
  db::Record* c = circle(0, 0, 1);
  EXPECT_EQ(transform({c}, scaling(2, 1, 1)), RTERROR);  // it would stop being round
  db::Record* solid = add("3DSOLID", {{8, "0"}, {70, "1"}});
  EXPECT_EQ(transform({c, solid}, translation(1, 0, 0)), RTERROR);
  EXPECT_NEAR(real(c, 10), 0, kTolerance);
}

TEST_F(TransformTest, StretchCarriesStraightKindsAndSplinesExactly) {
  db::Record* l = line(1, 1, 2, 2);
  db::Record* light = lightPolyline({{1, 1}, {2, 0}}, {}, false);
  db::Record* spatial = add("POLYLINE", "8 0|66 1|10 0|20 0|30 0|70 8");
  db::Record* vertex = add("VERTEX", "8 0|10 1|20 1|30 1|70 32");
  add("SEQEND", {{8, "0"}});
  db::Record* spline = add("SPLINE",
                           "8 0|70 8|71 1|72 4|73 2|74 0|40 0|40 0|40 1|40 1|10 0|20 0|30 0|10 "
                           "1|20 1|30 0|12 1|22 1|32 0");
  db::Record* face =
      add("3DFACE", "8 0|10 0|20 0|30 0|11 1|21 0|31 0|12 1|22 1|32 1|13 0|23 1|33 1");
  db::Record* round = circle(1, 0, 1);
  ASSERT_EQ(transform({l, light, spatial, spline, face}, scaling(2, 3, 4)), RTNORM);
  EXPECT_NEAR(real(face, 22), 3, kTolerance);
  EXPECT_NEAR(real(face, 32), 4, kTolerance);
  EXPECT_NEAR(real(l, 11), 4, kTolerance);
  EXPECT_NEAR(real(l, 21), 6, kTolerance);
  EXPECT_NEAR(nth(light, 10, 1), 4, kTolerance);
  EXPECT_NEAR(nth(light, 20, 0), 3, kTolerance);
  EXPECT_NEAR(real(vertex, 30), 4, kTolerance);
  EXPECT_NEAR(nth(spline, 10, 1), 2, kTolerance);
  EXPECT_NEAR(nth(spline, 20, 1), 3, kTolerance);
  // The end tangent keeps pointing along the stretched curve.
  EXPECT_NEAR(real(spline, 22) / real(spline, 12), 1.5, kTolerance);
  // Stretched alike in its plane, a circle stays a circle.
  ASSERT_EQ(transform({round}, scaling(2, 2, 5)), RTNORM);
  EXPECT_EQ(round->type(), "CIRCLE");
  EXPECT_NEAR(real(round, 40), 2, kTolerance);
}

TEST_F(TransformTest, StretchRefusesTheWholeSetWhenOneMemberCantFollowIt) {
  db::Record* l = line(0, 0, 1, 0);
  db::Record* label = text(0, 0, 1, "a");
  db::Record* arcs = lightPolyline({{0, 0}, {1, 0}}, {1}, false);
  db::Record* thick = add("LINE", "8 0|39 2|10 0|20 0|30 0|11 1|21 1|31 0|210 0|220 1|230 1");
  Matrix stretch = scaling(1, 2, 1);
  EXPECT_EQ(transform({l, label}, stretch), RTERROR);
  EXPECT_EQ(transform({l, arcs}, stretch), RTERROR);
  EXPECT_EQ(transform({l, thick}, stretch), RTERROR);
  EXPECT_NEAR(real(l, 11), 1, kTolerance);
  EXPECT_NEAR(real(l, 21), 0, kTolerance);
}

TEST_F(TransformTest, HatchTurnsWithItsLoopsPatternAndSeeds) {
  db::Record* hatch =
      add("HATCH",
          "8 0|100 AcDbHatch|10 0|20 0|30 0|210 0|220 0|230 1|2 ANSI31|70 0|71 0|91 2|92 2|72 0|73 "
          "1|93 3|10 0|20 0|10 4|20 0|10 4|20 3|97 0|92 1|93 2|72 1|10 0|20 0|11 1|21 0|72 2|10 "
          "5|20 5|40 1|50 0|51 90|73 1|97 0|75 0|76 1|52 0|41 1|77 0|78 1|53 45|43 0|44 0|45 "
          "-0.5|46 0.5|79 0|98 1|10 1|20 1");
  ASSERT_EQ(transform({hatch}, rotationZ(90, 2)), RTNORM);
  // Polyline loop: (4, 3) goes to (-6, 8).
  EXPECT_NEAR(nth(hatch, 10, 3), -6, kTolerance);
  EXPECT_NEAR(nth(hatch, 20, 3), 8, kTolerance);
  // Edge loop: the line ends at (0, 2); the arc is centred at (-10, 10), radius 2,
  // from 90 to 180 degrees.
  EXPECT_NEAR(nth(hatch, 11, 0), 0, kTolerance);
  EXPECT_NEAR(nth(hatch, 21, 0), 2, kTolerance);
  EXPECT_NEAR(nth(hatch, 10, 5), -10, kTolerance);
  EXPECT_NEAR(nth(hatch, 20, 5), 10, kTolerance);
  EXPECT_NEAR(nth(hatch, 40, 0), 2, kTolerance);
  EXPECT_NEAR(nth(hatch, 50, 0), 90, kTolerance);
  EXPECT_NEAR(nth(hatch, 51, 0), 180, kTolerance);
  // Pattern: angle and scale, its line turned and its offset turned and doubled.
  EXPECT_NEAR(real(hatch, 52), 90, kTolerance);
  EXPECT_NEAR(real(hatch, 41), 2, kTolerance);
  EXPECT_NEAR(real(hatch, 53), 135, kTolerance);
  EXPECT_NEAR(real(hatch, 45), -1, kTolerance);
  EXPECT_NEAR(real(hatch, 46), -1, kTolerance);
  // The seed point (1, 1) goes to (-2, 2).
  EXPECT_NEAR(nth(hatch, 10, 6), -2, kTolerance);
  EXPECT_NEAR(nth(hatch, 20, 6), 2, kTolerance);
}

class DimensionTransformTest : public TransformTest {
 protected:
  void SetUp() override {
    TransformTest::SetUp();
    picture_ = database().addBlock("*D1");
    picture_->begin->setValue(70, "1");
    pictureLine_ = add("LINE", "8 0|10 0|20 0|30 0|11 10|21 0|31 0", picture_);
  }
  db::Record* dimension() {
    return add("DIMENSION",
               "8 0|100 AcDbDimension|2 *D1|10 0|20 0|30 0|11 5|21 1|31 0|70 33|42 10|3 "
               "Standard|100 AcDbAlignedDimension|13 0|23 0|33 0|14 10|24 0|34 0");
  }
  db::BlockDefinition* picture_ = nullptr;
  db::Record* pictureLine_ = nullptr;
};

TEST_F(DimensionTransformTest, DimensionAndItsPictureMoveTogether) {
  db::Record* dim = dimension();
  ASSERT_EQ(transform({dim}, rotationZ(90, 2)), RTNORM);
  EXPECT_NEAR(real(dim, 14), 0, kTolerance);
  EXPECT_NEAR(real(dim, 24), 20, kTolerance);
  EXPECT_NEAR(real(dim, 11), -2, kTolerance);
  EXPECT_NEAR(real(dim, 21), 10, kTolerance);
  EXPECT_NEAR(real(dim, 42), 20, kTolerance);
  EXPECT_EQ(dim->find(2).value_or(""), "*D1");
  EXPECT_NEAR(real(pictureLine_, 21), 20, kTolerance);
}

TEST_F(DimensionTransformTest, ASharedPictureIsCopiedForTheMovedDimension) {
  db::Record* moved = dimension();
  db::Record* staying = dimension();
  ASSERT_EQ(transform({moved}, translation(0, 5, 0)), RTNORM);
  EXPECT_EQ(staying->find(2).value_or(""), "*D1");
  EXPECT_NEAR(real(pictureLine_, 20), 0, kTolerance);
  std::string copyName(moved->find(2).value_or(""));
  ASSERT_NE(copyName, "*D1");
  db::BlockDefinition* copy = database().block(copyName);
  ASSERT_NE(copy, nullptr);
  ASSERT_EQ(copy->entities.size(), 1u);
  EXPECT_NEAR(real(copy->entities[0], 20), 5, kTolerance);
  EXPECT_EQ(copy->entities[0]->owner(), copy->begin->owner());
  EXPECT_EQ(copy->begin->find(70).value_or(""), "1");
}

TEST_F(TransformTest, LeaderTurnsItsVerticesAndHookDirection) {
  db::Record* leader = add("LEADER",
                           "8 0|100 AcDbLeader|3 Standard|71 1|72 0|73 3|76 2|10 0|20 0|30 0|10 "
                           "3|20 4|30 0|211 1|221 0|231 0|213 1|223 0|233 0");
  ASSERT_EQ(transform({leader}, rotationZ(90, 2)), RTNORM);
  EXPECT_NEAR(nth(leader, 10, 1), -8, kTolerance);
  EXPECT_NEAR(nth(leader, 20, 1), 6, kTolerance);
  EXPECT_NEAR(real(leader, 211), 0, kTolerance);
  EXPECT_NEAR(real(leader, 221), 1, kTolerance);
  EXPECT_NEAR(real(leader, 223), 2, kTolerance);
  EXPECT_EQ(transform({leader}, scaling(1, 2, 1)), RTERROR);
}

}  // namespace
}  // namespace korva::testing
