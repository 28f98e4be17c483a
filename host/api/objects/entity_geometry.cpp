// The entity's box, transform and explode where a class has none of its own, and the
// pieces shared by the classes drawn through a block.
#include "entity_geometry.h"

#include <cmath>

#include "api/record_places.h"
#include "block_pictures.h"
#include "entity_members.h"
#include "entity_transform.h"
#include "picture_copy.h"
#include "planar_box.h"

namespace korva::api {

bool affineOf(const QxGeMatrix3d& matrix, geom::Affine3& map) {
  return geom::Affine3::fromMatrix4(matrix.entry, map) && std::fabs(map.determinant()) > 1e-300;
}

Qxad::ErrorStatus transformRecordOf(QxDbObject& object, const geom::Affine3& map) {
  db::Record& record = recordOf(object);
  TransformedEntity moved;
  if (!transformEntity(record.type(), record.ownedGroups(), map, moved) ||
      moved.type != record.type()) {
    return moved.cannotScaleNonUniformly ? Qxad::eCannotScaleNonUniformly : Qxad::eNotApplicable;
  }
  record.assign(std::move(moved.groups));
  members::changed(&object);
  return Qxad::eOk;
}

Qxad::ErrorStatus transformWithPicture(QxDbEntity& entity, const geom::Affine3& map) {
  db::Database* database = databaseOf(entity);
  if (!database) return transformRecordOf(entity, map);
  std::optional<BlockPicture> before = pictureOf(*database, recordOf(entity));
  std::vector<db::OwnedGroup> kept = recordOf(entity).ownedGroups();
  if (Qxad::ErrorStatus status = transformRecordOf(entity, map); status != Qxad::eOk) return status;
  std::optional<BlockPicture> after = pictureOf(*database, recordOf(entity));
  if (!before || !after || before->placements.size() != 1 || after->placements.size() != 1)
    return Qxad::eOk;
  // The block's entities go where the map takes them, seen from the new placement. A map
  // that distorts may need other kinds of records than the block holds: a moved copy.
  geom::Affine3 contents = after->placements[0].inverse() * map * before->placements[0];
  double scale = 1;
  bool moved = geom::isSimilarity(map, scale)
                   ? transformBlockContents(*database, before->block, contents)
                   : moveToPictureCopy(*database, recordOf(entity), before->block, contents);
  if (!moved) {
    recordOf(entity).assign(std::move(kept));
    return Qxad::eNotApplicable;
  }
  return Qxad::eOk;
}

Qxad::ErrorStatus pictureExtents(const QxDbEntity& entity, QxDbExtents& extents) {
  db::Database* database = databaseOf(entity);
  if (!database) return Qxad::eNotInDatabase;
  db::Record& record = recordOf(entity);
  std::optional<BlockPicture> picture = pictureOf(*database, record);
  if (!picture) return Qxad::eInvalidInput;
  geom::SpaceBox box;
  for (const geom::Affine3& placement : picture->placements)
    addBlockExtents(*database, picture->block, placement, box);
  // A reference's own attributes follow it in its list, in world coordinates.
  EntityPlace place = placeOf(*database, record);
  for (size_t i = place.index + 1; place.list && i < place.list->size(); ++i) {
    db::Record* follower = (*place.list)[i];
    if (follower->type() != "ATTRIB") break;
    if (follower->isErased() || (groupInteger(*follower, 70, 0) & 1) != 0) continue;
    addEntityExtents(*database, *follower, geom::Affine3::identity(), box);
  }
  return extentsOfBox(box, extents);
}

}  // namespace korva::api

Qxad::ErrorStatus QxDbEntity::getGeomExtents(QxDbExtents&) const {
  return Qxad::eNotApplicable;
}

Qxad::ErrorStatus QxDbEntity::transformBy(const QxGeMatrix3d& matrix) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::geom::Affine3 map;
  if (!korva::api::affineOf(matrix, map)) return Qxad::eInvalidInput;
  return korva::api::transformRecordOf(*this, map);
}

Qxad::ErrorStatus QxDbEntity::explode(QxDbVoidPtrArray&) const {
  return Qxad::eNotApplicable;
}
