// Purging: which table records nothing in the drawing refers to.
#include <set>

#include "api/record_places.h"
#include "database_registry.h"
#include "object_access.h"
#include "qx_db_database.h"

using korva::db::Database;
using korva::db::Handle;
using korva::db::Record;

namespace {

struct References {
  std::set<Handle> handles;                             // hard pointers of live records
  std::set<std::pair<std::string, std::string>> names;  // table and upper-case name

  void addName(std::string_view table, std::string_view name) {
    std::string upper(name);
    for (char& c : upper) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    names.emplace(std::string(table), std::move(upper));
  }
  bool named(std::string_view table, std::string_view name) const {
    std::string upper(name);
    for (char& c : upper) c = static_cast<char>(c >= 'a' && c <= 'z' ? c - 32 : c);
    return names.count({std::string(table), upper}) != 0;
  }
};

void noteRecord(Database& database, const Record& record, References& references) {
  bool entity = korva::api::isEntity(database, record);
  std::string_view type = record.type();
  bool inAppGroup = false;
  for (const korva::db::Group& group : record.groups()) {
    if (group.code == 102) inAppGroup = !group.value.empty() && group.value[0] == '{';
    if (group.code == 1001) break;
    if (!inAppGroup &&
        ((group.code >= 340 && group.code <= 349) || (group.code >= 390 && group.code <= 399))) {
      if (std::optional<Handle> handle = korva::db::parseHandle(group.value))
        references.handles.insert(*handle);
    }
    if (!entity && type != "LAYER") continue;
    if (group.code == 6) references.addName("LTYPE", group.value);
    if (!entity) continue;
    if (group.code == 8) references.addName("LAYER", group.value);
    if (group.code == 7) references.addName("STYLE", group.value);
    if (group.code == 2 && (type == "INSERT" || type == "DIMENSION"))
      references.addName("BLOCK_RECORD", group.value);
    if (group.code == 3 && (type == "DIMENSION" || type == "LEADER" || type == "TOLERANCE")) {
      references.addName("DIMSTYLE", group.value);
    }
  }
}

References referencesOf(Database& database) {
  References references;
  for (std::vector<Record*>* list : korva::api::allEntityLists(database)) {
    for (Record* record : *list) {
      if (!record->isErased()) noteRecord(database, *record, references);
    }
  }
  if (korva::db::Section* tables = database.section(korva::db::SectionKind::Tables)) {
    for (korva::db::Table& table : tables->tables) {
      for (Record* entry : table.entries) {
        if (!entry->isErased()) noteRecord(database, *entry, references);
      }
    }
  }
  // What the drawing's settings name stays.
  references.addName("LAYER", "0");
  references.addName("LAYER", korva::api::currentLayerName(database));
  for (std::string_view linetype : {"ByLayer", "ByBlock", "Continuous"})
    references.addName("LTYPE", linetype);
  references.addName("LTYPE", database.headerValue("$CELTYPE", 6).value_or("ByLayer"));
  references.addName("STYLE", "Standard");
  references.addName("STYLE", database.headerValue("$TEXTSTYLE", 7).value_or("Standard"));
  references.addName("DIMSTYLE", "Standard");
  references.addName("DIMSTYLE", database.headerValue("$DIMSTYLE", 2).value_or("Standard"));
  references.addName("APPID", "ACAD");
  return references;
}

bool canGo(Database& database, const Record& record, const References& references) {
  if (record.isErased()) return false;
  if (references.handles.count(record.handle())) return false;
  std::string_view type = record.type();
  std::string_view name = record.find(2).value_or("");
  if (type == "BLOCK_RECORD") {
    if (korva::api::isLayoutBlockName(name)) return false;
    return !references.named("BLOCK_RECORD", name);
  }
  if (type == "LAYER" || type == "LTYPE" || type == "STYLE" || type == "DIMSTYLE") {
    return !references.named(type, name);
  }
  if (type == "APPID") {
    // An application stays while extended data of any record uses it.
    for (std::vector<Record*>* list : korva::api::allEntityLists(database)) {
      for (Record* each : *list) {
        for (const korva::db::Group& group : each->groups()) {
          if (group.code == 1001 && korva::db::sameName(group.value, name)) return false;
        }
      }
    }
    return !references.named("APPID", name);
  }
  // Other objects can go when nothing points at them.
  return true;
}

}  // namespace

Qxad::ErrorStatus QxDbDatabase::purge(QxDbObjectIdArray& ids) const {
  Database* database = korva::api::drawingOf(*this);
  if (!database) return Qxad::eNotInDatabase;
  References references = referencesOf(*database);
  QxDbObjectIdArray kept;
  for (int i = 0; i < ids.length(); ++i) {
    Database* holder = nullptr;
    Record* record = korva::api::recordOf(ids[i], &holder);
    if (!record || holder != database) return Qxad::eInvalidInput;
    if (canGo(*database, *record, references)) kept.append(ids[i]);
  }
  ids = kept;
  return Qxad::eOk;
}
