#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "cmd/undo/undo_commands.h"

namespace korva::cmd {

void registerUndoCommands() {
  static undo::CommandGroups groups;
  Processor& processor = Processor::instance();
  processor.addHostCommand(L"UNDO", undo::undoCommand);
  processor.addHostCommand(L"U", undo::undoOneStepCommand);
  processor.addListener(&groups);
}

}  // namespace korva::cmd
