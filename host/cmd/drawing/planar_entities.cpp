#include "cmd/drawing/planar_entities.h"

#include <cmath>
#include <numbers>

#include "cmd/drawing/entity_append.h"
#include "cmd/drawing/entity_geometry.h"
#include "qx_db_curves.h"

namespace korva::cmd::drawing {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

geom::Vec3 worldCenter(const api::CoordinateSystem& user, Vec2 center, double elevation) {
  return user.toWorld({center.x, center.y, elevation});
}

}  // namespace

double tidyAngle(double angle) {
  angle = std::fmod(angle, kTwoPi);
  if (angle < 0) angle += kTwoPi;
  double degrees = angle * 180 / std::numbers::pi;
  double whole = std::round(degrees);
  if (std::fabs(degrees - whole) < 1e-9) angle = whole * std::numbers::pi / 180;
  return angle >= kTwoPi ? 0 : angle;
}

double objectAngle(const api::CoordinateSystem& user, double userAngle) {
  api::CoordinateSystem object = api::objectSystem(user.zAxis);
  geom::Vec3 world = user.directionToWorld({std::cos(userAngle), std::sin(userAngle), 0});
  geom::Vec3 seen = object.directionFromWorld(world);
  return std::atan2(seen.y, seen.x);
}

bool addCircle(const api::CoordinateSystem& user, const PlaneCircle& circle, double elevation,
               EntityName name) {
  auto* entity = new QxDbCircle(toGePoint(worldCenter(user, circle.center, elevation)),
                                toGeVector(user.zAxis), circle.radius);
  return appendToCurrentSpace(entity, name);
}

bool addArc(const api::CoordinateSystem& user, const PlaneArc& arc, double elevation,
            EntityName name) {
  double start = objectAngle(user, arc.start);
  auto* entity =
      new QxDbArc(toGePoint(worldCenter(user, arc.center, elevation)), toGeVector(user.zAxis),
                  arc.radius, tidyAngle(start), tidyAngle(start + arc.sweep()));
  return appendToCurrentSpace(entity, name);
}

}  // namespace korva::cmd::drawing
