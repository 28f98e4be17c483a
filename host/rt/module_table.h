// The loaded modules: what korva knows of each, and how it talks to them.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qx_runtime.h"

namespace korva::rt {

struct Module {
  std::string path;       // the file loaded, absolute
  std::wstring fileName;  // "name.qrx"
  void* library = nullptr;
  const void* codeBase = nullptr;  // where the loader mapped it, to tell its code apart
  QxRxEntryPointFunction entryPoint = nullptr;
  bool locked = true;  // modules start locked; the module unlocks itself
  bool mdiAware = false;
  int messagesUnderway = 0;         // nested messages being handled right now
  std::vector<Module*> dependents;  // modules that loaded this one as theirs

  // The application pointer the module is told: its id in every call.
  void* id() { return this; }
};

// All loaded modules, in load order.
const std::vector<std::unique_ptr<Module>>& modules();
// The same for loading and unloading.
std::vector<std::unique_ptr<Module>>& mutableModules();
Module* moduleById(const void* id);
// By path, file name, or file name without extension; case is ignored.
Module* moduleByName(std::wstring_view name);
// The module whose code holds address; null for the host's own code.
Module* moduleContaining(const void* address);
// The module a flat-layer call comes from: the one whose code made the call, else the one
// handling a message right now.
Module* callingModule(const void* returnAddress);

// Sends a message to the module's entry point. An exception out of the module is handed
// to the crash recorder and gives kRetError; failure (left empty when nothing was thrown)
// receives its description, or else a line is printed.
int sendMessage(Module& module, int message, void* packet,
                std::optional<std::wstring>* failure = nullptr);

// Loading and unloading; caller is the module asking (a dependency), or null.
bool load(const std::wstring& name, Module* caller, std::string& error);
bool unload(const std::wstring& name, Module* caller, std::string& error);
// Sends the message once per open drawing, each made current while it is told.
void sendToEachDocument(Module& module, int message);
// Drops the module after its last message: its LISP functions, commands it left behind,
// its dependencies (message 11 to each), and the library.
void forgetModule(Module& module);

QxRxDynamicLinker* dynamicLinker();

// A line on the command line, starting on a fresh line.
void printLine(std::wstring_view text);

}  // namespace korva::rt
