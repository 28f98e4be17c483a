// A drawing record: its type and its ordered list of group codes and values.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "handle.h"

namespace korva::db {

// One group as seen through a record: the value's text in the drawing's encoding.
struct Group {
  int code = 0;
  std::string_view value;
};

// A group with its own copy of the text, for building and editing records.
struct OwnedGroup {
  int code = 0;
  std::string value;
};

// The group list is the one truth about a record. A record read from a file keeps
// pointing at the file's text until it is changed, so an untouched record is written
// back byte for byte and every value keeps its original spelling.
class Record {
 public:
  enum Flag : uint32_t {
    kErased = 1u << 0,
    kModified = 1u << 1,         // groups differ from the text that was read
    kHandleNotInFile = 1u << 2,  // the handle was given on load (files without handles)
    kNoTypeLine = 1u << 3,       // header variables: groups without a leading 0 group
  };

  class GroupIterator {
   public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = Group;
    using difference_type = std::ptrdiff_t;
    using pointer = const Group*;
    using reference = const Group&;

    GroupIterator() = default;
    const Group& operator*() const { return current_; }
    const Group* operator->() const { return &current_; }
    GroupIterator& operator++() {
      advance();
      return *this;
    }
    GroupIterator operator++(int) {
      GroupIterator copy = *this;
      advance();
      return copy;
    }
    bool operator==(const GroupIterator& other) const {
      return atEnd_ == other.atEnd_ &&
             (atEnd_ || (position_ == other.position_ && index_ == other.index_));
    }

   private:
    friend class Record;
    void advance();
    const Record* record_ = nullptr;
    const char* position_ = nullptr;  // in the source text
    size_t index_ = 0;                // in the owned groups
    bool atEnd_ = true;
    Group current_;
  };

  struct GroupRange {
    GroupIterator first;
    GroupIterator begin() const { return first; }
    GroupIterator end() const { return {}; }
  };

  Record() = default;
  // A record read from a file: `text` starts at its 0 group (or, for header
  // variables, at the first group) and ends before the next record. The reader
  // sets the handle and owner it found while scanning.
  Record(std::string_view type, std::string_view text, uint32_t flags);
  // A record made in memory.
  Record(std::string_view type, std::vector<OwnedGroup> groups);

  std::string_view type() const { return type_; }
  Handle handle() const { return handle_; }
  Handle owner() const { return owner_; }
  uint32_t flags() const { return flags_; }
  bool hasFlag(Flag flag) const { return (flags_ & flag) != 0; }
  bool isErased() const { return hasFlag(kErased); }
  bool isModified() const { return hasFlag(kModified); }

  // The groups after the type line, in order.
  GroupRange groups() const;
  std::vector<Group> groupList() const;
  // Calls visit(const Group&) for each group in order, and stops early when visit
  // returns false. Lists and searches go through every group of a record on each call:
  // this is the quick way, without the iterator's bookkeeping.
  template <class Visit>
  void forEachGroup(Visit&& visit) const;
  std::optional<std::string_view> find(int code) const;
  size_t groupCount() const;

  // The text as read; empty for records made or changed in memory.
  std::string_view sourceText() const { return isModified() ? std::string_view() : source_; }

  // Replaces the group list. The record's own handle group keeps the record's handle:
  // handles never change.
  void assign(std::vector<OwnedGroup> groups);
  // Edits the group list in place: edit(std::vector<OwnedGroup>&). Cheaper than
  // ownedGroups() and assign() when a record is changed a group at a time.
  template <class Edit>
  void edit(Edit&& edit);
  // Sets the first group with this code; false when the record has none.
  bool setValue(int code, std::string_view value);
  // Copies the groups into the record's own storage, for editing.
  std::vector<OwnedGroup> ownedGroups() const;

  // Everything a record is, kept by the undo journal before a change and put back
  // exactly, so that a record untouched since it was read is written byte for byte again.
  struct State {
    std::string_view type;
    Handle handle = kNoHandle;
    Handle owner = kNoHandle;
    std::string_view source;
    uint32_t flags = 0;
    std::unique_ptr<std::vector<OwnedGroup>> owned;
  };
  State saveState() const;

  // Called before the groups of any record change; set while some drawing keeps an undo
  // journal, null otherwise (then a change costs one test).
  static inline void (*beforeChange)(Record& record) = nullptr;

 private:
  friend class Database;
  friend class ChangeJournal;
  void restoreState(State state);
  void setErased(bool erased);
  void setHandle(Handle handle, bool writeGroup);
  void setType(std::string_view type) { type_ = type; }
  void deriveLinks();
  void materialize();

  std::string_view type_;
  Handle handle_ = kNoHandle;
  Handle owner_ = kNoHandle;
  std::string_view source_;
  uint32_t flags_ = 0;
  std::unique_ptr<std::vector<OwnedGroup>> owned_;
};

namespace record_text {

// The end of the line that starts at `pos`. Lines of a drawing are short: eight bytes
// at a time beat a library call.
inline const char* lineEnd(const char* pos, const char* end) {
  static_assert(std::endian::native == std::endian::little);
  constexpr uint64_t kOnes = 0x0101010101010101ull;
  constexpr uint64_t kHighs = 0x8080808080808080ull;
  while (end - pos >= 8) {
    uint64_t word;
    std::memcpy(&word, pos, 8);
    uint64_t x = word ^ (kOnes * '\n');
    // The lowest flagged byte is the first line feed (bytes are read little-endian).
    uint64_t found = (x - kOnes) & ~x & kHighs;
    if (found) return pos + (__builtin_ctzll(found) >> 3);
    pos += 8;
  }
  while (pos < end && *pos != '\n') ++pos;
  return pos;
}

// Past the line that starts at `pos`.
inline const char* nextLineStart(const char* pos, const char* end) {
  pos = lineEnd(pos, end);
  return pos < end ? pos + 1 : end;
}

// A group code line's value: digits with optional blanks and sign; 0 when malformed,
// as the iterator reads it.
inline int groupCodeOf(const char* first, const char* last) {
  if (last > first && last[-1] == '\r') --last;
  while (first < last && (*first == ' ' || *first == '\t')) ++first;
  while (last > first && (last[-1] == ' ' || last[-1] == '\t')) --last;
  bool negative = false;
  if (first < last && (*first == '-' || *first == '+')) negative = *first++ == '-';
  if (first == last || last - first > 6) return 0;
  int value = 0;
  for (; first < last; ++first) {
    unsigned digit = static_cast<unsigned char>(*first) - '0';
    if (digit > 9) return 0;
    value = value * 10 + static_cast<int>(digit);
  }
  return negative ? -value : value;
}

}  // namespace record_text

template <class Edit>
void Record::edit(Edit&& edit) {
  if (beforeChange) beforeChange(*this);
  materialize();
  edit(*owned_);
  // Handles never change; the owner may.
  Handle handle = handle_;
  deriveLinks();
  handle_ = handle;
}

template <class Visit>
void Record::forEachGroup(Visit&& visit) const {
  if (owned_) {
    for (const OwnedGroup& group : *owned_) {
      if (!visit(Group{group.code, group.value})) return;
    }
    return;
  }
  const char* pos = source_.data();
  const char* end = pos + source_.size();
  if (!hasFlag(kNoTypeLine)) {
    pos = record_text::nextLineStart(record_text::nextLineStart(pos, end), end);
  }
  while (pos < end) {
    const char* codeEnd = record_text::lineEnd(pos, end);
    int code = record_text::groupCodeOf(pos, codeEnd);
    const char* valueStart = codeEnd < end ? codeEnd + 1 : end;
    const char* valueEnd = record_text::lineEnd(valueStart, end);
    pos = valueEnd < end ? valueEnd + 1 : end;
    if (valueEnd > valueStart && valueEnd[-1] == '\r') --valueEnd;
    if (!visit(
            Group{code, std::string_view(valueStart, static_cast<size_t>(valueEnd - valueStart))}))
      return;
  }
}

// The first owner link of a group list: the 330 that is not inside a 102 group.
Handle ownerOf(const Record& record);

}  // namespace korva::db
