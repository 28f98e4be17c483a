// Helpers the table, block, dictionary and database classes share.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "db/database.h"
#include "object_groups.h"
#include "object_state.h"
#include "qx_db_core.h"
#include "qx_memory.h"

namespace korva::api {

// Opens an object and checks its class; eWrongObjectType (and nothing open) otherwise.
template <class Class>
Qxad::ErrorStatus openAs(Class*& result, QxDbObjectId id, int mode, bool openErased = false) {
  result = nullptr;
  QxDbObject* object = nullptr;
  Qxad::ErrorStatus status = qxdbOpenQxDbObject(object, id, mode, openErased);
  if (status != Qxad::eOk) return status;
  result = Class::cast(object);
  if (!result) {
    object->close();
    return Qxad::eWrongObjectType;
  }
  return Qxad::eOk;
}

// Marks the object's database changed after a write.
inline void noteChanged(const QxDbObject& object) {
  if (db::Database* database = databaseOf(object)) database->recordChanged();
}

// A wide copy in host memory of drawing text of the object's database.
inline wchar_t* newWideText(const db::Database* database, std::string_view text) {
  return qxutNewString(wideText(database, text).c_str());
}

// The live (not erased) entry of a table by name, compared without regard to case.
db::Record* liveTableEntry(db::Database& database, std::string_view tableName,
                           std::string_view entryName);
// The table whose TABLE record this is.
db::Table* tableOfHead(db::Database& database, const db::Record& head);
// The table that holds a record, or null.
db::Table* tableHolding(db::Database& database, const db::Record& record);
// The definition (BLOCK ... ENDBLK) of a block record.
db::BlockDefinition* definitionOf(db::Database& database, const db::Record& blockRecord);
// The live entities a block record holds, in drawing order, sub-entities left out.
std::vector<db::Record*> entitiesOfBlock(db::Database& database, const db::Record& blockRecord);
// Every entity list of the drawing: the entities section and each definition's.
std::vector<std::vector<db::Record*>*> allEntityLists(db::Database& database);

// Codes whose values name records by handle.
bool isPointerCode(int code);

}  // namespace korva::api

namespace korva::api {

// A new object's groups made ready for a database: text re-encoded from UTF-8 into the
// drawing's code page, subclass markers left out for drawings that have none, and the
// handle and owner groups left to the database.
std::vector<db::OwnedGroup> groupsForDatabase(const db::Database& database, const db::Record& own);

}  // namespace korva::api
