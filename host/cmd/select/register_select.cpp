#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "cmd/select/select_command.h"

namespace korva::cmd {

void registerSelectCommands() {
  // SELECT works on the pick-first set itself, so the processor must leave it in place.
  Processor::instance().addHostCommand(L"SELECT", selectCommand, QXRX_CMD_USEPICKSET);
}

}  // namespace korva::cmd
