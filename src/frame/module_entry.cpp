#include "frame/module_entry.h"

#include "frame/command_table.h"
#include "frame/lisp_functions.h"
#include "frame/module_state.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"

namespace frame {
namespace {

QxModuleHandle loadThroughInterfaceLibrary() {
  QxModuleHandle interfaceLibrary = qxrxGetModuleHandle(L"VnUinfo.dll");
  if (!interfaceLibrary) return nullptr;
  auto load = reinterpret_cast<QxLoadResourceModuleFunction>(
      qxrxGetProcOrdinal(interfaceLibrary, kQxLoadResourceModuleOrdinal));
  return load ? load(L"VnExtendRes.dll") : nullptr;
}

ResourceModuleFinder& resourceModuleFinder() {
  static ResourceModuleFinder finder = loadThroughInterfaceLibrary;
  return finder;
}

QxUiExtensionModule& extensionModule() {
  static QxUiExtensionModule record;
  return record;
}

// The dependency key and the application handle of messages 10 and 11: nothing in the
// module ever sets them, so only a null packet takes those branches.
void* const dependencyKey = nullptr;
void* const dependencyApplication = nullptr;

QxRxDynamicLinker* dynamicLinker() {
  return QxRxDynamicLinker::cast(qxrxSysRegistry()->at(L"DynamicLinker"));
}

QxEdCommandStack* commandStack() {
  return QxEdCommandStack::cast(qxrxSysRegistry()->at(L"QXAD_REGISTERED_COMMANDS"));
}

void registerServiceAndCommands() {
  ResourceScope scope;
  if (!qxrxServiceIsRegistered(kServiceName)) qxrxRegisterService(kServiceName);
  for (const CommandRow& row : commandTable()) {
    QxEdCommandStack* stack = commandStack();  // fetched anew for each row
    if (!stack) continue;
    const std::wstring localName = LoadResourceString(row.localNameId);
    stack->addCommand(kCommandGroup, row.globalName, localName.c_str(), row.flags, row.handler,
                      nullptr, -1, nullptr, nullptr);
  }
}

void removeRegistrations() {
  if (qxrxServiceIsRegistered(kServiceName)) {
    if (auto* services = QxRxDictionary::cast(qxrxSysRegistry()->at(L"ServiceDictionary"))) {
      delete services->remove(kServiceName);
    }
  }
  if (QxEdCommandStack* stack = commandStack()) stack->removeGroup(kCommandGroup);
}

int initialise(void* packet) {
  const QxModuleHandle resources = resourceModuleFinder()();
  setResourceModule(resources);
  if (!resources) return QxRx::kRetError;
  if (QxRxDynamicLinker* linker = dynamicLinker()) linker->unlockApplication(packet);
  qxrxRegisterAppMDIAware(packet);
  // The library record belongs to the dialog layer, which deletes it with the module
  // record on unloading.
  if (qxuiInitExtensionModule(extensionModule(), ownInstance())) {
    new CQxUiDynamicLinkLibrary(extensionModule(), nullptr);
  }
  extensionModule().resources = resources;
  registerServiceAndCommands();
  return QxRx::kRetOK;
}

void unload() {
  removeRegistrations();
  qxuiTermExtensionModule(extensionModule());
  if (QxModuleHandle resources = resourceModule()) {
    qxrxFreeLibrary(resources);
    setResourceModule(nullptr);
  }
}

void changeDependency(void* packet, bool lock) {
  if (packet != dependencyKey) return;
  QxRxDynamicLinker* linker = dynamicLinker();
  if (!linker) return;
  if (lock) {
    linker->lockApplication(dependencyApplication);
  } else {
    linker->unlockApplication(dependencyApplication);
  }
}

}  // namespace

int entryPoint(int message, void* packet) {
  switch (message) {
    case QxRx::kInitAppMsg:
      return initialise(packet);
    case QxRx::kUnloadAppMsg:
      unload();
      break;
    case QxRx::kLoadDwgMsg:
      defineLispFunctions();
      break;
    case QxRx::kInvkSubrMsg:
      dispatchLispCall(qxedGetFunCode());
      break;
    case QxRx::kQuitMsg:
      removeRegistrations();
      break;
    case QxRx::kDependencyMsg:
      changeDependency(packet, true);
      break;
    case QxRx::kNoDependencyMsg:
      changeDependency(packet, false);
      break;
    default:
      break;
  }
  return QxRx::kRetOK;
}

void redirectSolidCommand(int code) {
  static constexpr const wchar_t* kMeshCommands[] = {L"AI_BOX",   L"AI_CYLINDER", L"AI_SPHERE",
                                                     L"AI_WEDGE", L"AI_CONE",     L"AI_TORUS"};
  if (code < 1 || code > static_cast<int>(std::size(kMeshCommands))) return;
  if (QxRxFunctionPtr handler = handlerOf(kMeshCommands[code - 1])) handler();
}

void setResourceModuleFinder(ResourceModuleFinder finder) {
  resourceModuleFinder() = finder ? finder : loadThroughInterfaceLibrary;
}

}  // namespace frame
