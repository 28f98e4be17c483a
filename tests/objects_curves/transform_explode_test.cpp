// Transforming curves writes their groups; exploding polylines makes lines and arcs.
#include <cmath>
#include <numbers>
#include <vector>

#include "curve_fixture.h"
#include "qx_db_polylines.h"

constexpr double kPi = std::numbers::pi;

namespace {
double lengthOf(const QxDbCurve* curve) {
  double end = 0, length = -1;
  EXPECT_EQ(curve->getEndParam(end), Qxad::eOk);
  EXPECT_EQ(curve->getDistAtParam(end, length), Qxad::eOk);
  return length;
}
}  // namespace

TEST_F(CurveDrawing, ArcMirroredKeepsItsPointsAndLength) {
  auto* record = add("ARC", "100 AcDbCircle|10 1|20 2|30 0|40 3|100 AcDbArc|50 10|51 120");
  QxDbArc* arc = open<QxDbArc>(record, QxDb::kForWrite);
  ASSERT_TRUE(arc);
  QxGePoint3d start, end;
  arc->getStartPoint(start);
  arc->getEndPoint(end);
  double before = lengthOf(arc);
  QxGeMatrix3d mirror = QxGeMatrix3d::mirroring(QxGePlane({0, 0, 0}, {1, 0, 0}));
  ASSERT_EQ(arc->transformBy(mirror), Qxad::eOk);
  // The image of the arc: the same length, the ends mirrored, the normal turned over.
  EXPECT_NEAR(lengthOf(arc), before, 1e-12);
  QxGePoint3d newStart, newEnd;
  arc->getStartPoint(newStart);
  arc->getEndPoint(newEnd);
  EXPECT_TRUE(newStart.isEqualTo(mirror * start, QxGeTol()) ||
              newStart.distanceTo(mirror * start) < 1e-12);
  EXPECT_LT(newEnd.distanceTo(mirror * end), 1e-12);
  EXPECT_NEAR(number(record, 230), -1, 1e-15);
  // Scaling one axis can't keep an arc.
  EXPECT_EQ(arc->transformBy(QxGeMatrix3d::scaling(QxGeScale3d(2, 1, 1))),
            Qxad::eCannotScaleNonUniformly);
  arc->close();
}

TEST_F(CurveDrawing, TransformedPolylineMovesItsVertexGroups) {
  auto* record = add("LWPOLYLINE", "100 AcDbPolyline|90 2|70 0|43 0.5|10 0|20 0|42 0.5|10 2|20 0");
  QxDbPolyline* pl = open<QxDbPolyline>(record, QxDb::kForWrite);
  ASSERT_TRUE(pl);
  double before = lengthOf(pl);
  QxGeMatrix3d map = QxGeMatrix3d::translation({0, 0, 7}) *
                     QxGeMatrix3d::rotation(kPi / 2, QxGeVector3d::kXAxis) *
                     QxGeMatrix3d::scaling(3);
  QxGePoint3d mid;
  pl->getPointAtParam(0.5, mid);
  ASSERT_EQ(pl->transformBy(map), Qxad::eOk);
  EXPECT_NEAR(lengthOf(pl), 3 * before, 1e-12);
  QxGePoint3d movedMid;
  pl->getPointAtParam(0.5, movedMid);
  EXPECT_LT(movedMid.distanceTo(map * mid), 1e-12);
  double width = 0;
  EXPECT_EQ(pl->getConstantWidth(width), Qxad::eOk);
  EXPECT_NEAR(width, 1.5, 1e-15);
  EXPECT_NEAR(number(record, 220), -1, 1e-15);  // the plane's normal now points along -Y
  pl->close();
}

TEST_F(CurveDrawing, ExplodedPolylineHasTheSameLengthAndProperties) {
  auto* record = add("LWPOLYLINE",
                     "100 AcDbPolyline|90 3|70 1|39 2|10 0|20 0|42 -0.4|10 5|20 0|10 5|"
                     "20 5|210 0|220 0.6|230 0.8");
  record->setValue(8, "0");
  QxDbPolyline* pl = open<QxDbPolyline>(record);
  ASSERT_TRUE(pl);
  QxDbVoidPtrArray pieces;
  ASSERT_EQ(pl->explode(pieces), Qxad::eOk);
  ASSERT_EQ(pieces.length(), 3);
  double total = 0;
  for (int i = 0; i < pieces.length(); ++i) {
    auto* piece = static_cast<QxDbEntity*>(pieces[i]);
    auto* curve = QxDbCurve::cast(piece);
    ASSERT_TRUE(curve);
    total += lengthOf(curve);
    EXPECT_TRUE(piece->isNewObject());
  }
  EXPECT_NEAR(total, lengthOf(pl), 1e-12);
  // The clockwise first segment is an arc counterclockwise from the segment's end.
  auto* arc = QxDbArc::cast(static_cast<QxDbEntity*>(pieces[0]));
  ASSERT_TRUE(arc);
  QxGePoint3d arcStart, segmentEnd;
  arc->getStartPoint(arcStart);
  pl->getPointAtParam(1, segmentEnd);
  EXPECT_LT(arcStart.distanceTo(segmentEnd), 1e-12);
  EXPECT_EQ(arc->thickness(), 2);
  EXPECT_TRUE(arc->normal().isEqualTo(pl->normal()));
  EXPECT_TRUE(QxDbLine::cast(static_cast<QxDbEntity*>(pieces[2])));
  for (int i = 0; i < pieces.length(); ++i) delete static_cast<QxDbEntity*>(pieces[i]);
  pl->close();
}

TEST_F(CurveDrawing, NewObjectsOwnTheirGroups) {
  QxDbCircle circle(QxGePoint3d(1, 2, 3), QxGeVector3d(0, 0, -2), 4);
  EXPECT_POINT_NEAR(circle.center(), 1, 2, 3, 1e-12);
  EXPECT_EQ(number(&korva::api::recordOf(circle), 230), -1);
  EXPECT_EQ(number(&korva::api::recordOf(circle), 10), -1);  // object X is world -X
  QxDbLine line(QxGePoint3d(0, 0, 0), QxGePoint3d(3, 4, 0));
  QxDbExtents box;
  ASSERT_EQ(line.getGeomExtents(box), Qxad::eOk);
  EXPECT_POINT_NEAR(box.maxPoint(), 3, 4, 0, 1e-12);
  EXPECT_EQ(line.transformBy(QxGeMatrix3d::scaling(QxGeScale3d(2, 1, 1))), Qxad::eOk);
  EXPECT_POINT_NEAR(line.endPoint(), 6, 4, 0, 1e-12);
  QxDbEllipse ellipse(QxGePoint3d(), QxGeVector3d::kZAxis, QxGeVector3d(2, 0, 0), 0.5, 0, kPi);
  EXPECT_NEAR(ellipse.endAngle(), kPi, 1e-12);
  EXPECT_NEAR(ellipse.paramAtAngle(kPi / 4), std::atan2(1.0, 0.5), 1e-12);
}

// An old-style polyline moves with its vertex records; a map that would bend its arcs
// out of shape leaves both untouched.
TEST_F(CurveDrawing, OldPolylineTransformsWithItsVertices) {
  auto* polyline = add("POLYLINE", "100 AcDb2dPolyline|66 1|10 0|20 0|30 2|70 0");
  std::vector<korva::db::Record*> vertices = {vertex(polyline, "10 0|20 0|30 0|42 1|70 0"),
                                              vertex(polyline, "10 2|20 0|30 0|42 0|70 0"),
                                              vertex(polyline, "10 2|20 3|30 0|42 0|70 0")};
  add("SEQEND", "");
  QxDb2dPolyline* pl = open<QxDb2dPolyline>(polyline, QxDb::kForWrite);
  ASSERT_TRUE(pl);
  double before = lengthOf(pl);
  EXPECT_EQ(pl->transformBy(QxGeMatrix3d::scaling(QxGeScale3d(1, 2, 1))),
            Qxad::eCannotScaleNonUniformly);
  EXPECT_EQ(number(vertices[2], 20), 3);
  // p -> 2 R(90 degrees) p: (x, y, z) -> (-2y, 2x, 2z).
  QxGeMatrix3d map =
      QxGeMatrix3d::scaling(2) * QxGeMatrix3d::rotation(kPi / 2, QxGeVector3d::kZAxis);
  ASSERT_EQ(pl->transformBy(map), Qxad::eOk);
  EXPECT_NEAR(lengthOf(pl), 2 * before, 1e-12);
  EXPECT_NEAR(pl->elevation(), 4, 1e-12);
  pl->close();
  EXPECT_NEAR(number(vertices[1], 10), 0, 1e-12);
  EXPECT_NEAR(number(vertices[1], 20), 4, 1e-12);
  EXPECT_NEAR(number(vertices[2], 10), -6, 1e-12);
  EXPECT_NEAR(number(vertices[2], 20), 4, 1e-12);
  EXPECT_EQ(number(vertices[0], 42), 1);
}
