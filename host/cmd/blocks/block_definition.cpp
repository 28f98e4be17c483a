#include "cmd/blocks/block_definition.h"

#include <memory>

#include "api/objects/database_registry.h"
#include "api/objects/object_access.h"
#include "api/objects/object_state.h"
#include "api/record_places.h"
#include "cmd/blocks/block_names.h"
#include "cmd/blocks/open_object.h"
#include "db/value_text.h"
#include "qx_db_blocks.h"
#include "qx_db_database.h"
#include "qx_db_entity.h"
#include "qx_ge.h"

namespace korva::cmd::blocks {

namespace {

Qxad::ErrorStatus eraseEntities(const QxDbObjectIdArray& ids) {
  Qxad::ErrorStatus result = Qxad::eOk;
  for (int i = 0; i < ids.length(); ++i) {
    OpenObject<QxDbEntity> entity(ids[i], QxDb::kForWrite);
    Qxad::ErrorStatus status = entity ? entity->erase() : entity.status();
    if (status != Qxad::eOk) result = status;
  }
  return result;
}

QxDbObjectIdArray entitiesOf(const QxDbBlockTableRecord& block) {
  QxDbObjectIdArray ids;
  QxDbBlockTableRecordIterator* iterator = nullptr;
  if (block.newIterator(iterator) != Qxad::eOk) return ids;
  for (; !iterator->done(); iterator->step()) {
    QxDbObjectId id;
    if (iterator->getEntityId(id) == Qxad::eOk) ids.append(id);
  }
  delete iterator;
  return ids;
}

// The copies the mapping made of the sources.
QxDbObjectIdArray copiesOf(const QxDbObjectIdArray& sources, const QxDbIdMapping& mapping) {
  QxDbObjectIdArray copies;
  for (int i = 0; i < sources.length(); ++i) {
    QxDbIdPair pair(sources[i], QxDbObjectId::kNull, false);
    if (mapping.compute(pair) && !pair.value().isNull()) copies.append(pair.value());
  }
  return copies;
}

bool isWorld(const api::CoordinateSystem& user) {
  const geom::Vec3 x = user.xAxis, y = user.yAxis, o = user.origin;
  return x.x == 1 && x.y == 0 && x.z == 0 && y.x == 0 && y.y == 1 && y.z == 0 && o.x == 0 &&
         o.y == 0 && o.z == 0;
}

QxGeMatrix3d worldToUser(const api::CoordinateSystem& user) {
  QxGeMatrix3d toWorld;
  toWorld.setCoordSystem(
      {user.origin.x, user.origin.y, user.origin.z}, {user.xAxis.x, user.xAxis.y, user.xAxis.z},
      {user.yAxis.x, user.yAxis.y, user.yAxis.z}, {user.zAxis.x, user.zAxis.y, user.zAxis.z});
  return toWorld.inverse();
}

Qxad::ErrorStatus setOrigin(QxDbObjectId blockId, geom::Vec3 origin) {
  OpenObject<QxDbBlockTableRecord> block(blockId, QxDb::kForWrite);
  if (!block) return block.status();
  return block->setOrigin({origin.x, origin.y, origin.z});
}

// The main entities of the drawing's model space. eWrongObjectType for a drawing
// without block records (before R13), whose entities can't be copied yet.
Qxad::ErrorStatus modelSpaceEntities(const QxDbDatabase& source, QxDbObjectIdArray& ids) {
  db::Database* drawing = api::drawingOf(source);
  db::Section* section = drawing ? drawing->section(db::SectionKind::Entities) : nullptr;
  if (!section) return Qxad::eOk;
  for (db::Record* record : section->records) {
    if (record->isErased() || api::isSubEntityType(record->type())) continue;
    if (!api::isEntity(*drawing, *record)) return Qxad::eWrongObjectType;
    std::optional<std::string_view> space = record->find(67);
    if (space && db::parseInteger(*space).value_or(0) == 1) continue;
    ids.append(QxDbObjectId::fromParts(source.serial(), record->handle()));
  }
  return Qxad::eOk;
}

}  // namespace

Qxad::ErrorStatus prepareBlock(QxDbDatabase& database, const std::wstring& name,
                               QxDbObjectId& blockId) {
  blockId = findBlock(database, name);
  if (!blockId.isNull()) {
    OpenObject<QxDbBlockTableRecord> block(blockId, QxDb::kForRead);
    if (!block) return block.status();
    QxDbObjectIdArray old = entitiesOf(*block.get());
    block.close();
    return eraseEntities(old);
  }
  QxDbBlockTable* table = nullptr;
  Qxad::ErrorStatus status = database.getSymbolTable(table, QxDb::kForWrite);
  if (status != Qxad::eOk) return status;
  OpenObject<QxDbBlockTable> heldTable(table);
  auto* block = new QxDbBlockTableRecord();
  status = block->setName(name.c_str());
  if (status == Qxad::eOk) status = table->add(blockId, block);
  if (status != Qxad::eOk) {
    delete block;
    return status;
  }
  return block->close();
}

Qxad::ErrorStatus fillBlock(QxDbDatabase& database, QxDbObjectId blockId,
                            const QxDbObjectIdArray& entities, const api::CoordinateSystem& user,
                            geom::Vec3 base) {
  QxDbIdMapping mapping;
  Qxad::ErrorStatus status = database.deepCloneObjects(entities, blockId, mapping);
  if (status != Qxad::eOk) return status;
  // The block is drawn in the user system: inserted in the world it stands as the
  // entities stood in that system.
  if (!isWorld(user)) {
    QxGeMatrix3d matrix = worldToUser(user);
    QxDbObjectIdArray copies = copiesOf(entities, mapping);
    for (int i = 0; i < copies.length(); ++i) {
      OpenObject<QxDbEntity> copy(copies[i], QxDb::kForWrite);
      if (copy) copy->transformBy(matrix);
    }
  }
  status = setOrigin(blockId, base);
  if (status != Qxad::eOk) return status;
  return eraseEntities(entities);
}

Qxad::ErrorStatus loadBlockFile(QxDbDatabase& database, const std::wstring& path,
                                const std::wstring& name) {
  auto source = std::make_unique<QxDbDatabase>(false, true);
  Qxad::ErrorStatus status = source->readDwgFile(path.c_str(), QxDb::kDenyWrite);
  if (status != Qxad::eOk) return status;
  QxDbObjectIdArray entities;
  status = modelSpaceEntities(*source, entities);
  if (status != Qxad::eOk) return status;
  geom::Vec3 base;
  if (db::Database* drawing = api::drawingOf(*source)) {
    api::Vector3 insertionBase = api::headerPoint(*drawing, "$INSBASE");
    base = {insertionBase.x, insertionBase.y, insertionBase.z};
  }
  QxDbObjectId blockId;
  status = prepareBlock(database, name, blockId);
  if (status != Qxad::eOk) return status;
  QxDbIdMapping mapping;
  if (entities.length() > 0) status = source->deepCloneObjects(entities, blockId, mapping);
  if (status != Qxad::eOk) return status;
  return setOrigin(blockId, base);
}

Qxad::ErrorStatus eraseBlock(QxDbObjectId blockId) {
  db::Database* database = nullptr;
  db::Record* record = api::recordOf(blockId, &database);
  if (!record || !database || record->type() != "BLOCK_RECORD") return Qxad::eInvalidInput;
  if (db::BlockDefinition* definition = api::definitionOf(*database, *record)) {
    for (db::Record* entity : definition->entities) {
      if (!entity->isErased()) database->setErased(*entity, true);
    }
    if (definition->end && !definition->end->isErased())
      database->setErased(*definition->end, true);
    if (definition->begin && !definition->begin->isErased())
      database->setErased(*definition->begin, true);
  }
  if (!record->isErased()) database->setErased(*record, true);
  return Qxad::eOk;
}

}  // namespace korva::cmd::blocks
