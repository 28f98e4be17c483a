#include "cmd/host_commands.h"
#include "cmd/modify/modify_commands.h"
#include "cmd/processor.h"

namespace korva::cmd {

void registerModifyCommands() {
  using namespace modify;
  Processor& processor = Processor::instance();
  processor.addHostCommand(L"OFFSET", offsetCommand);
  processor.addHostCommand(L"TRIM", trimCommand);
  processor.addHostCommand(L"FILLET", filletCommand);
}

}  // namespace korva::cmd
