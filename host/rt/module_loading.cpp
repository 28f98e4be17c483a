// Loading a module into the process and unloading it again.
//
// Modules are opened RTLD_NOW | RTLD_LOCAL: they bind to the host's symbols in korva_api,
// already loaded by the program, and never to each other's, so two modules defining the
// same names can't interpose. A module that needs a sibling's code links against it.
//
// Dependencies are kept simple: a module that loads another (qxrxLoadApp, qxedQrxLoad or
// the dynamic linker, called from its own code) becomes its dependent. The loaded module
// gets message 10 with the dependent's id, and message 11 with it when the dependent is
// unloaded; it can't be unloaded on demand while it has dependents.
#include <dlfcn.h>

#include <algorithm>
#include <filesystem>

#include "api/document.h"
#include "api/utf8.h"
#include "cmd/command_stack.h"
#include "cmd/processor.h"
#include "lisp/module_functions.h"
#include "qx_input.h"
#include "rt/module_table.h"

namespace korva::rt {
namespace {

constexpr int kLoadFlags = RTLD_NOW | RTLD_LOCAL;
constexpr const char* kModuleExtension = ".qrx";

std::filesystem::path programFolder() {
  std::error_code error;
  std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::path() : program.parent_path();
}

bool isFile(const std::filesystem::path& path) {
  std::error_code error;
  return std::filesystem::is_regular_file(path, error);
}

std::filesystem::path fullPath(const std::filesystem::path& path) {
  std::error_code error;
  std::filesystem::path full = std::filesystem::weakly_canonical(path, error);
  return error ? path : full;
}

// A path is taken as given (".qrx" added when that names a file and the bare one doesn't);
// a bare name is looked for beside the program, then on the support path.
std::filesystem::path locate(const std::wstring& name) {
  const std::filesystem::path given(api::toUtf8(name));
  std::vector<std::filesystem::path> candidates{given};
  if (!given.has_extension()) {
    candidates.push_back(std::filesystem::path(given).concat(kModuleExtension));
  }
  if (given.has_parent_path()) {
    for (const auto& each : candidates) {
      if (isFile(each)) return fullPath(each);
    }
    return given;
  }
  const std::filesystem::path besideProgram = programFolder();
  for (const auto& each : candidates) {
    if (!besideProgram.empty() && isFile(besideProgram / each)) {
      return fullPath(besideProgram / each);
    }
  }
  for (const auto& each : candidates) {
    wchar_t found[4096];
    if (qxedFindFile(api::fromUtf8(each.string()).c_str(), found, std::size(found)) == RTNORM) {
      return fullPath(std::filesystem::path(api::toUtf8(found)));
    }
  }
  for (const auto& each : candidates) {
    if (isFile(each)) return fullPath(each);
  }
  return given;
}

void addDependent(Module& module, Module* dependent) {
  if (!dependent || dependent == &module) return;
  if (std::ranges::find(module.dependents, dependent) != module.dependents.end()) return;
  module.dependents.push_back(dependent);
  sendMessage(module, QxRx::kDependencyMsg, dependent->id());
}

// Commands a module registered and didn't remove would call into unmapped code.
void removeLeftoverCommands(Module& module) {
  std::vector<std::pair<std::wstring, std::wstring>> leftovers;
  for (const cmd::CommandDefinition* each : cmd::Processor::instance().commands()) {
    if (each->builtIn || !each->handler) continue;
    if (moduleContaining(reinterpret_cast<const void*>(each->handler)) == &module) {
      leftovers.emplace_back(each->group, each->globalName);
    }
  }
  for (const auto& [group, name] : leftovers) {
    cmd::commandStack()->removeCmd(group.c_str(), name.c_str());
  }
}

}  // namespace

void sendToEachDocument(Module& module, int message) {
  api::DocumentList& documents = api::DocumentList::instance();
  api::Document* current = documents.current();
  const std::uint64_t currentSerial = current ? current->serial() : 0;
  std::vector<std::uint64_t> serials;
  for (const auto& each : documents.documents()) serials.push_back(each->serial());
  // A module asks the document manager which drawing it is told about.
  for (std::uint64_t serial : serials) {
    api::Document* document = documents.bySerial(serial);
    if (!document) continue;
    documents.setCurrent(document);
    sendMessage(module, message, module.id());
  }
  if (api::Document* stillOpen = documents.bySerial(currentSerial)) {
    documents.setCurrent(stillOpen);
  }
}

void forgetModule(Module& module) {
  lisp::forgetModuleFunctions(module.id());
  removeLeftoverCommands(module);
  auto& loaded = mutableModules();
  for (const auto& other : loaded) {
    auto found = std::ranges::find(other->dependents, &module);
    if (found == other->dependents.end()) continue;
    other->dependents.erase(found);
    sendMessage(*other, QxRx::kNoDependencyMsg, module.id());
  }
  void* library = module.library;
  std::erase_if(loaded, [&module](const auto& each) { return each.get() == &module; });
  dlclose(library);
}

bool load(const std::wstring& name, Module* caller, std::string& error) {
  const std::filesystem::path path = locate(name);
  if (Module* existing = moduleByName(api::fromUtf8(path.string()))) {
    addDependent(*existing, caller);
    return true;
  }
  if (!isFile(path)) {
    error = "file not found";
    return false;
  }
  dlerror();
  void* library = dlopen(path.c_str(), kLoadFlags);
  if (!library) {
    const char* reason = dlerror();
    error = reason ? reason : "the loader refused it";
    return false;
  }
  auto entryPoint = reinterpret_cast<QxRxEntryPointFunction>(dlsym(library, "qxrxEntryPoint"));
  Dl_info info{};
  if (!entryPoint || dladdr(reinterpret_cast<const void*>(entryPoint), &info) == 0) {
    dlclose(library);
    error = "it has no qxrxEntryPoint";
    return false;
  }
  // The same file reached by another path: the loader handed back the module we have.
  for (const auto& each : modules()) {
    if (each->codeBase == info.dli_fbase) {
      dlclose(library);
      addDependent(*each, caller);
      return true;
    }
  }
  auto module = std::make_unique<Module>();
  module->path = path.string();
  module->fileName = api::fromUtf8(path.filename().string());
  module->library = library;
  module->codeBase = info.dli_fbase;
  module->entryPoint = entryPoint;
  Module& added = *module;
  mutableModules().push_back(std::move(module));

  if (sendMessage(added, QxRx::kInitAppMsg, added.id()) == QxRx::kRetError) {
    forgetModule(added);
    error = "the module refused to initialise";
    return false;
  }
  sendToEachDocument(added, QxRx::kLoadDwgMsg);
  addDependent(added, caller);
  return true;
}

bool unload(const std::wstring& name, Module* caller, std::string& error) {
  Module* module = moduleByName(name);
  if (!module) {
    error = "not loaded";
    return false;
  }
  if (module->locked) {
    error = "the module is locked";
    return false;
  }
  if (!module->dependents.empty()) {
    error = "needed by " + api::toUtf8(module->dependents.front()->fileName);
    return false;
  }
  // Its code is running: unmapping it now would pull the ground from under the caller.
  if (module->messagesUnderway > 0 || module == caller) {
    error = "the module is busy";
    return false;
  }
  if (sendMessage(*module, QxRx::kUnloadAppMsg, module->id()) == QxRx::kRetError) {
    error = "the module refused to unload";
    return false;
  }
  forgetModule(*module);
  return true;
}

}  // namespace korva::rt
