// The undo family: UNDO, U, and the listener that makes each command the user starts
// one step of its drawing's journal, whatever it scripts inside.
#pragma once

#include <cstdint>
#include <vector>

#include "cmd/processor.h"

namespace korva::db {
class ChangeJournal;
}

namespace korva::cmd::undo {

class CommandGroups final : public CommandListener {
 public:
  void commandStarted(const CommandDefinition& command, bool nested) override;
  void commandEnded(const CommandDefinition& command, bool nested, bool cancelled) override;

 private:
  struct Open {
    uint64_t databaseSerial;  // the drawing may close or stop being current meanwhile
    size_t groupsBefore;
  };
  std::vector<Open> open_;
};

// UNDO and U work on the groups around them, so they open none themselves.
bool isUndoCommand(const CommandDefinition& command);
void undoCommand();
void undoOneStepCommand();

// The current drawing's journal, or null when no drawing is open.
db::ChangeJournal* currentJournal();
// Brings UNDOCTL in line with the current drawing's journal.
void showUndoControl();

}  // namespace korva::cmd::undo
