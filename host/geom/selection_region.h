// Windows, polygons and fences of graphical selection, tested against plane shapes.
#pragma once

#include <vector>

#include "plane_shape.h"

namespace korva::geom {

class SelectionRegion {
 public:
  // The rectangle between two opposite corners.
  static SelectionRegion rectangle(Vec2 first, Vec2 second);
  // A closed polygon; the last point joins the first.
  static SelectionRegion polygon(std::vector<Vec2> points);

  const std::vector<Vec2>& outline() const { return points_; }
  const Box2& box() const { return box_; }

  bool contains(Vec2 p) const;
  // Every part of the shape lies inside.
  bool encloses(const PlaneShape& shape) const;
  // Some part of the shape lies inside or crosses the outline.
  bool touches(const PlaneShape& shape) const;

 private:
  bool crossesOutline(const Segment2& segment) const;
  bool crossesOutline(const Arc2& arc) const;
  std::vector<Vec2> points_;
  Box2 box_;
  bool rectangle_ = false;
};

// Whether a shape crosses an open chain of fence segments.
bool fenceCrosses(const std::vector<Vec2>& fence, const PlaneShape& shape);

// Intersection tests of the primitives; touching counts.
bool segmentsIntersect(const Segment2& s, const Segment2& t);
bool arcIntersectsSegment(const Arc2& arc, const Segment2& s);

}  // namespace korva::geom
