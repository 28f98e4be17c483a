// Moved copies of what a block shows, for entities drawn through a block (dimensions)
// when a map can't rewrite the block in place: a map that turns arcs into ellipses or
// skews a nested reference needs records of other kinds than the block holds.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/database.h"
#include "geom/affine.h"

namespace korva::api {

using PictureEntities = std::vector<std::pair<std::string, std::vector<db::OwnedGroup>>>;

// The block's entities carried through the map as copies of their groups, in block
// order, a polyline's vertices and a reference's attributes behind their owner. Kinds
// change where the map needs it (arcs become ellipses). A nested reference the map
// would skew gives its own block's entities instead, carried the same way, and its
// attributes as texts. Paragraph texts can't slant: they keep their letters upright,
// placed and sized as transformEntity carries them. False when one of them can't be
// carried.
bool carryBlockEntities(db::Database& database, std::string_view block, const geom::Affine3& map,
                        PictureEntities& out, int depth = 0);

// Points the record (a dimension) at a new anonymous block holding its block's
// entities carried through `contents`; the old block stays for whatever else shows it.
// False, with nothing made, when the block holds what the map can't carry.
bool moveToPictureCopy(db::Database& database, db::Record& record, std::string_view block,
                       const geom::Affine3& contents);

}  // namespace korva::api
