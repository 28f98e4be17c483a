// Where a block reference stands: its insertion point, scales and rotation as given
// in the user system, and the same as the reference's world position, extrusion and
// rotation in its object system.
#pragma once

#include "api/coordinate_systems.h"
#include "geom/vec.h"

namespace korva::cmd::blocks {

struct Placement {
  geom::Vec3 point;  // user system
  double xScale = 1, yScale = 1, zScale = 1;
  double rotation = 0;  // radians, from the user system's X axis counterclockwise
};

struct ReferenceFrame {
  geom::Vec3 position;  // world
  geom::Vec3 normal;    // the user system's Z axis
  double rotation = 0;  // radians, in the object system of the normal
};

ReferenceFrame referenceFrame(const api::CoordinateSystem& user, const Placement& placement);

}  // namespace korva::cmd::blocks
