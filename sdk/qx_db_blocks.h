// Blocks: the block table, its records, and the entities a record holds.
//
// A block table record is the BLOCK_RECORD entry; its definition is the BLOCK ...
// ENDBLK of the blocks section. Model space and the active layout keep their entities
// in the entities section; every other block in its definition.
#pragma once

#include <cstddef>
#include <cstdint>

#include "qx_array.h"
#include "qx_db_tables.h"

class QxDbEntity;
class QxDbBlockTableRecord;

class QxDbBlockTableRecordIterator {
 public:
  // Erased entities are passed over.
  void start(bool atBeginning = true, bool skipDeleted = true);
  bool done() const;
  void step(bool forward = true, bool skipDeleted = true);
  Qxad::ErrorStatus getEntityId(QxDbObjectId& id) const;
  Qxad::ErrorStatus getEntity(QxDbEntity*& entity, int mode = QxDb::kForRead,
                              bool openErased = false) const;

 private:
  friend class QxDbBlockTableRecord;
  QxDbBlockTableRecordIterator(std::uint64_t databaseSerial, std::uint64_t recordHandle);
  bool liveAt(std::ptrdiff_t index) const;
  void skipErased(bool forward);

  std::uint64_t databaseSerial_;
  std::uint64_t recordHandle_;
  QxArray<std::uint64_t> handles_;  // the entities when the walk began
  std::ptrdiff_t index_ = 0;
};

class QxDbBlockTableRecord : public QxDbSymbolTableRecord {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbBlockTableRecord)
  QxDbBlockTableRecord();  // explodable, origin at 0,0,0

  // Renames the definition too.
  Qxad::ErrorStatus setName(const wchar_t* name) override;

  // Puts a new entity into this block; the entity stays open for write and its maker
  // closes it. This record must be open for write.
  Qxad::ErrorStatus appendQxDbEntity(QxDbObjectId& id, QxDbEntity* entity);
  Qxad::ErrorStatus appendQxDbEntity(QxDbEntity* entity);
  // The iterator is the caller's, to be deleted.
  Qxad::ErrorStatus newIterator(QxDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                bool skipDeleted = true) const;
  // The live references (INSERT) of this block, in the drawing and in other blocks.
  Qxad::ErrorStatus getBlockReferenceIds(QxDbObjectIdArray& ids, bool directOnly = true,
                                         bool forceValidity = false) const;

  bool isLayout() const;     // model space or a paper-space layout
  bool isAnonymous() const;  // flag 1 of the definition
  bool explodable() const;   // group 280
  Qxad::ErrorStatus setExplodable(bool explodable);
  QxGePoint3d origin() const;  // the definition's base point
  Qxad::ErrorStatus setOrigin(const QxGePoint3d& origin);
  // The file of an external reference (group 1 of the definition).
  wchar_t* pathName() const;
  Qxad::ErrorStatus setPathName(const wchar_t* path);
  bool hasAttributeDefinitions() const;
};

class QxDbBlockTableIterator;
QX_DECLARE_TABLE_ITERATOR(QxDbBlockTableIterator, QxDbBlockTableRecord)

class QxDbBlockTable : public QxDbSymbolTable {
 public:
  QX_DECLARE_CLASS_MEMBERS(QxDbBlockTable)
  QX_DECLARE_TABLE_MEMBERS(QxDbBlockTableRecord, QxDbBlockTableIterator)
  QxDbBlockTable();

 protected:
  // A new record comes with its definition: BLOCK and ENDBLK.
  Qxad::ErrorStatus addRecord(QxDbSymbolTableRecord& record) override;
};

// The names of the two spaces.
constexpr const wchar_t* QXDB_MODEL_SPACE = L"*Model_Space";
constexpr const wchar_t* QXDB_PAPER_SPACE = L"*Paper_Space";
