// Loaded libraries and the resources of a module.
//
// A module reaches the host's libraries by name and their functions by name or by
// ordinal, and finds its resource module through the host: korva's interface library
// "VnUinfo.dll" exports, at ordinal 14, the function that loads a resource module for
// a file name ("VnExtendRes.dll"). korva reads that resource module from its human-
// readable source file in the installation folder.
#pragma once

#include <cstddef>

using QxModuleHandle = void*;

// A library korva knows by name ("VnUinfo.dll", or a loaded module such as
// "VnLayerManager.qrx"); null when it isn't loaded.
QxModuleHandle qxrxGetModuleHandle(const wchar_t* libraryName);
// The module whose code holds address (the module's own instance).
QxModuleHandle qxrxModuleOfAddress(const void* address);
// An exported function by name, or by ordinal; null when there is none.
void* qxrxGetProcAddress(QxModuleHandle library, const char* name);
void* qxrxGetProcOrdinal(QxModuleHandle library, unsigned ordinal);
// Releases a resource module (or a module reference); false for an unknown handle.
bool qxrxFreeLibrary(QxModuleHandle library);

// Ordinal 14 of "VnUinfo.dll".
constexpr unsigned kQxLoadResourceModuleOrdinal = 14;
using QxLoadResourceModuleFunction = QxModuleHandle (*)(const wchar_t* fileName);

// The string with this id in a resource module (null: the current resource handle of
// the document manager). Null when the handle holds no resources or the id is unknown;
// the text lives as long as the resource module.
const wchar_t* qxrxFindResourceString(QxModuleHandle resources, unsigned id);
// Copies the string into buffer (bufferChars with the terminator, longer text cut) and
// returns the characters copied; 0 when the id is unknown.
int qxrxLoadString(QxModuleHandle resources, unsigned id, wchar_t* buffer,
                   std::size_t bufferChars);
