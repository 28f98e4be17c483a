// The groups of one entity record under an affine map, for transforming set members:
// under a similarity every kind the object layer can transform, and leaders; under
// other maps only the kinds whose shape the map carries exactly into the same kind.
#pragma once

#include <initializer_list>
#include <string_view>

#include "objects/group_transform.h"

namespace korva::api {

// False when the kind can't follow the map; `out` is then of no use.
bool transformGroups(std::string_view type, transform::Groups groups, const geom::Affine3& map,
                     transform::Groups& out);

// Whether any group with one of the codes (before the extended data) is not zero.
bool anyNonZero(transform::Groups& groups, std::initializer_list<int> codes);

// Whether a thickness (39) still stands on its plane after the map: always without
// one, and under similarities.
bool thicknessFollows(transform::Groups& groups, const geom::Affine3& map);

}  // namespace korva::api
