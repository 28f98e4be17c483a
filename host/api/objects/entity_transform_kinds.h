// The group rewrites of transformEntity for annotations, fills and placed objects:
// dimensions, hatches, images and wipeouts, multilines, tables, viewports, tolerance
// frames and leaders. Hatches, the dimensions that measure no circle and multilines
// follow any map they can be drawn exactly under; the others need the map to keep
// shapes similar (rotation, mirror, uniform scale, translation). False leaves the
// groups unusable and the kind refused.
#pragma once

#include <string_view>

#include "group_transform.h"

namespace korva::api {

// False for kinds not among these, or maps they can't follow. cannotScaleNonUniformly
// is set when the refusal comes from a circle or offset the map can't keep.
bool transformAnnotation(std::string_view type, transform::Groups& groups, const geom::Affine3& map,
                         bool& cannotScaleNonUniformly);

// The boundary loops, pattern lines, seeds and gradient of a hatch's groups.
bool transformHatchGroups(transform::Groups& groups, const geom::Affine3& map);

// A dimension's definition points, text position, directions and measurement; the
// picture block is the caller's.
bool transformDimensionGroups(std::string_view type, transform::Groups& groups,
                              const geom::Affine3& map, bool& cannotScaleNonUniformly);

// A multiline's vertices, directions, miters and element parameters.
bool transformMultilineGroups(transform::Groups& groups, const geom::Affine3& map,
                              bool& cannotScaleNonUniformly);

}  // namespace korva::api
