// A dimension's groups under an affine map: its definition points and text position
// go where the map takes them, its directions turn with their images, and its
// measurement is what the moved points measure. The dimensions of a circle (radius,
// diameter, large radius, arc length) refuse maps under which their circle stops being
// round; the picture block is moved by the caller.
#include <cmath>
#include <numbers>

#include "db/value_text.h"
#include "entity_transform_kinds.h"

namespace korva::api {

namespace {

using namespace transform;

constexpr double kDegree = std::numbers::pi / 180;
constexpr double kPi = std::numbers::pi;

// An angle (degrees) of a direction in the old plane, as the new plane sees it.
double turnedDegrees(const Affine3& map, const PlaneMove& move, double degrees) {
  Vec3 direction = move.vector(map, rotatedX(degrees * kDegree));
  return normalizedAngle(std::atan2(direction.y, direction.x)) / kDegree;
}

void turnAngle(Groups& groups, const Affine3& map, const PlaneMove& move, int code) {
  if (db::OwnedGroup* angle = find(groups, code))
    angle->value = db::formatReal(turnedDegrees(map, move, number(*angle)));
}

// Whether circles of the dimension's plane stay round, and the factor they scale by.
bool roundInPlane(const Affine3& map, const PlaneMove& move, double& scale) {
  Vec3 x = move.vector(map, {1, 0, 0}), y = move.vector(map, {0, 1, 0});
  scale = geom::length(x);
  double yLength = geom::length(y);
  return std::fabs(scale - yLength) <= 1e-9 * scale &&
         std::fabs(geom::dot(x, y)) <= 1e-9 * scale * yLength;
}

double angleBetween(Vec3 a, Vec3 b) {
  return std::atan2(geom::length(geom::cross(a, b)), geom::dot(a, b));
}

Vec3 worldPoint(Groups& groups, int code) {
  Vec3 p;
  readPoint(groups, code, p);
  return p;
}

// Of the candidates, the one the old measurement was.
double closest(double old, double candidates[2], double moved[2]) {
  return std::fabs(old - candidates[0]) <= std::fabs(old - candidates[1]) ? moved[0] : moved[1];
}

// An angle between two lines (kind 2) or two rays from a center (kind 5) is one of two:
// a map keeps which side of the lines the measured sector lies on, so the new angle is
// the same choice between the moved directions.
double remeasuredAngle(long long kind, Groups& before, Groups& after, double old) {
  // Measurements beyond a full turn are in degrees.
  double unit = old > 2 * kPi + 1e-9 ? kDegree : 1;
  double full = kind == 2 ? kPi : 2 * kPi;
  Vec3 first[2], second[2];
  Groups* states[2] = {&before, &after};
  for (int i = 0; i < 2; ++i) {
    Groups& groups = *states[i];
    if (kind == 2) {
      first[i] = worldPoint(groups, 14) - worldPoint(groups, 13);
      second[i] = worldPoint(groups, 10) - worldPoint(groups, 15);
    } else {
      first[i] = worldPoint(groups, 13) - worldPoint(groups, 15);
      second[i] = worldPoint(groups, 14) - worldPoint(groups, 15);
    }
  }
  double was = angleBetween(first[0], second[0]), is = angleBetween(first[1], second[1]);
  double candidates[2] = {was / unit, (full - was) / unit};
  double moved[2] = {is / unit, (full - is) / unit};
  return closest(old, candidates, moved);
}

// The axis an ordinate measures along: the horizontal direction (51, stored negated)
// for an X ordinate, square to it for a Y ordinate, in the world.
Vec3 ordinateAxis(Groups& groups, bool xOrdinate) {
  double angle = -real(groups, 51, 0) * kDegree + (xOrdinate ? 0 : kPi / 2);
  return geom::objectToWorld(extrusion(groups)).vector(rotatedX(angle));
}

// The measurement (42) after a map that stretches the plane unevenly, from the points
// it now stands on; false for kinds it can't be told for.
bool remeasure(long long kind, bool ordinateX, Groups& before, Groups& after) {
  db::OwnedGroup* measurement = find(after, 42);
  if (!measurement) return true;
  double old = number(*measurement);
  double now = old;
  if (kind == 0) {
    Vec3 along =
        geom::objectToWorld(extrusion(after)).vector(rotatedX(real(after, 50, 0) * kDegree));
    now = std::fabs(geom::dot(worldPoint(after, 14) - worldPoint(after, 13), along));
  } else if (kind == 1) {
    now = geom::length(worldPoint(after, 14) - worldPoint(after, 13));
  } else if (kind == 2 || kind == 5) {
    now = remeasuredAngle(kind, before, after, old);
  } else if (kind == 6) {
    double was =
        geom::dot(worldPoint(before, 13) - worldPoint(before, 10), ordinateAxis(before, ordinateX));
    double is =
        geom::dot(worldPoint(after, 13) - worldPoint(after, 10), ordinateAxis(after, ordinateX));
    if (std::fabs(was) > 1e-12) now = old * std::fabs(is / was);
  } else {
    return false;
  }
  measurement->value = db::formatReal(now);
  return true;
}

}  // namespace

bool transformDimensionGroups(std::string_view type, Groups& groups, const Affine3& map,
                              bool& cannotScaleNonUniformly) {
  Vec3 normal = extrusion(groups);
  PlaneMove move(map, normal);
  double scale = 1;
  bool round = roundInPlane(map, move, scale);
  long long flags = db::parseInteger(find(groups, 70) ? find(groups, 70)->value : "0").value_or(0);
  long long kind = flags & 7;
  bool arcDimension = type == "ARC_DIMENSION";
  bool largeRadial = type == "LARGE_RADIAL_DIMENSION";
  bool ofCircle = arcDimension || largeRadial || kind == 3 || kind == 4;
  if (ofCircle && !round) {
    cannotScaleNonUniformly = true;
    return false;
  }
  Groups before = round ? Groups() : groups;
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
  // Text rotation (53) is measured from the dimension line and turns with it. The
  // oblique angle of extension lines (52) stays: the picture shows them as moved.
  setExtrusion(groups, move.newNormal);
  if (!round) return remeasure(kind, (flags & 64) != 0, before, groups);
  bool angular = !arcDimension && !largeRadial && (kind == 2 || kind == 5);
  if (!angular) scaleReals(groups, {42}, scale);
  if (type == "DIMENSION" && (kind == 3 || kind == 4)) scaleReals(groups, {40}, scale);
  return true;
}

}  // namespace korva::api
