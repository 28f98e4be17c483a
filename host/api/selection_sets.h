// The selection sets that are open, by id, with their drawing and members.
#pragma once

#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

#include "db/handle.h"
#include "document.h"
#include "qx_types.h"

namespace korva::api {

// The host keeps at most this many sets open at once; commands must free theirs.
constexpr int kMaxOpenSelectionSets = 128;

struct SelectionSetData {
  uint64_t documentSerial = 0;
  std::vector<db::Handle> members;  // in selection order, no repeats

  bool contains(db::Handle handle);
  bool add(db::Handle handle);     // false when it was a member already
  bool remove(db::Handle handle);  // false when it wasn't a member

 private:
  // Built on the first membership question; "X" sets of a million members never need it.
  std::optional<std::unordered_set<db::Handle>> index_;
  void buildIndex();
};

// A new set of the document's; false (and nothing made) at the limit of open sets.
bool openSelectionSet(Document& document, std::vector<db::Handle> members, SelectionSet out);
// The set's data; null for a freed or unknown set.
SelectionSetData* findSelectionSet(const SelectionSet set);
// Frees a set; false for an unknown one.
bool closeSelectionSet(const SelectionSet set);
// Sets of the document made and not freed, for the report of unfreed sets.
int openSelectionSetCount(Document& document);
// Open sets over all drawings.
int openSelectionSetTotal();

}  // namespace korva::api
