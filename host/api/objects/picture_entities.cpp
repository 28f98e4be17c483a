// Boxes, transforms and explode of the entities drawn through a block: block
// references, multiple inserts, dimensions and tables.
#include "api/record_places.h"
#include "block_pictures.h"
#include "entity_geometry.h"
#include "entity_members.h"
#include "entity_transform.h"
#include "qx_db_block_reference.h"
#include "qx_db_dimension.h"
#include "qx_db_table.h"

namespace {

using korva::geom::Affine3;

Qxad::ErrorStatus explodePicture(const QxDbEntity* entity, QxDbVoidPtrArray& pieces) {
  korva::db::Database* database = korva::api::databaseOf(*entity);
  if (!database) return Qxad::eNotInDatabase;
  std::optional<korva::api::BlockPicture> picture =
      korva::api::pictureOf(*database, korva::api::recordOf(*entity));
  if (!picture) return Qxad::eInvalidInput;
  std::vector<QxDbEntity*> made;
  for (const Affine3& placement : picture->placements) {
    if (!korva::api::explodeBlock(*database, picture->block, placement, made)) {
      for (QxDbEntity* piece : made) delete piece;
      return Qxad::eNotApplicable;
    }
  }
  for (QxDbEntity* piece : made) pieces.append(piece);
  return Qxad::eOk;
}

}  // namespace

Qxad::ErrorStatus QxDbBlockReference::explode(QxDbVoidPtrArray& pieces) const {
  return explodePicture(this, pieces);
}

Qxad::ErrorStatus QxDbMInsertBlock::explode(QxDbVoidPtrArray& pieces) const {
  return explodePicture(this, pieces);
}

Qxad::ErrorStatus QxDbBlockReference::getGeomExtents(QxDbExtents& extents) const {
  return korva::api::pictureExtents(*this, extents);
}

Qxad::ErrorStatus QxDbMInsertBlock::getGeomExtents(QxDbExtents& extents) const {
  return korva::api::pictureExtents(*this, extents);
}

Qxad::ErrorStatus QxDbBlockReference::transformBy(const QxGeMatrix3d& matrix) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Affine3 map;
  if (!korva::api::affineOf(matrix, map)) return Qxad::eInvalidInput;
  // The attributes must follow too, or nothing moves.
  std::vector<std::pair<korva::db::Record*, korva::api::TransformedEntity>> attributes;
  if (korva::db::Database* database = korva::api::databaseOf(*this)) {
    korva::api::EntityPlace place = korva::api::placeOf(*database, korva::api::recordOf(*this));
    for (size_t i = place.index + 1; place.list && i < place.list->size(); ++i) {
      korva::db::Record* follower = (*place.list)[i];
      if (follower->type() != "ATTRIB") break;
      korva::api::TransformedEntity moved;
      if (!korva::api::transformEntity("ATTRIB", follower->ownedGroups(), map, moved))
        return Qxad::eNotApplicable;
      attributes.emplace_back(follower, std::move(moved));
    }
  }
  if (Qxad::ErrorStatus status = korva::api::transformRecordOf(*this, map); status != Qxad::eOk)
    return status;
  for (auto& [record, moved] : attributes) record->assign(std::move(moved.groups));
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbDimension::getGeomExtents(QxDbExtents& extents) const {
  return korva::api::pictureExtents(*this, extents);
}

Qxad::ErrorStatus QxDbDimension::explode(QxDbVoidPtrArray& pieces) const {
  return explodePicture(this, pieces);
}

Qxad::ErrorStatus QxDbDimension::transformBy(const QxGeMatrix3d& matrix) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Affine3 map;
  if (!korva::api::affineOf(matrix, map)) return Qxad::eInvalidInput;
  return korva::api::transformWithPicture(*this, map);
}

Qxad::ErrorStatus QxDbTable::transformBy(const QxGeMatrix3d& matrix) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Affine3 map;
  if (!korva::api::affineOf(matrix, map)) return Qxad::eInvalidInput;
  return korva::api::transformWithPicture(*this, map);
}
