// The resource modules korva has loaded, by handle: what the module-handle functions
// of qx_resources.h need beyond resource_module.h.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "ui/resource_module.h"

namespace korva::ui {

// A loaded resource module; its address is its handle.
struct LoadedResources {
  std::wstring fileName;  // as asked for ("VnExtendRes.dll")
  std::filesystem::path source;
  ResourceModule module;
  int references = 1;
};

// Null for a handle that isn't a loaded resource module.
LoadedResources* loadedResourcesOf(QxModuleHandle handle);
// The loaded resource module asked for by that file name (case ignored), or null.
LoadedResources* loadedResourcesNamed(std::wstring_view fileName);
// Drops one reference; the module goes with the last. False for an unknown handle.
bool releaseResourceModule(QxModuleHandle handle);

}  // namespace korva::ui
