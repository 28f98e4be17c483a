#include "cmd/edit/edit_commands.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"

namespace korva::cmd {

void registerEditCommands() {
  using namespace edit;
  Processor& processor = Processor::instance();
  processor.addHostCommand(L"PEDIT", polylineEditCommand, QXRX_CMD_USEPICKSET);
  processor.addHostCommand(L"EXPLODE", explodeCommand, QXRX_CMD_USEPICKSET);
  processor.addHostCommand(L"RECTANG", rectangleCommand);
}

}  // namespace korva::cmd
