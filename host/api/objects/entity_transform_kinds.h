// The group rewrites of transformEntity for annotations, fills and placed objects:
// dimensions, hatches, images and wipeouts, multilines, tables, viewports, tolerance
// frames and leaders. Each needs the map to keep shapes similar (rotation, mirror,
// uniform scale, translation); false leaves the groups unusable and the kind refused.
#pragma once

#include <string_view>

#include "group_transform.h"

namespace korva::api {

// False for kinds not among these, or maps they can't follow.
bool transformAnnotation(std::string_view type, transform::Groups& groups,
                         const geom::Affine3& map);

// The boundary loops, pattern lines, seeds and gradient of a hatch's groups.
bool transformHatchGroups(transform::Groups& groups, const geom::Affine3& map);

}  // namespace korva::api
