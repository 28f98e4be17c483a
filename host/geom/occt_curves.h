// OpenCASCADE forms of korva's curves, for the measuring code only: this header pulls
// in OpenCASCADE and is included by nothing else.
#pragma once

#include <Geom_BSplineCurve.hxx>
#include <Geom_Ellipse.hxx>
#include <Standard_Handle.hxx>

#include "elliptic_arc.h"
#include "spline_curve.h"

namespace korva::geom::occt {

// Null when the data make no valid curve.
Handle(Geom_Ellipse) ellipseOf(const EllipticArc& arc);
Handle(Geom_BSplineCurve) splineOf(const NurbsCurve& curve);

// Integration tolerance for a curve of about this size.
double lengthTolerance(double size);

}  // namespace korva::geom::occt
