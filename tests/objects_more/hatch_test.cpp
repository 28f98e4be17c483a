// Hatch records written by hand: loops of both kinds with every edge type, pattern
// lines and gradient, read through the object; and changes seen through both layers.
#include <cmath>
#include <memory>
#include <numbers>

#include "db/handle.h"
#include "more_fixture.h"
#include "qx_db_hatch.h"
#include "qx_ge_curves2d.h"
#include "qx_memory.h"

namespace korva::test {
namespace {

constexpr double kPi = std::numbers::pi;

class HatchTest : public MoreEntitiesTest {
 protected:
  void SetUp() override {
    MoreEntitiesTest::SetUp();
    firstSource_ = add("LINE", groups("100 AcDbLine|10 0|20 0|11 4|21 0"));
    secondSource_ = add("LINE", groups("100 AcDbLine|10 1|20 1|11 2|21 1"));
  }

  std::string handleOf(QxDbObjectId id) { return db::formatHandle(id.handle().value()); }

  // Two loops: an external polyline with a half circle, and an edge loop of a line, a
  // clockwise arc, an elliptic arc and a spline with fit data. A pattern of two lines
  // and a gradient.
  QxDbObjectId addFullHatch() {
    std::string loops =
        "91 2|"
        "92 3|72 1|73 1|93 3|10 0|20 0|42 0|10 4|20 0|42 1|10 4|20 2|42 0|97 1|330 " +
        handleOf(firstSource_) +
        "|92 0|93 4|72 1|10 1|20 1|11 2|21 1|"
        "72 2|10 2|20 2|40 1|50 270|51 360|73 0|"
        "72 3|10 5|20 5|11 2|21 0|40 0.5|50 0|51 90|73 1|"
        "72 4|94 3|73 0|74 0|95 8|96 4|40 0|40 0|40 0|40 0|40 1|40 1|40 1|40 1|"
        "10 7|20 5|10 8|20 7|10 9|20 3|10 10|20 5|97 2|11 7|21 5|11 10|21 5|12 1|22 0|13 1|"
        "23 0|97 1|330 " +
        handleOf(secondSource_);
    return add(
        "HATCH",
        groups("100 AcDbHatch|10 0|20 0|30 2.5|210 0|220 0|230 1|2 ANSI31|70 0|71 1|" + loops +
               "|75 1|76 1|52 45|41 2|77 0|78 2|"
               "53 45|43 0|44 0|45 -1.5|46 1.5|79 0|"
               "53 135|43 0.5|44 0|45 -1|46 -1|79 2|49 3|49 -1.5|"
               "47 0.02|98 0|450 1|451 0|452 0|453 2|460 0.5235987755982988|461 0.25|"
               "462 0|470 INVSPHERICAL"));
  }

  QxDbObjectId firstSource_, secondSource_;
};

// Frees the curves getLoopAt hands out.
struct Curves {
  QxGeVoidPointerArray edges;
  QxGeIntArray types;
  ~Curves() {
    for (int i = 0; i < edges.length(); ++i) delete static_cast<QxGeCurve2d*>(edges[i]);
  }
  const QxGeCurve2d* at(int i) const { return static_cast<const QxGeCurve2d*>(edges[i]); }
};

#define EXPECT_POINT2_NEAR(actual, ex, ey) \
  do {                                     \
    QxGePoint2d q_ = (actual);             \
    EXPECT_NEAR(q_.x, (ex), 1e-12);        \
    EXPECT_NEAR(q_.y, (ey), 1e-12);        \
  } while (0)

TEST_F(HatchTest, LoopsOfBothKinds) {
  QxDbHatch* hatch = open<QxDbHatch>(addFullHatch());
  ASSERT_TRUE(hatch);
  ASSERT_EQ(hatch->numLoops(), 2);
  EXPECT_EQ(hatch->loopTypeAt(0), QxDbHatch::kExternal | QxDbHatch::kPolyline);
  EXPECT_EQ(hatch->loopTypeAt(1), QxDbHatch::kDefault);
  EXPECT_EQ(hatch->loopTypeAt(2), QxDbHatch::kDefault);

  int type = -1;
  QxGePoint2dArray vertices;
  QxGeDoubleArray bulges;
  ASSERT_EQ(hatch->getLoopAt(0, type, vertices, bulges), Qxad::eOk);
  ASSERT_EQ(vertices.length(), 3);
  EXPECT_POINT2_NEAR(vertices[1], 4, 0);
  EXPECT_EQ(bulges[0], 0);
  EXPECT_EQ(bulges[1], 1);
  EXPECT_EQ(hatch->getLoopAt(1, type, vertices, bulges), Qxad::eNotApplicable);
  EXPECT_EQ(type, QxDbHatch::kDefault);
  EXPECT_EQ(hatch->getLoopAt(2, type, vertices, bulges), Qxad::eInvalidIndex);

  Curves edges;
  ASSERT_EQ(hatch->getLoopAt(1, type, edges.edges, edges.types), Qxad::eOk);
  ASSERT_EQ(edges.edges.length(), 4);
  EXPECT_EQ(edges.types[0], QxDbHatch::kLine);
  EXPECT_POINT2_NEAR(edges.at(0)->endPoint(), 2, 1);

  // Stored as the complements 270 and 360 of a clockwise arc: it runs from 90 to 0 degrees.
  ASSERT_EQ(edges.types[1], QxDbHatch::kCirArc);
  const auto* arc = static_cast<const QxGeCircArc2d*>(edges.at(1));
  EXPECT_TRUE(arc->isClockWise());
  EXPECT_POINT2_NEAR(arc->startPoint(), 2, 3);
  EXPECT_POINT2_NEAR(arc->endPoint(), 3, 2);

  ASSERT_EQ(edges.types[2], QxDbHatch::kEllipseArc);
  const auto* ellipse = static_cast<const QxGeEllipArc2d*>(edges.at(2));
  EXPECT_DOUBLE_EQ(ellipse->majorRadius(), 2);
  EXPECT_DOUBLE_EQ(ellipse->minorRadius(), 1);
  EXPECT_POINT2_NEAR(ellipse->startPoint(), 7, 5);
  EXPECT_POINT2_NEAR(ellipse->endPoint(), 5, 6);

  // The fit count (97) of a last spline is told apart from the loop's source count.
  ASSERT_EQ(edges.types[3], QxDbHatch::kSpline);
  const auto* spline = static_cast<const QxGeNurbCurve2d*>(edges.at(3));
  EXPECT_EQ(spline->degree(), 3);
  EXPECT_EQ(spline->numControlPoints(), 4);
  EXPECT_EQ(spline->numKnots(), 8);
  EXPECT_FALSE(spline->isRational());
  ASSERT_EQ(spline->numFitPoints(), 2);
  EXPECT_POINT2_NEAR(spline->fitPointAt(1), 10, 5);
  EXPECT_POINT2_NEAR(spline->startPoint(), 7, 5);
  EXPECT_POINT2_NEAR(spline->endPoint(), 10, 5);

  // A polyline loop asked for edges: lines and arcs, the half circle turning left.
  Curves polyline;
  ASSERT_EQ(hatch->getLoopAt(0, type, polyline.edges, polyline.types), Qxad::eOk);
  ASSERT_EQ(polyline.edges.length(), 3);
  EXPECT_EQ(polyline.types[1], QxDbHatch::kCirArc);
  const auto* half = static_cast<const QxGeCircArc2d*>(polyline.at(1));
  EXPECT_FALSE(half->isClockWise());
  EXPECT_NEAR(half->radius(), 1, 1e-12);
  EXPECT_POINT2_NEAR(half->center(), 4, 1);
  EXPECT_POINT2_NEAR(polyline.at(2)->endPoint(), 0, 0);

  QxDbObjectIdArray sources;
  ASSERT_EQ(hatch->getAssocObjIds(sources), Qxad::eOk);
  ASSERT_EQ(sources.length(), 2);
  EXPECT_EQ(sources[0], firstSource_);
  EXPECT_EQ(sources[1], secondSource_);
  hatch->close();
}

TEST_F(HatchTest, PatternGradientAndStyle) {
  QxDbHatch* hatch = open<QxDbHatch>(addFullHatch());
  ASSERT_TRUE(hatch);
  wchar_t* name = hatch->patternName();
  EXPECT_STREQ(name, L"ANSI31");
  qxad_free(name);
  EXPECT_EQ(hatch->hatchStyle(), QxDbHatch::kOuter);
  EXPECT_EQ(hatch->patternType(), QxDbHatch::kPreDefined);
  EXPECT_DOUBLE_EQ(hatch->patternAngle(), kPi / 4);
  EXPECT_DOUBLE_EQ(hatch->patternScale(), 2);
  EXPECT_FALSE(hatch->isSolidFill());
  EXPECT_DOUBLE_EQ(hatch->elevation(), 2.5);
  EXPECT_TRUE(hatch->associative());

  ASSERT_EQ(hatch->numPatternDefinitions(), 2);
  double angle, baseX, baseY, offsetX, offsetY;
  QxGeDoubleArray dashes;
  ASSERT_EQ(hatch->getPatternDefinitionAt(1, angle, baseX, baseY, offsetX, offsetY, dashes),
            Qxad::eOk);
  EXPECT_DOUBLE_EQ(angle, 3 * kPi / 4);
  EXPECT_EQ(baseX, 0.5);
  EXPECT_EQ(offsetX, -1);
  EXPECT_EQ(offsetY, -1);
  ASSERT_EQ(dashes.length(), 2);
  EXPECT_EQ(dashes[1], -1.5);
  ASSERT_EQ(hatch->getPatternDefinitionAt(0, angle, baseX, baseY, offsetX, offsetY, dashes),
            Qxad::eOk);
  EXPECT_EQ(dashes.length(), 0);
  EXPECT_EQ(hatch->getPatternDefinitionAt(2, angle, baseX, baseY, offsetX, offsetY, dashes),
            Qxad::eInvalidIndex);

  EXPECT_TRUE(hatch->isGradient());
  wchar_t* gradient = hatch->gradientName();
  EXPECT_STREQ(gradient, L"INVSPHERICAL");
  qxad_free(gradient);
  EXPECT_EQ(hatch->gradientType(), QxDbHatch::kPreDefinedGradient);
  EXPECT_DOUBLE_EQ(hatch->gradientAngle(), kPi / 6);
  EXPECT_EQ(hatch->gradientShift(), 0.25f);
  hatch->close();
}

TEST_F(HatchTest, SplineWithoutFitDataEndsItsLoop) {
  // Without a fit count, the 97 behind the control points is the loop's source count.
  QxDbObjectId id =
      add("HATCH", groups("100 AcDbHatch|10 0|20 0|30 0|2 SOLID|70 1|71 1|91 1|92 0|93 1|"
                          "72 4|94 2|73 1|74 0|95 6|96 3|40 0|40 0|40 0|40 1|40 1|40 1|"
                          "10 0|20 0|42 1|10 1|20 1|42 0.5|10 2|20 0|42 1|97 1|330 " +
                          handleOf(firstSource_) + "|75 0|76 1|98 0"));
  QxDbHatch* hatch = open<QxDbHatch>(id);
  ASSERT_TRUE(hatch);
  EXPECT_TRUE(hatch->isSolidFill());
  EXPECT_EQ(hatch->numPatternDefinitions(), 0);
  EXPECT_FALSE(hatch->isGradient());
  Curves edges;
  int type = 0;
  ASSERT_EQ(hatch->getLoopAt(0, type, edges.edges, edges.types), Qxad::eOk);
  ASSERT_EQ(edges.edges.length(), 1);
  const auto* spline = static_cast<const QxGeNurbCurve2d*>(edges.at(0));
  EXPECT_TRUE(spline->isRational());
  EXPECT_EQ(spline->weightAt(1), 0.5);
  EXPECT_EQ(spline->numFitPoints(), 0);
  QxDbObjectIdArray sources;
  hatch->getAssocObjIds(sources);
  ASSERT_EQ(sources.length(), 1);
  EXPECT_EQ(sources[0], firstSource_);
  // A rational quadratic with weights 1, 0.5, 1 from (0,0) over (1,1) to (2,0): a
  // conic arc through (1, 1/3) at its middle, which bounds the hatch from above.
  QxDbExtents extents;
  ASSERT_EQ(hatch->getGeomExtents(extents), Qxad::eOk);
  EXPECT_POINT_NEAR(extents.minPoint(), 0, 0, 0, 1e-12);
  EXPECT_POINT_NEAR(extents.maxPoint(), 2, 1.0 / 3, 0, 1e-9);
  hatch->close();
}

TEST_F(HatchTest, BothLayersSeeTheSameGroups) {
  QxDbObjectId id = addFullHatch();
  QxDbHatch* hatch = open<QxDbHatch>(id, QxDb::kForWrite);
  ASSERT_TRUE(hatch);
  EXPECT_EQ(hatch->setAssociative(false), Qxad::eOk);
  EXPECT_EQ(hatch->setElevation(-4), Qxad::eOk);
  hatch->close();
  EXPECT_EQ(listInteger(id, 71), 0);
  // The elevation point is the first 10 of the list; the loops' points follow unchanged.
  EXPECT_POINT_NEAR(*listPoint(id, 10), 0, 0, -4, 0);
  EXPECT_POINT_NEAR(*listPoint(id, 10, 2), 4, 0, 0, 0);

  modifyInteger(id, 71, 1);
  modifyPoint(id, 10, QxGePoint3d(0, 0, 7));
  modifyReal(id, 41, 3.5);
  hatch = open<QxDbHatch>(id);
  ASSERT_TRUE(hatch);
  EXPECT_TRUE(hatch->associative());
  EXPECT_DOUBLE_EQ(hatch->elevation(), 7);
  EXPECT_DOUBLE_EQ(hatch->patternScale(), 3.5);
  EXPECT_EQ(hatch->numLoops(), 2);
  EXPECT_EQ(hatch->numPatternDefinitions(), 2);
  EXPECT_EQ(hatch->setAssociative(true), Qxad::eNotOpenForWrite);
  hatch->close();
}

TEST_F(HatchTest, NewHatchIsAnEmptySolidFill) {
  std::unique_ptr<QxDbHatch> hatch(new QxDbHatch);
  EXPECT_TRUE(hatch->isSolidFill());
  EXPECT_EQ(hatch->numLoops(), 0);
  EXPECT_FALSE(hatch->associative());
  QxDbExtents extents;
  EXPECT_EQ(hatch->getGeomExtents(extents), Qxad::eDegenerateGeometry);
  EXPECT_EQ(hatch->setElevation(3), Qxad::eOk);
  EXPECT_DOUBLE_EQ(hatch->elevation(), 3);
}

}  // namespace
}  // namespace korva::test
