#include "old_polyline_transform.h"

#include <cmath>
#include <numbers>

#include "api/transform_kinds.h"

namespace korva::api {

namespace {

using namespace transform;

constexpr double kDegree = std::numbers::pi / 180;

// 3D polylines (8), polygon meshes (16) and polyface meshes (64) keep world vertices.
bool hasWorldVertices(Groups& polyline) {
  return (static_cast<long long>(real(polyline, 70, 0)) & (8 | 16 | 64)) != 0;
}

// A polyface mesh's face records carry vertex numbers, not a point.
bool isFaceRecord(Groups& vertex) {
  long long flags = static_cast<long long>(real(vertex, 70, 0));
  return (flags & 128) != 0 && (flags & 64) == 0;
}

bool planar(Groups& polyline, std::vector<Groups>& vertices, const Affine3& map) {
  double scale = 1;
  bool similar = geom::isSimilarity(map, scale);
  if (!similar) {
    // A plane polyline stays exact without arcs, widths, curve fitting or a thickness
    // the map tilts.
    bool curveFit = (static_cast<long long>(real(polyline, 70, 0)) & 2) != 0;
    if (curveFit || anyNonZero(polyline, {40, 41}) || !thicknessFollows(polyline, map))
      return false;
    for (Groups& vertex : vertices) {
      if (anyNonZero(vertex, {40, 41, 42})) return false;
    }
  }
  Vec3 normal = extrusion(polyline);
  PlaneMove move(map, normal);
  Vec3 origin;
  readPoint(polyline, 10, origin);
  double newElevation = move.point(map, {0, 0, origin.z}).z;
  for (Groups& vertex : vertices) {
    Vec3 p;
    if (!readPoint(vertex, 10, p)) continue;
    p.z = origin.z;
    Vec3 q = move.point(map, p);
    writePoint(vertex, 10, {q.x, q.y, 0});
    newElevation = q.z;
    scaleReals(vertex, {40, 41}, scale);
    // A curve-fit tangent direction turns with the plane.
    if (find(vertex, 50)) {
      double angle = real(vertex, 50, 0) * kDegree;
      Vec3 tangent = move.vector(map, {std::cos(angle), std::sin(angle), 0});
      putReal(vertex, 50, normalizedAngle(std::atan2(tangent.y, tangent.x)) / kDegree);
    }
  }
  writePoint(polyline, 10, {0, 0, newElevation});
  scaleReals(polyline, {40, 41}, scale);
  scaleThickness(polyline, map, normal);
  setExtrusion(polyline, move.newNormal);
  return true;
}

}  // namespace

bool transformOldPolylineGroups(Groups& polyline, std::vector<Groups>& vertices,
                                const Affine3& map) {
  if (!hasWorldVertices(polyline)) return planar(polyline, vertices, map);
  for (Groups& vertex : vertices) {
    if (!isFaceRecord(vertex)) moveWorldPoints(vertex, map, 10);
  }
  return true;
}

}  // namespace korva::api
