// qxdbTblSearch, qxdbTblNext and qxdbTblObjName over the symbol tables and blocks.
#include <cwctype>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "db/database.h"
#include "document.h"
#include "drawing_text.h"
#include "qx_entities.h"
#include "record_lists.h"
#include "record_places.h"

namespace korva::api {
namespace {

constexpr std::string_view kTables[] = {"LAYER", "LTYPE", "STYLE", "BLOCK", "DIMSTYLE",
                                        "UCS",   "VIEW",  "APPID", "VPORT"};

// The canonical table name, or empty for a name that is no table.
std::string_view tableName(const wchar_t* name) {
  if (!name) return {};
  std::wstring_view wide(name);
  for (std::string_view each : kTables) {
    if (wide.size() != each.size()) continue;
    bool same = true;
    for (size_t i = 0; i < each.size() && same; ++i) {
      same = std::towupper(wide[i]) == static_cast<wint_t>(each[i]);
    }
    if (same) return each;
  }
  return {};
}

// A table's live records in table order; for BLOCK the headers of the block
// definitions that aren't layouts.
std::vector<db::Record*> recordsOf(db::Database& database, std::string_view table) {
  std::vector<db::Record*> records;
  if (table == "BLOCK") {
    if (db::Section* blocks = database.section(db::SectionKind::Blocks)) {
      for (db::BlockDefinition& block : blocks->blocks) {
        if (block.begin && !block.begin->isErased() && !isLayoutBlockName(block.name())) {
          records.push_back(block.begin);
        }
      }
    }
    return records;
  }
  if (db::Table* found = database.table(table)) {
    for (db::Record* entry : found->entries) {
      if (!entry->isErased()) records.push_back(entry);
    }
  }
  return records;
}

db::Record* recordNamed(db::Database& database, std::string_view table, std::string_view name) {
  for (db::Record* record : recordsOf(database, table)) {
    if (db::sameName(record->find(2).value_or(""), name)) return record;
  }
  return nullptr;
}

// Where qxdbTblNext goes on, per drawing and table: the handle of the last record it
// gave, so that records added in between don't shift the walk.
std::map<std::pair<uint64_t, std::string_view>, db::Handle>& positions() {
  static std::map<std::pair<uint64_t, std::string_view>, db::Handle> map;
  return map;
}

}  // namespace
}  // namespace korva::api

using namespace korva::api;

ResultBuffer* qxdbTblSearch(const wchar_t* table, const wchar_t* name, int setNext) {
  Document* document = DocumentList::instance().current();
  std::string_view tableKey = tableName(table);
  if (!document || tableKey.empty() || !name) return nullptr;
  korva::db::Database& database = document->database();
  korva::db::Record* record = recordNamed(database, tableKey, toDrawingText(*document, name));
  if (!record) return nullptr;
  if (setNext) positions()[{document->serial(), tableKey}] = record->handle();
  return tableListOf(document->database(), *record);
}

ResultBuffer* qxdbTblNext(const wchar_t* table, int rewind) {
  Document* document = DocumentList::instance().current();
  std::string_view tableKey = tableName(table);
  if (!document || tableKey.empty()) return nullptr;
  std::vector<korva::db::Record*> records = recordsOf(document->database(), tableKey);
  auto key = std::make_pair(document->serial(), tableKey);
  auto position = positions().find(key);
  size_t next = 0;
  if (!rewind && position != positions().end()) {
    next = records.size();  // a position whose record went away ends the walk
    for (size_t i = 0; i < records.size(); ++i) {
      if (records[i]->handle() == position->second) next = i + 1;
    }
  }
  if (next >= records.size()) {
    if (!records.empty()) positions()[key] = records.back()->handle();
    return nullptr;
  }
  positions()[key] = records[next]->handle();
  return tableListOf(document->database(), *records[next]);
}

int qxdbTblObjName(const wchar_t* table, const wchar_t* name, EntityName result) {
  Document* document = DocumentList::instance().current();
  std::string_view tableKey = tableName(table);
  if (!document || tableKey.empty() || !name || !result) return RTERROR;
  korva::db::Record* record =
      recordNamed(document->database(), tableKey, toDrawingText(*document, name));
  if (!record) return RTERROR;
  nameOf(*document, *record, result);
  return RTNORM;
}
