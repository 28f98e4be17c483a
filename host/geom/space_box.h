// An axis-aligned box of space; empty until something is added.
#pragma once

#include "vec.h"

namespace korva::geom {

struct SpaceBox {
  Vec3 min{1e300, 1e300, 1e300};
  Vec3 max{-1e300, -1e300, -1e300};

  bool empty() const { return min.x > max.x; }
  void add(Vec3 p) {
    if (p.x < min.x) min.x = p.x;
    if (p.y < min.y) min.y = p.y;
    if (p.z < min.z) min.z = p.z;
    if (p.x > max.x) max.x = p.x;
    if (p.y > max.y) max.y = p.y;
    if (p.z > max.z) max.z = p.z;
  }
  void add(const SpaceBox& other) {
    if (other.empty()) return;
    add(other.min);
    add(other.max);
  }
  // The box swept when everything in it moves along by: thickness of planar curves.
  void sweep(Vec3 by) {
    if (empty()) return;
    SpaceBox moved = *this;
    moved.min = moved.min + by;
    moved.max = moved.max + by;
    add(moved);
  }
};

}  // namespace korva::geom
