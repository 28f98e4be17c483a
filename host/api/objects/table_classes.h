// Definitions shared by the concrete tables and records: class records, constructors,
// and the typed getAt, newIterator and getRecord of each table.
#pragma once

#include "object_access.h"
#include "qx_db_tables.h"

#define KORVA_DEFINE_CLASS(Class, Parent)                      \
  const QxRxClass* Class::desc() {                             \
    static const QxRxClass record(L"" #Class, Parent::desc()); \
    return &record;                                            \
  }

#define KORVA_DEFINE_TABLE(Table, Parent, Record, Iterator, recordType)                           \
  KORVA_DEFINE_CLASS(Table, Parent)                                                               \
  Table::Table() : Parent(recordType) {}                                                          \
  Qxad::ErrorStatus Table::getAt(const wchar_t* name, Record*& record, int mode, bool openErased) \
      const {                                                                                     \
    record = nullptr;                                                                             \
    QxDbObjectId id;                                                                              \
    Qxad::ErrorStatus status = QxDbSymbolTable::getAt(name, id, openErased);                      \
    return status != Qxad::eOk ? status : korva::api::openAs(record, id, mode, openErased);       \
  }                                                                                               \
  Qxad::ErrorStatus Table::newIterator(Iterator*& iterator, bool atBeginning, bool skipDeleted)   \
      const {                                                                                     \
    iterator = nullptr;                                                                           \
    korva::db::Database* database = korva::api::databaseOf(*this);                                \
    if (!database) return Qxad::eNotInDatabase;                                                   \
    iterator = new Iterator(database->serial(), korva::api::recordOf(*this).handle());            \
    iterator->start(atBeginning, skipDeleted);                                                    \
    return Qxad::eOk;                                                                             \
  }                                                                                               \
  Qxad::ErrorStatus Iterator::getRecord(Record*& record, int mode, bool openErased) const {       \
    record = nullptr;                                                                             \
    QxDbObjectId id;                                                                              \
    if (getRecordId(id) != Qxad::eOk) return Qxad::eInvalidIndex;                                 \
    return korva::api::openAs(record, id, mode, openErased);                                      \
  }                                                                                               \
  static korva::api::ObjectClassRegistration record##Record(                                      \
      recordType, [] { return static_cast<QxDbObject*>(new Record); });
