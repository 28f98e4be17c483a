// Extended data of any object, over the flat layer's merging of application blocks.
#include <algorithm>

#include "api/document.h"
#include "api/extended_data.h"
#include "api/record_view.h"
#include "group_chains.h"
#include "object_access.h"

using korva::db::Database;
using korva::db::Record;

ResultBuffer* QxDbObject::xData(const wchar_t* application) const {
  const Record& record = korva::api::recordOf(*this);
  Database* database = korva::api::databaseOf(*this);
  std::vector<korva::db::Group> groups = record.groupList();
  std::vector<korva::db::Group> wanted;
  bool inExtendedData = false;
  bool taking = false;
  std::string name = application ? korva::api::drawingText(database, application) : std::string();
  for (const korva::db::Group& group : groups) {
    if (group.code == 1001) {
      inExtendedData = true;
      taking = !application || korva::db::sameName(group.value, name);
    }
    if (inExtendedData && taking) wanted.push_back(group);
  }
  return korva::api::chainOfGroups(database, wanted);
}

Qxad::ErrorStatus QxDbObject::setXData(const ResultBuffer* data) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  // Applications must be registered; a new object answers to the current drawing's table.
  Database* database = korva::api::databaseOf(*this);
  if (!database) database = korva::api::currentDatabase();
  if (!database) return Qxad::eNotInDatabase;
  std::optional<std::vector<korva::api::ListItem>> items = korva::api::itemsOfChain(database, data);
  if (!items) return Qxad::eInvalidInput;
  for (const korva::api::ListItem& item : *items) {
    if (item.code < 1000 || item.code > 1071) return Qxad::eInvalidInput;
  }
  Record& record = korva::api::recordOf(*this);
  korva::api::RecordView view = korva::api::viewOf(record);
  std::vector<korva::db::OwnedGroup> extended;
  if (!korva::api::mergeExtendedData(*database, &view, *items, extended))
    return Qxad::eInvalidInput;
  std::vector<korva::db::OwnedGroup> groups = record.ownedGroups();
  auto firstExtended =
      std::find_if(groups.begin(), groups.end(),
                   [](const korva::db::OwnedGroup& group) { return group.code == 1001; });
  groups.erase(firstExtended, groups.end());
  groups.insert(groups.end(), extended.begin(), extended.end());
  record.assign(std::move(groups));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}
