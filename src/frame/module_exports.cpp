// The module's three exports; everything else in the module stays hidden.
#include "frame/module_entry.h"

#define VN_EXPORT extern "C" __attribute__((visibility("default")))

VN_EXPORT int qxrxEntryPoint(int message, void* packet) {
  return frame::entryPoint(message, packet);
}

// The host compares interface versions through the module: the answer is the host
// library's own. It is looked up in the library that holds the host's registry, since
// calling the name from here would reach this very function.
VN_EXPORT int qxrxGetApiVersion() {
  using VersionFunction = int (*)();
  QxModuleHandle hostLibrary = qxrxModuleOfAddress(reinterpret_cast<const void*>(&qxrxSysRegistry));
  auto hostVersion =
      reinterpret_cast<VersionFunction>(qxrxGetProcAddress(hostLibrary, "qxrxGetApiVersion"));
  return hostVersion ? hostVersion() : 0;
}

VN_EXPORT void AcisCmdRedirectAICmdForSTD(int code) {
  frame::redirectSolidCommand(code);
}
