#include "cmd/drawing/entity_append.h"

#include <cwchar>
#include <string>

#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "qx_db_blocks.h"
#include "qx_db_database.h"

namespace korva::cmd::drawing {

namespace {

// CECOLOR is "BYLAYER", "BYBLOCK" or a colour number.
void applyCurrentProperties(QxDbEntity& entity) {
  std::wstring layer = stringVariable(L"CLAYER");
  if (!layer.empty()) entity.setLayer(layer.c_str());
  std::wstring color = stringVariable(L"CECOLOR");
  if (color == L"BYBLOCK") {
    entity.setColorIndex(0);
  } else if (!color.empty() && color != L"BYLAYER") {
    int index = static_cast<int>(std::wcstol(color.c_str(), nullptr, 10));
    if (index > 0 && index < 256) entity.setColorIndex(static_cast<std::int16_t>(index));
  }
  std::wstring linetype = stringVariable(L"CELTYPE");
  if (!linetype.empty() && !sameText(linetype, L"BYLAYER")) entity.setLinetype(linetype.c_str());
}

}  // namespace

bool appendToBlock(QxDbEntity* entity, QxDbObjectId blockId, EntityName name) {
  QxDbObject* space = nullptr;
  if (qxdbOpenQxDbObject(space, blockId, QxDb::kForWrite) != Qxad::eOk) {
    delete entity;
    return false;
  }
  QxDbObjectId id;
  Qxad::ErrorStatus status = Qxad::eWrongObjectType;
  if (auto* block = QxDbBlockTableRecord::cast(space)) status = block->appendQxDbEntity(id, entity);
  space->close();
  if (status != Qxad::eOk) {
    delete entity;
    return false;
  }
  entity->close();
  return !name || qxdbGetHysName(name, id) == Qxad::eOk;
}

bool appendToCurrentSpace(QxDbEntity* entity, EntityName name) {
  QxDbDatabase* database = s_pServices ? s_pServices->workingDatabase() : nullptr;
  if (!database) {
    delete entity;
    return false;
  }
  applyCurrentProperties(*entity);
  return appendToBlock(entity, database->currentSpaceId(), name);
}

}  // namespace korva::cmd::drawing
