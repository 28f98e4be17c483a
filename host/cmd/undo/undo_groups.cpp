#include "cmd/undo/undo_commands.h"

#include "api/document.h"
#include "api/system_variables.h"
#include "api/utf8.h"
#include "db/change_journal.h"

namespace korva::cmd::undo {

namespace {
// UNDOCTL bits.
constexpr int kEnabled = 1;
constexpr int kOneStep = 2;
constexpr int kAuto = 4;
constexpr int kGroupOpen = 8;
constexpr int kOwnBits = kEnabled | kOneStep | kAuto | kGroupOpen;
}  // namespace

bool isUndoCommand(const CommandDefinition& command) {
  return command.handler == &undoCommand || command.handler == &undoOneStepCommand;
}

db::ChangeJournal* currentJournal() {
  db::Database* database = api::currentDatabase();
  return database ? &database->journal() : nullptr;
}

void showUndoControl() {
  db::Database* database = api::currentDatabase();
  std::optional<api::VariableValue> value = api::getVariable(database, "UNDOCTL");
  if (!value) return;
  int bits = static_cast<int>(value->number[0]) & ~kOwnBits;
  if (db::ChangeJournal* journal = currentJournal()) {
    db::ChangeJournal::Control control = journal->control();
    if (control != db::ChangeJournal::Control::None) bits |= kEnabled;
    if (control == db::ChangeJournal::Control::One) bits |= kOneStep;
    if (journal->autoGroups()) bits |= kAuto;
    if (journal->userGroupOpen()) bits |= kGroupOpen;
  } else {
    bits |= kEnabled | kAuto;
  }
  if (static_cast<int>(value->number[0]) == bits) return;
  value->number[0] = bits;
  api::setVariable(database, "UNDOCTL", *value, true);
}

void CommandGroups::commandStarted(const CommandDefinition& command, bool nested) {
  if (nested || isUndoCommand(command)) return;
  db::Database* database = api::currentDatabase();
  if (!database) {
    open_.push_back({0, 0});
    return;
  }
  db::ChangeJournal& journal = database->journal();
  open_.push_back({database->serial(), journal.openGroupCount()});
  journal.beginGroup(db::ChangeJournal::GroupKind::Command, api::toUtf8(command.globalName));
  showUndoControl();
}

void CommandGroups::commandEnded(const CommandDefinition& command, bool nested, bool) {
  if (nested || isUndoCommand(command) || open_.empty()) return;
  Open group = open_.back();
  open_.pop_back();
  // Groups the command left open (an UNDO BEgin without End) end with it.
  if (db::Database* database = db::Database::bySerial(group.databaseSerial)) {
    if (db::ChangeJournal* journal = database->journalIfStarted()) {
      while (journal->openGroupCount() > group.groupsBefore) journal->endGroup();
    }
  }
  showUndoControl();
}

}  // namespace korva::cmd::undo
