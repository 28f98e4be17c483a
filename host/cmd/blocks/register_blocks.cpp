#include "cmd/blocks/block_commands.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"

namespace korva::cmd {

void registerBlockCommands() {
  using namespace blocks;
  Processor& processor = Processor::instance();
  processor.addHostCommand(L"BLOCK", blockCommand, QXRX_CMD_USEPICKSET);
  processor.addHostCommand(L"-BLOCK", blockCommand, QXRX_CMD_USEPICKSET);
  // Without a screen the dialog forms take the command line's questions.
  processor.addHostCommand(L"INSERT", insertCommand);
  processor.addHostCommand(L"-INSERT", insertCommand);
  processor.addHostCommand(L"PURGE", purgeCommand);
  processor.addHostCommand(L"-PURGE", purgeCommand);
  processor.addHostCommand(L"ORTHO", orthoCommand, QXRX_CMD_TRANSPARENT);
  processor.addHostCommand(L"SNAP", snapCommand, QXRX_CMD_TRANSPARENT);
  processor.addHostCommand(L"GRID", gridCommand, QXRX_CMD_TRANSPARENT);
}

}  // namespace korva::cmd
