// The table commands: -LAYER and -LINETYPE.
#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "cmd/tables/table_commands.h"

namespace korva::cmd {

void registerTableCommands() {
  Processor& processor = Processor::instance();
  processor.addHostCommand(L"-LAYER", layerCommand, QXRX_CMD_TRANSPARENT);
  processor.addHostCommand(L"-LINETYPE", linetypeCommand, QXRX_CMD_TRANSPARENT);
}

}  // namespace korva::cmd
