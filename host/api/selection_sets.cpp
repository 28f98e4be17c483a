#include "selection_sets.h"

#include "qx_selection.h"

#include <algorithm>
#include <unordered_map>

namespace korva::api {

namespace {

struct Registry {
  std::unordered_map<int64_t, SelectionSetData> sets;
  int64_t nextId = 1;
};

Registry& registry() {
  static Registry instance;
  return instance;
}

}  // namespace

void SelectionSetData::buildIndex() {
  if (!index_) index_.emplace(members.begin(), members.end());
}

bool SelectionSetData::contains(db::Handle handle) {
  // Small sets are searched; a hash set only pays for itself on big ones.
  if (members.size() < 32 && !index_) {
    return std::find(members.begin(), members.end(), handle) != members.end();
  }
  buildIndex();
  return index_->count(handle) != 0;
}

bool SelectionSetData::add(db::Handle handle) {
  if (contains(handle)) return false;
  members.push_back(handle);
  if (index_) index_->insert(handle);
  return true;
}

bool SelectionSetData::remove(db::Handle handle) {
  auto it = std::find(members.begin(), members.end(), handle);
  if (it == members.end()) return false;
  members.erase(it);
  if (index_) index_->erase(handle);
  return true;
}

// A set's second word is its drawing's serial with this bit set, so that an entity name,
// which has the same shape, is never taken for a set (a command freeing a member's name
// must not free a set whose number equals the member's handle).
namespace {

constexpr int64_t kSetNameTag = int64_t{1} << 62;

int64_t setNameWord(uint64_t documentSerial) {
  return static_cast<int64_t>(documentSerial) | kSetNameTag;
}

}  // namespace

bool openSelectionSet(Document& document, std::vector<db::Handle> members, SelectionSet out) {
  Registry& all = registry();
  if (static_cast<int>(all.sets.size()) >= kMaxOpenSelectionSets) return false;
  int64_t id = all.nextId++;
  SelectionSetData& data = all.sets[id];
  data.documentSerial = document.serial();
  data.members = std::move(members);
  ++document.selection().openSets;
  out[0] = id;
  out[1] = setNameWord(document.serial());
  return true;
}

SelectionSetData* findSelectionSet(const SelectionSet set) {
  if (!set) return nullptr;
  Registry& all = registry();
  auto it = all.sets.find(set[0]);
  if (it == all.sets.end() || setNameWord(it->second.documentSerial) != set[1]) {
    return nullptr;
  }
  return &it->second;
}

bool closeSelectionSet(const SelectionSet set) {
  SelectionSetData* data = findSelectionSet(set);
  if (!data) return false;
  if (Document* document = DocumentList::instance().bySerial(data->documentSerial)) {
    --document->selection().openSets;
  }
  registry().sets.erase(set[0]);
  return true;
}

int openSelectionSetCount(Document& document) {
  return document.selection().openSets;
}

int openSelectionSetTotal() {
  return static_cast<int>(registry().sets.size());
}

}  // namespace korva::api

namespace {

using korva::api::Document;
using korva::api::DocumentList;
using korva::api::findSelectionSet;
using korva::api::SelectionSetData;

}  // namespace

int qxedSSLength(const SelectionSet set, std::int32_t* count) {
  SelectionSetData* data = findSelectionSet(set);
  if (!data || !count) return RTERROR;
  *count = static_cast<std::int32_t>(data->members.size());
  return RTNORM;
}

int qxedSSName(const SelectionSet set, std::int32_t index, EntityName name) {
  SelectionSetData* data = findSelectionSet(set);
  if (!data || !name || index < 0 || static_cast<size_t>(index) >= data->members.size()) {
    return RTERROR;
  }
  name[0] = static_cast<int64_t>(data->members[index]);
  name[1] = static_cast<int64_t>(data->documentSerial);
  return RTNORM;
}

int qxedSSAdd(const EntityName name, const SelectionSet set, SelectionSet result) {
  if (!result) return RTERROR;
  bool noName = korva::api::isNull(name);
  bool noSet = !set || (set[0] == 0 && set[1] == 0);
  Document* owner = nullptr;
  korva::db::Record* record = nullptr;
  if (!noName) {
    record = korva::api::recordOf(name, &owner);
    if (!record || record->isErased()) return RTERROR;
  }
  if (noSet) {
    Document* document = owner ? owner : DocumentList::instance().current();
    if (!document) return RTERROR;
    std::vector<korva::db::Handle> members;
    if (record) members.push_back(record->handle());
    return korva::api::openSelectionSet(*document, std::move(members), result) ? RTNORM : RTERROR;
  }
  SelectionSetData* data = findSelectionSet(set);
  if (!data) return RTERROR;
  // A set holds entities of one drawing.
  if (record && owner->serial() != data->documentSerial) return RTERROR;
  if (record) data->add(record->handle());
  if (result != set) {
    result[0] = set[0];
    result[1] = set[1];
  }
  return RTNORM;
}

int qxedSSDel(const EntityName name, const SelectionSet set) {
  SelectionSetData* data = findSelectionSet(set);
  if (!data || korva::api::isNull(name) || name[1] != static_cast<int64_t>(data->documentSerial)) {
    return RTERROR;
  }
  return data->remove(static_cast<korva::db::Handle>(name[0])) ? RTNORM : RTERROR;
}

int qxedSSMemb(const EntityName name, const SelectionSet set) {
  SelectionSetData* data = findSelectionSet(set);
  if (!data || korva::api::isNull(name) || name[1] != static_cast<int64_t>(data->documentSerial)) {
    return RTERROR;
  }
  return data->contains(static_cast<korva::db::Handle>(name[0])) ? RTNORM : RTERROR;
}

int qxedSSFree(const SelectionSet set) {
  return korva::api::closeSelectionSet(set) ? RTNORM : RTERROR;
}

int qxedSSSetFirst(const SelectionSet pickSet, const SelectionSet /*gripSet*/) {
  bool noSet = !pickSet || (pickSet[0] == 0 && pickSet[1] == 0);
  if (noSet) {
    Document* document = DocumentList::instance().current();
    if (!document) return RTERROR;
    document->selection().pickFirst.clear();
    return RTNORM;
  }
  SelectionSetData* data = findSelectionSet(pickSet);
  if (!data) return RTERROR;
  Document* document = DocumentList::instance().bySerial(data->documentSerial);
  if (!document) return RTERROR;
  document->selection().pickFirst = data->members;
  return RTNORM;
}
