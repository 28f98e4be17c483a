// The groups of a spline: degree 71, flags 70, knots 40, weights 41, control points
// 10, fit points 11, in the order written.
#pragma once

#include <vector>

#include "db/record.h"
#include "geom/spline_curve.h"

namespace korva::api {

struct SplineData {
  geom::NurbsCurve curve;
  std::vector<geom::Vec3> fit;
  long long flags = 0;
};

SplineData readSpline(const db::Record& record);
// Replaces the control and fit points, keeping their count and the other groups.
void writeSplinePoints(db::Record& record, const std::vector<geom::Vec3>& control,
                       const std::vector<geom::Vec3>& fit);

}  // namespace korva::api
