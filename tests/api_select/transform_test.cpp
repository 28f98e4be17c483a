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
  db::Record* head =
      add("POLYLINE", {{8, "0"}, {66, "1"}, {10, "0"}, {20, "0"}, {30, "0"}, {70, "0"}});
  db::Record* v1 = add("VERTEX", {{8, "0"}, {10, "0"}, {20, "0"}, {30, "0"}});
  db::Record* v2 = add("VERTEX", {{8, "0"}, {10, "4"}, {20, "0"}, {30, "0"}});
  add("SEQEND", {{8, "0"}});
  db::Record* light = lightPolyline({{0, 0}, {1, 1}}, {0.5}, false);
  db::Record* ref = add("INSERT", {{8, "0"}, {66, "1"}, {2, "B"}, {10, "1"}, {20, "1"}, {30, "0"}});
  db::Record* attribute =
      add("ATTRIB", {{8, "0"}, {10, "2"}, {20, "1"}, {30, "0"}, {40, "1"}, {1, "v"}, {2, "T"}});
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
  db::Record* c = add("CIRCLE", {{8, "0"},
                                 {10, "5"},
                                 {20, "0"},
                                 {30, "0"},
                                 {40, "1"},
                                 {210, "0"},
                                 {220, "0"},
                                 {230, "-1"}});  // world center (-5, 0)
  ASSERT_EQ(transform({c}, translation(2, 0, 0)), RTNORM);
  EXPECT_EQ(window(L"W", -4.1, -1.1, -1.9, 1.1), handles({c}));
}

TEST_F(TransformTest, RefusesSkewAndUnsupportedKindsWithoutChanging) {
  db::Record* c = circle(0, 0, 1);
  Matrix stretch;
  stretch.m[0][0] = 2;
  EXPECT_EQ(transform({c}, stretch), RTERROR);
  db::Record* hatch = add("HATCH", {{8, "0"}, {10, "0"}, {20, "0"}, {30, "0"}, {91, "0"}});
  EXPECT_EQ(transform({c, hatch}, translation(1, 0, 0)), RTERROR);
  EXPECT_NEAR(real(c, 10), 0, kTolerance);
}

}  // namespace
}  // namespace korva::testing
