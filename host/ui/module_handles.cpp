// Libraries by name and their functions: korva's interface library "VnUinfo.dll", the
// loaded modules, and resource modules, each reached through a module handle.
//
// A handle is one of: the address of the interface library's record below, a loaded
// module's library handle from the dynamic loader, a handle the loader gave for a file
// whose code holds an address, or a resource module (resource_handles.h). Nothing else
// is looked into, so a stray pointer is refused rather than handed to the loader.
#include <dlfcn.h>

#include <algorithm>
#include <cwctype>
#include <filesystem>
#include <set>

#include "api/utf8.h"
#include "qx_resources.h"
#include "rt/module_table.h"
#include "ui/resource_handles.h"

namespace {

struct InterfaceLibrary {
  const wchar_t* name;
};
const InterfaceLibrary kInterfaceLibrary{L"VnUinfo.dll"};

QxModuleHandle interfaceLibraryHandle() {
  return const_cast<InterfaceLibrary*>(&kInterfaceLibrary);
}

// Loader handles given out for files that aren't modules korva loaded.
std::set<void*>& fileHandles() {
  static std::set<void*> handles;
  return handles;
}

bool sameText(std::wstring_view left, std::wstring_view right) {
  return std::ranges::equal(
      left, right, [](wchar_t a, wchar_t b) { return std::towupper(a) == std::towupper(b); });
}

// A name without extension means the ".dll" of that name, as libraries are named.
bool namesInterfaceLibrary(std::wstring_view name) {
  return sameText(name, kInterfaceLibrary.name) || sameText(name, L"VnUinfo");
}

korva::rt::Module* moduleOfLibrary(QxModuleHandle handle) {
  for (const auto& each : korva::rt::modules()) {
    if (each->library == handle) return each.get();
  }
  return nullptr;
}

// A handle the loader can be asked about.
bool isLoaderHandle(QxModuleHandle handle) {
  return handle && (moduleOfLibrary(handle) || fileHandles().contains(handle));
}

}  // namespace

QxModuleHandle qxrxGetModuleHandle(const wchar_t* libraryName) {
  if (!libraryName || !*libraryName) return nullptr;
  if (namesInterfaceLibrary(libraryName)) return interfaceLibraryHandle();
  if (korva::rt::Module* module = korva::rt::moduleByName(libraryName)) return module->library;
  return korva::ui::loadedResourcesNamed(libraryName);
}

QxModuleHandle qxrxModuleOfAddress(const void* address) {
  Dl_info info{};
  if (!address || dladdr(address, &info) == 0) return nullptr;
  for (const auto& each : korva::rt::modules()) {
    if (each->codeBase == info.dli_fbase) return each->library;
  }
  // Code of korva itself or of a library it links: the loader's handle for that file.
  // The file stays loaded, so the reference taken here is given back at once.
  void* handle = info.dli_fname ? dlopen(info.dli_fname, RTLD_LAZY | RTLD_NOLOAD) : nullptr;
  if (!handle) handle = dlopen(nullptr, RTLD_LAZY);  // the program, which has no file name
  if (!handle) return nullptr;
  dlclose(handle);
  fileHandles().insert(handle);
  return handle;
}

void* qxrxGetProcAddress(QxModuleHandle library, const char* name) {
  if (!name || !isLoaderHandle(library)) return nullptr;
  return dlsym(library, name);
}

void* qxrxGetProcOrdinal(QxModuleHandle library, unsigned ordinal) {
  if (library == interfaceLibraryHandle() && ordinal == kQxLoadResourceModuleOrdinal) {
    QxLoadResourceModuleFunction function = korva::ui::loadResourceModule;
    return reinterpret_cast<void*>(function);
  }
  return nullptr;
}

bool qxrxFreeLibrary(QxModuleHandle library) {
  if (korva::ui::releaseResourceModule(library)) return true;
  // Modules are unloaded by korva (UNLOAD, the end of the run); a module's reference
  // taken by name is only a look-up.
  return library == interfaceLibraryHandle() || isLoaderHandle(library);
}

const wchar_t* qxrxFindResourceString(QxModuleHandle resources, unsigned id) {
  const korva::ui::ResourceModule* module =
      resources ? korva::ui::resourceModuleOf(resources) : korva::ui::currentResources();
  return module ? module->string(id) : nullptr;
}

int qxrxLoadString(QxModuleHandle resources, unsigned id, wchar_t* buffer,
                   std::size_t bufferChars) {
  if (!buffer || bufferChars == 0) return 0;
  const wchar_t* text = qxrxFindResourceString(resources, id);
  if (!text) {
    buffer[0] = L'\0';
    return 0;
  }
  const std::size_t length = std::min(std::wcslen(text), bufferChars - 1);
  std::copy(text, text + length, buffer);
  buffer[length] = L'\0';
  return static_cast<int>(length);
}
