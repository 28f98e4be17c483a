// QxDbDatabase: side databases of their own, and the objects that stand for the
// documents' databases; tables, dictionaries and the current layer and space.
#include <unordered_map>

#include "api/coordinate_systems.h"
#include "api/document.h"
#include "api/record_places.h"
#include "database_registry.h"
#include "dxf/new_drawing.h"
#include "object_access.h"
#include "qx_db_database.h"
#include "table_classes.h"

using korva::db::Database;
using korva::db::Record;

namespace {

std::unordered_map<std::uint64_t, QxDbDatabase*>& sideDatabases() {
  static std::unordered_map<std::uint64_t, QxDbDatabase*> map;
  return map;
}

// Objects for databases that korva owns elsewhere (documents), made when first asked for.
std::unordered_map<std::uint64_t, std::unique_ptr<QxDbDatabase>>& wrappers() {
  static std::unordered_map<std::uint64_t, std::unique_ptr<QxDbDatabase>> map;
  return map;
}

Database* drawing(const QxDbDatabase* database) {
  return database ? korva::api::drawingOf(*database) : nullptr;
}

template <class Table>
Qxad::ErrorStatus openTable(const QxDbDatabase* database, std::string_view name, Table*& table,
                            int mode) {
  table = nullptr;
  Database* owner = drawing(database);
  if (!owner) return Qxad::eNotInDatabase;
  korva::db::Table* found = owner->table(name);
  if (!found || !found->head) return Qxad::eKeyNotFound;
  return korva::api::openAs(table, korva::api::idOf(*owner, *found->head), mode);
}

// The named objects dictionary: the first object of the objects section.
Record* namedObjects(Database& database) {
  std::vector<Record*>* objects = database.objects();
  if (!objects) return nullptr;
  for (Record* record : *objects) {
    if (record->type() == "DICTIONARY" && !record->isErased()) return record;
  }
  return nullptr;
}

Record* dictionaryEntry(Database& database, const Record& dictionary, std::string_view key) {
  std::vector<korva::db::Group> groups = dictionary.groupList();
  for (size_t i = 0; i + 1 < groups.size(); ++i) {
    if (groups[i].code == 3 && korva::db::sameName(groups[i].value, key)) {
      return database.lookup(korva::db::parseHandle(groups[i + 1].value).value_or(0));
    }
  }
  return nullptr;
}

}  // namespace

namespace korva::api {

db::Database* drawingOf(const QxDbDatabase& database) {
  return Database::bySerial(database.serial());
}

void registerSideDatabase(std::uint64_t serial, QxDbDatabase* database) {
  sideDatabases()[serial] = database;
}
void forgetSideDatabase(std::uint64_t serial) {
  sideDatabases().erase(serial);
}

}  // namespace korva::api

const QxRxClass* QxDbDatabase::desc() {
  static const QxRxClass record(L"QxDbDatabase", QxRxObject::desc());
  return &record;
}

QxDbDatabase::QxDbDatabase(bool buildDefaultDrawing, bool) : content_(new Content) {
  content_->owned =
      buildDefaultDrawing ? korva::dxf::createNewDrawing() : std::make_unique<Database>();
  content_->serial = content_->owned->serial();
  korva::api::registerSideDatabase(content_->serial, this);
}

QxDbDatabase::QxDbDatabase(Content* content) : content_(content) {}

QxDbDatabase::~QxDbDatabase() {
  if (content_->owned) korva::api::forgetSideDatabase(content_->owned->serial());
  korva::api::releaseFileLock(content_->lockDescriptor);
  delete content_;
}

std::uint64_t QxDbDatabase::serial() const {
  return content_->serial;
}

QxDbDatabase* QxDbDatabase::wrapping(std::uint64_t serial) {
  auto side = sideDatabases().find(serial);
  if (side != sideDatabases().end()) return side->second;
  Database* database = Database::bySerial(serial);
  if (!database) {
    wrappers().erase(serial);
    return nullptr;
  }
  std::unique_ptr<QxDbDatabase>& wrapper = wrappers()[serial];
  if (!wrapper) {
    auto* content = new Content;
    content->serial = serial;
    if (korva::api::Document* document =
            korva::api::DocumentList::instance().byDatabase(database)) {
      content->path = document->path();
    }
    wrapper.reset(new QxDbDatabase(content));
  }
  return wrapper.get();
}

QxDbDatabase* QxDbObject::database() const {
  Database* database = korva::api::databaseOf(*this);
  return database ? QxDbDatabase::wrapping(database->serial()) : nullptr;
}

wchar_t* QxDbDatabase::fileName() const {
  return qxutNewString(korva::api::wideText(nullptr, content_->path).c_str());
}

Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbBlockTable*& table, int mode) const {
  return openTable(this, "BLOCK_RECORD", table, mode);
}
Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbLayerTable*& table, int mode) const {
  return openTable(this, "LAYER", table, mode);
}
Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbTextStyleTable*& table, int mode) const {
  return openTable(this, "STYLE", table, mode);
}
Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbLinetypeTable*& table, int mode) const {
  return openTable(this, "LTYPE", table, mode);
}
Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbViewTable*& table, int mode) const {
  return openTable(this, "VIEW", table, mode);
}
Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbUCSTable*& table, int mode) const {
  return openTable(this, "UCS", table, mode);
}
Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbViewportTable*& table, int mode) const {
  return openTable(this, "VPORT", table, mode);
}
Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbRegAppTable*& table, int mode) const {
  return openTable(this, "APPID", table, mode);
}
Qxad::ErrorStatus QxDbDatabase::getSymbolTable(QxDbDimStyleTable*& table, int mode) const {
  return openTable(this, "DIMSTYLE", table, mode);
}

namespace {
QxDbObjectId tableId(const QxDbDatabase* database, std::string_view name) {
  Database* owner = drawing(database);
  korva::db::Table* table = owner ? owner->table(name) : nullptr;
  return table && table->head ? korva::api::idOf(*owner, *table->head) : QxDbObjectId::kNull;
}
}  // namespace

QxDbObjectId QxDbDatabase::blockTableId() const {
  return tableId(this, "BLOCK_RECORD");
}
QxDbObjectId QxDbDatabase::layerTableId() const {
  return tableId(this, "LAYER");
}

QxDbObjectId QxDbDatabase::namedObjectsDictionaryId() const {
  Database* owner = drawing(this);
  Record* dictionary = owner ? namedObjects(*owner) : nullptr;
  return dictionary ? korva::api::idOf(*owner, *dictionary) : QxDbObjectId::kNull;
}

QxDbObjectId QxDbDatabase::groupDictionaryId() const {
  Database* owner = drawing(this);
  Record* named = owner ? namedObjects(*owner) : nullptr;
  Record* groups = named ? dictionaryEntry(*owner, *named, "ACAD_GROUP") : nullptr;
  return groups ? korva::api::idOf(*owner, *groups) : QxDbObjectId::kNull;
}

Qxad::ErrorStatus QxDbDatabase::getNamedObjectsDictionary(QxDbDictionary*& dictionary,
                                                          int mode) const {
  dictionary = nullptr;
  QxDbObjectId id = namedObjectsDictionaryId();
  return id.isNull() ? Qxad::eKeyNotFound : korva::api::openAs(dictionary, id, mode);
}

Qxad::ErrorStatus QxDbDatabase::getGroupDictionary(QxDbDictionary*& dictionary, int mode) const {
  dictionary = nullptr;
  QxDbObjectId id = groupDictionaryId();
  return id.isNull() ? Qxad::eKeyNotFound : korva::api::openAs(dictionary, id, mode);
}

QxDbObjectId QxDbDatabase::clayer() const {
  Database* owner = drawing(this);
  if (!owner) return QxDbObjectId::kNull;
  Record* layer = korva::api::liveTableEntry(*owner, "LAYER", korva::api::currentLayerName(*owner));
  return layer ? korva::api::idOf(*owner, *layer) : QxDbObjectId::kNull;
}

Qxad::ErrorStatus QxDbDatabase::setClayer(QxDbObjectId layerId) {
  Database* owner = drawing(this);
  if (!owner) return Qxad::eNotInDatabase;
  Database* layerOwner = nullptr;
  Record* layer = korva::api::recordOf(layerId, &layerOwner);
  if (!layer || layerOwner != owner || layer->type() != "LAYER") return Qxad::eInvalidInput;
  if (layer->isErased()) return Qxad::eWasErased;
  owner->setHeaderVariable("$CLAYER", {{8, std::string(layer->find(2).value_or("0"))}});
  return Qxad::eOk;
}

QxDbObjectId QxDbDatabase::currentSpaceId() const {
  Database* owner = drawing(this);
  Record* space = owner ? korva::api::currentSpaceRecord(*owner) : nullptr;
  return space ? korva::api::idOf(*owner, *space) : QxDbObjectId::kNull;
}
