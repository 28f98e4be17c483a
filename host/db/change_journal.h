// The undo journal of one drawing: every change to its records, in order, in groups.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "record.h"

namespace korva::db {

// Records never move while the drawing is open, so a Record* names a record for as long
// as the journal needs it. A step is what one undo takes back: a closed group, or the
// changes made one after another outside any group closed since. Undo works inside the
// innermost open group and never goes past its beginning.
class ChangeJournal {
 public:
  enum class GroupKind : uint8_t {
    Command,  // one command the user started
    User,     // a group the user opened with UNDO BEgin
  };
  enum class Control : uint8_t {
    All,   // everything is recorded
    One,   // only the last step is kept
    None,  // nothing is recorded
  };

  ChangeJournal() = default;
  ChangeJournal(const ChangeJournal&) = delete;
  ChangeJournal& operator=(const ChangeJournal&) = delete;

  // ---- What the database tells it, before the change is made
  void recordChanging(Record& record);
  void recordMade(Record& record);
  void recordErasing(Record& record);  // erasing or bringing back

  // ---- Groups and marks
  void beginGroup(GroupKind kind, std::string_view label);
  // Closes the innermost open group; false when none is open. A group that changed
  // nothing leaves no step.
  bool endGroup();
  size_t openGroupCount() const { return openBegins_.size(); }
  std::optional<GroupKind> innermostGroup() const;
  // True when a user group is open anywhere.
  bool userGroupOpen() const;
  void addMark();
  bool hasMarkInOpenGroup() const;

  // ---- Undoing
  // Takes back one step of the innermost open group (marks are passed over): the step's
  // label, or nothing when the group holds no step.
  std::optional<std::string> undoStep();
  // Takes back steps until a mark of the innermost open group is met and removed, or
  // until its beginning. The labels of the steps, the last undone first.
  std::vector<std::string> undoToMark();
  // True when nothing at all is left to undo.
  bool empty() const { return entries_.empty(); }

  // ---- Control
  Control control() const { return control_; }
  // None forgets everything; One keeps only the last step.
  void setControl(Control control);
  bool autoGroups() const { return autoGroups_; }
  void setAutoGroups(bool on) { autoGroups_ = on; }

  // Records an undo can bring back or put back; saving keeps them when erased.
  std::unordered_set<const Record*> recordsItCanRestore() const;

 private:
  enum class Kind : uint8_t { Changed, Made, Erasing, GroupBegin, GroupEnd, Mark };
  struct Entry {
    Kind kind;
    // Changed: index in states_. GroupBegin: index in labels_. GroupEnd: its begin's
    // index. Erasing: 1 when the record was erased before.
    uint32_t detail = 0;
    Record* record = nullptr;
  };

  bool recording() const { return control_ != Control::None; }
  size_t floor() const;  // first entry of the innermost open group
  // Where the last step of the innermost open group begins; nullopt when there is none.
  std::optional<size_t> lastStepStart() const;
  std::string labelOfStepAt(size_t start) const;
  // Reverts and forgets entries from `start` on, the last first.
  void undoFrom(size_t start);
  void newStretch();
  // Forgets the entries before `start` (all at the top level).
  void forgetBefore(size_t start);
  void forgetAllButOpenGroups();

  std::vector<Entry> entries_;
  std::vector<Record::State> states_;
  std::vector<std::string> labels_;
  std::vector<size_t> openBegins_;  // entries of the open groups' beginnings
  std::vector<GroupKind> kinds_;    // and their kinds
  // Records whose state was kept since the last group boundary: later changes in the
  // same stretch are taken back by the same kept state.
  std::unordered_set<const Record*> keptThisStretch_;
  Control control_ = Control::All;
  bool autoGroups_ = true;
};

}  // namespace korva::db
