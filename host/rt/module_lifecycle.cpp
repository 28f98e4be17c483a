// What the korva program and the file commands tell the loaded modules.
#include <algorithm>

#include "api/utf8.h"
#include "rt/module_table.h"
#include "rt/modules.h"

namespace korva::rt {
namespace {

// Copies the list first: a module may load or unload others while it is told.
void tellEach(int message) {
  std::vector<void*> ids;
  for (const auto& each : modules()) ids.push_back(each->id());
  for (void* id : ids) {
    if (Module* module = moduleById(id)) sendMessage(*module, message, id);
  }
}

// The newest module nothing depends on goes first, so that a module outlives its
// dependents; with a cycle the newest goes.
Module* nextToShutDown() {
  const auto& loaded = modules();
  for (auto each = loaded.rbegin(); each != loaded.rend(); ++each) {
    if ((*each)->dependents.empty()) return each->get();
  }
  return loaded.empty() ? nullptr : loaded.back().get();
}

}  // namespace

bool loadModule(const std::string& path, std::string& error) {
  return load(api::fromUtf8(path), nullptr, error);
}

bool unloadModule(const std::string& name, std::string& error) {
  return unload(api::fromUtf8(name), nullptr, error);
}

void drawingOpened() {
  tellEach(QxRx::kLoadDwgMsg);
}

void drawingClosing() {
  tellEach(QxRx::kUnloadDwgMsg);
}

void shutdown() {
  runApplicationContextQueue();
  while (Module* module = nextToShutDown()) {
    module->dependents.clear();
    sendMessage(*module, QxRx::kQuitMsg, module->id());
    sendMessage(*module, QxRx::kUnloadAppMsg, module->id());
    forgetModule(*module);
  }
}

std::vector<std::string> loadedModules() {
  std::vector<std::string> paths;
  for (const auto& each : modules()) paths.push_back(each->path);
  return paths;
}

}  // namespace korva::rt
