#include "record.h"

#include <algorithm>

#include "group_code.h"

namespace korva::db {

void Record::GroupIterator::advance() {
  if (record_->owned_) {
    const auto& owned = *record_->owned_;
    if (index_ >= owned.size()) {
      atEnd_ = true;
      return;
    }
    current_ = {owned[index_].code, owned[index_].value};
    ++index_;
    return;
  }
  const char* end = record_->source_.data() + record_->source_.size();
  if (position_ >= end) {
    atEnd_ = true;
    return;
  }
  const char* codeEnd = record_text::lineEnd(position_, end);
  current_.code = record_text::groupCodeOf(position_, codeEnd);
  const char* valueStart = codeEnd < end ? codeEnd + 1 : end;
  const char* valueEnd = record_text::lineEnd(valueStart, end);
  position_ = valueEnd < end ? valueEnd + 1 : end;
  if (valueEnd > valueStart && valueEnd[-1] == '\r') --valueEnd;
  current_.value = std::string_view(valueStart, static_cast<size_t>(valueEnd - valueStart));
}

Record::Record(std::string_view type, std::string_view text, uint32_t flags)
    : type_(type), source_(text), flags_(flags) {}

Record::Record(std::string_view type, std::vector<OwnedGroup> groups)
    : type_(type),
      flags_(kModified),
      owned_(std::make_unique<std::vector<OwnedGroup>>(std::move(groups))) {
  deriveLinks();
}

Record::GroupRange Record::groups() const {
  GroupIterator it;
  it.record_ = this;
  it.atEnd_ = false;
  if (!owned_) {
    it.position_ = source_.data();
    if (!hasFlag(kNoTypeLine)) {
      const char* end = source_.data() + source_.size();
      it.position_ = record_text::nextLineStart(record_text::nextLineStart(it.position_, end), end);
    }
  }
  it.advance();
  return {it};
}

std::vector<Group> Record::groupList() const {
  std::vector<Group> list;
  if (owned_) list.reserve(owned_->size());
  forEachGroup([&](const Group& group) {
    list.push_back(group);
    return true;
  });
  return list;
}

std::optional<std::string_view> Record::find(int code) const {
  std::optional<std::string_view> found;
  forEachGroup([&](const Group& group) {
    if (group.code == code) found = group.value;
    return !found;
  });
  return found;
}

size_t Record::groupCount() const {
  if (owned_) return owned_->size();
  size_t count = 0;
  forEachGroup([&](const Group&) {
    ++count;
    return true;
  });
  return count;
}

std::vector<OwnedGroup> Record::ownedGroups() const {
  if (owned_) return *owned_;
  std::vector<OwnedGroup> copy;
  // Two lines a group: one allocation instead of a vector grown step by step.
  copy.reserve(static_cast<size_t>(std::count(source_.begin(), source_.end(), '\n')) / 2 + 1);
  forEachGroup([&](const Group& group) {
    copy.emplace_back(OwnedGroup{group.code, std::string(group.value)});
    return true;
  });
  return copy;
}

void Record::materialize() {
  if (owned_) return;
  owned_ = std::make_unique<std::vector<OwnedGroup>>(ownedGroups());
  flags_ |= kModified;
}

Record::State Record::saveState() const {
  State state{type_, handle_, owner_, source_, flags_, nullptr};
  if (owned_) state.owned = std::make_unique<std::vector<OwnedGroup>>(*owned_);
  return state;
}

void Record::restoreState(State state) {
  type_ = state.type;
  handle_ = state.handle;
  owner_ = state.owner;
  source_ = state.source;
  flags_ = state.flags;
  owned_ = std::move(state.owned);
}

void Record::assign(std::vector<OwnedGroup> groups) {
  if (beforeChange) beforeChange(*this);
  if (handle_ != kNoHandle && !hasFlag(kHandleNotInFile)) {
    std::string text = formatHandle(handle_);
    for (OwnedGroup& group : groups) {
      if (isHandleCode(group.code)) {
        group.value = text;
        break;
      }
    }
  }
  // The journal copied the old groups above, so the storage itself can be reused.
  if (owned_) {
    *owned_ = std::move(groups);
  } else {
    owned_ = std::make_unique<std::vector<OwnedGroup>>(std::move(groups));
  }
  flags_ |= kModified;
  Handle handle = handle_;
  deriveLinks();
  handle_ = handle;
}

bool Record::setValue(int code, std::string_view value) {
  if (!find(code)) return false;  // nothing changes: the record keeps its text
  if (beforeChange) beforeChange(*this);
  materialize();
  for (OwnedGroup& group : *owned_) {
    if (group.code == code) {
      group.value = value;
      if (code == 330) owner_ = ownerOf(*this);
      return true;
    }
  }
  return false;
}

void Record::setErased(bool erased) {
  if (erased) {
    flags_ |= kErased;
  } else {
    flags_ &= ~kErased;
  }
}

void Record::setHandle(Handle handle, bool writeGroup) {
  handle_ = handle;
  if (!writeGroup) return;
  materialize();
  std::string text = formatHandle(handle);
  int handleCode = type_ == "DIMSTYLE" ? 105 : 5;
  for (OwnedGroup& group : *owned_) {
    if (group.code == handleCode) {
      group.value = text;
      return;
    }
  }
  owned_->insert(owned_->begin(), OwnedGroup{handleCode, std::move(text)});
}

void Record::deriveLinks() {
  handle_ = kNoHandle;
  owner_ = kNoHandle;
  bool inAppData = false;
  bool seenHandle = false;
  bool seenOwner = false;
  forEachGroup([&](const Group& group) {
    if (group.code == 102) {
      inAppData = !group.value.empty() && group.value[0] == '{';
    } else if (!seenHandle && isHandleCode(group.code)) {
      // A DIMSTYLE keeps its own handle in 105; its 5 does not exist in files.
      if (group.code == 5 || type_ == "DIMSTYLE") {
        handle_ = parseHandle(group.value).value_or(kNoHandle);
        seenHandle = true;
      }
    } else if (!seenOwner && group.code == 330 && !inAppData) {
      owner_ = parseHandle(group.value).value_or(kNoHandle);
      seenOwner = true;
    }
    return !(seenOwner && seenHandle);
  });
}

Handle ownerOf(const Record& record) {
  bool inAppData = false;
  Handle owner = kNoHandle;
  record.forEachGroup([&](const Group& group) {
    if (group.code == 102) {
      inAppData = !group.value.empty() && group.value[0] == '{';
    } else if (group.code == 330 && !inAppData) {
      owner = parseHandle(group.value).value_or(kNoHandle);
      return false;
    }
    return true;
  });
  return owner;
}

}  // namespace korva::db
