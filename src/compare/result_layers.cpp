// The result layers and the moving of entities onto them.
#include <memory>
#include <string>
#include <vector>

#include "compare/file_compare_utils.h"

namespace {

// The name of a layer record; empty when it can't be opened.
std::wstring LayerName(QxDbObjectId layerId) {
  QxDbObject* object = nullptr;
  if (qxdbOpenQxDbObject(object, layerId, QxDb::kForRead) != Qxad::eOk) return {};
  std::wstring name;
  if (auto* record = QxDbLayerTableRecord::cast(object)) {
    wchar_t* text = nullptr;
    if (record->getName(text) == Qxad::eOk && text) name = text;
    qxad_free(text);
  }
  object->close();
  return name;
}

// The ids of a block record's entities; empty when it can't be opened.
std::vector<QxDbObjectId> BlockEntities(QxDbObjectId blockId) {
  std::vector<QxDbObjectId> ids;
  QxDbObject* object = nullptr;
  if (qxdbOpenQxDbObject(object, blockId, QxDb::kForRead) != Qxad::eOk) return ids;
  if (auto* block = QxDbBlockTableRecord::cast(object)) {
    QxDbBlockTableRecordIterator* raw = nullptr;
    block->newIterator(raw);
    const std::unique_ptr<QxDbBlockTableRecordIterator> entities(raw);
    for (; entities && !entities->done(); entities->step()) {
      QxDbObjectId id;
      if (entities->getEntityId(id) == Qxad::eOk) ids.push_back(id);
    }
  }
  object->close();
  return ids;
}

}  // namespace

// Removes every stretch from code up to and including the next ";", from the start, as
// long as a code with a ";" behind it is found.
std::wstring VnFileCompareUtils::WithoutColorCodes(std::wstring text, const wchar_t* code) {
  for (;;) {
    const std::size_t start = text.find(code);
    if (start == std::wstring::npos) return text;
    const std::size_t end = text.find(L';', start);
    if (end == std::wstring::npos) return text;
    text.erase(start, end - start + 1);
  }
}

const std::wstring& VnFileCompareUtils::CachedLayerName(QxDbObjectId layerId) {
  // Every entity of a run goes to one of six layers: their names are looked up once.
  const auto found = layerNames_.find(layerId);
  if (found != layerNames_.end()) return found->second;
  return layerNames_.emplace(layerId, LayerName(layerId)).first->second;
}

QxDbObjectId VnFileCompareUtils::GetOrCreateResultLayer(QxDbDatabase* database,
                                                        const wchar_t* layerName, bool frozen,
                                                        std::int16_t colorIndex) {
  if (!database || !layerName || !*layerName) return QxDbObjectId::kNull;
  QxDbLayerTable* table = nullptr;
  if (database->getSymbolTable(table, QxDb::kForWrite) != Qxad::eOk) return QxDbObjectId::kNull;
  if (!table->has(layerName)) {
    auto* record = new QxDbLayerTableRecord();
    record->setName(layerName);
    if (table->add(record) == Qxad::eOk) {
      record->close();
    } else {
      delete record;
    }
  }
  table->downgradeOpen();
  QxDbObjectId layerId;
  table->getAt(layerName, layerId);
  table->close();
  if (layerId.isNull()) return QxDbObjectId::kNull;

  QxDbObject* object = nullptr;
  if (qxdbOpenQxDbObject(object, layerId, QxDb::kForWrite) == Qxad::eOk) {
    // An existing layer of that name takes on these settings too.
    if (auto* record = QxDbLayerTableRecord::cast(object)) {
      record->setIsOff(false);
      record->setIsLocked(false);
      record->setIsFrozen(frozen);
      record->setVPDFLT(frozen);
      QxCmColor color;
      color.setColorIndex(colorIndex);
      record->setColor(color);
    }
    object->close();
  }
  return layerId;
}

Qxad::ErrorStatus VnFileCompareUtils::MoveToResultLayer(QxDbObjectId entityId, QxDbObjectId layerId,
                                                        std::int16_t colorIndex) {
  const std::wstring& layerName = CachedLayerName(layerId);
  QxDbEntity* entity = nullptr;
  const Qxad::ErrorStatus status = qxdbOpenQxDbEntity(entity, entityId, QxDb::kForWrite);
  if (status != Qxad::eOk) return status;
  entity->setLayer(layerName.c_str());
  entity->setColorIndex(colorIndex);
  // What an entity is drawn from has to follow too, or it keeps its own colours.
  if (auto* reference = QxDbBlockReference::cast(entity)) {
    SetBlockReferenceLayer(reference, layerId);
  } else if (auto* dimension = QxDbDimension::cast(entity)) {
    SetDimensionBlockLayer(dimension, layerId, colorIndex);
  } else if (auto* fcf = QxDbFcf::cast(entity)) {
    SetFcfColor(fcf, colorIndex);
  } else if (auto* leader = QxDbLeader::cast(entity)) {
    SetLeaderColor(leader, colorIndex);
  } else if (auto* mtext = QxDbMText::cast(entity)) {
    StripMTextColors(mtext);
  }
  entity->close();
  return Qxad::eOk;
}

void VnFileCompareUtils::SetBlockReferenceLayer(QxDbBlockReference* reference,
                                                QxDbObjectId layerId) {
  // Colour 0 (by block): attributes and the block's entities take the reference's.
  const std::unique_ptr<QxDbObjectIterator> attributes(reference->attributeIterator());
  for (attributes ? attributes->start() : void(); attributes && !attributes->done();
       attributes->step()) {
    MoveToResultLayer(attributes->objectId(), layerId, 0);
  }
  // The definition is shared: its entities end on the layer of the reference moved last.
  for (const QxDbObjectId id : BlockEntities(reference->blockTableRecord())) {
    MoveToResultLayer(id, layerId, 0);
  }
}

void VnFileCompareUtils::SetDimensionBlockLayer(QxDbDimension* dimension, QxDbObjectId layerId,
                                                std::int16_t colorIndex) {
  const std::wstring& layerName = CachedLayerName(layerId);
  for (const QxDbObjectId id : BlockEntities(dimension->dimBlockId())) {
    QxDbEntity* entity = nullptr;
    if (qxdbOpenQxDbEntity(entity, id, QxDb::kForWrite) != Qxad::eOk) continue;
    entity->setLayer(layerName.c_str());
    entity->setColorIndex(colorIndex);
    entity->close();
  }
}

void VnFileCompareUtils::SetFcfColor(QxDbFcf* fcf, std::int16_t colorIndex) {
  QxCmColor color;
  color.setColorIndex(colorIndex);
  fcf->setDimclrd(color);
  fcf->setDimclrt(color);
}

void VnFileCompareUtils::SetLeaderColor(QxDbLeader* leader, std::int16_t colorIndex) {
  QxCmColor color;
  color.setColorIndex(colorIndex);
  leader->setDimclrd(color);
}

void VnFileCompareUtils::StripMTextColors(QxDbMText* mtext) {
  wchar_t* contents = mtext->contents();
  std::wstring text = contents ? contents : L"";
  qxad_free(contents);
  text = WithoutColorCodes(WithoutColorCodes(text, L"\\c"), L"\\C");
  mtext->setContents(text.c_str());
}
