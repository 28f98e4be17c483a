// The system registry and the services modules register in it.
#include "cmd/command_stack.h"
#include "qx_runtime.h"
#include "rt/module_table.h"

const QxRxClass* QxRxService::desc() {
  static const QxRxClass record(L"QxRxService", QxRxObject::desc());
  return &record;
}

QxRxDictionary* qxrxSysRegistry() {
  // Never destroyed: modules may still reach it while the program's statics go away, and
  // the command stack it lists belongs to the command processor.
  static QxRxDictionary* registry = [] {
    auto* root = new QxRxDictionary;
    root->atPut(L"QXAD_REGISTERED_COMMANDS", korva::cmd::commandStack());
    root->atPut(L"DynamicLinker", korva::rt::dynamicLinker());
    root->atPut(L"ServiceDictionary", new QxRxDictionary);
    return root;
  }();
  return registry;
}

namespace {

QxRxDictionary* serviceDictionary() {
  return QxRxDictionary::cast(qxrxSysRegistry()->at(L"ServiceDictionary"));
}

}  // namespace

QxRxObject* qxrxRegisterService(const wchar_t* serviceName) {
  QxRxDictionary* services = serviceDictionary();
  if (!services || !serviceName || !*serviceName) return nullptr;
  if (QxRxObject* existing = services->at(serviceName)) return existing;
  auto* service = new QxRxService;
  services->atPut(serviceName, service);
  return service;
}

bool qxrxServiceIsRegistered(const wchar_t* serviceName) {
  QxRxDictionary* services = serviceDictionary();
  return services && serviceName && services->at(serviceName) != nullptr;
}
