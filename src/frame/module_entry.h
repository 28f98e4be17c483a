// What the module does on the host's messages, and the redirection of the host's
// solid commands to the mesh commands. module_exports.cpp exports both under the
// names the host looks for.
#pragma once

#include "frame/host_interface.h"

namespace frame {

constexpr const wchar_t* kServiceName = L"VnExtendService";

// The entry point: 0 when done, 3 (kRetError) when message 1 can't have the resource
// module. Codes outside 1 to 11 do nothing.
int entryPoint(int message, void* packet);

// 1 box, 2 cylinder, 3 sphere, 4 wedge, 5 cone, 6 torus; any other code does nothing.
void redirectSolidCommand(int code);

// Where message 1 gets the resource module: by default the host's interface library
// "VnUinfo.dll" loads "VnExtendRes.dll" through its ordinal 14. Tests put in a finder
// that finds nothing; null brings the default back.
using ResourceModuleFinder = QxModuleHandle (*)();
void setResourceModuleFinder(ResourceModuleFinder finder);

}  // namespace frame
