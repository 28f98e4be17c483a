#include <cmath>
#include <numbers>

#include "db/value_text.h"
#include "entity_transform_kinds.h"

namespace korva::api {

namespace {

using namespace transform;

constexpr double kDegree = std::numbers::pi / 180;

bool similarityScale(const Affine3& map, double& scale) {
  return geom::isSimilarity(map, scale);
}

// An angle (degrees) of a direction in the old plane, as the new plane sees it.
double turnedDegrees(const Affine3& map, const PlaneMove& move, double degrees) {
  Vec3 direction = move.vector(map, rotatedX(degrees * kDegree));
  return normalizedAngle(std::atan2(direction.y, direction.x)) / kDegree;
}

void turnAngle(Groups& groups, const Affine3& map, const PlaneMove& move, int code) {
  if (db::OwnedGroup* angle = find(groups, code))
    angle->value = db::formatReal(turnedDegrees(map, move, number(*angle)));
}

bool dimension(std::string_view type, Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale)) return false;
  Vec3 normal = extrusion(groups);
  PlaneMove move(map, normal);
  long long kind =
      db::parseInteger(find(groups, 70) ? find(groups, 70)->value : "0").value_or(0) & 7;
  bool arcDimension = type == "ARC_DIMENSION";
  for (int code : {10, 13, 14, 15}) moveWorldPoints(groups, map, code);
  // Text position, clone insertion point and the arc point of two-line angles lie in
  // the object system; an arc dimension's leader points in the world.
  for (int code : {11, 12}) movePlanePoints(groups, map, move, code);
  for (int code : {16, 17}) {
    if (arcDimension) {
      moveWorldPoints(groups, map, code);
    } else if (code == 16) {
      movePlanePoints(groups, map, move, code);
    }
  }
  turnAngle(groups, map, move, 50);
  // The horizontal direction is stored negated.
  if (db::OwnedGroup* horizontal = find(groups, 51))
    horizontal->value = db::formatReal(-turnedDegrees(map, move, -number(*horizontal)));
  // Text rotation (53) is measured from the dimension line and turns with it.
  bool angular = !arcDimension && type != "LARGE_RADIAL_DIMENSION" && (kind == 2 || kind == 5);
  if (!angular) scaleReals(groups, {42}, scale);
  if (type == "DIMENSION" && (kind == 3 || kind == 4)) scaleReals(groups, {40}, scale);
  setExtrusion(groups, move.newNormal);
  return true;
}

// Images and wipeouts: the frame's corner and its pixel vectors; the clip boundary
// is in pixels and stays.
bool image(Groups& groups, const Affine3& map) {
  moveWorldPoints(groups, map, 10);
  for (int code : {11, 12}) {
    Vec3 vector;
    if (readPoint(groups, code, vector)) writePoint(groups, code, map.vector(vector));
  }
  return true;
}

// Every vertex's position, direction and miter, and the element parameters measured
// along the miters.
bool multiline(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale)) return false;
  Vec3 normal = extrusion(groups);
  for (int code : {10, 11}) moveWorldPoints(groups, map, code);
  for (int code : {12, 13}) {
    int count = countOf(groups, code);
    for (int k = 0; k < count; ++k) {
      Vec3 direction;
      readPoint(groups, code, direction, k);
      writePoint(groups, code, geom::normalized(map.vector(direction)), k);
    }
  }
  scaleReals(groups, {40, 41, 42}, scale);
  setExtrusion(groups, map.normal(normal));
  return true;
}

// A table: its insertion point and direction, row heights, column widths and text
// heights.
bool table(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale)) return false;
  Vec3 normal = extrusion(groups);
  moveWorldPoints(groups, map, 10);
  Vec3 direction{1, 0, 0};
  if (readPoint(groups, 11, direction))
    writePoint(groups, 11, geom::normalized(map.vector(direction)));
  scaleReals(groups, {140, 141, 142}, scale);
  setExtrusion(groups, map.normal(normal), 10);
  return true;
}

// A viewport's rectangle stays upright in paper space: only moves and positive uniform
// scales keep it one.
bool viewport(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale)) return false;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      double expected = row == column ? scale : 0;
      if (std::fabs(map.m[row][column] - expected) > 1e-9 * scale) return false;
    }
  }
  moveWorldPoints(groups, map, 10);
  scaleReals(groups, {40, 41}, scale);
  return true;
}

// A tolerance frame's size comes from its dimension style: it can turn and move only.
bool tolerance(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale) || std::fabs(scale - 1) > 1e-9) return false;
  Vec3 normal = extrusion(groups);
  moveWorldPoints(groups, map, 10);
  Vec3 direction{1, 0, 0};
  if (readPoint(groups, 11, direction))
    writePoint(groups, 11, geom::normalized(map.vector(direction)));
  setExtrusion(groups, map.normal(normal));
  return true;
}

// Leaders: world vertices, the direction of the hook line and the offsets to the
// annotation; the annotation's size scales with the map.
bool leader(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!similarityScale(map, scale)) return false;
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

}  // namespace

bool transformAnnotation(std::string_view type, Groups& groups, const Affine3& map) {
  if (type == "DIMENSION" || type == "ARC_DIMENSION" || type == "LARGE_RADIAL_DIMENSION")
    return dimension(type, groups, map);
  if (type == "HATCH") return transformHatchGroups(groups, map);
  if (type == "IMAGE" || type == "WIPEOUT") return image(groups, map);
  if (type == "MLINE") return multiline(groups, map);
  if (type == "ACAD_TABLE") return table(groups, map);
  if (type == "VIEWPORT") return viewport(groups, map);
  if (type == "TOLERANCE") return tolerance(groups, map);
  if (type == "LEADER") return leader(groups, map);
  return false;
}

}  // namespace korva::api
