// The outline RECTANG draws: four corners, each cut by a chamfer or rounded by a
// fillet when the sides are long enough for it.
#pragma once

#include <vector>

#include "cmd/edit/polyline_chain.h"

namespace korva::cmd::edit {

struct RectangleCorners {
  enum class Kind { Sharp, Chamfer, Fillet };
  Kind kind = Kind::Sharp;
  double first = 0;   // chamfer distance along the side arriving at a corner, or radius
  double second = 0;  // chamfer distance along the side leaving it
};

// The corners in drawing order, from the first corner round. A chamfer or fillet that
// doesn't fit on every side is left out and the corners stay sharp.
Chain rectangleOutline(const std::vector<Vec2>& corners, const RectangleCorners& cut);

// The four corners of the rectangle from `first` to `opposite` turned by `rotation`
// radians about `first`: first, along the turned X axis, opposite, along the turned Y.
std::vector<Vec2> rectangleCorners(Vec2 first, Vec2 opposite, double rotation);

}  // namespace korva::cmd::edit
