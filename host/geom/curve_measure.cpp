// Measuring along ellipses and splines with OpenCASCADE's integration and projection.
#include "curve_measure.h"

#include <GCPnts_AbscissaPoint.hxx>
#include <GeomAPI_ProjectPointOnCurve.hxx>
#include <GeomAdaptor_Curve.hxx>
#include <Standard_Failure.hxx>

#include <cmath>
#include <vector>

#include "occt_curves.h"

namespace korva::geom {

namespace {

Vec3 vecOf(const gp_Pnt& p) {
  return {p.X(), p.Y(), p.Z()};
}
Vec3 vecOf(const gp_Vec& v) {
  return {v.X(), v.Y(), v.Z()};
}

// The curve's size, for a tolerance relative to it.
double sizeOf(const GeomAdaptor_Curve& curve) {
  gp_Pnt a = curve.Value(curve.FirstParameter());
  gp_Pnt b = curve.Value((curve.FirstParameter() + curve.LastParameter()) / 2);
  gp_Pnt c = curve.Value(curve.LastParameter());
  return a.Distance(b) + b.Distance(c) + 1e-9;
}

bool lengthAlong(const Handle(Geom_Curve) & geometry, double from, double to, double& length) {
  if (geometry.IsNull()) return false;
  try {
    GeomAdaptor_Curve curve(geometry);
    double sign = from <= to ? 1 : -1;
    double low = std::fmin(from, to), high = std::fmax(from, to);
    if (high - low <= 0) {
      length = 0;
      return true;
    }
    // The tolerance must be given: the default one is far too coarse.
    length =
        sign * GCPnts_AbscissaPoint::Length(curve, low, high, occt::lengthTolerance(sizeOf(curve)));
    return true;
  } catch (const Standard_Failure&) {
    return false;
  }
}

bool paramAt(const Handle(Geom_Curve) & geometry, double from, double length, double& param) {
  if (geometry.IsNull()) return false;
  try {
    GeomAdaptor_Curve curve(geometry);
    GCPnts_AbscissaPoint point(occt::lengthTolerance(sizeOf(curve)), curve, length, from);
    if (!point.IsDone()) return false;
    param = point.Parameter();
    return true;
  } catch (const Standard_Failure&) {
    return false;
  }
}

}  // namespace

bool ellipticArcLength(const EllipticArc& arc, double from, double to, double& length) {
  return lengthAlong(occt::ellipseOf(arc), from, to, length);
}

bool ellipticArcParamAtLength(const EllipticArc& arc, double from, double length, double& param) {
  return paramAt(occt::ellipseOf(arc), from, length, param);
}

bool splineRange(const NurbsCurve& curve, double& first, double& last) {
  Handle(Geom_BSplineCurve) spline = occt::splineOf(curve);
  if (spline.IsNull()) return false;
  first = spline->FirstParameter();
  last = spline->LastParameter();
  return true;
}

bool splinePoint(const NurbsCurve& curve, double t, Vec3& point, Vec3* derivative) {
  Handle(Geom_BSplineCurve) spline = occt::splineOf(curve);
  if (spline.IsNull()) return false;
  try {
    gp_Pnt p;
    gp_Vec d1;
    spline->D1(t, p, d1);
    point = vecOf(p);
    if (derivative) *derivative = vecOf(d1);
    return true;
  } catch (const Standard_Failure&) {
    return false;
  }
}

bool splineLength(const NurbsCurve& curve, double from, double to, double& length) {
  return lengthAlong(occt::splineOf(curve), from, to, length);
}

bool splineParamAtLength(const NurbsCurve& curve, double from, double length, double& param) {
  return paramAt(occt::splineOf(curve), from, length, param);
}

bool splineClosestParam(const NurbsCurve& curve, Vec3 point, double& param) {
  Handle(Geom_BSplineCurve) spline = occt::splineOf(curve);
  if (spline.IsNull()) return false;
  try {
    gp_Pnt p(point.x, point.y, point.z);
    double first = spline->FirstParameter(), last = spline->LastParameter();
    // The ends take part: the projection finds only perpendicular feet.
    param = first;
    double best = spline->Value(first).Distance(p);
    if (spline->Value(last).Distance(p) < best) {
      param = last;
      best = spline->Value(last).Distance(p);
    }
    GeomAPI_ProjectPointOnCurve projection(p, spline);
    if (projection.NbPoints() > 0 && projection.LowerDistance() < best) {
      param = projection.LowerDistanceParameter();
    }
    return true;
  } catch (const Standard_Failure&) {
    return false;
  }
}

bool splineBox(const NurbsCurve& curve, SpaceBox& box) {
  Handle(Geom_BSplineCurve) spline = occt::splineOf(curve);
  if (spline.IsNull()) return false;
  try {
    box = SpaceBox{};
    box.add(vecOf(spline->Value(spline->FirstParameter())));
    box.add(vecOf(spline->Value(spline->LastParameter())));
    // In each knot span, a coordinate's derivative changing sign between samples
    // brackets an extreme, refined by bisection on the derivative.
    constexpr int kSamplesPerSpan = 16;
    auto derivative = [&](double t, int axis) {
      gp_Pnt p;
      gp_Vec d1;
      spline->D1(t, p, d1);
      return d1.Coord(axis + 1);
    };
    for (int k = spline->FirstUKnotIndex(); k < spline->LastUKnotIndex(); ++k) {
      double a = spline->Knot(k), b = spline->Knot(k + 1);
      if (b <= a) continue;
      for (int axis = 0; axis < 3; ++axis) {
        double previousT = a;
        double previous = derivative(a + (b - a) * 1e-12, axis);
        for (int i = 1; i <= kSamplesPerSpan; ++i) {
          double t = i == kSamplesPerSpan ? b - (b - a) * 1e-12 : a + (b - a) * i / kSamplesPerSpan;
          double value = derivative(t, axis);
          if (value == 0) {
            box.add(vecOf(spline->Value(t)));  // an extreme right on a sample
          } else if (previous != 0 && (previous < 0) != (value < 0)) {
            double low = previousT, high = t, lowValue = previous;
            for (int step = 0; step < 80 && high - low > 1e-16 * (b - a + 1); ++step) {
              double mid = (low + high) / 2;
              double midValue = derivative(mid, axis);
              if ((midValue < 0) == (lowValue < 0)) {
                low = mid, lowValue = midValue;
              } else {
                high = mid;
              }
            }
            box.add(vecOf(spline->Value((low + high) / 2)));
          }
          previousT = t;
          previous = value;
        }
      }
    }
    return true;
  } catch (const Standard_Failure&) {
    return false;
  }
}

}  // namespace korva::geom
