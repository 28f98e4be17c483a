// A test module that loads the recording module as its own dependency.
#include "qx_print.h"
#include "qx_runtime.h"

extern "C" int qxrxEntryPoint(int message, void* packet) {
  qxutPrintf(L"[dependent %d]\n", message);
  if (message == QxRx::kInitAppMsg) {
    QxRxDynamicLinker::cast(qxrxSysRegistry()->at(L"DynamicLinker"))->unlockApplication(packet);
    if (!qxrxLoadApp(L"test_recorder")) return QxRx::kRetError;
  }
  return QxRx::kRetOK;
}
