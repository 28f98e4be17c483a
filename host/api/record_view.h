// A record's groups seen as list values: points joined, and the groups that lists
// treat apart (handle, owner, application groups, extended data) marked.
#pragma once

#include <cstddef>

#include "db/record.h"
#include "inline_vector.h"

namespace korva::api {

// Groups of one record, points joined, with the roles that lists treat apart.
struct Slot {
  int code = 0;
  size_t first = 0;         // index into the group list
  int count = 1;            // 2 or 3 for points
  bool inAppGroup = false;  // inside 102 {...}
};

// Most records have a few dozen groups; those fit without a heap block.
struct RecordView {
  explicit RecordView(const db::Record& record);

  InlineVector<db::Group, 48> groups;
  InlineVector<Slot, 40> slots;
  int handleSlot = -1;
  int ownerSlot = -1;
  size_t extendedStart = 0;  // first slot of extended data (slots.size() when none)
};

inline RecordView viewOf(const db::Record& record) {
  return RecordView(record);
}

}  // namespace korva::api
