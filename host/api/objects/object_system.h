// Object coordinates of planar entities (arcs, circles, lightweight polylines) and the
// world, by the arbitrary-axis rule of their normal.
#pragma once

#include "geom/affine.h"
#include "geom/vec.h"

namespace korva::api {

inline geom::Vec3 objectToWorld(geom::Vec3 point, geom::Vec3 normal) {
  return geom::objectToWorld(normal).point(point);
}

inline geom::Vec3 worldToObject(geom::Vec3 point, geom::Vec3 normal) {
  return geom::objectToWorld(normal).inverse().point(point);
}

}  // namespace korva::api
