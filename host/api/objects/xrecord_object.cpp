// Xrecords: after the marker and the cloning flag (280), any DXF groups.
#include <algorithm>

#include "group_chains.h"
#include "object_access.h"
#include "qx_db_dictionary.h"
#include "table_classes.h"

using korva::db::OwnedGroup;
using korva::db::Record;

namespace {

constexpr std::string_view kXrecordPart = "AcDbXrecord";

// Index of the first data group in the owned groups.
size_t dataStart(const std::vector<OwnedGroup>& groups) {
  for (size_t i = 0; i < groups.size(); ++i) {
    if (groups[i].code != 100 || groups[i].value != kXrecordPart) continue;
    // The cloning flag comes first, where there is one.
    return i + 1 < groups.size() && groups[i + 1].code == 280 ? i + 2 : i + 1;
  }
  return groups.size();
}

}  // namespace

KORVA_DEFINE_CLASS(QxDbXrecord, QxDbObject)
static korva::api::ObjectClassRegistration xrecordClass("XRECORD", [] {
  return static_cast<QxDbObject*>(new QxDbXrecord);
});

QxDbXrecord::QxDbXrecord() : QxDbObject("XRECORD") {
  korva::api::recordOf(*this).assign({{100, std::string(kXrecordPart)}, {280, "1"}});
}

Qxad::ErrorStatus QxDbXrecord::rbChain(ResultBuffer*& chain) const {
  const Record& record = korva::api::recordOf(*this);
  std::vector<korva::db::Group> groups = record.groupList();
  std::vector<OwnedGroup> owned = record.ownedGroups();
  std::vector<korva::db::Group> data(groups.begin() + static_cast<long>(dataStart(owned)),
                                     groups.end());
  chain = korva::api::chainOfGroups(korva::api::databaseOf(*this), data);
  return chain || data.empty() ? Qxad::eOk : Qxad::eOutOfRange;
}

Qxad::ErrorStatus QxDbXrecord::setFromRbChain(const ResultBuffer* chain) {
  if (Qxad::ErrorStatus status = assertWriteEnabled(); status != Qxad::eOk) return status;
  std::optional<std::vector<korva::api::ListItem>> items =
      korva::api::itemsOfChain(korva::api::databaseOf(*this), chain);
  if (!items) return Qxad::eInvalidInput;
  Record& record = korva::api::recordOf(*this);
  std::vector<OwnedGroup> groups = record.ownedGroups();
  size_t start = dataStart(groups);
  groups.erase(groups.begin() + static_cast<long>(start), groups.end());
  // A record read without its marker gets one: the data follows it.
  if (start == 0 || groups.back().code != 280) {
    bool marked = std::any_of(groups.begin(), groups.end(), [](const OwnedGroup& group) {
      return group.code == 100 && group.value == kXrecordPart;
    });
    if (!marked) groups.push_back({100, std::string(kXrecordPart)});
  }
  for (const korva::api::ListItem& item : *items) korva::api::appendGroups(item, false, groups);
  record.assign(std::move(groups));
  korva::api::noteChanged(*this);
  return Qxad::eOk;
}
