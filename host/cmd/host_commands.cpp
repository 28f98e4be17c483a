#include "cmd/host_commands.h"

#include "cmd/processor.h"

namespace korva::cmd {

void registerHostCommands() {
  static bool registered = false;
  if (registered) return;
  registered = true;
  registerDrawingCommands();
  registerTableCommands();
  registerFileCommands();
  registerUndoCommands();
  registerSelectCommands();
  registerModuleCommands();
  registerEditCommands();
  registerBlockCommands();
  registerModifyCommands();
}

}  // namespace korva::cmd
