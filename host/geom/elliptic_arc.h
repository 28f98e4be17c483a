// Arcs of ellipses and circles in space: center + cos(t) * u + sin(t) * v.
#pragma once

#include "space_box.h"
#include "vec.h"

namespace korva::geom {

struct EllipticArc {
  Vec3 center;
  Vec3 u;  // to the point at t = 0 (the major axis of an ellipse, radius * X of a circle)
  Vec3 v;  // to the point at t = pi / 2
  double start = 0;
  double end = 0;  // > start; at most start + 2 pi

  Vec3 pointAt(double t) const;
  Vec3 derivativeAt(double t) const;
  // The parameter in [start, end] of the point of the arc nearest to p.
  double closestParam(Vec3 p) const;
  // Exact: the ends and the extremes of each coordinate that lie on the arc.
  SpaceBox box() const;
};

// The angle brought into [from, from + 2 pi).
double angleFrom(double angle, double from);

}  // namespace korva::geom
