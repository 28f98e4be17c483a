// qxdbEntGet and qxdbEntGetX: a record's list.
#include "document.h"
#include "qx_entities.h"
#include "record_lists.h"

namespace {

ResultBuffer* listOf(const EntityName name, const ResultBuffer* applications, bool extended) {
  korva::api::Document* document = nullptr;
  korva::db::Record* record = korva::api::recordOf(name, &document);
  if (!record) return nullptr;
  return korva::api::entityListOf(*document, *record, applications, extended);
}

}  // namespace

ResultBuffer* qxdbEntGet(const EntityName name) {
  return listOf(name, nullptr, false);
}

ResultBuffer* qxdbEntGetX(const EntityName name, const ResultBuffer* applications) {
  return listOf(name, applications, true);
}
