// What AREA measures of an entity: the area it encloses (an open curve closed by the
// straight line between its ends) and the length around it.
#pragma once

#include <optional>

#include "qx_types.h"

class QxDbSpline;

namespace korva::cmd::drawing {

struct Measured {
  enum class Outline { Closed, Circle, Open };
  double area = 0;
  double length = 0;  // perimeter, circumference or the open curve's length
  Outline outline = Outline::Closed;
};

// Nothing for entities without an area (lines, texts, regions, hatches, ...).
std::optional<Measured> measureEntity(const EntityName name);

// The area a spline encloses together with the chord between its ends, from Green's
// theorem over its knot spans; for planar splines.
std::optional<double> splineArea(const QxDbSpline& spline);

}  // namespace korva::cmd::drawing
