#include "extension_dictionary.h"

#include <algorithm>

#include "db/handle.h"
#include "db/value_text.h"

namespace korva::api {

namespace {

constexpr std::string_view kOpening = "{ACAD_XDICTIONARY";

}  // namespace

db::Record* extensionDictionaryOf(db::Database& database, const db::Record& object) {
  bool inside = false;
  for (const db::Group& group : object.groups()) {
    if (group.code == 102) {
      inside = group.value == kOpening;
      continue;
    }
    if (inside && group.code == 360) {
      db::Record* dictionary =
          database.lookup(db::parseHandle(group.value).value_or(db::kNoHandle));
      return dictionary && !dictionary->isErased() ? dictionary : nullptr;
    }
  }
  return nullptr;
}

db::Record* ensureExtensionDictionary(db::Database& database, db::Record& object) {
  if (db::Record* existing = extensionDictionaryOf(database, object)) return existing;
  db::Record* dictionary = database.addObject(
      "DICTIONARY",
      {{330, db::formatHandle(object.handle())}, {100, "AcDbDictionary"}, {280, "1"}, {281, "1"}});
  std::vector<db::OwnedGroup> groups = object.ownedGroups();
  // An erased dictionary's link is dropped with its group; the new one stands where
  // links stand, after the reactors and before the owner.
  for (size_t i = 0; i + 2 < groups.size(); ++i) {
    if (groups[i].code == 102 && groups[i].value == kOpening) {
      groups.erase(groups.begin() + static_cast<long>(i),
                   groups.begin() + static_cast<long>(i) + 3);
      break;
    }
  }
  size_t at = 0;
  bool inApplicationGroup = false;
  for (; at < groups.size(); ++at) {
    if (groups[at].code == 102) inApplicationGroup = groups[at].value.starts_with('{');
    if (!inApplicationGroup && groups[at].code != 5 && groups[at].code != 102) break;
  }
  std::vector<db::OwnedGroup> link = {
      {102, std::string(kOpening)}, {360, db::formatHandle(dictionary->handle())}, {102, "}"}};
  groups.insert(groups.begin() + static_cast<long>(at), link.begin(), link.end());
  object.assign(std::move(groups));
  database.recordChanged();
  return dictionary;
}

db::Record* namedObjectsDictionary(db::Database& database) {
  std::vector<db::Record*>* objects = database.objects();
  if (!objects) return nullptr;
  for (db::Record* record : *objects) {
    if (record->type() == "DICTIONARY" && !record->isErased()) return record;
  }
  return nullptr;
}

db::Record* dictionaryEntry(db::Database& database, const db::Record& dictionary,
                            std::string_view key) {
  std::vector<db::Group> groups = dictionary.groupList();
  for (size_t i = 0; i + 1 < groups.size(); ++i) {
    if (groups[i].code != 3 || !db::sameName(groups[i].value, key)) continue;
    if (groups[i + 1].code != 350 && groups[i + 1].code != 360) continue;
    db::Record* entry =
        database.lookup(db::parseHandle(groups[i + 1].value).value_or(db::kNoHandle));
    if (entry && !entry->isErased()) return entry;
  }
  return nullptr;
}

void setDictionaryEntry(db::Record& dictionary, std::string_view key, db::Handle handle) {
  std::vector<db::OwnedGroup> groups = dictionary.ownedGroups();
  for (size_t i = 0; i + 1 < groups.size(); ++i) {
    if (groups[i].code == 3 && db::sameName(groups[i].value, key) &&
        (groups[i + 1].code == 350 || groups[i + 1].code == 360)) {
      groups[i + 1].value = db::formatHandle(handle);
      dictionary.assign(std::move(groups));
      return;
    }
  }
  auto end = std::find_if(groups.begin(), groups.end(),
                          [](const db::OwnedGroup& group) { return group.code == 1001; });
  std::vector<db::OwnedGroup> entry = {{3, std::string(key)}, {360, db::formatHandle(handle)}};
  groups.insert(end, entry.begin(), entry.end());
  dictionary.assign(std::move(groups));
}

}  // namespace korva::api
