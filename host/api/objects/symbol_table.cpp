// Symbol tables, their iterators, and what every table record has: a name and flags.
#include "api/record_places.h"
#include "api/table_rename.h"
#include "object_access.h"
#include "qx_db_blocks.h"
#include "qx_db_tables.h"

using korva::db::Database;
using korva::db::Record;

namespace {

constexpr std::string_view kRecordPart = "AcDbSymbolTableRecord";

bool validName(std::wstring_view name) {
  return !name.empty() && name.find_first_of(L"\r\n") == std::wstring_view::npos;
}

// The table of a table object bound to a database.
korva::db::Table* tableOf(const QxDbObject& object) {
  Database* database = korva::api::databaseOf(object);
  return database ? korva::api::tableOfHead(*database, korva::api::recordOf(object)) : nullptr;
}

Record* entryNamed(korva::db::Table& table, std::string_view name, bool withErased) {
  for (Record* entry : table.entries) {
    if ((withErased || !entry->isErased()) &&
        korva::db::sameName(entry->find(2).value_or(""), name)) {
      return entry;
    }
  }
  return nullptr;
}

}  // namespace

// ---- Records

const QxRxClass* QxDbSymbolTableRecord::desc() {
  static const QxRxClass record(L"QxDbSymbolTableRecord", QxDbObject::desc());
  return &record;
}

QxDbSymbolTableRecord::QxDbSymbolTableRecord(const char* dxfType, const char* subclass)
    : QxDbObject(dxfType) {
  korva::api::recordOf(*this).assign(
      {{100, std::string(kRecordPart)}, {100, subclass}, {2, ""}, {70, "0"}});
}

Qxad::ErrorStatus QxDbSymbolTableRecord::getName(wchar_t*& name) const {
  const Record& record = korva::api::recordOf(*this);
  name = korva::api::newWideText(korva::api::databaseOf(*this),
                                 korva::api::groupText(record, 2).value_or(""));
  return name ? Qxad::eOk : Qxad::eOutOfRange;
}

Qxad::ErrorStatus QxDbSymbolTableRecord::setName(const wchar_t* name) {
  if (!name || !validName(name)) return Qxad::eInvalidInput;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  Database* database = korva::api::databaseOf(*this);
  Record& record = korva::api::recordOf(*this);
  std::string text = korva::api::drawingText(database, name);
  korva::db::Table* table = database ? korva::api::tableHolding(*database, record) : nullptr;
  if (table) {
    Record* other = entryNamed(*table, text, false);
    if (other && other != &record) return Qxad::eDuplicateKey;
  }
  std::string oldName(korva::api::groupText(record, 2).value_or(""));
  korva::api::setGroupText(record, 2, text);
  // The drawing names its layers, linetypes, styles and blocks: the names follow.
  if (table && oldName != text) korva::api::renameReferences(*database, record, oldName, text);
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}

bool QxDbSymbolTableRecord::isDependent() const {
  return (korva::api::groupInteger(korva::api::recordOf(*this), 70, 0) & 16) != 0;
}

bool QxDbSymbolTableRecord::isResolved() const {
  return (korva::api::groupInteger(korva::api::recordOf(*this), 70, 0) & 32) != 0;
}

// ---- Tables

const QxRxClass* QxDbSymbolTable::desc() {
  static const QxRxClass record(L"QxDbSymbolTable", QxDbObject::desc());
  return &record;
}

QxDbSymbolTable::QxDbSymbolTable(const char* recordType)
    : QxDbObject("TABLE"), recordType_(recordType) {
  korva::api::recordOf(*this).assign({{2, recordType}, {70, "0"}});
}

Qxad::ErrorStatus QxDbSymbolTable::getAt(const wchar_t* name, QxDbObjectId& id,
                                         bool getErased) const {
  id = QxDbObjectId::kNull;
  if (!name) return Qxad::eInvalidInput;
  korva::db::Table* table = tableOf(*this);
  if (!table) return Qxad::eNotInDatabase;
  Database& database = *korva::api::databaseOf(*this);
  Record* entry = entryNamed(*table, korva::api::drawingText(&database, name), getErased);
  if (!entry) return Qxad::eKeyNotFound;
  id = korva::api::idOf(database, *entry);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbSymbolTable::getAt(const wchar_t* name, QxDbSymbolTableRecord*& record,
                                         int mode, bool openErased) const {
  record = nullptr;
  QxDbObjectId id;
  if (Qxad::ErrorStatus status = getAt(name, id, openErased); status != Qxad::eOk) return status;
  return korva::api::openAs(record, id, mode, openErased);
}

bool QxDbSymbolTable::has(const wchar_t* name) const {
  QxDbObjectId id;
  return getAt(name, id) == Qxad::eOk;
}

bool QxDbSymbolTable::has(QxDbObjectId id) const {
  korva::db::Table* table = tableOf(*this);
  if (!table || id.databaseSerial() != korva::api::databaseOf(*this)->serial()) return false;
  for (Record* entry : table->entries) {
    if (!entry->isErased() && entry->handle() == id.handle().value()) return true;
  }
  return false;
}

Qxad::ErrorStatus QxDbSymbolTable::add(QxDbSymbolTableRecord* record) {
  QxDbObjectId id;
  return add(id, record);
}

Qxad::ErrorStatus QxDbSymbolTable::add(QxDbObjectId& id, QxDbSymbolTableRecord* record) {
  id = QxDbObjectId::kNull;
  if (!record) return Qxad::eInvalidInput;
  if (isNewObject()) return Qxad::eNotInDatabase;
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  if (!record->isNewObject()) return Qxad::eAlreadyInDb;
  const Record& own = korva::api::recordOf(*record);
  if (own.type() != recordType_) return Qxad::eWrongObjectType;
  korva::db::Table* table = tableOf(*this);
  if (!table) return Qxad::eNotInDatabase;
  Database& database = *korva::api::databaseOf(*this);
  std::string name = korva::api::drawingText(
      &database, korva::api::wideText(nullptr, korva::api::groupText(own, 2).value_or("")));
  if (name.empty()) return Qxad::eInvalidInput;
  if (entryNamed(*table, name, false)) return Qxad::eDuplicateKey;
  if (Qxad::ErrorStatus status = addRecord(*record); status != Qxad::eOk) return status;
  id = record->objectId();
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbSymbolTable::addRecord(QxDbSymbolTableRecord& record) {
  korva::db::Table* table = tableOf(*this);
  Database& database = *korva::api::databaseOf(*this);
  std::vector<korva::db::OwnedGroup> groups =
      korva::api::groupsForDatabase(database, korva::api::recordOf(record));
  Record* added = database.addTableEntry(*table, recordType_, std::move(groups));
  korva::api::bindNewObject(record, database, *added);
  return Qxad::eOk;
}

Qxad::ErrorStatus QxDbSymbolTable::newIterator(QxDbSymbolTableIterator*& iterator, bool atBeginning,
                                               bool skipDeleted) const {
  iterator = nullptr;
  Database* database = korva::api::databaseOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  iterator = new QxDbSymbolTableIterator(database->serial(), korva::api::recordOf(*this).handle());
  iterator->start(atBeginning, skipDeleted);
  return Qxad::eOk;
}

// ---- Iterators

QxDbSymbolTableIterator::QxDbSymbolTableIterator(std::uint64_t databaseSerial,
                                                 std::uint64_t tableHandle)
    : databaseSerial_(databaseSerial), tableHandle_(tableHandle) {}

namespace {
korva::db::Table* iteratedTable(std::uint64_t serial, std::uint64_t handle) {
  Database* database = Database::bySerial(serial);
  Record* head = database ? database->lookup(handle) : nullptr;
  return head ? korva::api::tableOfHead(*database, *head) : nullptr;
}
}  // namespace

std::size_t QxDbSymbolTableIterator::count() const {
  korva::db::Table* table = iteratedTable(databaseSerial_, tableHandle_);
  return table ? table->entries.size() : 0;
}

bool QxDbSymbolTableIterator::erasedAt(std::size_t index) const {
  korva::db::Table* table = iteratedTable(databaseSerial_, tableHandle_);
  return !table || index >= table->entries.size() || table->entries[index]->isErased();
}

void QxDbSymbolTableIterator::skipErased(bool forward) {
  while (!done() && erasedAt(static_cast<std::size_t>(index_))) index_ += forward ? 1 : -1;
}

void QxDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
  index_ = atBeginning ? 0 : static_cast<std::ptrdiff_t>(count()) - 1;
  if (skipDeleted) skipErased(atBeginning);
}

bool QxDbSymbolTableIterator::done() const {
  return index_ < 0 || index_ >= static_cast<std::ptrdiff_t>(count());
}

void QxDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
  if (done()) return;
  index_ += forward ? 1 : -1;
  if (skipDeleted) skipErased(forward);
}

QxDbObjectId QxDbSymbolTableIterator::current() const {
  if (done()) return QxDbObjectId::kNull;
  korva::db::Table* table = iteratedTable(databaseSerial_, tableHandle_);
  return QxDbObjectId::fromParts(databaseSerial_,
                                 table->entries[static_cast<std::size_t>(index_)]->handle());
}

Qxad::ErrorStatus QxDbSymbolTableIterator::getRecordId(QxDbObjectId& id) const {
  id = current();
  return id.isNull() ? Qxad::eInvalidIndex : Qxad::eOk;
}

Qxad::ErrorStatus QxDbSymbolTableIterator::getRecord(QxDbSymbolTableRecord*& record, int mode,
                                                     bool openErased) const {
  record = nullptr;
  QxDbObjectId id = current();
  if (id.isNull()) return Qxad::eInvalidIndex;
  return korva::api::openAs(record, id, mode, openErased);
}

Qxad::ErrorStatus QxDbSymbolTableIterator::seek(QxDbObjectId id) {
  korva::db::Table* table = iteratedTable(databaseSerial_, tableHandle_);
  if (!table || id.databaseSerial() != databaseSerial_) return Qxad::eInvalidInput;
  for (std::size_t i = 0; i < table->entries.size(); ++i) {
    if (table->entries[i]->handle() == id.handle().value()) {
      index_ = static_cast<std::ptrdiff_t>(i);
      return Qxad::eOk;
    }
  }
  return Qxad::eInvalidInput;
}
