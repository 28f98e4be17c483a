// Object ids, class identity, and opening and closing objects.
#include <cwchar>
#include <map>
#include <string>
#include <unordered_map>

#include "api/document.h"
#include "db/value_text.h"
#include "object_groups.h"
#include "object_state.h"
#include "qx_db_entity.h"

using korva::db::Database;
using korva::db::Record;

// ---- Handles and ids

bool QxDbHandle::getIntoAsciiBuffer(wchar_t* buffer, std::size_t bufferChars) const {
  std::string text = korva::db::formatHandle(value_);
  if (!buffer || text.size() + 1 > bufferChars) return false;
  for (size_t i = 0; i < text.size(); ++i) buffer[i] = static_cast<wchar_t>(text[i]);
  buffer[text.size()] = L'\0';
  return true;
}

const QxDbObjectId QxDbObjectId::kNull;

QxDbObjectId QxDbObjectId::fromParts(std::uint64_t databaseSerial, std::uint64_t handle) {
  QxDbObjectId id;
  if (handle != 0) id.value_ = (databaseSerial << 48) | (handle & kHandleMask);
  return id;
}

QxDbObjectId QxDbObjectId::fromOldId(std::uint64_t value) {
  QxDbObjectId id;
  id.value_ = value;
  return id;
}

bool QxDbObjectId::isValid() const { return korva::api::recordOf(*this) != nullptr; }

bool QxDbObjectId::isErased() const {
  Record* record = korva::api::recordOf(*this);
  return record && record->isErased();
}

// ---- Class identity

QxRxClass::QxRxClass(const wchar_t* name, const QxRxClass* parent, const char* dxfName)
    : name_(name), parent_(parent), dxfName_(dxfName) {}

bool QxRxClass::isDerivedFrom(const QxRxClass* other) const {
  for (const QxRxClass* each = this; each; each = each->parent_) {
    if (each == other) return true;
  }
  return false;
}

const QxRxClass* QxRxObject::desc() {
  static const QxRxClass record(L"QxRxObject", nullptr);
  return &record;
}

const QxRxClass* QxDbObject::desc() {
  static const QxRxClass record(L"QxDbObject", QxRxObject::desc());
  return &record;
}

namespace korva::api {

namespace {

struct OpenCount {
  int readers = 0;
  int writers = 0;
};

std::unordered_map<const Record*, OpenCount>& openRecords() {
  static std::unordered_map<const Record*, OpenCount> records;
  return records;
}

std::map<std::string, ObjectMaker, std::less<>>& makers() {
  static std::map<std::string, ObjectMaker, std::less<>> table;
  return table;
}

std::multimap<std::string, ObjectChooser, std::less<>>& choosers() {
  static std::multimap<std::string, ObjectChooser, std::less<>> table;
  return table;
}

bool makingToOpen = false;

// Makes objects whose records are set right after: constructors write into the scratch
// record, and no undo journal sees those writes.
class MakingToOpen {
 public:
  MakingToOpen() : saved_(Record::beforeChange) {
    Record::beforeChange = nullptr;
    makingToOpen = true;
  }
  ~MakingToOpen() {
    makingToOpen = false;
    Record::beforeChange = saved_;
    if (scratchRecord().groupCount() != 0) scratchRecord() = Record();
  }
  MakingToOpen(const MakingToOpen&) = delete;
  MakingToOpen& operator=(const MakingToOpen&) = delete;

 private:
  void (*saved_)(Record&);
};

// The class a record of this type opens as: a chooser's, the registered one, or null.
QxDbObject* makeFor(const Record& record) {
  MakingToOpen making;
  auto [first, last] = choosers().equal_range(record.type());
  for (auto each = first; each != last; ++each) {
    if (QxDbObject* made = each->second(record)) return made;
  }
  auto found = makers().find(record.type());
  return found != makers().end() ? found->second() : nullptr;
}

void track(const Record* record, int mode, int change) {
  OpenCount& count = openRecords()[record];
  (mode == QxDb::kForWrite ? count.writers : count.readers) += change;
  if (count.readers == 0 && count.writers == 0) openRecords().erase(record);
}

bool isEntityRecord(const Database& database, const Record& record) {
  // Entities are owned by block table records; BLOCK and ENDBLK are not entities.
  if (record.type() == "BLOCK" || record.type() == "ENDBLK") return false;
  const Record* owner = database.lookup(record.owner());
  if (owner && owner->type() == "BLOCK_RECORD") return true;
  // Files without owner links: anything in ENTITIES or a block definition.
  const db::Section* entities = database.section(db::SectionKind::Entities);
  if (entities) {
    for (const Record* each : entities->records) {
      if (each == &record) return true;
    }
  }
  return false;
}

bool onLockedLayer(Database& database, const Record& record) {
  std::optional<std::string_view> layer = record.find(8);
  if (!layer) return false;
  const Record* layerRecord = database.tableEntry("LAYER", *layer);
  return layerRecord && (groupInteger(*layerRecord, 70, 0) & 4) != 0;
}

}  // namespace

Record& scratchRecord() {
  static Record record;
  return record;
}

bool isScratchRecord(const Record& record) { return &record == &scratchRecord(); }

bool makingObjectToOpen() { return makingToOpen; }

void registerObjectClass(std::string_view dxfType, ObjectMaker make) {
  makers().emplace(std::string(dxfType), make);
}

void registerObjectChooser(std::string_view dxfType, ObjectChooser choose) {
  choosers().emplace(std::string(dxfType), choose);
}

QxDbObject* newObjectLike(std::string_view dxfType, std::vector<db::OwnedGroup> groups) {
  Record probe(dxfType, groups);
  QxDbObject* made = makeFor(probe);
  if (!made) {
    MakingToOpen making;
    made = makers().at("*ENTITY")();
  }
  QxDbObjectState* state = QxDbObjectState::of(made);
  state->ownType = std::string(dxfType);
  state->ownRecord = std::make_unique<Record>(state->ownType, std::move(groups));
  state->record = state->ownRecord.get();
  return made;
}

QxDbObjectId idOf(const Database& database, const Record& record) {
  return QxDbObjectId::fromParts(database.serial(), record.handle());
}

Record* recordOf(QxDbObjectId id, Database** database) {
  if (id.isNull()) return nullptr;
  Database* owner = Database::bySerial(id.databaseSerial());
  if (!owner) return nullptr;
  if (database) *database = owner;
  return owner->lookup(id.handle().value());
}

void bindNewObject(QxDbObject& object, Database& database, Record& record) {
  QxDbObjectState* state = QxDbObjectState::of(&object);
  state->ownRecord.reset();
  state->database = &database;
  state->record = &record;
  state->mode = QxDb::kForWrite;
  state->open = true;
  track(&record, QxDb::kForWrite, +1);
}

// Opens an object over a record: the class registered for its type, or the nearest
// general class.
Qxad::ErrorStatus openObject(QxDbObject*& object, Database& database, Record& record, int mode) {
  QxDbObject* made = makeFor(record);
  if (!made) {
    const char* general = isEntityRecord(database, record) ? "*ENTITY" : "*OBJECT";
    MakingToOpen making;
    made = makers().at(general)();
  }
  QxDbObjectState* state = QxDbObjectState::of(made);
  state->ownRecord.reset();
  state->database = &database;
  state->record = &record;
  state->mode = mode == QxDb::kForWrite ? QxDb::kForWrite : QxDb::kForRead;
  state->open = true;
  track(&record, state->mode, +1);
  object = made;
  return Qxad::eOk;
}

bool isEntity(const Database& database, const Record& record) { return isEntityRecord(database, record); }

}  // namespace korva::api

// ---- Objects

struct GeneralObject final : QxDbObject {
  GeneralObject() : QxDbObject("OBJECT") {}
};
struct GeneralEntity final : QxDbEntity {
  GeneralEntity() : QxDbEntity("ENTITY") {}
};
static korva::api::ObjectClassRegistration generalObject("*OBJECT", [] {
  return static_cast<QxDbObject*>(new GeneralObject);
});
static korva::api::ObjectClassRegistration generalEntity("*ENTITY", [] {
  return static_cast<QxDbObject*>(new GeneralEntity);
});

QxDbObject::QxDbObject() : QxDbObject("OBJECT") {}

QxDbObject::QxDbObject(const char* dxfType) : state_(new QxDbObjectState) {
  state_->mode = QxDb::kForWrite;
  if (korva::api::makingObjectToOpen()) {
    state_->record = &korva::api::scratchRecord();
    return;
  }
  state_->ownType = dxfType;
  state_->ownRecord = std::make_unique<Record>(state_->ownType, std::vector<korva::db::OwnedGroup>{});
  state_->record = state_->ownRecord.get();
}

QxDbObject::~QxDbObject() {
  if (state_->open) korva::api::track(state_->record, state_->mode, -1);
  delete state_;
}

QxDbObjectId QxDbObject::objectId() const {
  if (!state_->database) return QxDbObjectId::kNull;
  return korva::api::idOf(*state_->database, *state_->record);
}

QxDbObjectId QxDbObject::ownerId() const {
  if (!state_->database) return QxDbObjectId::kNull;
  return QxDbObjectId::fromParts(state_->database->serial(), state_->record->owner());
}

QxDbHandle QxDbObject::handle() const {
  return state_->database ? QxDbHandle(state_->record->handle()) : QxDbHandle();
}

bool QxDbObject::isNewObject() const { return state_->database == nullptr; }

bool QxDbObject::isErased() const { return state_->record->isErased(); }

bool QxDbObject::isReadEnabled() const { return state_->open || isNewObject(); }

bool QxDbObject::isWriteEnabled() const {
  return isNewObject() || (state_->open && state_->mode == QxDb::kForWrite);
}

bool QxDbObject::isNotifyEnabled() const { return false; }

Qxad::ErrorStatus QxDbObject::assertWriteEnabled() const {
  return isWriteEnabled() ? Qxad::eOk : Qxad::eNotOpenForWrite;
}

Qxad::ErrorStatus QxDbObject::erase(bool erasing) {
  if (!isWriteEnabled()) return Qxad::eNotOpenForWrite;
  if (!state_->database) return Qxad::eNotInDatabase;
  if (state_->record->isErased() == erasing) return erasing ? Qxad::eWasErased : Qxad::eOk;
  state_->database->setErased(*state_->record, erasing);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbObject::close() {
  if (isNewObject()) return Qxad::eNotInDatabase;  // its maker deletes it
  if (!state_->open) return Qxad::eNotOpenForRead;
  delete this;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbObject::upgradeOpen() {
  if (isNewObject() || state_->mode == QxDb::kForWrite) return Qxad::eOk;
  if (!state_->open) return Qxad::eNotOpenForRead;
  const korva::api::OpenCount& count = korva::api::openRecords()[state_->record];
  if (count.readers > 1) return Qxad::eWasOpenForRead;
  if (korva::api::isEntity(*state_->database, *state_->record) &&
      korva::api::onLockedLayer(*state_->database, *state_->record)) {
    return Qxad::eOnLockedLayer;
  }
  korva::api::track(state_->record, QxDb::kForRead, -1);
  korva::api::track(state_->record, QxDb::kForWrite, +1);
  state_->mode = QxDb::kForWrite;
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbObject::downgradeOpen() {
  if (isNewObject()) return Qxad::eNotInDatabase;
  if (!state_->open) return Qxad::eNotOpenForRead;
  if (state_->mode != QxDb::kForWrite) return Qxad::eOk;
  korva::api::track(state_->record, QxDb::kForWrite, -1);
  korva::api::track(state_->record, QxDb::kForRead, +1);
  state_->mode = QxDb::kForRead;
  return Qxad::eOk;
}

std::size_t QxDbObject::reactorCount() const {
  std::size_t count = 0;
  bool inReactors = false;
  for (const korva::db::Group& group : state_->record->groups()) {
    if (group.code == 102) inReactors = group.value == "{ACAD_REACTORS";
    if (inReactors && group.code == 330) ++count;
  }
  return count;
}

// ---- Opening

namespace {

// The checks of opening, once the record and whether it is an entity are known: both
// are looked up once per open, which large drawings do hundreds of thousands of times.
Qxad::ErrorStatus openRecord(QxDbObject*& object, Database& database, Record& record, bool entity,
                             int mode, bool openErased) {
  if (record.isErased() && !openErased) return Qxad::eWasErased;
  auto found = korva::api::openRecords().find(&record);
  if (found != korva::api::openRecords().end()) {
    if (found->second.writers > 0) return Qxad::eWasOpenForWrite;
    if (mode == QxDb::kForWrite && found->second.readers > 0) return Qxad::eWasOpenForRead;
  }
  if (mode == QxDb::kForWrite && entity && korva::api::onLockedLayer(database, record)) {
    return Qxad::eOnLockedLayer;
  }
  return korva::api::openObject(object, database, record, mode);
}

}  // namespace

Qxad::ErrorStatus qxdbOpenQxDbObject(QxDbObject*& object, QxDbObjectId id, int mode,
                                     bool openErased) {
  object = nullptr;
  if (id.isNull()) return Qxad::eNullObjectId;
  Database* database = nullptr;
  Record* record = korva::api::recordOf(id, &database);
  if (!record) return Qxad::eInvalidInput;
  const bool entity = mode == QxDb::kForWrite && korva::api::isEntity(*database, *record);
  return openRecord(object, *database, *record, entity, mode, openErased);
}

Qxad::ErrorStatus qxdbOpenQxDbEntity(QxDbEntity*& entity, QxDbObjectId id, int mode,
                                     bool openErased) {
  entity = nullptr;
  if (id.isNull()) return Qxad::eNullObjectId;
  Database* database = nullptr;
  Record* record = korva::api::recordOf(id, &database);
  if (!record) return Qxad::eInvalidInput;
  if (!korva::api::isEntity(*database, *record)) return Qxad::eWrongObjectType;
  QxDbObject* object = nullptr;
  Qxad::ErrorStatus status = openRecord(object, *database, *record, true, mode, openErased);
  if (status != Qxad::eOk) return status;
  entity = QxDbEntity::cast(object);
  if (!entity) {
    object->close();
    return Qxad::eWrongObjectType;
  }
  return Qxad::eOk;
}

Qxad::ErrorStatus qxdbGetObjectId(QxDbObjectId& id, const EntityName name) {
  id = QxDbObjectId::kNull;
  korva::db::Database* database = nullptr;
  Record* record = korva::api::recordOf(name, nullptr, &database);
  if (!record) return Qxad::eInvalidInput;
  id = korva::api::idOf(*database, *record);
  return Qxad::eOk;
}

Qxad::ErrorStatus qxdbGetHysName(EntityName name, QxDbObjectId id) {
  Database* database = nullptr;
  Record* record = korva::api::recordOf(id, &database);
  if (!record) return Qxad::eInvalidInput;
  korva::api::nameOf(*database, *record, name);
  return Qxad::eOk;
}

std::size_t qxdbOpenObjectCount() {
  std::size_t count = 0;
  for (const auto& [record, open] : korva::api::openRecords()) count += open.readers + open.writers;
  return count;
}
