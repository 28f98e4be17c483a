// The dynamic linker object of the registry and the flat layer's module functions.
#include "api/utf8.h"
#include "qx_runtime.h"
#include "qx_types.h"
#include "rt/module_table.h"

namespace korva::rt {
namespace {

constexpr int kApiVersion = 1;

bool loadReporting(const wchar_t* name, Module* caller, bool report) {
  if (!name || !*name) return false;
  std::string error;
  const bool loaded = load(name, caller, error);
  if (report) {
    printLine(loaded ? std::wstring(name) + L" loaded."
                     : L"Unable to load " + std::wstring(name) + L": " + api::fromUtf8(error));
  }
  return loaded;
}

bool unloadReporting(const wchar_t* name, Module* caller, bool report) {
  if (!name || !*name) return false;
  std::string error;
  const bool unloaded = unload(name, caller, error);
  if (report) {
    printLine(unloaded ? std::wstring(name) + L" unloaded."
                       : L"Unable to unload " + std::wstring(name) + L": " + api::fromUtf8(error));
  }
  return unloaded;
}

// asCommand (the request came from a command) changes nothing in korva: there is no
// separate context to switch to.
class DynamicLinker : public QxRxDynamicLinker {
 public:
  bool unlockApplication(void* appId) const override { return setLocked(appId, false); }
  bool lockApplication(void* appId) const override { return setLocked(appId, true); }
  bool isApplicationLocked(const wchar_t* moduleName) const override {
    Module* module = moduleByName(moduleName ? moduleName : L"");
    return module && module->locked;
  }
  bool loadModule(const wchar_t* moduleName, bool printIt, bool) override {
    return loadReporting(moduleName, moduleContaining(__builtin_return_address(0)), printIt);
  }
  bool unloadModule(const wchar_t* moduleName, bool asCommand) override {
    return unloadReporting(moduleName, moduleContaining(__builtin_return_address(0)), asCommand);
  }

 private:
  static bool setLocked(void* appId, bool locked) {
    Module* module = moduleById(appId);
    if (!module) return false;
    module->locked = locked;
    return true;
  }
};

}  // namespace

QxRxDynamicLinker* dynamicLinker() {
  // Owned by the system registry, which is never destroyed.
  static DynamicLinker* linker = new DynamicLinker;
  return linker;
}

}  // namespace korva::rt

using korva::rt::Module;

const QxRxClass* QxRxDynamicLinker::desc() {
  static const QxRxClass record(L"QxRxDynamicLinker", QxRxObject::desc());
  return &record;
}

bool qxrxRegisterAppMDIAware(void* appId) {
  Module* module = korva::rt::moduleById(appId);
  if (module) module->mdiAware = true;
  return module != nullptr;
}

bool qxrxRegisterAppNotMDIAware(void* appId) {
  Module* module = korva::rt::moduleById(appId);
  if (module) module->mdiAware = false;
  return module != nullptr;
}

bool qxrxAppIsLoaded(const wchar_t* moduleName) {
  return moduleName && korva::rt::moduleByName(moduleName) != nullptr;
}

bool qxrxLoadApp(const wchar_t* moduleName, bool) {
  return korva::rt::loadReporting(moduleName,
                                  korva::rt::moduleContaining(__builtin_return_address(0)), false);
}

bool qxrxUnloadApp(const wchar_t* moduleName, bool) {
  return korva::rt::unloadReporting(
      moduleName, korva::rt::moduleContaining(__builtin_return_address(0)), false);
}

int qxedQrxLoad(const wchar_t* moduleName) {
  return korva::rt::loadReporting(moduleName,
                                  korva::rt::moduleContaining(__builtin_return_address(0)), false)
             ? RTNORM
             : RTERROR;
}

int qxedQrxUnload(const wchar_t* moduleName) {
  return korva::rt::unloadReporting(moduleName,
                                    korva::rt::moduleContaining(__builtin_return_address(0)), false)
             ? RTNORM
             : RTERROR;
}

extern "C" int qxrxGetApiVersion() {
  return korva::rt::kApiVersion;
}
