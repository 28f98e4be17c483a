// What stands behind an object of the object layer: its record and how it is open.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "db/database.h"
#include "qx_db_core.h"

struct QxDbObjectState {
  korva::db::Database* database = nullptr;  // null while the object is new
  korva::db::Record* record = nullptr;      // in the database, or ownRecord
  std::unique_ptr<korva::db::Record> ownRecord;
  std::string ownType;  // a new object's record type, kept alive for its record
  int mode = QxDb::kForWrite;
  bool open = false;  // opened from a database and not yet closed
  // A new old-style polyline's VERTEX records or a new reference's ATTRIB records, and
  // their SEQEND (type and groups), which go into the database right behind it.
  std::vector<std::pair<std::string, std::vector<korva::db::OwnedGroup>>> followers;
  // A new dimension's moved picture: the block it was copied from and the copy's
  // entities, which become an anonymous block of its own when the dimension is added.
  std::string pictureSource;
  std::vector<std::pair<std::string, std::vector<korva::db::OwnedGroup>>> pictureEntities;

  static QxDbObjectState* of(const QxDbObject* object) { return object->state_; }
};

namespace korva::api {

// Makes a new, unbound object of the class registered for a record type.
using ObjectMaker = QxDbObject* (*)();
void registerObjectClass(std::string_view dxfType, ObjectMaker make);
// Registers a class at load time: `static ObjectClassRegistration line("LINE", make);`.
struct ObjectClassRegistration {
  ObjectClassRegistration(std::string_view dxfType, ObjectMaker make) {
    registerObjectClass(dxfType, make);
  }
};

// Kinds whose class depends on the record's groups (DIMENSION by its type bits,
// POLYLINE by its flags): a chooser returns a new, unbound object, or null to leave the
// record to the next chooser and finally to the class registered for the type.
using ObjectChooser = QxDbObject* (*)(const db::Record& record);
void registerObjectChooser(std::string_view dxfType, ObjectChooser choose);
struct ObjectChooserRegistration {
  ObjectChooserRegistration(std::string_view dxfType, ObjectChooser choose) {
    registerObjectChooser(dxfType, choose);
  }
};

// A new object of the class the record would open as, owning a copy of the record's
// type and groups (not its handle): what explode hands to its caller.
QxDbObject* newObjectLike(std::string_view dxfType, std::vector<db::OwnedGroup> groups);

// While an object is made to open over an existing record, its constructors write their
// defaults into this throw-away record instead of a record of their own: opening costs
// no group writes that the real record would replace anyway.
db::Record& scratchRecord();
bool isScratchRecord(const db::Record& record);
bool makingObjectToOpen();

// The object id of a record of a database.
QxDbObjectId idOf(const db::Database& database, const db::Record& record);
// The record an id names, and its database; null when there is none.
db::Record* recordOf(QxDbObjectId id, db::Database** database = nullptr);

// Puts a new object's record into the database: the record becomes the database's and
// the object stays open for write on it.
void bindNewObject(QxDbObject& object, db::Database& database, db::Record& record);

// The record of an object, for the classes' own members.
inline db::Record& recordOf(const QxDbObject& object) {
  return *QxDbObjectState::of(&object)->record;
}
inline db::Database* databaseOf(const QxDbObject& object) {
  return QxDbObjectState::of(&object)->database;
}

}  // namespace korva::api
