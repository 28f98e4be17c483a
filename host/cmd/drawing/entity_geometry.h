// Between the geometry code's vectors and the object layer's points and vectors.
#pragma once

#include <cmath>

#include "geom/vec.h"
#include "qx_ge.h"

namespace korva::cmd::drawing {

inline QxGePoint3d toGePoint(geom::Vec3 p) {
  return {p.x, p.y, p.z};
}
inline QxGeVector3d toGeVector(geom::Vec3 v) {
  return {v.x, v.y, v.z};
}
inline geom::Vec3 fromGe(const QxGePoint3d& p) {
  return {p.x, p.y, p.z};
}
inline geom::Vec3 fromGe(const QxGeVector3d& v) {
  return {v.x, v.y, v.z};
}

// Entities drawn in a plane parallel to the world's X-Y plane keep no extrusion group.
inline bool isWorldZ(geom::Vec3 axis) {
  return std::fabs(axis.x) < 1e-12 && std::fabs(axis.y) < 1e-12 && axis.z > 0;
}

}  // namespace korva::cmd::drawing
