// A drawing record: its type and its ordered list of group codes and values.
#pragma once

#include <cstdint>
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
  std::optional<std::string_view> find(int code) const;
  size_t groupCount() const;

  // The text as read; empty for records made or changed in memory.
  std::string_view sourceText() const { return isModified() ? std::string_view() : source_; }

  // Replaces the group list. The record's own handle group keeps the record's handle:
  // handles never change.
  void assign(std::vector<OwnedGroup> groups);
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

// The first owner link of a group list: the 330 that is not inside a 102 group.
Handle ownerOf(const Record& record);

}  // namespace korva::db
