// Transforming curves: the groups of each kind written back from transformed geometry.
#include <cmath>
#include <numbers>

#include "curve_edit.h"
#include "db/value_text.h"
#include "entity_geometry.h"
#include "entity_members.h"
#include "geom/affine.h"
#include "lwpolyline_vertices.h"
#include "object_groups.h"
#include "object_system.h"
#include "old_polyline_transform.h"
#include "polyline_vertices.h"
#include "spline_groups.h"

namespace korva::api {

namespace {

using geom::Affine3;
using geom::Vec3;

constexpr double kDegree = std::numbers::pi / 180;

// Thickness rides along the normal: the transformed extrusion measured on the new normal.
double newThickness(const Affine3& map, Vec3 normal, double thickness, Vec3 newNormal) {
  return dot(map.vector(normal * thickness), newNormal);
}

Qxad::ErrorStatus transformLine(QxDbObject* line, const Affine3& map) {
  constexpr std::string_view kPart = "AcDbLine";
  Vec3 normal = members::normal(line, kPart);
  double thickness = members::real(line, 39, 0, kPart);
  members::setPoint(line, 10, map.point(members::point(line, 10, kPart)), kPart);
  members::setPoint(line, 11, map.point(members::point(line, 11, kPart)), kPart);
  if (thickness != 0) {
    Vec3 extrusion = map.vector(normal * thickness);
    members::setPoint(line, 210, geom::normalized(extrusion), kPart);
    members::setReal(line, 39, geom::length(extrusion), kPart);
  } else if (members::text(line, 210, kPart)) {
    members::setPoint(line, 210, map.normal(normal), kPart);
  }
  return Qxad::eOk;
}

Qxad::ErrorStatus transformStraight(QxDbObject* curve, const Affine3& map, std::string_view part) {
  Vec3 direction = map.vector(members::point(curve, 11, part, {1, 0, 0}));
  if (geom::length(direction) == 0) return Qxad::eInvalidInput;
  members::setPoint(curve, 10, map.point(members::point(curve, 10, part)), part);
  members::setPoint(curve, 11, geom::normalized(direction), part);
  return Qxad::eOk;
}

Qxad::ErrorStatus transformCircular(QxDbObject* curve, const Affine3& map, double scale, bool arc) {
  constexpr std::string_view kPart = "AcDbCircle";
  Vec3 normal = members::normal(curve, kPart);
  Affine3 toWorld = geom::objectToWorld(normal);
  Vec3 localCenter = members::point(curve, 10, kPart);
  double radius = members::real(curve, 40, 0, kPart);
  double thickness = members::real(curve, 39, 0, kPart);
  // The ends, as world points, give the new angles in the new object system; a mirror
  // turns the normal over too, so the arc still runs counterclockwise from its start.
  auto endPoint = [&](int code) {
    double angle = members::real(curve, code, 0, "AcDbArc") * kDegree;
    return map.point(
        toWorld.point(localCenter + Vec3{radius * std::cos(angle), radius * std::sin(angle), 0}));
  };
  Vec3 start = arc ? endPoint(50) : Vec3{};
  Vec3 end = arc ? endPoint(51) : Vec3{};
  Vec3 newNormal = map.normal(normal);
  Affine3 fromWorld = geom::objectToWorld(newNormal).inverse();
  Vec3 center = fromWorld.point(map.point(toWorld.point(localCenter)));
  members::setPoint(curve, 10, center, kPart);
  members::setReal(curve, 40, radius * scale, kPart);
  members::setPoint(curve, 210, newNormal, kPart);
  if (thickness != 0)
    members::setReal(curve, 39, newThickness(map, normal, thickness, newNormal), kPart);
  if (arc) {
    auto angleOf = [&](Vec3 world) {
      Vec3 local = fromWorld.point(world) - center;
      double degrees = std::atan2(local.y, local.x) / kDegree;
      return degrees < 0 ? degrees + 360 : degrees;
    };
    members::setReal(curve, 50, angleOf(start), "AcDbArc");
    members::setReal(curve, 51, angleOf(end), "AcDbArc");
  }
  return Qxad::eOk;
}

Qxad::ErrorStatus transformEllipse(QxDbObject* ellipse, const Affine3& map) {
  constexpr std::string_view kPart = "AcDbEllipse";
  Vec3 normal = members::normal(ellipse, kPart);
  members::setPoint(ellipse, 10, map.point(members::point(ellipse, 10, kPart)), kPart);
  members::setPoint(ellipse, 11, map.vector(members::point(ellipse, 11, kPart)), kPart);
  members::setPoint(ellipse, 210, map.normal(normal), kPart);
  return Qxad::eOk;
}

// Planar vertices: world images of the object-system points, back in the new system.
struct PlanarFrame {
  Affine3 oldToWorld, newFromWorld;
  Vec3 newNormal;
  Vec3 map(const Affine3& transform, Vec3 local) const {
    return newFromWorld.point(transform.point(oldToWorld.point(local)));
  }
};

PlanarFrame frameOf(const Affine3& map, Vec3 normal) {
  PlanarFrame frame;
  frame.oldToWorld = geom::objectToWorld(normal);
  frame.newNormal = map.normal(normal);
  frame.newFromWorld = geom::objectToWorld(frame.newNormal).inverse();
  return frame;
}

Qxad::ErrorStatus transformLwPolyline(QxDbObject* polyline, const Affine3& map, double scale) {
  constexpr std::string_view kPart = "AcDbPolyline";
  Vec3 normal = members::normal(polyline, kPart);
  double elevation = members::real(polyline, 38, 0, kPart);
  PlanarFrame frame = frameOf(map, normal);
  std::vector<LwVertex> vertices = readLwVertices(recordOf(*polyline));
  double newElevation = frame.map(map, {0, 0, elevation}).z;
  for (LwVertex& v : vertices) {
    Vec3 p = frame.map(map, {v.point.x, v.point.y, elevation});
    v.point = {p.x, p.y};
    newElevation = p.z;
    v.startWidth *= scale;
    v.endWidth *= scale;
  }
  writeLwVertices(recordOf(*polyline), vertices);
  double thickness = members::real(polyline, 39, 0, kPart);
  if (thickness != 0) {
    members::setReal(polyline, 39, newThickness(map, normal, thickness, frame.newNormal), kPart);
  }
  if (double width = members::real(polyline, 43, 0, kPart); width != 0) {
    members::setReal(polyline, 43, width * scale, kPart);
  }
  members::setReal(polyline, 38, newElevation, kPart);
  members::setPoint(polyline, 210, frame.newNormal, kPart);
  return Qxad::eOk;
}

// The polyline and its vertex records, rewritten together or not at all.
Qxad::ErrorStatus transformOldPolyline(QxDbObject* polyline, const Affine3& map) {
  db::Database* database = databaseOf(*polyline);
  db::Record& record = recordOf(*polyline);
  std::vector<db::Record*> vertexRecords;
  if (database) vertexRecords = vertexRecordsOf(*database, record);
  std::vector<db::OwnedGroup> groups = record.ownedGroups();
  std::vector<std::vector<db::OwnedGroup>> vertices;
  for (const db::Record* vertex : vertexRecords) vertices.push_back(vertex->ownedGroups());
  if (!transformOldPolylineGroups(groups, vertices, map)) return Qxad::eCannotScaleNonUniformly;
  record.assign(std::move(groups));
  for (size_t i = 0; i < vertexRecords.size(); ++i)
    vertexRecords[i]->assign(std::move(vertices[i]));
  return Qxad::eOk;
}

Qxad::ErrorStatus transformSpline(QxDbObject* spline, const Affine3& map) {
  constexpr std::string_view kPart = "AcDbSpline";
  db::Record& record = recordOf(*spline);
  SplineData data = readSpline(record);
  for (Vec3& p : data.curve.control) p = map.point(p);
  for (Vec3& p : data.fit) p = map.point(p);
  writeSplinePoints(record, data.curve.control, data.fit);
  for (int code : {12, 13}) {
    if (members::text(spline, code, kPart)) {
      members::setPoint(spline, code, map.vector(members::point(spline, code, kPart)), kPart);
    }
  }
  if (members::text(spline, 210, kPart)) {
    members::setPoint(spline, 210, map.normal(members::normal(spline, kPart)), kPart);
  }
  return Qxad::eOk;
}

}  // namespace

Qxad::ErrorStatus transformCurve(QxDbCurve& curve, const QxGeMatrix3d& matrix) {
  Affine3 map;
  if (!Affine3::fromMatrix4(matrix.entry, map)) return Qxad::eInvalidInput;
  if (std::fabs(map.determinant()) < 1e-300) return Qxad::eInvalidInput;
  bool uniform = matrix.isUniScaledOrtho();
  double scale = std::cbrt(std::fabs(map.determinant()));
  std::string_view type = recordOf(curve).type();
  if (type == "LINE") return transformLine(&curve, map);
  if (type == "RAY") return transformStraight(&curve, map, "AcDbRay");
  if (type == "XLINE") return transformStraight(&curve, map, "AcDbXline");
  if (type == "SPLINE") return transformSpline(&curve, map);
  if (type == "POLYLINE") return transformOldPolyline(&curve, map);
  // Circles, arcs, ellipses and bulged or wide lightweight polylines keep their kind
  // only under uniform scaling.
  if (type == "LWPOLYLINE") {
    bool straight = true;
    for (const LwVertex& v : readLwVertices(recordOf(curve))) {
      if (v.bulge != 0 || v.startWidth != 0 || v.endWidth != 0) straight = false;
    }
    if (!uniform && !straight) return Qxad::eCannotScaleNonUniformly;
    return transformLwPolyline(&curve, map, scale);
  }
  // Any affine map takes an ellipse to an ellipse; circles and arcs would change class.
  if (type == "ELLIPSE" && !uniform) return transformRecordOf(curve, map);
  if (!uniform) return Qxad::eCannotScaleNonUniformly;
  if (type == "CIRCLE") return transformCircular(&curve, map, scale, false);
  if (type == "ARC") return transformCircular(&curve, map, scale, true);
  if (type == "ELLIPSE") return transformEllipse(&curve, map);
  return Qxad::eNotApplicable;
}

}  // namespace korva::api
