#include "frame/module_state.h"

namespace frame {
namespace {
QxModuleHandle resources = nullptr;
}

QxModuleHandle resourceModule() {
  return resources;
}

void setResourceModule(QxModuleHandle handle) {
  resources = handle;
}

QxModuleHandle ownInstance() {
  static const QxModuleHandle instance =
      qxrxModuleOfAddress(reinterpret_cast<const void*>(&ownInstance));
  return instance;
}

}  // namespace frame
