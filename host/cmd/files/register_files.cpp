// The file commands: NEW, OPEN, SAVE, SAVEAS and QSAVE.
#include "cmd/files/file_commands.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"

namespace korva::cmd {

void registerFileCommands() {
  Processor& processor = Processor::instance();
  processor.addHostCommand(L"NEW", newCommand);
  processor.addHostCommand(L"OPEN", openCommand);
  processor.addHostCommand(L"SAVE", saveAsCommand);
  processor.addHostCommand(L"SAVEAS", saveAsCommand);
  processor.addHostCommand(L"QSAVE", quickSaveCommand);
}

}  // namespace korva::cmd
