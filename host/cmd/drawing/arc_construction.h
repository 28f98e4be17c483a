// Circles and arcs in the plane from the data the CIRCLE, ARC and PLINE commands ask
// for. Arcs run counterclockwise from start to end angle; a construction asked for
// clockwise gives the same arc with its ends swapped.
#pragma once

#include <optional>

#include "geom/vec.h"

namespace korva::cmd::drawing {

using geom::Vec2;

struct PlaneCircle {
  Vec2 center;
  double radius = 0;
};

struct PlaneArc {
  Vec2 center;
  double radius = 0;
  double start = 0;  // radians
  double end = 0;    // radians, in (start, start + 2 pi]

  double sweep() const { return end - start; }
  Vec2 pointAt(double angle) const;
};

// Nothing when the points lie on one line.
std::optional<PlaneCircle> circleThroughPoints(Vec2 a, Vec2 b, Vec2 c);

// From start through `through` to end.
std::optional<PlaneArc> arcThroughPoints(Vec2 start, Vec2 through, Vec2 end);
// Counterclockwise from start about center, to the ray from center through `toward`.
std::optional<PlaneArc> arcFromStartCenterToward(Vec2 start, Vec2 center, Vec2 toward);
// Included angle: positive counterclockwise from start, negative clockwise.
std::optional<PlaneArc> arcFromStartCenterAngle(Vec2 start, Vec2 center, double included);
// Chord length: positive the minor arc counterclockwise, negative the major one.
std::optional<PlaneArc> arcFromStartCenterChord(Vec2 start, Vec2 center, double chord);
std::optional<PlaneArc> arcFromStartEndAngle(Vec2 start, Vec2 end, double included);
// Tangent to the direction (radians) at start.
std::optional<PlaneArc> arcFromStartEndDirection(Vec2 start, Vec2 end, double direction);
// Radius: positive the minor arc counterclockwise from start, negative the major one.
std::optional<PlaneArc> arcFromStartEndRadius(Vec2 start, Vec2 end, double radius);

// The signed angle from one direction to another, in (-pi, pi].
double turnAngle(Vec2 from, Vec2 to);
double angleOf(Vec2 direction);
// A polyline segment's bulge from its signed sweep.
double bulgeOfSweep(double sweep);
// The bulge of the arc from start to end that leaves start along `tangent`.
double bulgeFromTangent(Vec2 tangent, Vec2 start, Vec2 end);
// The direction of travel at the end of a segment with this bulge.
Vec2 endTangent(Vec2 start, Vec2 end, double bulge);

}  // namespace korva::cmd::drawing
