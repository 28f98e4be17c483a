// Exploding polylines: a line for each straight segment, an arc for each bulged one,
// in the polyline's plane and with its properties and thickness.
#include <cmath>
#include <numbers>

#include "curve_edit.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "geom/bulge_path.h"
#include "lwpolyline_vertices.h"
#include "object_groups.h"
#include "polyline_vertices.h"
#include "qx_db_curves.h"

namespace korva::api {

namespace {

using geom::Vec2;
using geom::Vec3;

struct PlanarPolyline {
  std::vector<Vec2> points;
  std::vector<double> bulges;
  bool closed = false;
  double elevation = 0;
  double thickness = 0;
  Vec3 normal{0, 0, 1};
};

void addPiece(const QxDbCurve& source, QxDbEntity* piece, QxDbVoidPtrArray& pieces) {
  // A new object is writable, so the copy of the properties can't fail on access.
  piece->setPropertiesFrom(&source);
  pieces.append(static_cast<void*>(piece));
}

void explodePlanar(const QxDbCurve& source, const PlanarPolyline& polyline,
                   QxDbVoidPtrArray& pieces) {
  geom::Affine3 toWorld = geom::objectToWorld(polyline.normal);
  QxGeVector3d normal = members::toVector(polyline.normal);
  for (const geom::BulgeSegment& s :
       geom::bulgeSegments(polyline.points, polyline.bulges, polyline.closed)) {
    if (!s.isArc()) {
      auto* line =
          new QxDbLine(members::toPoint(toWorld.point({s.start.x, s.start.y, polyline.elevation})),
                       members::toPoint(toWorld.point({s.end.x, s.end.y, polyline.elevation})));
      if (polyline.thickness != 0) {
        line->setNormal(normal);
        line->setThickness(polyline.thickness);
      }
      addPiece(source, line, pieces);
      continue;
    }
    // Arcs run counterclockwise: a clockwise segment becomes the arc from its end.
    Vec2 c = s.center();
    double a0 = s.startAngle();
    double a1 = a0 + s.sweep();
    if (s.sweep() < 0) std::swap(a0, a1);
    QxGePoint3d center = members::toPoint(toWorld.point({c.x, c.y, polyline.elevation}));
    auto* arc = new QxDbArc(center, normal, s.radius(), a0, a1);
    if (polyline.thickness != 0) arc->setThickness(polyline.thickness);
    addPiece(source, arc, pieces);
  }
}

}  // namespace

Qxad::ErrorStatus explodeCurve(const QxDbCurve& curve, QxDbVoidPtrArray& pieces) {
  const db::Record& record = recordOf(curve);
  PlanarPolyline polyline;
  if (record.type() == "LWPOLYLINE") {
    constexpr std::string_view kPart = "AcDbPolyline";
    for (const LwVertex& v : readLwVertices(record)) {
      polyline.points.push_back(v.point);
      polyline.bulges.push_back(v.bulge);
    }
    polyline.closed = (members::integer(&curve, 70, 0, kPart) & 1) != 0;
    polyline.elevation = members::real(&curve, 38, 0, kPart);
    polyline.thickness = members::real(&curve, 39, 0, kPart);
    polyline.normal = members::normal(&curve, kPart);
    explodePlanar(curve, polyline, pieces);
    return Qxad::eOk;
  }
  if (record.type() != "POLYLINE") return Qxad::eNotApplicable;
  db::Database* database = databaseOf(curve);
  if (!database) return Qxad::eNotInDatabase;
  long long flags = groupInteger(record, 70, 0);
  if (flags & (16 | 64)) return Qxad::eNotApplicable;
  std::vector<db::Record*> vertices = vertexRecordsOf(*database, record);
  polyline.closed = (flags & 1) != 0;
  if (flags & 8) {
    std::vector<QxGePoint3d> points;
    for (const db::Record* v : vertices) {
      if (!isCurveVertex(*v)) continue;
      double p[3];
      groupPoint(*v, 10, p);
      points.push_back({p[0], p[1], p[2]});
    }
    size_t n = points.size();
    for (size_t i = 0; n > 1 && i < (polyline.closed ? n : n - 1); ++i) {
      addPiece(curve, new QxDbLine(points[i], points[(i + 1) % n]), pieces);
    }
    return Qxad::eOk;
  }
  for (const db::Record* v : vertices) {
    if (!isCurveVertex(*v)) continue;
    double p[3];
    groupPoint(*v, 10, p);
    polyline.points.push_back({p[0], p[1]});
    polyline.bulges.push_back(groupReal(*v, 42, 0));
  }
  double base[3];
  groupPoint(record, 10, base);
  polyline.elevation = base[2];
  polyline.thickness = groupReal(record, 39, 0);
  polyline.normal = members::normal(&curve, "AcDb2dPolyline");
  explodePlanar(curve, polyline, pieces);
  return Qxad::eOk;
}

}  // namespace korva::api
