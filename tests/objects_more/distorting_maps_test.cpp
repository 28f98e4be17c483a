// Maps that stretch unevenly or skew, through transformBy and qxedXformSS: hatches keep
// every edge exact, dimensions their definition points and a moved copy of their
// picture, multilines their elements where a single offset per element still fits;
// dimensions of circles, tables and tolerance frames refuse.
#include <cmath>
#include <numbers>

#include "api/document.h"
#include "api/objects/object_groups.h"
#include "more_fixture.h"
#include "qx_db_block_reference.h"
#include "qx_db_curves.h"
#include "qx_db_dimension.h"
#include "qx_db_hatch.h"
#include "qx_db_mline.h"
#include "qx_ge_curves2d.h"
#include "qx_selection.h"

namespace korva::test {
namespace {

constexpr double kPi = std::numbers::pi;

// An outer polyline loop (0,0) (4,0) (4,4) (0,4) at elevation 2 whose right side is an
// arc through (5,2) (bulge 0.5), and an edge loop: a clockwise quarter circle about
// (8,0) from (8,1) to (9,0) closed by a line. A user pattern at 30 degrees.
constexpr const char* kHatch =
    "100 AcDbHatch|10 0|20 0|30 2|210 0|220 0|230 1|2 USER|70 0|71 0|91 2"
    "|92 3|72 1|73 1|93 4|10 0|20 0|42 0|10 4|20 0|42 0.5|10 4|20 4|42 0|10 0|20 4|42 0|97 0"
    "|92 0|93 2|72 2|10 8|20 0|40 1|50 270|51 360|73 0|72 1|10 8|20 1|11 9|21 0|97 0"
    "|75 0|76 0|52 30|41 1|77 0|78 1|53 30|43 1|44 2|45 -0.5|46 0.866|79 2|49 1|49 -0.5|98 0";

QxGeMatrix3d stretch(double sx, double sy, double sz = 1) {
  return QxGeMatrix3d::scaling(QxGeScale3d(sx, sy, sz));
}

// x' = x + y: squares become parallelograms.
QxGeMatrix3d shear() {
  QxGeMatrix3d matrix;
  matrix.entry[0][1] = 1;
  return matrix;
}

class DistortingMapsTest : public MoreEntitiesTest {
 protected:
  Qxad::ErrorStatus transform(QxDbObjectId id, const QxGeMatrix3d& matrix) {
    QxDbEntity* entity = open<QxDbEntity>(id, QxDb::kForWrite);
    if (!entity) return Qxad::eNullObjectId;
    Qxad::ErrorStatus status = entity->transformBy(matrix);
    entity->close();
    return status;
  }
  // Refused, with every group as it was.
  void expectRefused(QxDbObjectId id, const QxGeMatrix3d& matrix, Qxad::ErrorStatus expected) {
    std::vector<db::OwnedGroup> before = recordOf(id)->ownedGroups();
    EXPECT_EQ(transform(id, matrix), expected);
    std::vector<db::OwnedGroup> after = recordOf(id)->ownedGroups();
    ASSERT_EQ(after.size(), before.size());
    for (size_t i = 0; i < after.size(); ++i) EXPECT_EQ(after[i].value, before[i].value);
  }
};

struct Edges {
  QxGeVoidPointerArray curves;
  QxGeIntArray types;
  int loopType = 0;
  ~Edges() {
    for (int i = 0; i < curves.length(); ++i) delete static_cast<QxGeCurve2d*>(curves[i]);
  }
  const QxGeCurve2d* operator[](int i) const { return static_cast<const QxGeCurve2d*>(curves[i]); }
};

#define EXPECT_POINT2_NEAR(actual, ex, ey) \
  do {                                     \
    QxGePoint2d q_ = (actual);             \
    EXPECT_NEAR(q_.x, (ex), 1e-9);         \
    EXPECT_NEAR(q_.y, (ey), 1e-9);         \
  } while (0)

TEST_F(DistortingMapsTest, StretchedHatchCarriesEveryEdgeExactly) {
  QxDbObjectId id = add("HATCH", groups(kHatch));
  ASSERT_EQ(transform(id, stretch(2, 1)), Qxad::eOk);
  QxDbHatch* hatch = open<QxDbHatch>(id);
  ASSERT_TRUE(hatch);
  EXPECT_NEAR(hatch->elevation(), 2, 1e-12);

  // The bulged side can't stay circular: the polyline loop becomes edges, the arc an
  // elliptic arc about (5, 2) from (8, 0) through (10, 2) to (8, 4).
  Edges outer;
  ASSERT_EQ(hatch->getLoopAt(0, outer.loopType, outer.curves, outer.types), Qxad::eOk);
  EXPECT_EQ(outer.loopType & QxDbHatch::kPolyline, 0);
  EXPECT_NE(outer.loopType & QxDbHatch::kExternal, 0);
  ASSERT_EQ(outer.types.length(), 4);
  EXPECT_EQ(outer.types[0], QxDbHatch::kLine);
  EXPECT_POINT2_NEAR(outer[0]->endPoint(), 8, 0);
  ASSERT_EQ(outer.types[1], QxDbHatch::kEllipseArc);
  const auto* side = static_cast<const QxGeEllipArc2d*>(outer[1]);
  EXPECT_FALSE(side->isClockWise());
  EXPECT_POINT2_NEAR(side->startPoint(), 8, 0);
  EXPECT_POINT2_NEAR(side->endPoint(), 8, 4);
  EXPECT_POINT2_NEAR(side->pointAtParam((side->startAng() + side->endAng()) / 2), 10, 2);
  EXPECT_POINT2_NEAR(outer[3]->startPoint(), 0, 4);
  EXPECT_POINT2_NEAR(outer[3]->endPoint(), 0, 0);

  // The clockwise quarter circle keeps its way: from (16, 1) to (18, 0).
  Edges inner;
  ASSERT_EQ(hatch->getLoopAt(1, inner.loopType, inner.curves, inner.types), Qxad::eOk);
  ASSERT_EQ(inner.types.length(), 2);
  ASSERT_EQ(inner.types[0], QxDbHatch::kEllipseArc);
  const auto* quarter = static_cast<const QxGeEllipArc2d*>(inner[0]);
  EXPECT_TRUE(quarter->isClockWise());
  EXPECT_POINT2_NEAR(quarter->startPoint(), 16, 1);
  EXPECT_POINT2_NEAR(quarter->endPoint(), 18, 0);
  EXPECT_POINT2_NEAR(quarter->pointAtParam((quarter->startAng() + quarter->endAng()) / 2),
                     16 + 2 * std::sqrt(0.5), std::sqrt(0.5));
  EXPECT_POINT2_NEAR(inner[1]->endPoint(), 18, 0);

  // The pattern isn't distorted: its scale follows the stretched X axis.
  EXPECT_NEAR(hatch->patternScale(), 2, 1e-12);
  EXPECT_NEAR(hatch->patternAngle(), 30 * kPi / 180, 1e-12);
  double angle, baseX, baseY, offsetX, offsetY;
  QxGeDoubleArray dashes;
  ASSERT_EQ(hatch->getPatternDefinitionAt(0, angle, baseX, baseY, offsetX, offsetY, dashes),
            Qxad::eOk);
  EXPECT_NEAR(baseX, 2, 1e-12);
  EXPECT_NEAR(baseY, 2, 1e-12);
  EXPECT_NEAR(offsetX, -1, 1e-12);
  EXPECT_NEAR(offsetY, 1.732, 1e-12);
  ASSERT_EQ(dashes.length(), 2);
  EXPECT_NEAR(dashes[1], -1, 1e-12);
  hatch->close();
}

TEST_F(DistortingMapsTest, HatchPatternTurnsWithItsXAxisAndRoundPlanesKeepPolylines) {
  // Turned a quarter, then stretched threefold along Y: the X axis becomes (0, 3).
  QxDbObjectId turned = add("HATCH", groups(kHatch));
  QxGeMatrix3d turn = QxGeMatrix3d::rotation(kPi / 2, QxGeVector3d::kZAxis, QxGePoint3d(0, 0, 0));
  ASSERT_EQ(transform(turned, stretch(1, 3) * turn), Qxad::eOk);
  // Twice as high along Z: circles of the hatch's plane stay round.
  QxDbObjectId raised = add("HATCH", groups(kHatch));
  ASSERT_EQ(transform(raised, stretch(2, 2, 5)), Qxad::eOk);

  QxDbHatch* hatch = open<QxDbHatch>(turned);
  ASSERT_TRUE(hatch);
  EXPECT_NEAR(hatch->patternAngle(), 120 * kPi / 180, 1e-12);
  EXPECT_NEAR(hatch->patternScale(), 3, 1e-12);
  hatch->close();
  hatch = open<QxDbHatch>(raised);
  ASSERT_TRUE(hatch);
  EXPECT_NEAR(hatch->elevation(), 10, 1e-12);
  int type = 0;
  QxGePoint2dArray vertices;
  QxGeDoubleArray bulges;
  ASSERT_EQ(hatch->getLoopAt(0, type, vertices, bulges), Qxad::eOk);
  ASSERT_EQ(vertices.length(), 4);
  EXPECT_NEAR(vertices[2].x, 8, 1e-12);
  EXPECT_DOUBLE_EQ(bulges[1], 0.5);
  EXPECT_NEAR(hatch->patternScale(), 2, 1e-12);
  hatch->close();
}

TEST_F(DistortingMapsTest, LinearDimensionTakesItsPointsAndAMovedCopyOfItsPicture) {
  // A vertical aligned dimension whose picture holds a line, an arc and a nested arrow
  // turned 45 degrees, which the shear would skew.
  db::BlockDefinition* arrow = database().addBlock("ARROW");
  add("LINE", groups("100 AcDbLine|10 0|20 0|30 0|11 1|21 0|31 0"), arrow);
  db::BlockDefinition* picture = database().addBlock("*D4");
  add("LINE", groups("100 AcDbLine|10 1|20 0|30 0|11 1|21 3|31 0"), picture);
  add("ARC", groups("100 AcDbCircle|10 1|20 3|30 0|40 1|100 AcDbArc|50 0|51 90"), picture);
  add("INSERT", groups("100 AcDbBlockReference|2 ARROW|10 1|20 0|30 0|50 45"), picture);
  QxDbObjectId id = add("DIMENSION", groups("100 AcDbDimension|2 *D4|10 1|20 3|30 0|11 1.5|21 1.5"
                                            "|31 0|70 33|42 3|3 Standard|100 AcDbAlignedDimension"
                                            "|13 0|23 0|33 0|14 0|24 3|34 0"));
  ASSERT_EQ(transform(id, shear()), Qxad::eOk);
  QxDbAlignedDimension* dimension = open<QxDbAlignedDimension>(id);
  ASSERT_TRUE(dimension);
  EXPECT_POINT_NEAR(dimension->xLine2Point(), 3, 3, 0, 1e-12);
  EXPECT_POINT_NEAR(dimension->dimLinePoint(), 4, 3, 0, 1e-12);
  EXPECT_POINT_NEAR(dimension->textPosition(), 3, 1.5, 0, 1e-12);
  QxDbObjectId block = dimension->dimBlockId();
  dimension->close();
  EXPECT_NEAR(*listReal(id, 42), 3 * std::sqrt(2), 1e-12);

  // The copy: the line sheared, the arc an elliptic arc, the arrow broken up.
  db::Record* copy = recordOf(block);
  ASSERT_NE(copy, nullptr);
  std::string name(copy->find(2).value_or(""));
  EXPECT_NE(name, "*D4");
  const std::vector<db::Record*>& entities = database().block(name)->entities;
  ASSERT_EQ(entities.size(), 3u);
  EXPECT_EQ(entities[0]->type(), "LINE");
  EXPECT_NEAR(api::groupReal(*entities[0], 11, 0), 4, 1e-12);
  EXPECT_EQ(entities[1]->type(), "ELLIPSE");
  EXPECT_EQ(entities[2]->type(), "LINE");
  EXPECT_NEAR(api::groupReal(*entities[2], 11, 0), 1 + std::sqrt(2), 1e-12);
  EXPECT_NEAR(api::groupReal(*entities[2], 21, 0), std::sqrt(0.5), 1e-12);
  // The block it had is left to whatever else shows it.
  EXPECT_EQ(database().block("*D4")->entities[1]->type(), "ARC");
}

TEST_F(DistortingMapsTest, MeasurementsFollowTheMovedPointsAndCirclesRefuse) {
  // Right angles at the origin between (1, 0) and (0, 1): the shear makes the small
  // one 45 degrees, and so the large one 315.
  const std::string rays =
      "|70 37|3 Standard|100 AcDb3PointAngularDimension|13 1|23 0|33 0"
      "|14 0|24 1|34 0|15 0|25 0|35 0";
  // Ordinates of the feature (3, 4): stretched along X, only the X ordinate grows.
  const std::string feature = "|100 AcDbOrdinateDimension|13 3|23 4|33 0|14 5|24 6|34 0";
  const struct {
    const char* name;
    std::string groups;
    QxGeMatrix3d map;
    double measurement;
  } cases[] = {
      {"small angle", "100 AcDbDimension|10 1|20 1|30 0|11 1|21 1|31 0|42 1.5707963267949" + rays,
       shear(), kPi / 4},
      {"large angle",
       "100 AcDbDimension|10 -1|20 -1|30 0|11 -1|21 -1|31 0|42 4.71238898038469" + rays, shear(),
       7 * kPi / 4},
      // The same right angle between two lines.
      {"two lines",
       "100 AcDbDimension|10 0|20 1|30 0|11 1|21 1|31 0|70 34|42 1.5707963267949"
       "|100 AcDb2LineAngularDimension|13 0|23 0|33 0|14 1|24 0|34 0|15 0|25 0|35 0|16 1|26 1|36 0",
       shear(), kPi / 4},
      {"X ordinate", "100 AcDbDimension|10 0|20 0|30 0|11 5|21 6|31 0|70 70|42 3" + feature,
       stretch(2, 1), 6},
      {"Y ordinate", "100 AcDbDimension|10 0|20 0|30 0|11 5|21 6|31 0|70 6|42 4" + feature,
       stretch(2, 1), 4},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    QxDbObjectId id = add("DIMENSION", groups(row.groups));
    ASSERT_EQ(transform(id, row.map), Qxad::eOk);
    EXPECT_NEAR(*listReal(id, 42), row.measurement, 1e-12);
  }

  QxDbObjectId radius = add("DIMENSION", groups("100 AcDbDimension|10 0|20 0|30 0|11 1|21 1|31 0"
                                                "|70 36|42 2|100 AcDbRadialDimension|15 2|25 0"
                                                "|35 0|40 0"));
  expectRefused(radius, stretch(2, 1), Qxad::eCannotScaleNonUniformly);
  // Stretching across the plane keeps its circle round.
  ASSERT_EQ(transform(radius, stretch(3, 3, 1)), Qxad::eOk);
  EXPECT_NEAR(*listReal(radius, 42), 6, 1e-12);
}

// A multiline of two elements half a unit either side of its vertices, with miters
// square to its segments.
std::string multiline(std::initializer_list<std::pair<double, double>> vertices,
                      std::pair<double, double> direction) {
  std::string text = "100 AcDbMline|2 STANDARD|40 1|70 1|71 1|72 " +
                     std::to_string(vertices.size()) + "|73 2|10 0|20 0|30 0|210 0|220 0|230 1";
  for (auto [x, y] : vertices) {
    text += "|11 " + std::to_string(x) + "|21 " + std::to_string(y) + "|31 0";
    text += "|12 " + std::to_string(direction.first) + "|22 " + std::to_string(direction.second);
    text += "|32 0|13 " + std::to_string(-direction.second) + "|23 " +
            std::to_string(direction.first) + "|33 0";
    text += "|74 2|41 0.5|41 0|75 0|74 2|41 -0.5|41 0|75 0";
  }
  return text;
}

TEST_F(DistortingMapsTest, MultilineFollowsOnlyWhereOneOffsetPerElementFits) {
  QxDbObjectId straight = add("MLINE", groups(multiline({{0, 0}, {10, 0}}, {1, 0})));
  ASSERT_EQ(transform(straight, stretch(2, 3)), Qxad::eOk);
  QxDbMline* mline = open<QxDbMline>(straight);
  ASSERT_TRUE(mline);
  EXPECT_NEAR(mline->scale(), 3, 1e-12);
  EXPECT_POINT_NEAR(mline->vertexAt(1), 20, 0, 0, 1e-12);
  QxDbVoidPtrArray pieces;
  ASSERT_EQ(mline->explode(pieces), Qxad::eOk);
  mline->close();
  ASSERT_EQ(pieces.length(), 2);
  for (int i = 0; i < pieces.length(); ++i) {
    std::unique_ptr<QxDbLine> line(static_cast<QxDbLine*>(pieces[i]));
    double y = i == 0 ? 1.5 : -1.5;
    EXPECT_POINT_NEAR(line->startPoint(), 0, y, 0, 1e-12);
    EXPECT_POINT_NEAR(line->endPoint(), 20, y, 0, 1e-12);
  }

  // Across a vertical segment the same stretch scales offsets by 2, across a
  // horizontal one by 3: no single scale fits.
  QxDbObjectId corner = add(
      "MLINE", groups("100 AcDbMline|2 STANDARD|40 1|70 1|71 1|72 3|73 1|10 0|20 0|30 0"
                      "|210 0|220 0|230 1|11 0|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 1|41 0.5"
                      "|75 0|11 10|21 0|31 0|12 0|22 1|32 0|13 -0.7071067811865476"
                      "|23 0.7071067811865476|33 0|74 1|41 0.7071067811865476|75 0|11 10|21 10"
                      "|31 0|12 0|22 1|32 0|13 -1|23 0|33 0|74 1|41 0.5|75 0"));
  expectRefused(corner, stretch(2, 3), Qxad::eCannotScaleNonUniformly);
  // Sheared, the square end caps would lean.
  expectRefused(straight, shear(), Qxad::eCannotScaleNonUniformly);
}

TEST_F(DistortingMapsTest, GridSpacingsFollowTheirAxes) {
  QxDbObjectId grid = add("INSERT", groups("100 AcDbMInsertBlock|2 B|10 0|20 0|30 0|70 2|71 2"
                                           "|44 4|45 5"));
  ASSERT_EQ(transform(grid, stretch(2, 3)), Qxad::eOk);
  QxDbMInsertBlock* reference = open<QxDbMInsertBlock>(grid);
  ASSERT_TRUE(reference);
  EXPECT_NEAR(reference->columnSpacing(), 8, 1e-12);
  EXPECT_NEAR(reference->rowSpacing(), 15, 1e-12);
  reference->close();
  // Mirrored across the Y axis the reference turns half round with its Y scale
  // negative: its rows, still above each other, lie against its new Y axis.
  ASSERT_EQ(transform(grid, stretch(-1, 1)), Qxad::eOk);
  reference = open<QxDbMInsertBlock>(grid);
  ASSERT_TRUE(reference);
  EXPECT_NEAR(reference->rotation(), kPi, 1e-12);
  EXPECT_NEAR(reference->scaleFactors().sy, -3, 1e-12);
  EXPECT_NEAR(reference->columnSpacing(), 8, 1e-12);
  EXPECT_NEAR(reference->rowSpacing(), -15, 1e-12);
  reference->close();
}

TEST_F(DistortingMapsTest, TablesAndToleranceFramesStillRefuse) {
  QxDbObjectId frame = add("TOLERANCE", groups("100 AcDbFcf|3 Standard|10 1|20 1|30 0"
                                               "|1 {\\Fgdt;j}%%v0.1|11 1|21 0|31 0"));
  expectRefused(frame, stretch(2, 1), Qxad::eNotApplicable);
  QxDbObjectId table = add("ACAD_TABLE", groups("100 AcDbBlockReference|2 *T1|10 0|20 0|30 0"
                                                "|100 AcDbTable|280 0|342 0|343 0|11 1|21 0"
                                                "|31 0|90 0|91 1|92 1|141 1|142 2"));
  expectRefused(table, shear(), Qxad::eNotApplicable);
}

TEST_F(DistortingMapsTest, SetTransformWorksOutEveryMemberFirst) {
  QxDbObjectId hatch = add("HATCH", groups(kHatch));
  QxDbObjectId radius = add("DIMENSION", groups("100 AcDbDimension|10 0|20 0|30 0|11 1|21 1|31 0"
                                                "|70 36|100 AcDbRadialDimension|15 2|25 0|35 0"));
  add("ARC", groups("100 AcDbCircle|10 1|20 3|30 0|40 1|100 AcDbArc|50 0|51 90"),
      database().addBlock("*D9"));
  QxDbObjectId linear = add("DIMENSION", groups("100 AcDbDimension|2 *D9|10 1|20 3|30 0|11 1|21 1"
                                                "|31 0|70 33|100 AcDbAlignedDimension|13 0|23 0"
                                                "|33 0|14 0|24 3|34 0"));
  double matrix[4][4] = {{2, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
  auto transformSet = [&](std::initializer_list<QxDbObjectId> ids) {
    SelectionSet set;
    qxedSSAdd(nullptr, nullptr, set);
    for (QxDbObjectId id : ids) {
      EntityName name;
      qxdbGetHysName(name, id);
      SelectionSet same;
      qxedSSAdd(name, set, same);
    }
    int status = qxedXformSS(set, matrix);
    qxedSSFree(set);
    return status;
  };
  // The dimension of a circle can't follow: the hatch stays too.
  EXPECT_EQ(transformSet({hatch, linear, radius}), RTERROR);
  EXPECT_EQ(*listInteger(hatch, 92), 3);
  EXPECT_EQ(*listText(linear, 2), L"*D9");
  ASSERT_EQ(transformSet({hatch, linear}), RTNORM);
  // The dimension's picture is a moved copy, its arc an ellipse.
  std::wstring picture = *listText(linear, 2);
  EXPECT_NE(picture, L"*D9");
  db::BlockDefinition* copy = database().block(std::string(picture.begin(), picture.end()));
  ASSERT_NE(copy, nullptr);
  ASSERT_EQ(copy->entities.size(), 1u);
  EXPECT_EQ(copy->entities[0]->type(), "ELLIPSE");
  EXPECT_POINT_NEAR(*listPoint(linear, 14), 0, 3, 0, 1e-12);
  // The bulged loop is now one of edges, the first a line to (8, 0).
  EXPECT_EQ(*listInteger(hatch, 92), 1);
  EXPECT_EQ(*listInteger(hatch, 72), 1);
  EXPECT_NEAR(listPoint(hatch, 11)->x, 8, 1e-12);
}

}  // namespace
}  // namespace korva::test
