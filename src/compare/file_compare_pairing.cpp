// The pairing of the comparison: layouts and entities are the same object exactly when
// their handles are equal; geometry plays no part in it.
#include <map>
#include <memory>

#include "compare/file_compare_manager.h"

namespace {

constexpr Qxad::ErrorStatus kNoDatabase = static_cast<Qxad::ErrorStatus>(506);

using HandleMap = std::map<std::uint64_t, QxDbObjectId>;

}  // namespace

Qxad::ErrorStatus VnFileCompareManager::CollectLayouts(QxDbDatabase* database,
                                                       QxDbObjectIdArray& layouts,
                                                       QxDbObjectId& modelSpaceId) {
  if (!database) return kNoDatabase;
  QxDbBlockTable* table = nullptr;
  const Qxad::ErrorStatus status = database->getSymbolTable(table, QxDb::kForRead);
  if (status != Qxad::eOk) return status;
  table->getAt(L"*Model_Space", modelSpaceId);
  QxDbBlockTableIterator* raw = nullptr;
  table->newIterator(raw);
  const std::unique_ptr<QxDbBlockTableIterator> records(raw);
  for (; records && !records->done(); records->step()) {
    QxDbBlockTableRecord* record = nullptr;
    if (records->getRecord(record) != Qxad::eOk) continue;
    const QxDbObjectId id = record->objectId();
    const bool isLayout = record->isLayout();
    record->close();
    // Paper-space layouts in the table's order; model space is kept apart.
    if (isLayout && id != modelSpaceId) layouts.append(id);
  }
  table->close();
  return Qxad::eOk;
}

int VnFileCompareManager::MatchLayouts() {
  const bool collected = CollectLayouts(oldDatabase_, oldLayouts_, oldModelSpace_) == Qxad::eOk &&
                         CollectLayouts(newDatabase_, newLayouts_, newModelSpace_) == Qxad::eOk;
  if (!collected) return 0;
  HandleMap oldByHandle;
  for (int i = 0; i < oldLayouts_.length(); ++i) {
    oldByHandle[oldLayouts_[i].handle().value()] = oldLayouts_[i];
  }
  // A layout on one side only isn't compared: its entities stay as they are.
  for (int i = 0; i < newLayouts_.length(); ++i) {
    const auto found = oldByHandle.find(newLayouts_[i].handle().value());
    if (found == oldByHandle.end()) continue;
    matchedOldLayouts_.append(found->second);
    matchedNewLayouts_.append(newLayouts_[i]);
  }
  return 1;
}

Qxad::ErrorStatus VnFileCompareManager::CollectEntities(QxDbObjectId blockRecordId,
                                                        QxDbObjectIdArray& ids) {
  QxDbObject* object = nullptr;
  Qxad::ErrorStatus status = qxdbOpenQxDbObject(object, blockRecordId, QxDb::kForRead);
  if (status != Qxad::eOk) return status;
  auto* block = QxDbBlockTableRecord::cast(object);
  if (!block) {
    object->close();
    return Qxad::eWrongObjectType;
  }
  QxDbBlockTableRecordIterator* raw = nullptr;
  status = block->newIterator(raw, true, true);
  const std::unique_ptr<QxDbBlockTableRecordIterator> entities(raw);
  for (; entities && !entities->done(); entities->step()) {
    QxDbObjectId id;
    if (entities->getEntityId(id) == Qxad::eOk && !id.isNull()) ids.append(id);
  }
  block->close();
  return status;
}

void VnFileCompareManager::CompareBlockRecords(QxDbObjectId oldBlockId, QxDbObjectId newBlockId) {
  QxDbObjectIdArray oldIds;
  QxDbObjectIdArray newIds;
  CollectEntities(oldBlockId, oldIds);
  CollectEntities(newBlockId, newIds);
  HandleMap allOld;
  for (int i = 0; i < oldIds.length(); ++i) allOld[oldIds[i].handle().value()] = oldIds[i];

  HandleMap matchedOld;
  HandleMap matchedNew;
  // New-only entities go at once, in drawing order.
  for (int i = 0; i < newIds.length(); ++i) {
    const std::uint64_t handle = newIds[i].handle().value();
    const auto found = allOld.find(handle);
    if (found != allOld.end()) {
      matchedOld[handle] = found->second;
      matchedNew[handle] = newIds[i];
      continue;
    }
    utils_.MoveToResultLayer(newIds[i], newDifferentLayer_, 256);
    log_.AddNewEntity(newIds[i]);
  }
  // Then old-only entities, by ascending handle.
  for (const auto& [handle, oldId] : allOld) {
    if (matchedOld.contains(handle)) continue;
    utils_.MoveToResultLayer(oldId, oldDifferentLayer_, 256);
    log_.AddOldEntity(oldId);
  }
  // Then the pairs, by ascending handle.
  for (const auto& [handle, oldId] : matchedOld) {
    const QxDbObjectId newId = matchedNew[handle];
    switch (utils_.CompareEntities(oldId, newId)) {
      case kVerdictSame:
        utils_.MoveToResultLayer(oldId, oldSameLayer_, 256);
        utils_.MoveToResultLayer(newId, newSameLayer_, 256);
        break;
      case kVerdictModified:
        utils_.MoveToResultLayer(oldId, oldModifiedLayer_, 256);
        utils_.MoveToResultLayer(newId, newModifiedLayer_, 256);
        log_.AddModifiedEntity(oldId, newId);
        break;
      default:
        utils_.MoveToResultLayer(oldId, oldDifferentLayer_, 256);
        utils_.MoveToResultLayer(newId, newDifferentLayer_, 256);
        log_.AddOldEntity(oldId);
        log_.AddNewEntity(newId);
        break;
    }
  }
}
