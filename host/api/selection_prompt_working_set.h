// The selection a prompt is building.
#pragma once

#include <unordered_set>
#include <vector>

#include "db/handle.h"

namespace korva::api {

// Taking members out stays cheap when a whole drawing was selected, and a member taken
// back keeps its first place.
class WorkingSet {
 public:
  bool contains(db::Handle handle) const { return present_.count(handle) != 0; }
  void add(db::Handle handle) {
    if (present_.insert(handle).second) order_.push_back(handle);
  }
  void remove(db::Handle handle) { present_.erase(handle); }
  int size() const { return static_cast<int>(present_.size()); }
  std::vector<db::Handle> members() const {
    std::vector<db::Handle> members;
    std::unordered_set<db::Handle> listed;
    for (db::Handle handle : order_) {
      if (contains(handle) && listed.insert(handle).second) members.push_back(handle);
    }
    return members;
  }

 private:
  std::unordered_set<db::Handle> present_;
  std::vector<db::Handle> order_;  // may repeat members taken out and back in
};

}  // namespace korva::api
