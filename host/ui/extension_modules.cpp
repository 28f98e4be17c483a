#include "ui/extension_modules.h"

#include <algorithm>

#include "qx_ui_dialog.h"

namespace korva::ui {
namespace {

std::vector<CQxUiDynamicLinkLibrary*>& libraries() {
  static std::vector<CQxUiDynamicLinkLibrary*> records;
  return records;
}

}  // namespace

const std::vector<QxModuleHandle>& extensionResourceHandles() {
  static std::vector<QxModuleHandle> handles;
  handles.clear();
  for (const CQxUiDynamicLinkLibrary* library : libraries()) {
    if (QxModuleHandle resources = library->Resources()) handles.push_back(resources);
  }
  return handles;
}

}  // namespace korva::ui

using korva::ui::libraries;

bool qxuiInitExtensionModule(QxUiExtensionModule& module, QxModuleHandle instance) {
  if (instance == nullptr || module.initialized) return false;
  module.initialized = true;
  module.instance = instance;
  module.resources = nullptr;
  return true;
}

void qxuiTermExtensionModule(QxUiExtensionModule& module) {
  // Each record takes itself off the list as it is deleted.
  std::vector<CQxUiDynamicLinkLibrary*> own;
  for (CQxUiDynamicLinkLibrary* library : libraries()) {
    if (&library->Module() == &module) own.push_back(library);
  }
  for (CQxUiDynamicLinkLibrary* library : own) delete library;
  module = QxUiExtensionModule{};
}

CQxUiDynamicLinkLibrary::CQxUiDynamicLinkLibrary(QxUiExtensionModule& module,
                                                 QxModuleHandle resourceOverride)
    : module_(module), override_(resourceOverride) {
  libraries().push_back(this);
}

CQxUiDynamicLinkLibrary::~CQxUiDynamicLinkLibrary() {
  std::erase(libraries(), this);
}

QxModuleHandle CQxUiDynamicLinkLibrary::Resources() const {
  return override_ != nullptr ? override_ : module_.resources;
}
