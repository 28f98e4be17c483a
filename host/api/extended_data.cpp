#include "extended_data.h"

#include <algorithm>
#include <string>

#include "document.h"
#include "drawing_text.h"
#include "qx_entities.h"

namespace korva::api {
namespace {

long valueSize(int code, size_t textLength) {
  constexpr long kCode = 2;
  if (code == 1002) return kCode + 1;
  if (code == 1004) return kCode + static_cast<long>(textLength / 2);
  if (code == 1005) return kCode + 8;
  if (code >= 1010 && code <= 1013) return kCode + 24;
  if (code >= 1040 && code <= 1042) return kCode + 8;
  if (code == 1070) return kCode + 2;
  if (code == 1071) return kCode + 4;
  return kCode + static_cast<long>(textLength);
}

struct Application {
  std::string name;
  std::vector<db::OwnedGroup> groups;  // from the 1001 on
};

}  // namespace

long extendedDataSize(const RecordView& view) {
  long size = 0;
  for (size_t i = view.extendedStart; i < view.slots.size(); ++i) {
    const Slot& slot = view.slots[i];
    size += valueSize(slot.code, view.groups[slot.first].value.size());
  }
  return size;
}

bool mergeExtendedData(db::Database& database, const RecordView* view,
                       const std::vector<ListItem>& fromList, std::vector<db::OwnedGroup>& out) {
  std::vector<Application> applications;
  if (view) {
    for (size_t i = view->extendedStart; i < view->slots.size(); ++i) {
      const Slot& slot = view->slots[i];
      if (slot.code == 1001)
        applications.push_back({std::string(view->groups[slot.first].value), {}});
      if (applications.empty()) continue;
      for (int axis = 0; axis < slot.count; ++axis) {
        const db::Group& group = view->groups[slot.first + axis];
        applications.back().groups.push_back({group.code, std::string(group.value)});
      }
    }
  }
  size_t index = 0;
  while (index < fromList.size()) {
    const ListItem& head = fromList[index];
    if (head.code != 1001 || !database.tableEntry("APPID", head.text)) return false;
    Application given{head.text, {}};
    appendGroups(head, false, given.groups);
    int depth = 0;
    for (++index; index < fromList.size() && fromList[index].code != 1001; ++index) {
      const ListItem& item = fromList[index];
      if (item.code == 1002) {
        if (item.text == "{") {
          ++depth;
        } else if (item.text == "}" && depth > 0) {
          --depth;
        } else {
          return false;
        }
      }
      appendGroups(item, false, given.groups);
    }
    if (depth != 0) return false;
    auto existing =
        std::find_if(applications.begin(), applications.end(),
                     [&](const Application& each) { return db::sameName(each.name, given.name); });
    bool empty = given.groups.size() == 1;
    if (existing != applications.end()) {
      if (empty) {
        applications.erase(existing);
      } else {
        *existing = std::move(given);
      }
    } else if (!empty) {
      applications.push_back(std::move(given));
    }
  }
  long size = 0;
  for (const Application& application : applications) {
    for (size_t i = 0; i < application.groups.size(); ++i) {
      const db::OwnedGroup& group = application.groups[i];
      size += valueSize(group.code, group.value.size());
      // Points count once, by their X.
      if (group.code >= 1010 && group.code <= 1013) i += 2;
    }
    out.insert(out.end(), application.groups.begin(), application.groups.end());
  }
  return size <= kExtendedDataLimit;
}

}  // namespace korva::api

using korva::api::Document;
using korva::api::DocumentList;

int qxdbRegApp(const wchar_t* application) {
  Document* document = DocumentList::instance().current();
  if (!document || !application || !*application) return RTERROR;
  std::wstring_view name(application);
  // An application name is a symbol name: no blanks, no characters DXF can't carry.
  if (name.find_first_of(L" \r\n<>/\\\":;?*|,=`") != std::wstring_view::npos) return RTERROR;
  korva::db::Database& database = document->database();
  std::string text = korva::api::toDrawingText(*document, name);
  if (database.tableEntry("APPID", text)) return RTERROR;
  korva::db::Table* table = database.table("APPID");
  if (!table) return RTERROR;
  std::vector<korva::db::OwnedGroup> groups;
  if (database.version() >= "AC1012") {
    groups.push_back({100, "AcDbSymbolTableRecord"});
    groups.push_back({100, "AcDbRegAppTableRecord"});
  }
  groups.push_back({2, text});
  groups.push_back({70, "0"});
  database.addTableEntry(*table, "APPID", std::move(groups));
  return RTNORM;
}

int qxdbXdRoom(const EntityName name, long* result) {
  if (!result) return RTERROR;
  korva::db::Record* record = korva::api::recordOf(name);
  if (!record) return RTERROR;
  korva::api::RecordView view = korva::api::viewOf(*record);
  *result = korva::api::kExtendedDataLimit - korva::api::extendedDataSize(view);
  return RTNORM;
}
