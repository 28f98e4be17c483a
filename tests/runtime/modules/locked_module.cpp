// A test module that never unlocks itself and leaves a command registered at unload.
#include "qx_command.h"
#include "qx_print.h"
#include "qx_runtime.h"

namespace {

void lockedCommand() {
  qxutPrintf(L"[locked] command\n");
}

}  // namespace

extern "C" int qxrxEntryPoint(int message, void*) {
  qxutPrintf(L"[locked %d]\n", message);
  if (message == QxRx::kInitAppMsg) {
    auto* stack = QxEdCommandStack::cast(qxrxSysRegistry()->at(L"QXAD_REGISTERED_COMMANDS"));
    stack->addCommand(L"LOCKED_COMMANDS", L"LOCKEDCMD", L"LOCKEDCMD", QXRX_CMD_MODAL,
                      lockedCommand);
  }
  return QxRx::kRetOK;
}
