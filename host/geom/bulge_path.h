// Paths of straight and bulged segments in a plane, as polylines draw them. The bulge
// of a segment is the tangent of a quarter of its included angle; positive turns left.
#pragma once

#include <vector>

#include "vec.h"

namespace korva::geom {

struct BulgeSegment {
  Vec2 start, end;
  double bulge = 0;

  bool isArc() const;
  double length() const;
  // Arcs: center, radius, start angle and signed sweep (negative clockwise).
  Vec2 center() const;
  double radius() const;
  double startAngle() const;
  double sweep() const;
  // At a fraction of the length, from 0 at start to 1 at end.
  Vec2 pointAt(double fraction) const;
  // The unit tangent in the direction of travel.
  Vec2 tangentAt(double fraction) const;
  // The fraction of the point of the segment nearest to p.
  double closestFraction(Vec2 p) const;
};

// The segments of a polyline's vertices: vertex i to i + 1, and back to the first
// when closed.
std::vector<BulgeSegment> bulgeSegments(const std::vector<Vec2>& points,
                                        const std::vector<double>& bulges, bool closed);

}  // namespace korva::geom
