// Loading resource modules for a library file name, and where strings and dialogs are
// looked up. A resource library "NAME.dll" stands for the source "NAME.rc".
#include <algorithm>
#include <cwctype>
#include <iostream>
#include <memory>
#include <vector>

#include "api/utf8.h"
#include "input/support_path.h"
#include "qx_db_database.h"
#include "qx_runtime.h"
#include "rt/module_table.h"
#include "ui/extension_modules.h"
#include "ui/resource_handles.h"

namespace korva::ui {
namespace {

namespace fs = std::filesystem;

std::vector<std::unique_ptr<LoadedResources>>& loaded() {
  static std::vector<std::unique_ptr<LoadedResources>> modules;
  return modules;
}

bool sameText(std::wstring_view left, std::wstring_view right) {
  return std::ranges::equal(
      left, right, [](wchar_t a, wchar_t b) { return std::towupper(a) == std::towupper(b); });
}

bool isFile(const fs::path& path) {
  std::error_code error;
  return fs::is_regular_file(path, error);
}

fs::path installFolder() {
  wchar_t folder[4096];
  if (!s_pServices || s_pServices->getInstallFolder(folder, std::size(folder)) != Qxad::eOk) {
    return {};
  }
  return fs::path(api::toUtf8(folder));
}

// The folder the name gives, the installation folder, the folders of loaded modules,
// then the support path.
fs::path findSource(const fs::path& asked) {
  const fs::path sourceName = fs::path(asked.stem()).concat(".rc");
  std::vector<fs::path> folders;
  if (asked.has_parent_path()) folders.push_back(asked.parent_path());
  folders.push_back(installFolder());
  for (const auto& module : rt::modules()) folders.push_back(fs::path(module->path).parent_path());
  for (const fs::path& folder : folders) {
    if (!folder.empty() && isFile(folder / sourceName)) return folder / sourceName;
  }
  if (auto found = input::findSupportFile(sourceName.string())) return fs::path(*found);
  return {};
}

fs::path canonicalPath(const fs::path& path) {
  std::error_code error;
  fs::path result = fs::weakly_canonical(path, error);
  return error ? path : result;
}

}  // namespace

LoadedResources* loadedResourcesOf(QxModuleHandle handle) {
  if (!handle) return nullptr;
  for (const auto& each : loaded()) {
    if (each.get() == handle) return each.get();
  }
  return nullptr;
}

LoadedResources* loadedResourcesNamed(std::wstring_view fileName) {
  for (const auto& each : loaded()) {
    if (sameText(each->fileName, fileName)) return each.get();
  }
  return nullptr;
}

bool releaseResourceModule(QxModuleHandle handle) {
  LoadedResources* resources = loadedResourcesOf(handle);
  if (!resources) return false;
  if (--resources->references == 0) {
    std::erase_if(loaded(), [resources](const auto& each) { return each.get() == resources; });
  }
  return true;
}

QxModuleHandle loadResourceModule(const wchar_t* fileName) {
  if (!fileName || !*fileName) return nullptr;
  if (LoadedResources* known = loadedResourcesNamed(fileName)) {
    ++known->references;
    return known;
  }
  const fs::path source = findSource(fs::path(api::toUtf8(fileName)));
  if (source.empty()) {
    std::cerr << "korva: " << api::toUtf8(fileName) << ": its resource source "
              << fs::path(api::toUtf8(fileName)).stem().string() << ".rc was not found\n";
    return nullptr;
  }
  // The same source asked for by another name is the same module.
  const fs::path full = canonicalPath(source);
  for (const auto& each : loaded()) {
    if (each->source == full) {
      ++each->references;
      return each.get();
    }
  }
  auto resources = std::make_unique<LoadedResources>();
  std::string error;
  if (!resources->module.read(full, error)) {
    std::cerr << "korva: " << error << '\n';
    return nullptr;
  }
  resources->fileName = fileName;
  resources->source = full;
  loaded().push_back(std::move(resources));
  return loaded().back().get();
}

const ResourceModule* resourceModuleOf(QxModuleHandle handle) {
  LoadedResources* resources = loadedResourcesOf(handle);
  return resources ? &resources->module : nullptr;
}

const ResourceModule* currentResources() {
  if (QxApDocManager* manager = qxDocManagerPtr()) {
    if (const ResourceModule* current = resourceModuleOf(manager->currentResourceHandle())) {
      return current;
    }
  }
  for (QxModuleHandle handle : extensionResourceHandles()) {
    if (const ResourceModule* extension = resourceModuleOf(handle)) return extension;
  }
  return nullptr;
}

}  // namespace korva::ui
