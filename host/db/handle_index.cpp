#include "handle_index.h"

#include <algorithm>
#include <bit>

namespace korva::db {

size_t HandleIndex::slotOf(Handle handle) const {
  // Handles are mostly consecutive; mixing spreads them over the table.
  uint64_t mixed = handle * 0x9E3779B97F4A7C15ull;
  return static_cast<size_t>(mixed >> 20) & (slots_.size() - 1);
}

Record* HandleIndex::find(Handle handle) const {
  if (slots_.empty() || handle == kNoHandle) return nullptr;
  for (size_t i = slotOf(handle);; i = (i + 1) & (slots_.size() - 1)) {
    const Slot& slot = slots_[i];
    if (slot.handle == handle) return slot.record;
    if (slot.handle == kNoHandle) return nullptr;
  }
}

bool HandleIndex::insert(Handle handle, Record* record) {
  if (handle == kNoHandle) return false;
  if ((size_ + 1) * 2 > slots_.size()) grow(std::max<size_t>(64, slots_.size() * 2));
  for (size_t i = slotOf(handle);; i = (i + 1) & (slots_.size() - 1)) {
    Slot& slot = slots_[i];
    if (slot.handle == handle) return false;
    if (slot.handle == kNoHandle) {
      slot = {handle, record};
      ++size_;
      return true;
    }
  }
}

void HandleIndex::erase(Handle handle) {
  if (slots_.empty()) return;
  size_t mask = slots_.size() - 1;
  size_t i = slotOf(handle);
  while (slots_[i].handle != handle) {
    if (slots_[i].handle == kNoHandle) return;
    i = (i + 1) & mask;
  }
  // Backward-shift deletion keeps probe chains intact without tombstones.
  size_t hole = i;
  for (size_t j = (i + 1) & mask; slots_[j].handle != kNoHandle; j = (j + 1) & mask) {
    size_t home = slotOf(slots_[j].handle);
    bool movable = hole <= j ? (home <= hole || home > j) : (home <= hole && home > j);
    if (movable) {
      slots_[hole] = slots_[j];
      hole = j;
    }
  }
  slots_[hole] = Slot{};
  --size_;
}

void HandleIndex::reserve(size_t count) {
  size_t wanted = std::bit_ceil(std::max<size_t>(64, count * 2));
  if (wanted > slots_.size()) grow(wanted);
}

void HandleIndex::grow(size_t capacity) {
  std::vector<Slot> old = std::move(slots_);
  slots_.assign(std::bit_ceil(capacity), Slot{});
  size_ = 0;
  for (const Slot& slot : old) {
    if (slot.handle != kNoHandle) insert(slot.handle, slot.record);
  }
}

}  // namespace korva::db
