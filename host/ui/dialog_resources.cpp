#include "ui/dialog_resources.h"

#include <algorithm>
#include <vector>

#include "ui/extension_modules.h"

namespace korva::ui {
namespace {

std::vector<const ResourceModule*>& preferred() {
  static std::vector<const ResourceModule*> modules;
  return modules;
}

template <typename Found>
const Found* search(const Found* (ResourceModule::*lookup)(unsigned) const, unsigned id) {
  for (auto module = preferred().rbegin(); module != preferred().rend(); ++module) {
    if (const Found* found = ((*module)->*lookup)(id)) return found;
  }
  if (const ResourceModule* current = currentResources()) {
    if (const Found* found = (current->*lookup)(id)) return found;
  }
  for (QxModuleHandle handle : extensionResourceHandles()) {
    const ResourceModule* module = resourceModuleOf(handle);
    if (module == nullptr) continue;
    if (const Found* found = (module->*lookup)(id)) return found;
  }
  return nullptr;
}

}  // namespace

PreferredResources::PreferredResources(const ResourceModule& resources) {
  preferred().push_back(&resources);
}

PreferredResources::~PreferredResources() {
  preferred().pop_back();
}

const DialogTemplate* findDialogTemplate(unsigned id) {
  return search(&ResourceModule::dialog, id);
}

const MenuTemplate* findMenuTemplate(unsigned id) {
  return search(&ResourceModule::menu, id);
}

}  // namespace korva::ui
