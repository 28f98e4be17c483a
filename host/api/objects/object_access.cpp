#include "object_access.h"

#include <algorithm>

#include "api/record_places.h"

namespace korva::api {

db::Record* liveTableEntry(db::Database& database, std::string_view tableName,
                           std::string_view entryName) {
  db::Table* table = database.table(tableName);
  if (!table) return nullptr;
  for (db::Record* entry : table->entries) {
    if (!entry->isErased() && db::sameName(entry->find(2).value_or(""), entryName)) return entry;
  }
  return nullptr;
}

db::Table* tableOfHead(db::Database& database, const db::Record& head) {
  db::Section* tables = database.section(db::SectionKind::Tables);
  if (!tables) return nullptr;
  for (db::Table& table : tables->tables) {
    if (table.head == &head) return &table;
  }
  return nullptr;
}

db::Table* tableHolding(db::Database& database, const db::Record& record) {
  db::Section* tables = database.section(db::SectionKind::Tables);
  if (!tables) return nullptr;
  for (db::Table& table : tables->tables) {
    if (std::find(table.entries.begin(), table.entries.end(), &record) != table.entries.end()) {
      return &table;
    }
  }
  return nullptr;
}

db::BlockDefinition* definitionOf(db::Database& database, const db::Record& blockRecord) {
  db::Section* blocks = database.section(db::SectionKind::Blocks);
  if (!blocks) return nullptr;
  for (db::BlockDefinition& block : blocks->blocks) {
    if (block.begin && block.begin->owner() == blockRecord.handle()) return &block;
  }
  // Files without owner links on BLOCK: by name.
  std::string_view name = blockRecord.find(2).value_or("");
  for (db::BlockDefinition& block : blocks->blocks) {
    if (block.begin && db::sameName(block.name(), name)) return &block;
  }
  return nullptr;
}

std::vector<db::Record*> entitiesOfBlock(db::Database& database, const db::Record& blockRecord) {
  std::vector<db::Record*> result;
  std::string_view name = blockRecord.find(2).value_or("");
  bool inEntitiesSection = db::sameName(name, "*Model_Space") || db::sameName(name, "*Paper_Space");
  std::vector<db::Record*>* list = nullptr;
  if (inEntitiesSection) {
    list = database.entities();
  } else if (db::BlockDefinition* block = definitionOf(database, blockRecord)) {
    list = &block->entities;
  }
  if (!list) return result;
  for (db::Record* record : *list) {
    if (record->isErased() || isSubEntityType(record->type())) continue;
    if (inEntitiesSection) {
      // Model space and the active layout share the section; the owner tells them apart.
      if (record->owner() != blockRecord.handle()) continue;
    }
    result.push_back(record);
  }
  return result;
}

std::vector<std::vector<db::Record*>*> allEntityLists(db::Database& database) {
  std::vector<std::vector<db::Record*>*> lists;
  if (std::vector<db::Record*>* entities = database.entities()) lists.push_back(entities);
  if (db::Section* blocks = database.section(db::SectionKind::Blocks)) {
    for (db::BlockDefinition& block : blocks->blocks) {
      if (!block.begin->isErased()) lists.push_back(&block.entities);
    }
  }
  return lists;
}

bool isPointerCode(int code) {
  return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 ||
         code == 481 || code == 1005;
}

}  // namespace korva::api

#include "dxf/text_encoding.h"
#include "qx_value_kind.h"

namespace korva::api {

std::vector<db::OwnedGroup> groupsForDatabase(const db::Database& database, const db::Record& own) {
  std::vector<db::OwnedGroup> groups = own.ownedGroups();
  std::erase_if(groups, [&](const db::OwnedGroup& group) {
    return group.code == 5 || group.code == 105 ||
           (group.code == 100 && !hasSubclassMarkers(database));
  });
  if (database.hasUtf8Text()) return groups;
  dxf::TextEncoding encoding(false, database.codePage());
  for (db::OwnedGroup& group : groups) {
    if (valueKindOfCode(group.code) != ValueKind::String) continue;
    bool plain = std::all_of(group.value.begin(), group.value.end(),
                             [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (!plain) group.value = encoding.fromUtf8(group.value);
  }
  return groups;
}

}  // namespace korva::api
