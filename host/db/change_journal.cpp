#include "change_journal.h"

namespace korva::db {

namespace {
// The label of a step made of changes outside any command's group.
constexpr std::string_view kLooseLabel = "GROUP";
}  // namespace

void ChangeJournal::recordChanging(Record& record) {
  if (!recording()) return;
  if (!keptThisStretch_.insert(&record).second) return;
  entries_.push_back({Kind::Changed, static_cast<uint32_t>(states_.size()), &record});
  states_.push_back(record.saveState());
}

void ChangeJournal::recordMade(Record& record) {
  if (!recording()) return;
  entries_.push_back({Kind::Made, 0, &record});
  // Undoing the stretch erases the record, so its later changes need no kept state.
  keptThisStretch_.insert(&record);
}

void ChangeJournal::recordErasing(Record& record) {
  if (!recording()) return;
  entries_.push_back({Kind::Erasing, record.isErased() ? 1u : 0u, &record});
}

void ChangeJournal::beginGroup(GroupKind kind, std::string_view label) {
  openBegins_.push_back(entries_.size());
  entries_.push_back({Kind::GroupBegin, static_cast<uint32_t>(labels_.size()), nullptr});
  labels_.emplace_back(label);
  kinds_.push_back(kind);
  newStretch();
}

bool ChangeJournal::endGroup() {
  if (openBegins_.empty()) return false;
  size_t begin = openBegins_.back();
  openBegins_.pop_back();
  kinds_.pop_back();
  newStretch();
  if (begin + 1 == entries_.size()) {
    entries_.pop_back();
    labels_.pop_back();
    return true;
  }
  entries_.push_back({Kind::GroupEnd, static_cast<uint32_t>(begin), nullptr});
  if (control_ == Control::One && openBegins_.empty()) forgetBefore(begin);
  return true;
}

std::optional<ChangeJournal::GroupKind> ChangeJournal::innermostGroup() const {
  if (kinds_.empty()) return std::nullopt;
  return kinds_.back();
}

bool ChangeJournal::userGroupOpen() const {
  for (GroupKind kind : kinds_) {
    if (kind == GroupKind::User) return true;
  }
  return false;
}

void ChangeJournal::addMark() {
  if (!recording()) return;
  entries_.push_back({Kind::Mark, 0, nullptr});
  newStretch();
}

bool ChangeJournal::hasMarkInOpenGroup() const {
  size_t bottom = floor();
  size_t index = entries_.size();
  while (index > bottom) {
    const Entry& entry = entries_[index - 1];
    if (entry.kind == Kind::Mark) return true;
    // A closed group's marks went with it: skip over it whole.
    index = entry.kind == Kind::GroupEnd ? entry.detail : index - 1;
  }
  return false;
}

void ChangeJournal::newStretch() {
  // A stretch that touched many records would leave its buckets behind.
  if (keptThisStretch_.bucket_count() > 1024) {
    keptThisStretch_ = {};
  } else {
    keptThisStretch_.clear();
  }
}

size_t ChangeJournal::floor() const {
  return openBegins_.empty() ? 0 : openBegins_.back() + 1;
}

std::optional<size_t> ChangeJournal::lastStepStart() const {
  size_t bottom = floor();
  size_t end = entries_.size();
  if (end == bottom) return std::nullopt;
  const Entry& last = entries_[end - 1];
  if (last.kind == Kind::GroupEnd) return last.detail;
  if (last.kind == Kind::Mark) return std::nullopt;
  size_t start = end;
  while (start > bottom) {
    Kind kind = entries_[start - 1].kind;
    if (kind != Kind::Changed && kind != Kind::Made && kind != Kind::Erasing) break;
    --start;
  }
  return start;
}

std::string ChangeJournal::labelOfStepAt(size_t start) const {
  const Entry& first = entries_[start];
  if (first.kind == Kind::GroupBegin) return labels_[first.detail];
  if (!openBegins_.empty()) return labels_[entries_[openBegins_.back()].detail];
  return std::string(kLooseLabel);
}

void ChangeJournal::undoFrom(size_t start) {
  for (size_t index = entries_.size(); index > start; --index) {
    const Entry& entry = entries_[index - 1];
    switch (entry.kind) {
      case Kind::Changed:
        // Entries go back last first, so this entry's state is the last one kept.
        entry.record->restoreState(std::move(states_.back()));
        states_.pop_back();
        break;
      case Kind::Made:
        entry.record->setErased(true);
        break;
      case Kind::Erasing:
        entry.record->setErased(entry.detail != 0);
        break;
      case Kind::GroupBegin:
        labels_.pop_back();
        break;
      case Kind::GroupEnd:
      case Kind::Mark:
        break;
    }
  }
  entries_.resize(start);
  newStretch();
}

std::optional<std::string> ChangeJournal::undoStep() {
  while (entries_.size() > floor() && entries_.back().kind == Kind::Mark) entries_.pop_back();
  std::optional<size_t> start = lastStepStart();
  if (!start) return std::nullopt;
  std::string label = labelOfStepAt(*start);
  undoFrom(*start);
  return label;
}

std::vector<std::string> ChangeJournal::undoToMark() {
  std::vector<std::string> labels;
  while (entries_.size() > floor()) {
    if (entries_.back().kind == Kind::Mark) {
      entries_.pop_back();
      newStretch();
      break;
    }
    std::optional<size_t> start = lastStepStart();
    if (!start) break;
    labels.push_back(labelOfStepAt(*start));
    undoFrom(*start);
  }
  return labels;
}

void ChangeJournal::setControl(Control control) {
  control_ = control;
  if (control == Control::None) {
    forgetAllButOpenGroups();
  } else if (control == Control::One && openBegins_.empty()) {
    if (std::optional<size_t> start = lastStepStart()) forgetBefore(*start);
  }
}

void ChangeJournal::forgetBefore(size_t start) {
  size_t statesGone = 0;
  size_t labelsGone = 0;
  for (size_t index = 0; index < start; ++index) {
    if (entries_[index].kind == Kind::Changed) ++statesGone;
    if (entries_[index].kind == Kind::GroupBegin) ++labelsGone;
  }
  entries_.erase(entries_.begin(), entries_.begin() + static_cast<std::ptrdiff_t>(start));
  states_.erase(states_.begin(), states_.begin() + static_cast<std::ptrdiff_t>(statesGone));
  labels_.erase(labels_.begin(), labels_.begin() + static_cast<std::ptrdiff_t>(labelsGone));
  for (Entry& entry : entries_) {
    if (entry.kind == Kind::Changed) entry.detail -= static_cast<uint32_t>(statesGone);
    if (entry.kind == Kind::GroupBegin) entry.detail -= static_cast<uint32_t>(labelsGone);
    if (entry.kind == Kind::GroupEnd) entry.detail -= static_cast<uint32_t>(start);
  }
}

void ChangeJournal::forgetAllButOpenGroups() {
  std::vector<Entry> kept;
  std::vector<std::string> keptLabels;
  for (size_t& begin : openBegins_) {
    keptLabels.push_back(std::move(labels_[entries_[begin].detail]));
    kept.push_back({Kind::GroupBegin, static_cast<uint32_t>(kept.size()), nullptr});
    begin = kept.size() - 1;
  }
  entries_ = std::move(kept);
  labels_ = std::move(keptLabels);
  states_.clear();
  newStretch();
}

std::unordered_set<const Record*> ChangeJournal::recordsItCanRestore() const {
  std::unordered_set<const Record*> records;
  for (const Entry& entry : entries_) {
    if (entry.record) records.insert(entry.record);
  }
  return records;
}

}  // namespace korva::db
