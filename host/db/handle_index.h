// Handle to record lookup: an open-addressing table, compact enough for drawings
// of millions of records.
#pragma once

#include <cstddef>
#include <vector>

#include "handle.h"

namespace korva::db {

class Record;

class HandleIndex {
 public:
  Record* find(Handle handle) const;
  // False when the handle is taken already.
  bool insert(Handle handle, Record* record);
  void erase(Handle handle);
  void reserve(size_t count);
  size_t size() const { return size_; }

 private:
  struct Slot {
    Handle handle = kNoHandle;
    Record* record = nullptr;
  };
  size_t slotOf(Handle handle) const;
  void grow(size_t capacity);

  std::vector<Slot> slots_;
  size_t size_ = 0;
};

}  // namespace korva::db
