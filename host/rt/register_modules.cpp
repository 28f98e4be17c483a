// APPLOAD and UNLOAD, and the LISP evaluator's place on the command line.
#include <string>

#include "api/utf8.h"
#include "cmd/host_commands.h"
#include "cmd/processor.h"
#include "lisp/console_hook.h"
#include "qx_input.h"
#include "qx_runtime.h"
#include "rt/module_table.h"

namespace korva::rt {
namespace {

constexpr std::size_t kPathChars = 4096;

// The rest of the line, blanks included: paths may hold them.
bool askModuleName(const wchar_t* prompt, std::wstring& name) {
  wchar_t buffer[kPathChars] = {};
  if (qxedGetString(1, prompt, buffer, kPathChars) != RTNORM) return false;
  name = buffer;
  return !name.empty();
}

void loadCommand() {
  std::wstring name;
  if (!askModuleName(L"\nModule to load: ", name)) return;
  if (qxrxAppIsLoaded(name.c_str())) {
    printLine(name + L" is already loaded.");
    return;
  }
  std::string error;
  if (load(name, nullptr, error)) {
    printLine(name + L" loaded.");
  } else {
    printLine(L"Unable to load " + name + L": " + api::fromUtf8(error));
  }
}

void unloadCommand() {
  std::wstring name;
  if (!askModuleName(L"\nModule to unload: ", name)) return;
  std::string error;
  if (unload(name, nullptr, error)) {
    printLine(name + L" unloaded.");
  } else {
    printLine(L"Unable to unload " + name + L": " + api::fromUtf8(error));
  }
}

}  // namespace
}  // namespace korva::rt

namespace korva::cmd {

void registerModuleCommands() {
  Processor& processor = Processor::instance();
  processor.addHostCommand(L"APPLOAD", rt::loadCommand);
  processor.addHostCommand(L"UNLOAD", rt::unloadCommand);
  lisp::installConsoleHook();
}

}  // namespace korva::cmd
