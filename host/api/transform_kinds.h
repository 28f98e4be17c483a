// The groups of one entity record under an affine map, for transforming set members:
// under a similarity every kind the object layer can transform; under other maps only
// the kinds whose shape the map carries exactly into the same kind, and hatches,
// dimensions and multilines where their transform can draw them exactly.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"

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

// One entity of a block being copied: its type and its new groups.
struct BlockEntityCopy {
  std::string type;
  transform::Groups groups;
};

// A new anonymous dimension block ("*D" and a number) holding a moved copy of a
// dimension's picture, with the base point and flags of `source`. The entities come in
// block order, a polyline's vertices and a reference's attributes right behind their
// owner, which owns them; one left without its SEQEND gets one. Handles, reactors and
// dictionaries are the copy's own. Returns the new name, empty when none was made.
std::string addPictureCopy(db::Database& database, const db::BlockDefinition& source,
                           std::vector<BlockEntityCopy> entities);

}  // namespace korva::api
