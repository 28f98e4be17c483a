#include "coordinate_systems.h"

#include <cmath>

#include "db/value_text.h"

namespace korva::api {

Vector3 operator+(const Vector3& a, const Vector3& b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vector3 operator-(const Vector3& a, const Vector3& b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vector3 operator*(const Vector3& a, double factor) { return {a.x * factor, a.y * factor, a.z * factor}; }
double dot(const Vector3& a, const Vector3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vector3 cross(const Vector3& a, const Vector3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
Vector3 normalized(const Vector3& a) {
  double length = std::sqrt(dot(a, a));
  return length > 0 ? a * (1.0 / length) : a;
}

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
  // DXF's arbitrary-axis rule: near the world Z use world Y, else world Z, to find X.
  constexpr double kLimit = 1.0 / 64.0;
  Vector3 x = (std::fabs(z.x) < kLimit && std::fabs(z.y) < kLimit) ? cross({0, 1, 0}, z)
                                                                    : cross({0, 0, 1}, z);
  x = normalized(x);
  system.xAxis = x;
  system.yAxis = normalized(cross(z, x));
  system.zAxis = z;
  return system;
}

Vector3 headerPoint(const db::Database& database, std::string_view name, const Vector3& fallback) {
  std::optional<std::string_view> x = database.headerValue(name, 10);
  if (!x) return fallback;
  return {db::parseReal(*x).value_or(0), db::parseReal(database.headerValue(name, 20).value_or("0")).value_or(0),
          db::parseReal(database.headerValue(name, 30).value_or("0")).value_or(0)};
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
