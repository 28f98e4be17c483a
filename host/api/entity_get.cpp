// qxdbEntGet and qxdbEntGetX: a record's list.
#include "document.h"
#include "qx_entities.h"
#include "record_lists.h"

namespace {

// Records of side databases (read with readDwgFile, not open as documents) have lists
// too, named with their database's serial.
ResultBuffer* listOf(const EntityName name, const ResultBuffer* applications, bool extended) {
  korva::db::Database* database = nullptr;
  korva::db::Record* record = korva::api::recordOf(name, nullptr, &database);
  if (!record) return nullptr;
  return korva::api::entityListOf(*database, *record, applications, extended);
}

}  // namespace

ResultBuffer* qxdbEntGet(const EntityName name) {
  return listOf(name, nullptr, false);
}

ResultBuffer* qxdbEntGetX(const EntityName name, const ResultBuffer* applications) {
  return listOf(name, applications, true);
}
