#include "occt_curves.h"

#include <Standard_Failure.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <gp_Ax2.hxx>
#include <gp_Elips.hxx>

#include <algorithm>
#include <cmath>
#include <vector>

namespace korva::geom::occt {

Handle(Geom_Ellipse) ellipseOf(const EllipticArc& arc) {
  double major = length(arc.u);
  double minor = length(arc.v);
  Vec3 normal = cross(arc.u, arc.v);
  if (minor <= 0 || major < minor || length(normal) <= 0) return nullptr;
  try {
    gp_Ax2 axes(gp_Pnt(arc.center.x, arc.center.y, arc.center.z),
                gp_Dir(normal.x, normal.y, normal.z), gp_Dir(arc.u.x, arc.u.y, arc.u.z));
    return new Geom_Ellipse(axes, major, minor);
  } catch (const Standard_Failure&) {
    return nullptr;
  }
}

Handle(Geom_BSplineCurve) splineOf(const NurbsCurve& curve) {
  int n = static_cast<int>(curve.control.size());
  int p = curve.degree;
  if (p < 1 || n < p + 1 || curve.knots.size() != static_cast<size_t>(n + p + 1)) return nullptr;
  if (!std::is_sorted(curve.knots.begin(), curve.knots.end())) return nullptr;
  // Distinct knots and their multiplicities; knots closer than a trace of the span
  // are one knot, as drawings store them rounded.
  double span = curve.knots.back() - curve.knots.front();
  if (span <= 0) return nullptr;
  std::vector<double> distinct;
  std::vector<int> multiplicity;
  for (double knot : curve.knots) {
    if (!distinct.empty() && knot - distinct.back() <= 1e-12 * span) {
      ++multiplicity.back();
    } else {
      distinct.push_back(knot);
      multiplicity.push_back(1);
    }
  }
  try {
    TColgp_Array1OfPnt poles(1, n);
    TColStd_Array1OfReal weights(1, n);
    bool rational = curve.weights.size() == static_cast<size_t>(n);
    for (int i = 0; i < n; ++i) {
      const Vec3& c = curve.control[i];
      poles.SetValue(i + 1, gp_Pnt(c.x, c.y, c.z));
      weights.SetValue(i + 1, rational ? curve.weights[i] : 1.0);
    }
    int count = static_cast<int>(distinct.size());
    TColStd_Array1OfReal knots(1, count);
    TColStd_Array1OfInteger mults(1, count);
    for (int i = 0; i < count; ++i) {
      knots.SetValue(i + 1, distinct[i]);
      mults.SetValue(i + 1, std::min(multiplicity[i], p + 1));
    }
    if (rational) return new Geom_BSplineCurve(poles, weights, knots, mults, p, false);
    return new Geom_BSplineCurve(poles, knots, mults, p, false);
  } catch (const Standard_Failure&) {
    return nullptr;
  }
}

double lengthTolerance(double size) {
  return std::max(size, 1e-300) * 1e-13;
}

}  // namespace korva::geom::occt
