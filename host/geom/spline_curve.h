// Points along splines: NURBS from control points, knots and weights, or an
// interpolating cubic through fit points.
#pragma once

#include <vector>

#include "vec.h"

namespace korva::geom {

struct NurbsCurve {
  int degree = 3;
  std::vector<double> knots;  // control count + degree + 1 values; made uniform otherwise
  std::vector<Vec3> control;
  std::vector<double> weights;  // empty, or one per control point
};

// The point at parameter t (clamped to the curve's parameter range).
Vec3 evaluate(const NurbsCurve& curve, double t);

// A polyline through the curve whose chords stay within tolerance of it.
std::vector<Vec3> flatten(const NurbsCurve& curve, double tolerance);

// A C2 cubic through the fit points by chord length (natural ends), as a polyline
// within tolerance.
std::vector<Vec3> flattenThroughFitPoints(const std::vector<Vec3>& fit, double tolerance);

}  // namespace korva::geom
