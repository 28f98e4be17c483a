// The pairing of the comparison: layouts and entities are the same object exactly when
// their handles are equal; geometry plays no part in it.
#include <algorithm>
#include <map>
#include <memory>
#include <utility>
#include <vector>

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
  // Sorted arrays rather than maps: blocks hold hundreds of thousands of entities.
  struct ByHandle {
    std::uint64_t handle;
    QxDbObjectId id;
  };
  std::vector<ByHandle> allOld;
  allOld.reserve(static_cast<std::size_t>(oldIds.length()));
  for (int i = 0; i < oldIds.length(); ++i)
    allOld.push_back({oldIds[i].handle().value(), oldIds[i]});
  std::sort(allOld.begin(), allOld.end(),
            [](const ByHandle& a, const ByHandle& b) { return a.handle < b.handle; });
  std::vector<bool> oldMatched(allOld.size(), false);
  std::vector<std::pair<std::size_t, QxDbObjectId>> pairs;  // index in allOld, new id
  pairs.reserve(allOld.size());

  // New-only entities go at once, in drawing order.
  for (int i = 0; i < newIds.length(); ++i) {
    const std::uint64_t handle = newIds[i].handle().value();
    const auto found = std::lower_bound(
        allOld.begin(), allOld.end(), handle,
        [](const ByHandle& entry, std::uint64_t value) { return entry.handle < value; });
    if (found != allOld.end() && found->handle == handle) {
      const auto index = static_cast<std::size_t>(found - allOld.begin());
      oldMatched[index] = true;
      pairs.emplace_back(index, newIds[i]);
      continue;
    }
    utils_.MoveToResultLayer(newIds[i], newDifferentLayer_, 256);
    log_.AddNewEntity(newIds[i]);
  }
  // Then old-only entities, by ascending handle.
  for (std::size_t i = 0; i < allOld.size(); ++i) {
    if (oldMatched[i]) continue;
    utils_.MoveToResultLayer(allOld[i].id, oldDifferentLayer_, 256);
    log_.AddOldEntity(allOld[i].id);
  }
  // Then the pairs, by ascending handle.
  std::sort(pairs.begin(), pairs.end(),
            [](const auto& a, const auto& b) { return a.first < b.first; });
  for (const auto& [index, newId] : pairs) {
    const QxDbObjectId oldId = allOld[index].id;
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
