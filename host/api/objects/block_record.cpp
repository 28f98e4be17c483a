// Block table records: the entities of a block, its references, and the properties its
// BLOCK_RECORD and its definition's BLOCK hold.
#include <algorithm>
#include <set>

#include "api/record_places.h"
#include "block_pictures.h"
#include "db/value_text.h"
#include "qx_db_blocks.h"
#include "qx_db_entity.h"
#include "table_classes.h"

using korva::db::Database;
using korva::db::Record;

namespace {

constexpr std::string_view kBlockRecordPart = "AcDbBlockTableRecord";
constexpr std::string_view kBlockBeginPart = "AcDbBlockBegin";

Record& recordOf(const QxDbBlockTableRecord* block) {
  return korva::api::recordOf(*block);
}

// The BLOCK of a record in a database; null for a new record.
Record* beginOf(const QxDbBlockTableRecord* block) {
  Database* database = korva::api::databaseOf(*block);
  if (!database) return nullptr;
  korva::db::BlockDefinition* definition = korva::api::definitionOf(*database, recordOf(block));
  return definition ? definition->begin : nullptr;
}

// Where the definition's values live: its BLOCK, or for a new record its own groups
// until the block table takes it.
Record* definitionValues(const QxDbBlockTableRecord* block, std::string_view& part) {
  if (block->isNewObject()) {
    part = {};
    return &recordOf(block);
  }
  part = kBlockBeginPart;
  return beginOf(block);
}

std::string_view nameOf(const Record& record) {
  return record.find(2).value_or("");
}

void collectReferences(Database& database, std::string_view blockName, bool directOnly,
                       std::set<std::string>& visited, QxDbObjectIdArray& ids) {
  if (!visited.insert(std::string(blockName)).second) return;
  std::vector<std::string> containers;
  korva::db::Section* blocks = database.section(korva::db::SectionKind::Blocks);
  for (std::vector<Record*>* list : korva::api::allEntityLists(database)) {
    for (Record* entity : *list) {
      if (entity->isErased() || entity->type() != "INSERT") continue;
      if (!korva::db::sameName(nameOf(*entity), blockName)) continue;
      QxDbObjectId id = korva::api::idOf(database, *entity);
      if (!ids.contains(id)) ids.append(id);
      if (directOnly || !blocks) continue;
      // A reference inside another block: that block's references show this one too.
      for (korva::db::BlockDefinition& block : blocks->blocks) {
        if (&block.entities == list && !korva::api::isLayoutBlockName(block.name())) {
          containers.emplace_back(block.name());
        }
      }
    }
  }
  for (const std::string& container : containers) {
    collectReferences(database, container, directOnly, visited, ids);
  }
}

}  // namespace

KORVA_DEFINE_CLASS(QxDbBlockTableRecord, QxDbSymbolTableRecord)

QxDbBlockTableRecord::QxDbBlockTableRecord()
    : QxDbSymbolTableRecord("BLOCK_RECORD", "AcDbBlockTableRecord") {
  Record& record = recordOf(this);
  korva::api::setGroupText(record, 340, "0", kBlockRecordPart);
  korva::api::setGroupInteger(record, 280, 1, kBlockRecordPart);
  korva::api::setGroupInteger(record, 281, 0, kBlockRecordPart);
}

Qxad::ErrorStatus QxDbBlockTableRecord::setName(const wchar_t* name) {
  if (Qxad::ErrorStatus status = QxDbSymbolTableRecord::setName(name); status != Qxad::eOk) {
    return status;
  }
  if (Record* begin = beginOf(this)) {
    std::string text = korva::api::drawingText(korva::api::databaseOf(*this), name);
    korva::api::setGroupText(*begin, 2, text, kBlockBeginPart);
    korva::api::setGroupText(*begin, 3, text, kBlockBeginPart);
  }
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbBlockTableRecord::appendQxDbEntity(QxDbEntity* entity) {
  QxDbObjectId id;
  return appendQxDbEntity(id, entity);
}

Qxad::ErrorStatus QxDbBlockTableRecord::appendQxDbEntity(QxDbObjectId& id, QxDbEntity* entity) {
  id = QxDbObjectId::kNull;
  if (!entity) return Qxad::eInvalidInput;
  if (!entity->isNewObject()) return Qxad::eAlreadyInDb;
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Record& block = recordOf(this);
  std::string_view name = nameOf(block);
  korva::db::BlockDefinition* definition = nullptr;
  bool paperSpace = korva::db::sameName(name, "*Paper_Space");
  if (!paperSpace && !korva::db::sameName(name, "*Model_Space")) {
    definition = korva::api::definitionOf(*database, block);
    if (!definition) return Qxad::eInvalidOwnerObject;
  }
  auto add = [&](const Record& own, korva::db::Handle owner) {
    std::vector<korva::db::OwnedGroup> groups = korva::api::groupsForDatabase(*database, own);
    std::erase_if(groups, [](const korva::db::OwnedGroup& group) { return group.code == 330; });
    if (paperSpace) {
      // The active layout's entities stand in the entities section, marked paper space.
      auto entityPart =
          std::find_if(groups.begin(), groups.end(), [](const korva::db::OwnedGroup& group) {
            return group.code == 100 && group.value == "AcDbEntity";
          });
      groups.insert(entityPart == groups.end() ? groups.begin() : entityPart + 1, {67, "1"});
    }
    groups.insert(groups.begin(), {330, korva::db::formatHandle(owner)});
    return database->addEntity(std::move(groups), own.type(), definition);
  };
  korva::api::addPendingPicture(*database, *entity);
  Record* added = add(korva::api::recordOf(*entity), block.handle());
  // An old-style polyline's vertices or a reference's attributes, and their SEQEND,
  // follow it, owned by it.
  auto& followers = QxDbObjectState::of(entity)->followers;
  for (auto& [type, groups] : followers) add(Record(type, std::move(groups)), added->handle());
  followers.clear();
  korva::api::bindNewObject(*entity, *database, *added);
  id = entity->objectId();
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbBlockTableRecord::newIterator(QxDbBlockTableRecordIterator*& iterator,
                                                    bool atBeginning, bool skipDeleted) const {
  iterator = nullptr;
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  iterator = new QxDbBlockTableRecordIterator(database->serial(), recordOf(this).handle());
  for (Record* entity : korva::api::entitiesOfBlock(*database, recordOf(this))) {
    iterator->handles_.append(entity->handle());
  }
  iterator->start(atBeginning, skipDeleted);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbBlockTableRecord::getBlockReferenceIds(QxDbObjectIdArray& ids,
                                                             bool directOnly, bool) const {
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  std::set<std::string> visited;
  collectReferences(*database, nameOf(recordOf(this)), directOnly, visited, ids);
  return Qxad::eOk;
}

bool QxDbBlockTableRecord::isLayout() const {
  const Record& record = recordOf(this);
  if (korva::api::isLayoutBlockName(nameOf(record))) return true;
  Database* database = korva::api::databaseOf(*this);
  std::optional<korva::db::Handle> layout =
      korva::db::parseHandle(korva::api::groupText(record, 340, kBlockRecordPart).value_or("0"));
  Record* target = database && layout ? database->lookup(*layout) : nullptr;
  return target && target->type() == "LAYOUT";
}

bool QxDbBlockTableRecord::isAnonymous() const {
  if (nameOf(recordOf(this)).starts_with("*")) return true;
  Record* begin = beginOf(this);
  return begin && (korva::api::groupInteger(*begin, 70, 0, kBlockBeginPart) & 1) != 0;
}

bool QxDbBlockTableRecord::explodable() const {
  return korva::api::groupInteger(recordOf(this), 280, 1, kBlockRecordPart) != 0;
}

Qxad::ErrorStatus QxDbBlockTableRecord::setExplodable(bool explodable) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  korva::api::setGroupInteger(recordOf(this), 280, explodable ? 1 : 0, kBlockRecordPart);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

QxGePoint3d QxDbBlockTableRecord::origin() const {
  std::string_view part;
  Record* values = definitionValues(this, part);
  double point[3] = {0, 0, 0};
  if (values) korva::api::groupPoint(*values, 10, point, part);
  return {point[0], point[1], point[2]};
}

Qxad::ErrorStatus QxDbBlockTableRecord::setOrigin(const QxGePoint3d& origin) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::string_view part;
  Record* values = definitionValues(this, part);
  if (!values) return Qxad::eNotApplicable;
  const double point[3] = {origin.x, origin.y, origin.z};
  korva::api::setGroupPoint(*values, 10, point, part);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

wchar_t* QxDbBlockTableRecord::pathName() const {
  std::string_view part;
  Record* values = definitionValues(this, part);
  std::string_view path = values ? korva::api::groupText(*values, 1, part).value_or("") : "";
  return korva::api::newWideText(korva::api::databaseOf(*this), path);
}

Qxad::ErrorStatus QxDbBlockTableRecord::setPathName(const wchar_t* path) {
  if (!path) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::string_view part;
  Record* values = definitionValues(this, part);
  if (!values) return Qxad::eNotApplicable;
  korva::api::setGroupText(*values, 1, korva::api::drawingText(korva::api::databaseOf(*this), path),
                           part);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

bool QxDbBlockTableRecord::hasAttributeDefinitions() const {
  Database* database = korva::api::databaseOf(*this);
  if (!database) return false;
  for (Record* entity : korva::api::entitiesOfBlock(*database, recordOf(this))) {
    if (entity->type() == "ATTDEF") return true;
  }
  return false;
}

// ---- Iterating a block's entities

QxDbBlockTableRecordIterator::QxDbBlockTableRecordIterator(std::uint64_t databaseSerial,
                                                           std::uint64_t recordHandle)
    : databaseSerial_(databaseSerial), recordHandle_(recordHandle) {}

bool QxDbBlockTableRecordIterator::liveAt(std::ptrdiff_t index) const {
  Database* database = Database::bySerial(databaseSerial_);
  Record* entity = database ? database->lookup(handles_[static_cast<int>(index)]) : nullptr;
  return entity && !entity->isErased();
}

void QxDbBlockTableRecordIterator::skipErased(bool forward) {
  while (!done() && !liveAt(index_)) index_ += forward ? 1 : -1;
}

void QxDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) {
  index_ = atBeginning ? 0 : handles_.length() - 1;
  if (skipDeleted) skipErased(atBeginning);
}

bool QxDbBlockTableRecordIterator::done() const {
  return index_ < 0 || index_ >= handles_.length();
}

void QxDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) {
  if (done()) return;
  index_ += forward ? 1 : -1;
  if (skipDeleted) skipErased(forward);
}

Qxad::ErrorStatus QxDbBlockTableRecordIterator::getEntityId(QxDbObjectId& id) const {
  id = done() ? QxDbObjectId::kNull
              : QxDbObjectId::fromParts(databaseSerial_, handles_[static_cast<int>(index_)]);
  return id.isNull() ? Qxad::eInvalidIndex : Qxad::eOk;
}

Qxad::ErrorStatus QxDbBlockTableRecordIterator::getEntity(QxDbEntity*& entity, int mode,
                                                          bool openErased) const {
  entity = nullptr;
  QxDbObjectId id;
  if (Qxad::ErrorStatus status = getEntityId(id); status != Qxad::eOk) return status;
  return qxdbOpenQxDbEntity(entity, id, mode, openErased);
}
