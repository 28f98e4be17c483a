// The same drawing through both layers: a change through an object shows in the
// record's groups, and a change of the record shows through the object.
#include <cmath>
#include <numbers>

#include "curve_fixture.h"
#include "qx_db_point.h"
#include "qx_db_polylines.h"
#include "qx_db_spline.h"

constexpr double kPi = std::numbers::pi;

TEST_F(CurveDrawing, LineEndsLengthAndWrites) {
  auto* record = add("LINE", "100 AcDbLine|10 1|20 2|30 0|11 4|21 6|31 0");
  QxDbLine* line = open<QxDbLine>(record, QxDb::kForWrite);
  ASSERT_TRUE(line);
  double end = 0, dist = 0;
  EXPECT_EQ(line->getEndParam(end), Qxad::eOk);
  EXPECT_DOUBLE_EQ(end, 5);
  QxGePoint3d mid;
  EXPECT_EQ(line->getPointAtDist(2.5, mid), Qxad::eOk);
  EXPECT_POINT_NEAR(mid, 2.5, 4, 0, 1e-12);
  EXPECT_EQ(line->getDistAtPoint(QxGePoint3d(4, 6, 0), dist), Qxad::eOk);
  EXPECT_DOUBLE_EQ(dist, 5);
  // Off the line, and beyond its end
  EXPECT_EQ(line->getDistAtPoint(QxGePoint3d(4, 7, 0), dist), Qxad::eInvalidInput);
  EXPECT_EQ(line->getPointAtParam(5.1, mid), Qxad::eInvalidInput);

  EXPECT_EQ(line->setEndPoint(QxGePoint3d(7, -2, 3)), Qxad::eOk);
  EXPECT_EQ(number(record, 11), 7);
  EXPECT_EQ(number(record, 21), -2);
  EXPECT_EQ(number(record, 31), 3);
  line->close();

  record->setValue(10, "7");  // now vertical from (7, 2, 0) to (7, -2, 3)
  line = open<QxDbLine>(record);
  ASSERT_TRUE(line);
  EXPECT_EQ(line->getEndParam(end), Qxad::eOk);
  EXPECT_DOUBLE_EQ(end, 5);
  EXPECT_EQ(line->setStartPoint(QxGePoint3d()), Qxad::eNotOpenForWrite);
  line->close();
}

TEST_F(CurveDrawing, ArcUnderMirroredNormalIsInWorldCoordinates) {
  // Normal -Z: object X is world -X, so the center (2, 3) in the groups is (-2, 3) in the world.
  auto* record = add("ARC",
                     "100 AcDbCircle|10 2|20 3|30 0|40 2|210 0|220 0|230 -1|"
                     "100 AcDbArc|50 0|51 90");
  QxDbArc* arc = open<QxDbArc>(record, QxDb::kForWrite);
  ASSERT_TRUE(arc);
  EXPECT_POINT_NEAR(arc->center(), -2, 3, 0, 1e-12);
  QxGePoint3d start, end;
  ASSERT_EQ(arc->getStartPoint(start), Qxad::eOk);
  ASSERT_EQ(arc->getEndPoint(end), Qxad::eOk);
  EXPECT_POINT_NEAR(start, -4, 3, 0, 1e-12);
  EXPECT_POINT_NEAR(end, -2, 5, 0, 1e-12);
  double length = 0, endParam = 0;
  ASSERT_EQ(arc->getEndParam(endParam), Qxad::eOk);
  ASSERT_EQ(arc->getDistAtParam(endParam, length), Qxad::eOk);
  EXPECT_NEAR(length, kPi, 1e-12);

  // An end angle below the start wraps: 300 to 30 degrees spans 90.
  EXPECT_EQ(arc->setStartAngle(5 * kPi / 3), Qxad::eOk);
  EXPECT_EQ(arc->setEndAngle(kPi / 6), Qxad::eOk);
  EXPECT_NEAR(number(record, 50), 300, 1e-9);
  EXPECT_NEAR(number(record, 51), 30, 1e-9);
  ASSERT_EQ(arc->getEndParam(endParam), Qxad::eOk);
  EXPECT_NEAR(endParam, 5 * kPi / 3 + kPi / 2, 1e-12);
  EXPECT_NEAR(arc->totalAngle(), kPi / 2, 1e-12);

  // A world center goes into the groups in object coordinates.
  EXPECT_EQ(arc->setCenter(QxGePoint3d(1, 1, 4)), Qxad::eOk);
  EXPECT_NEAR(number(record, 10), -1, 1e-12);
  EXPECT_NEAR(number(record, 30), -4, 1e-12);
  double area = 0;
  EXPECT_EQ(arc->getArea(area), Qxad::eOk);
  EXPECT_NEAR(area, 4.0 / 2 * (kPi / 2 - 1), 1e-12);
  arc->close();
}

TEST_F(CurveDrawing, CircleAndEllipseThroughTheGroups) {
  auto* circle = add("CIRCLE", "100 AcDbCircle|10 1|20 1|30 0|40 3");
  auto* ellipse = add("ELLIPSE",
                      "100 AcDbEllipse|10 0|20 0|30 0|11 0|21 4|31 0|210 0|220 0|230 1|"
                      "40 0.5|41 0|42 3.141592653589793");
  QxDbCircle* c = open<QxDbCircle>(circle, QxDb::kForWrite);
  ASSERT_TRUE(c);
  EXPECT_TRUE(c->isClosed());
  EXPECT_EQ(c->setRadius(-1), Qxad::eInvalidInput);
  EXPECT_EQ(c->setRadius(2), Qxad::eOk);
  EXPECT_EQ(value(circle, 40), "2.0");
  // The center stays put in the world when the normal turns.
  EXPECT_EQ(c->setNormal(QxGeVector3d(1, 1, 0)), Qxad::eOk);
  EXPECT_POINT_NEAR(c->center(), 1, 1, 0, 1e-12);
  EXPECT_NE(number(circle, 10), 1.0);
  c->close();

  circle->setValue(40, "5");
  c = open<QxDbCircle>(circle);
  ASSERT_TRUE(c);
  double length = 0;
  EXPECT_EQ(c->getDistAtParam(2 * kPi, length), Qxad::eOk);
  EXPECT_NEAR(length, 10 * kPi, 1e-12);
  c->close();

  QxDbEllipse* e = open<QxDbEllipse>(ellipse);
  ASSERT_TRUE(e);
  EXPECT_POINT_NEAR(QxGePoint3d() + e->minorAxis(), -2, 0, 0, 1e-12);
  QxGePoint3d p;
  ASSERT_EQ(e->getPointAtParam(kPi / 2, p), Qxad::eOk);
  EXPECT_POINT_NEAR(p, -2, 0, 0, 1e-12);
  // Half an ellipse of axes 4 and 2: a quarter of the full perimeter times two.
  ASSERT_EQ(e->getDistAtParam(kPi, length), Qxad::eOk);
  EXPECT_NEAR(length, 9.6884482205476754, 1e-9);
  double param = 0;
  ASSERT_EQ(e->getParamAtDist(length / 2, param), Qxad::eOk);
  EXPECT_NEAR(param, kPi / 2, 1e-9);
  e->close();
}

TEST_F(CurveDrawing, LightweightPolylineVerticesAreItsGroups) {
  auto* record = add("LWPOLYLINE", {{100, "AcDbPolyline"}, {90, "0"}, {70, "0"}});
  QxDbPolyline* pl = open<QxDbPolyline>(record, QxDb::kForWrite);
  ASSERT_TRUE(pl);
  ASSERT_EQ(pl->addVertexAt(0, QxGePoint2d(0, 0)), Qxad::eOk);
  ASSERT_EQ(pl->addVertexAt(1, QxGePoint2d(4, 0), 1.0), Qxad::eOk);  // a half circle up
  ASSERT_EQ(pl->addVertexAt(2, QxGePoint2d(4, 4), 0, 0.5, 1.5), Qxad::eOk);
  ASSERT_EQ(pl->addVertexAt(1, QxGePoint2d(2, -1)), Qxad::eOk);  // inserted in the middle
  EXPECT_EQ(pl->addVertexAt(9, QxGePoint2d()), Qxad::eInvalidIndex);
  EXPECT_EQ(value(record, 90), "4");
  EXPECT_EQ(number(record, 10, 1), 2);
  EXPECT_EQ(number(record, 42), 1);
  double start = 0, end = 0;
  EXPECT_EQ(pl->getWidthsAt(3, start, end), Qxad::eOk);
  EXPECT_EQ(start, 0.5);
  // The last vertex's widths belong to no segment of an open polyline.
  double width = 0;
  EXPECT_EQ(pl->getConstantWidth(width), Qxad::eOk);
  EXPECT_EQ(pl->setWidthsAt(1, 0.5, 0.5), Qxad::eOk);
  EXPECT_EQ(pl->getConstantWidth(width), Qxad::eNotApplicable);
  pl->close();

  record->setValue(42, "0");  // the half circle becomes straight
  record->setValue(70, "1");
  pl = open<QxDbPolyline>(record);
  ASSERT_TRUE(pl);
  EXPECT_TRUE(pl->isClosed());
  EXPECT_TRUE(pl->isOnlyLines());
  double length = 0, param = 0;
  ASSERT_EQ(pl->getEndParam(param), Qxad::eOk);
  EXPECT_EQ(param, 4);
  ASSERT_EQ(pl->getDistAtParam(param, length), Qxad::eOk);
  EXPECT_NEAR(length, 2 * std::sqrt(5.0) + 4 + 4 * std::sqrt(2.0), 1e-12);
  double area = 0;
  ASSERT_EQ(pl->getArea(area), Qxad::eOk);
  EXPECT_NEAR(area, 8 + 2, 1e-12);
  pl->close();
}

TEST_F(CurveDrawing, BulgedPolylineMeasuresAlongTheArc) {
  // (0,0) -> (4,0) bulge 1: a half circle of radius 2 below the chord's left... to the right.
  auto* record = add("LWPOLYLINE", "100 AcDbPolyline|90 2|70 0|38 1.5|10 0|20 0|42 1|10 4|20 0");
  QxDbPolyline* pl = open<QxDbPolyline>(record);
  ASSERT_TRUE(pl);
  QxGePoint3d p;
  ASSERT_EQ(pl->getPointAtParam(0.5, p), Qxad::eOk);
  EXPECT_POINT_NEAR(p, 2, -2, 1.5, 1e-12);  // counterclockwise from (0,0) passes below
  double dist = 0;
  ASSERT_EQ(pl->getDistAtPoint(p, dist), Qxad::eOk);
  EXPECT_NEAR(dist, kPi, 1e-12);
  QxDbExtents box;
  ASSERT_EQ(pl->getGeomExtents(box), Qxad::eOk);
  EXPECT_POINT_NEAR(box.minPoint(), 0, -2, 1.5, 1e-12);
  EXPECT_POINT_NEAR(box.maxPoint(), 4, 0, 1.5, 1e-12);
  double area = 0;
  ASSERT_EQ(pl->getArea(area), Qxad::eOk);
  EXPECT_NEAR(area, 2 * kPi, 1e-12);
  pl->close();
}

TEST_F(CurveDrawing, OldPolylineVerticesOpenAsTheirClasses) {
  auto* polyline = add("POLYLINE", "100 AcDb2dPolyline|66 1|10 0|20 0|30 2|70 0|40 0.25");
  auto* v0 = vertex(polyline, "10 0|20 0|30 0|42 0|70 0");
  vertex(polyline, "10 3|20 4|30 0|42 0|70 0");
  vertex(polyline, "10 3|20 0|30 0|42 0|70 0");
  add("SEQEND", "");
  QxDb2dPolyline* pl = open<QxDb2dPolyline>(polyline);
  ASSERT_TRUE(pl);
  EXPECT_EQ(pl->polyType(), QxDb::k2dSimplePoly);
  EXPECT_EQ(pl->elevation(), 2);
  double length = 0, end = 0;
  ASSERT_EQ(pl->getEndParam(end), Qxad::eOk);
  ASSERT_EQ(pl->getDistAtParam(end, length), Qxad::eOk);
  EXPECT_NEAR(length, 9, 1e-12);
  std::unique_ptr<QxDbObjectIterator> it(pl->vertexIterator());
  ASSERT_TRUE(it);
  int count = 0;
  for (it->start(); !it->done(); it->step()) {
    QxDbObject* object = nullptr;
    ASSERT_EQ(it->getObject(object, QxDb::kForRead), Qxad::eOk);
    QxDb2dVertex* v = QxDb2dVertex::cast(object);
    ASSERT_TRUE(v);
    EXPECT_EQ(v->position().z, 2);     // the polyline's elevation
    EXPECT_EQ(v->startWidth(), 0.25);  // the polyline's default
    object->close();
    ++count;
  }
  EXPECT_EQ(count, 3);
  pl->close();

  // A bulge written through the vertex bends the polyline's first segment.
  QxDb2dVertex* first = open<QxDb2dVertex>(v0, QxDb::kForWrite);
  ASSERT_TRUE(first);
  EXPECT_EQ(first->setBulge(1), Qxad::eOk);
  first->close();
  EXPECT_EQ(number(v0, 42), 1);
  pl = open<QxDb2dPolyline>(polyline);
  ASSERT_TRUE(pl);
  ASSERT_EQ(pl->getDistAtParam(1, length), Qxad::eOk);
  EXPECT_NEAR(length, kPi * 2.5, 1e-12);
  pl->close();

  // The same records with flag 8 are a 3D polyline of 3D vertices.
  polyline->setValue(70, "8");
  v0->setValue(70, "32");
  QxDb3dPolyline* p3 = open<QxDb3dPolyline>(polyline);
  ASSERT_TRUE(p3);
  QxDbObjectIterator* it3 = p3->vertexIterator();
  QxDbObject* object = nullptr;
  it3->start();
  ASSERT_EQ(it3->getObject(object, QxDb::kForRead), Qxad::eOk);
  EXPECT_TRUE(QxDb3dPolylineVertex::cast(object));
  object->close();
  delete it3;
  p3->close();
}

TEST_F(CurveDrawing, SplineControlPointsAndKnots) {
  auto* record = add("SPLINE",
                     "100 AcDbSpline|70 8|71 2|72 6|73 3|74 0|40 0|40 0|40 0|40 2|40 2|"
                     "40 2|10 0|20 0|30 0|10 1|20 2|30 0|10 2|20 0|30 0");
  QxDbSpline* spline = open<QxDbSpline>(record, QxDb::kForWrite);
  ASSERT_TRUE(spline);
  EXPECT_EQ(spline->numControlPoints(), 3);
  EXPECT_EQ(spline->degree(), 2);
  double start = 0, end = 0;
  ASSERT_EQ(spline->getStartParam(start), Qxad::eOk);
  ASSERT_EQ(spline->getEndParam(end), Qxad::eOk);
  EXPECT_EQ(start, 0);
  EXPECT_EQ(end, 2);
  QxGePoint3d p;
  ASSERT_EQ(spline->getPointAtParam(1, p), Qxad::eOk);
  EXPECT_POINT_NEAR(p, 1, 1, 0, 1e-12);  // the quadratic's apex
  // The parabola y = x (2 - x) from 0 to 2: its length in closed form.
  double length = 0;
  ASSERT_EQ(spline->getDistAtParam(2, length), Qxad::eOk);
  double exact = std::sqrt(5.0) + std::asinh(2.0) / 2;
  EXPECT_NEAR(length, exact, 1e-10 * exact);
  ASSERT_EQ(spline->setControlPointAt(1, QxGePoint3d(1, 4, 0)), Qxad::eOk);
  EXPECT_EQ(number(record, 20, 1), 4);
  EXPECT_EQ(spline->setControlPointAt(3, QxGePoint3d()), Qxad::eInvalidIndex);
  QxDbExtents box;
  ASSERT_EQ(spline->getGeomExtents(box), Qxad::eOk);
  EXPECT_NEAR(box.maxPoint().y, 2, 1e-12);
  spline->close();
}

TEST_F(CurveDrawing, PointsAndRays) {
  auto* point = add("POINT", "100 AcDbPoint|10 1|20 2|30 3");
  auto* ray = add("RAY", "100 AcDbRay|10 1|20 1|30 0|11 0|21 1|31 0");
  QxDbPoint* p = open<QxDbPoint>(point, QxDb::kForWrite);
  ASSERT_TRUE(p);
  EXPECT_POINT_NEAR(p->position(), 1, 2, 3, 0);
  EXPECT_EQ(p->setThickness(2), Qxad::eOk);
  EXPECT_EQ(number(point, 39), 2);
  p->close();

  QxDbRay* r = open<QxDbRay>(ray, QxDb::kForWrite);
  ASSERT_TRUE(r);
  double end = 0, param = 0;
  EXPECT_EQ(r->getEndParam(end), Qxad::eNotApplicable);
  QxDbExtents box;
  EXPECT_EQ(r->getGeomExtents(box), Qxad::eNotApplicable);
  EXPECT_EQ(r->getParamAtPoint(QxGePoint3d(1, 11, 0), param), Qxad::eOk);
  EXPECT_NEAR(param, 10, 1e-12);
  EXPECT_EQ(r->getParamAtPoint(QxGePoint3d(1, -1, 0), param), Qxad::eInvalidInput);
  EXPECT_EQ(r->setUnitDir(QxGeVector3d(3, 4, 0)), Qxad::eOk);
  EXPECT_EQ(number(ray, 11), 0.6);
  r->close();
}
