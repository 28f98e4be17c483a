#include "cmd/drawing/entity_ucs.h"

#include <cmath>
#include <numbers>
#include <string>
#include <utility>

#include "api/coordinate_systems.h"
#include "cmd/drawing/entity_list.h"

namespace korva::cmd::drawing {

namespace {

using geom::Vec3;

constexpr double kDegree = std::numbers::pi / 180;

// A system with Z along the extrusion, its origin at `origin` and X toward
// `direction` flattened into the plane; the object system's X when that is nothing.
std::optional<UserSystem> systemToward(const api::CoordinateSystem& object, Vec3 origin,
                                       Vec3 direction) {
  Vec3 z = object.zAxis;
  Vec3 inPlane = direction - z * geom::dot(direction, z);
  if (geom::length(inPlane) < 1e-12) inPlane = object.xAxis;
  return systemFromAxes(origin, inPlane, geom::cross(z, inPlane));
}

Vec3 objectDirection(const api::CoordinateSystem& object, double angle) {
  return object.directionToWorld({std::cos(angle), std::sin(angle), 0});
}

bool nearerFirst(Vec3 pick, Vec3 a, Vec3 b) {
  return geom::length(pick - a) <= geom::length(pick - b);
}

}  // namespace

std::optional<UserSystem> systemOfEntity(const EntityName name, Vec3 pick) {
  EntityList list(name);
  if (!list.valid()) return std::nullopt;
  std::wstring type = list.type();
  api::CoordinateSystem object = api::objectSystem(list.extrusion());
  if (type == L"LINE") {
    // Origin at the end nearer the pick, X toward the other end.
    Vec3 start = list.point(10), end = list.point(11);
    if (!nearerFirst(pick, start, end)) std::swap(start, end);
    return systemToward(object, start, end - start);
  }
  if (type == L"CIRCLE") {
    Vec3 center = object.toWorld(list.point(10));
    return systemToward(object, center, pick - center);
  }
  if (type == L"ARC") {
    // Origin at the center, X toward the end nearer the pick.
    Vec3 center = object.toWorld(list.point(10));
    double radius = list.real(40);
    Vec3 start = center + objectDirection(object, list.real(50) * kDegree) * radius;
    Vec3 end = center + objectDirection(object, list.real(51) * kDegree) * radius;
    return systemToward(object, center, (nearerFirst(pick, start, end) ? start : end) - center);
  }
  if (type == L"LWPOLYLINE") {
    std::vector<const ResultBuffer*> vertices = list.all(10);
    if (vertices.empty()) return std::nullopt;
    double elevation = list.real(38);
    auto at = [&](size_t i) {
      return object.toWorld(
          {vertices[i]->value.rpoint[0], vertices[i]->value.rpoint[1], elevation});
    };
    Vec3 origin = at(0);
    return systemToward(object, origin, vertices.size() > 1 ? at(1) - origin : object.xAxis);
  }
  if (type == L"POINT") return systemToward(object, list.point(10), object.xAxis);
  if (type == L"TEXT" || type == L"ATTRIB" || type == L"ATTDEF" || type == L"INSERT" ||
      type == L"SHAPE") {
    // Origin at the insertion point (a text's start), X along the rotation.
    Vec3 origin = object.toWorld(list.point(10));
    return systemToward(object, origin, objectDirection(object, list.real(50) * kDegree));
  }
  if (type == L"MTEXT") {
    Vec3 direction =
        list.find(11) ? list.point(11) : objectDirection(object, list.real(50) * kDegree);
    return systemToward(object, list.point(10), direction);
  }
  if (type == L"SOLID" || type == L"TRACE") {
    Vec3 first = object.toWorld(list.point(10)), second = object.toWorld(list.point(11));
    return systemToward(object, first, second - first);
  }
  if (type == L"3DFACE") {
    // A face has no extrusion: its first edge is X, its last edge gives the plane.
    Vec3 first = list.point(10), second = list.point(11), fourth = list.point(13);
    if (geom::length(fourth - first) < 1e-12) fourth = list.point(12);
    return systemFromAxes(first, second - first, fourth - first);
  }
  if (type == L"DIMENSION") {
    return systemToward(object, object.toWorld(list.point(11)), object.xAxis);
  }
  return std::nullopt;
}

}  // namespace korva::cmd::drawing
