#include "coordinate_systems.h"

#include <cmath>

#include "db/value_text.h"

namespace korva::api {

Vector3 CoordinateSystem::toWorld(const Vector3& point) const {
  return origin + directionToWorld(point);
}

Vector3 CoordinateSystem::fromWorld(const Vector3& point) const {
  return directionFromWorld(point - origin);
}

Vector3 CoordinateSystem::directionToWorld(const Vector3& vector) const {
  return xAxis * vector.x + yAxis * vector.y + zAxis * vector.z;
}

Vector3 CoordinateSystem::directionFromWorld(const Vector3& vector) const {
  return {dot(vector, xAxis), dot(vector, yAxis), dot(vector, zAxis)};
}

CoordinateSystem objectSystem(const Vector3& extrusion) {
  CoordinateSystem system;
  Vector3 z = normalized(extrusion);
  if (dot(z, z) == 0) return system;
  Vector3 x = geom::arbitraryXAxis(z);
  system.xAxis = x;
  system.yAxis = normalized(cross(z, x));
  system.zAxis = z;
  return system;
}

Vector3 headerPoint(const db::Database& database, std::string_view name, const Vector3& fallback) {
  std::vector<db::Group> groups = database.headerVariable(name);
  if (groups.empty()) return fallback;
  double axes[3] = {0, 0, 0};
  for (const db::Group& group : groups) {
    if (group.code == 10 || group.code == 20 || group.code == 30) {
      axes[group.code / 10 - 1] = db::parseReal(group.value).value_or(0);
    }
  }
  return {axes[0], axes[1], axes[2]};
}

long long headerInteger(const db::Database& database, std::string_view name, long long fallback) {
  std::optional<std::string_view> text = database.headerValue(name);
  if (!text) return fallback;
  return db::parseInteger(*text).value_or(fallback);
}

bool inPaperSpace(const db::Database& database) {
  return headerInteger(database, "$TILEMODE", 1) == 0 && headerInteger(database, "$CVPORT", 2) == 1;
}

CoordinateSystem currentUcs(const db::Database& database) {
  bool paper = inPaperSpace(database);
  CoordinateSystem system;
  system.origin = headerPoint(database, paper ? "$PUCSORG" : "$UCSORG");
  Vector3 x = normalized(headerPoint(database, paper ? "$PUCSXDIR" : "$UCSXDIR", {1, 0, 0}));
  Vector3 y = normalized(headerPoint(database, paper ? "$PUCSYDIR" : "$UCSYDIR", {0, 1, 0}));
  Vector3 z = normalized(cross(x, y));
  if (dot(z, z) == 0) return CoordinateSystem{system.origin};
  system.xAxis = x;
  system.yAxis = normalized(cross(z, x));
  system.zAxis = z;
  return system;
}

CoordinateSystem displaySystem(const db::Database& database) {
  // The view direction lives in the active viewport record; $VIEWDIR is the header's copy.
  Vector3 direction = headerPoint(database, "$VIEWDIR", {0, 0, 1});
  return objectSystem(direction);
}

}  // namespace korva::api
