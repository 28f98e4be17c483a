#include "cmd/blocks/block_placement.h"

#include <cmath>
#include <numbers>

namespace korva::cmd::blocks {

ReferenceFrame referenceFrame(const api::CoordinateSystem& user, const Placement& placement) {
  ReferenceFrame frame;
  frame.position = user.toWorld(placement.point);
  frame.normal = user.zAxis;
  // The block's X axis in the world, then as an angle of the reference's own plane.
  geom::Vec3 xDirection =
      user.directionToWorld({std::cos(placement.rotation), std::sin(placement.rotation), 0.0});
  geom::Vec3 inPlane = api::objectSystem(frame.normal).directionFromWorld(xDirection);
  double angle = std::atan2(inPlane.y, inPlane.x);
  if (angle < 0) angle += 2 * std::numbers::pi;
  // A hair below a full turn is no turn.
  if (2 * std::numbers::pi - angle < 1e-14) angle = 0;
  frame.rotation = angle;
  return frame;
}

}  // namespace korva::cmd::blocks
