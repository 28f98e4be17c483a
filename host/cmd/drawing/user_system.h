// The current user system of the current drawing, for commands that take points in
// it and write world or object coordinates.
#pragma once

#include "api/coordinate_systems.h"
#include "geom/vec.h"

namespace korva::cmd::drawing {

using geom::Vec2;
using geom::Vec3;

inline Vec3 toVec3(const double point[3]) {
  return {point[0], point[1], point[2]};
}
inline void toArray(Vec3 point, double out[3]) {
  out[0] = point.x;
  out[1] = point.y;
  out[2] = point.z;
}
inline Vec2 flat(Vec3 point) {
  return {point.x, point.y};
}

// The user system of the current space; the world when no drawing is open.
api::CoordinateSystem currentUserSystem();

// The object system of planar entities drawn in the user system's X-Y plane.
api::CoordinateSystem userPlaneObjectSystem();

}  // namespace korva::cmd::drawing
