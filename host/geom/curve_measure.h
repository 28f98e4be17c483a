// Lengths and positions along curves that need numeric integration: ellipses and
// splines. Results hold to about 1e-10 relative. Each returns false when the curve
// can't be built or the computation fails; none throws.
#pragma once

#include "elliptic_arc.h"
#include "space_box.h"
#include "spline_curve.h"

namespace korva::geom {

// Of an ellipse whose u and v are perpendicular (u the longer or equal).
bool ellipticArcLength(const EllipticArc& arc, double from, double to, double& length);
// The parameter at which the length from `from` reaches `length`.
bool ellipticArcParamAtLength(const EllipticArc& arc, double from, double length, double& param);

// The parameter range: knots[degree] to knots[control count].
bool splineRange(const NurbsCurve& curve, double& first, double& last);
bool splinePoint(const NurbsCurve& curve, double t, Vec3& point, Vec3* derivative = nullptr);
bool splineLength(const NurbsCurve& curve, double from, double to, double& length);
bool splineParamAtLength(const NurbsCurve& curve, double from, double length, double& param);
bool splineClosestParam(const NurbsCurve& curve, Vec3 point, double& param);
// Exact to the precision of Newton steps: ends and coordinate extremes.
bool splineBox(const NurbsCurve& curve, SpaceBox& box);

}  // namespace korva::geom
