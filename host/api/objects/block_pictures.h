// Entities drawn through a block: block references (and their grids), dimensions and
// tables. Their box, their exploded pieces and their transform all carry the block's
// entities through the map from block to world coordinates.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"
#include "geom/affine.h"
#include "geom/space_box.h"

class QxDbEntity;
class QxDbObject;

namespace korva::api {

// Block coordinates to world coordinates for a reference's values: the base point goes
// to the position; a grid's offset is in the reference's rotated, unscaled axes.
geom::Affine3 blockToWorld(geom::Vec3 position, geom::Vec3 normal, geom::Vec3 scale,
                           double rotation, geom::Vec3 basePoint, geom::Vec3 gridOffset = {});
geom::Vec3 basePointOf(const db::BlockDefinition& block);

// A block and the maps that place its copies (one per cell of a multiple insert).
struct BlockPicture {
  std::string block;
  std::vector<geom::Affine3> placements;
};

// How a record shows its block: INSERT and ACAD_TABLE by their placement, DIMENSION at
// its clone insertion point (12) or where the block stands. Null for other kinds and
// for records naming no block of the drawing.
std::optional<BlockPicture> pictureOf(const db::Database& database, const db::Record& record);

// The box of the block's entities under the map: attribute definitions only when
// constant, invisible entities left out, nested pictures followed. False when the
// nesting runs too deep (a block that holds itself).
bool addBlockExtents(db::Database& database, std::string_view block, const geom::Affine3& map,
                     geom::SpaceBox& box, int depth = 0);

// The box of one entity as its class measures it: a copy of its groups carried through
// the map when its kind can follow, else its box in place with the corners mapped.
void addEntityExtents(db::Database& database, db::Record& record, const geom::Affine3& map,
                      geom::SpaceBox& box, int depth = 0);

// The block's entities carried into place as new objects. False, with pieces left as
// they were, when the block holds a kind that can't be carried.
bool explodeBlock(db::Database& database, std::string_view block, const geom::Affine3& map,
                  std::vector<QxDbEntity*>& pieces, int depth = 0);

// Gives a new dimension, exploded out of a block, the moved copy of its picture that
// explode planned: a new anonymous block it then names. Nothing for other objects.
void addPendingPicture(db::Database& database, QxDbEntity& entity);

// Rewrites the block's entities under the map in place; nothing changes when one of
// them can't follow (false).
bool transformBlockContents(db::Database& database, std::string_view block,
                            const geom::Affine3& map);

// A view of a record for reading only: an object of its class that isn't counted as
// open and is deleted by its user. A copy of groups (not in the database) still finds
// styles and blocks of the database.
QxDbObject* newRecordView(db::Database& database, db::Record& record);
QxDbObject* newDetachedView(db::Database& database, std::string_view type,
                            std::vector<db::OwnedGroup> groups);

// The groups an exploded piece keeps: not the handle, owner or reactor links.
std::vector<db::OwnedGroup> pieceGroups(const db::Record& record);

}  // namespace korva::api
