// The user system an entity defines (UCS OBject): Z along the entity's extrusion, the
// origin and X axis from its geometry and where it was picked.
#pragma once

#include <optional>

#include "cmd/drawing/ucs_state.h"
#include "qx_types.h"

namespace korva::cmd::drawing {

// pick is the pick point in world coordinates. Nothing for kinds that define no
// system (ellipses, splines, 3D polylines, ...).
std::optional<UserSystem> systemOfEntity(const EntityName name, geom::Vec3 pick);

}  // namespace korva::cmd::drawing
