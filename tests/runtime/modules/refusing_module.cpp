// A test module that registers a command and then refuses to initialise.
#include "qx_command.h"
#include "qx_print.h"
#include "qx_runtime.h"

namespace {

void leftBehind() {
  qxutPrintf(L"[refuser] should never run\n");
}

}  // namespace

extern "C" int qxrxEntryPoint(int message, void*) {
  qxutPrintf(L"[refuser %d]\n", message);
  if (message != QxRx::kInitAppMsg) return QxRx::kRetOK;
  auto* stack = QxEdCommandStack::cast(qxrxSysRegistry()->at(L"QXAD_REGISTERED_COMMANDS"));
  stack->addCommand(L"REFUSER_COMMANDS", L"REFUSED", L"REFUSED", QXRX_CMD_MODAL, leftBehind);
  return QxRx::kRetError;
}
