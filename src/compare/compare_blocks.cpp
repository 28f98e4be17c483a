// Comparators of block references and of the blocks they show. A nested block recurses
// through CompareEntities; a block used many times is walked again for each use.
#include <memory>
#include <string>

#include "compare/compare_equality.h"
#include "compare/file_compare_utils.h"

using CompareEquality::IsNearEqual;

namespace {

// Opens a block table record for reading; null when it can't be.
QxDbBlockTableRecord* OpenBlock(QxDbObjectId blockId) {
  QxDbObject* object = nullptr;
  if (qxdbOpenQxDbObject(object, blockId, QxDb::kForRead) != Qxad::eOk) return nullptr;
  if (auto* block = QxDbBlockTableRecord::cast(object)) return block;
  object->close();
  return nullptr;
}

std::wstring BlockName(const QxDbBlockTableRecord* block) {
  wchar_t* text = nullptr;
  std::wstring name;
  if (block->getName(text) == Qxad::eOk && text) name = text;
  qxad_free(text);
  return name;
}

}  // namespace

bool VnFileCompareUtils::CompareBlockReference(const QxDbBlockReference* oldReference,
                                               const QxDbBlockReference* newReference) {
  if (!IsGeometryCompared()) return true;
  if (!oldReference->position().isEqualTo(newReference->position()) ||
      !oldReference->scaleFactors().isEqualTo(newReference->scaleFactors()) ||
      !IsNearEqual(oldReference->rotation(), newReference->rotation())) {
    return false;
  }
  const std::unique_ptr<QxDbObjectIterator> oldAttributes(oldReference->attributeIterator());
  const std::unique_ptr<QxDbObjectIterator> newAttributes(newReference->attributeIterator());
  if (oldAttributes && newAttributes) {
    oldAttributes->start();
    newAttributes->start();
    for (; !oldAttributes->done() && !newAttributes->done();
         oldAttributes->step(), newAttributes->step()) {
      if (CompareEntities(oldAttributes->objectId(), newAttributes->objectId()) != kVerdictSame) {
        return false;
      }
    }
    if (!oldAttributes->done() || !newAttributes->done()) return false;
  } else if (oldAttributes || newAttributes) {
    return false;
  }
  QxDbBlockTableRecord* oldBlock = OpenBlock(oldReference->blockTableRecord());
  if (!oldBlock) return false;
  QxDbBlockTableRecord* newBlock = OpenBlock(newReference->blockTableRecord());
  if (!newBlock) {
    oldBlock->close();
    return false;
  }
  const bool same = CompareBlockTableRecord(oldBlock, newBlock);
  newBlock->close();
  oldBlock->close();
  return same;
}

bool VnFileCompareUtils::CompareMInsertBlock(const QxDbMInsertBlock* oldReference,
                                             const QxDbMInsertBlock* newReference) {
  if (!IsGeometryCompared()) return true;
  return oldReference->columns() == newReference->columns() &&
         oldReference->rows() == newReference->rows() &&
         IsNearEqual(oldReference->columnSpacing(), newReference->columnSpacing()) &&
         IsNearEqual(oldReference->rowSpacing(), newReference->rowSpacing()) &&
         CompareBlockReference(oldReference, newReference);
}

bool VnFileCompareUtils::CompareBlockTableRecord(const QxDbBlockTableRecord* oldBlock,
                                                 const QxDbBlockTableRecord* newBlock) {
  if (!IsGeometryCompared()) return true;
  if (BlockName(oldBlock) != BlockName(newBlock)) return false;
  QxDbBlockTableRecordIterator* oldRaw = nullptr;
  QxDbBlockTableRecordIterator* newRaw = nullptr;
  oldBlock->newIterator(oldRaw, true, true);
  newBlock->newIterator(newRaw, true, true);
  const std::unique_ptr<QxDbBlockTableRecordIterator> oldEntities(oldRaw);
  const std::unique_ptr<QxDbBlockTableRecordIterator> newEntities(newRaw);
  if (!oldEntities || !newEntities) return false;
  for (; !oldEntities->done() && !newEntities->done(); oldEntities->step(), newEntities->step()) {
    QxDbEntity* oldEntity = nullptr;
    QxDbEntity* newEntity = nullptr;
    oldEntities->getEntity(oldEntity);
    newEntities->getEntity(newEntity);
    if (!oldEntity && !newEntity) continue;
    if (!oldEntity || !newEntity) {
      if (oldEntity) oldEntity->close();
      if (newEntity) newEntity->close();
      return false;
    }
    const bool sameClass = oldEntity->isA() == newEntity->isA();
    // Attribute definitions of a block may change freely.
    const bool isDefinition = oldEntity->isKindOf(QxDbAttributeDefinition::desc());
    const QxDbObjectId oldId = oldEntity->objectId();
    const QxDbObjectId newId = newEntity->objectId();
    newEntity->close();
    oldEntity->close();
    if (!sameClass) return false;
    if (isDefinition) continue;
    if (CompareEntities(oldId, newId) != kVerdictSame) return false;
  }
  return oldEntities->done() && newEntities->done();
}
