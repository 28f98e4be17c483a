// A test module whose command TESTDIALOG runs the test dialog from the module's own
// resource source, found as a module's dialogs find theirs: through the resource module
// korva loads for it and the module's extension module record.
#include "qx_command.h"
#include "qx_print.h"
#include "qx_resources.h"
#include "qx_runtime.h"
#include "qx_ui_dialog.h"
#include "test_dialog.h"

namespace {

constexpr const wchar_t* kGroup = L"TEST_DIALOG_COMMANDS";

QxUiExtensionModule extensionModule;
QxModuleHandle resources = nullptr;

QxEdCommandStack* commandStack() {
  return QxEdCommandStack::cast(qxrxSysRegistry()->at(L"QXAD_REGISTERED_COMMANDS"));
}

void testDialogCommand() {
  korva::testing::TestDialog dialog;
  const int result = dialog.DoModal();
  qxutPrintf(
      L"\nTESTDIALOG ended with %d: name \"%ls\", log %d, order %d, unit %d, "
      L"filter \"%ls\", scale %d, layers",
      result, dialog.name.c_str(), dialog.log, dialog.order, dialog.unit, dialog.filter.c_str(),
      dialog.scale);
  for (const QxUiListItem& layer : dialog.layers.Items()) {
    qxutPrintf(L" %ls", layer.text.c_str());
  }
  qxutPrintf(L"\n");
}

int initialise(void* appId) {
  const QxModuleHandle library = qxrxGetModuleHandle(L"VnUinfo.dll");
  const auto load = reinterpret_cast<QxLoadResourceModuleFunction>(
      qxrxGetProcOrdinal(library, kQxLoadResourceModuleOrdinal));
  resources = load != nullptr ? load(L"TestDialogRes.dll") : nullptr;
  if (resources == nullptr) return QxRx::kRetError;
  QxRxDynamicLinker::cast(qxrxSysRegistry()->at(L"DynamicLinker"))->unlockApplication(appId);
  qxrxRegisterAppMDIAware(appId);
  if (qxuiInitExtensionModule(extensionModule, qxrxModuleOfAddress(&extensionModule))) {
    new CQxUiDynamicLinkLibrary(extensionModule);
  }
  extensionModule.resources = resources;
  commandStack()->addCommand(kGroup, L"TESTDIALOG", L"TESTDIALOG", QXRX_CMD_MODAL,
                             testDialogCommand);
  return QxRx::kRetOK;
}

void unload() {
  commandStack()->removeGroup(kGroup);
  qxuiTermExtensionModule(extensionModule);
  if (resources != nullptr) qxrxFreeLibrary(resources);
  resources = nullptr;
}

}  // namespace

extern "C" int qxrxEntryPoint(int message, void* packet) {
  switch (message) {
    case QxRx::kInitAppMsg:
      return initialise(packet);
    case QxRx::kUnloadAppMsg:
    case QxRx::kQuitMsg:
      unload();
      return QxRx::kRetOK;
    default:
      return QxRx::kRetOK;
  }
}
