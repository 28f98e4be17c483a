#include "transform_kinds.h"

#include <algorithm>
#include <cmath>

#include "objects/entity_transform.h"

namespace korva::api {
namespace {

using namespace transform;

bool isListed(std::string_view type, std::initializer_list<std::string_view> types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

// Kinds an affine map carries into the same kind exactly, given the checks below:
// straight pieces, plane figures bounded by them, ellipses, circles that stay round,
// and splines.
bool keepsShapeUnderAnyMap(std::string_view type) {
  return isListed(type, {"LINE", "POINT", "3DFACE", "SOLID", "TRACE", "RAY", "XLINE", "LWPOLYLINE",
                         "ELLIPSE", "CIRCLE", "ARC", "SPLINE"});
}

// Leaders: world vertices, the direction of the hook line and the offsets to the
// annotation; the annotation's size scales with the map.
bool leader(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!geom::isSimilarity(map, scale)) return false;
  Vec3 normal = extrusion(groups);
  moveWorldPoints(groups, map, 10);
  Vec3 vector;
  if (readPoint(groups, 211, vector) && geom::length(vector) > 0)
    writePoint(groups, 211, geom::normalized(map.vector(vector)));
  for (int code : {212, 213}) {
    if (readPoint(groups, code, vector)) writePoint(groups, code, map.vector(vector));
  }
  scaleReals(groups, {40, 41}, scale);
  setExtrusion(groups, map.normal(normal));
  return true;
}

// A spline is its control points' under any affine map; fit points lie on the curve
// and stay on it, and the end tangents keep pointing along it.
void spline(Groups& groups, const Affine3& map) {
  for (int code : {10, 11}) moveWorldPoints(groups, map, code);
  for (int code : {12, 13}) {
    Vec3 tangent;
    if (readPoint(groups, code, tangent) && geom::length(tangent) > 0)
      writePoint(groups, code, geom::normalized(map.vector(tangent)));
  }
  if (find(groups, 210)) writePoint(groups, 210, map.normal(extrusion(groups)));
}

}  // namespace

bool anyNonZero(Groups& groups, std::initializer_list<int> codes) {
  for (const db::OwnedGroup& group : groups) {
    if (group.code == 1001) break;
    if (std::find(codes.begin(), codes.end(), group.code) != codes.end() && number(group) != 0)
      return true;
  }
  return false;
}

bool thicknessFollows(Groups& groups, const Affine3& map) {
  if (!anyNonZero(groups, {39})) return true;
  Vec3 normal = extrusion(groups);
  Vec3 along = geom::normalized(map.vector(normal));
  return geom::length(geom::cross(along, map.normal(normal))) < 1e-12;
}

bool transformGroups(std::string_view type, Groups groups, const Affine3& map, Groups& out) {
  double scale = 1;
  if (!geom::isSimilarity(map, scale)) {
    if (!keepsShapeUnderAnyMap(type) || !thicknessFollows(groups, map)) return false;
    // Widths would turn uneven; bulges are refused by the general transform.
    if (type == "LWPOLYLINE" && anyNonZero(groups, {40, 41, 43})) return false;
    if (type == "SPLINE") {
      spline(groups, map);
      out = std::move(groups);
      return true;
    }
  }
  if (type == "LEADER") {
    if (!leader(groups, map)) return false;
    out = std::move(groups);
    return true;
  }
  TransformedEntity result;
  // A circle that would have to become an ellipse is not carried: the record keeps its kind.
  if (!transformEntity(type, std::move(groups), map, result) || result.type != type) return false;
  out = std::move(result.groups);
  return true;
}

}  // namespace korva::api
