// The table of loaded modules and the messages sent to them.
#include "rt/module_table.h"

#include <dlfcn.h>

#include <algorithm>
#include <cwctype>
#include <exception>
#include <filesystem>

#include "api/print_sink.h"
#include "api/utf8.h"
#include "input/console.h"

namespace korva::rt {
namespace {

std::vector<std::unique_ptr<Module>>& table() {
  static std::vector<std::unique_ptr<Module>> loaded;
  return loaded;
}

// The modules handling a message right now, innermost last.
std::vector<Module*>& receiving() {
  static std::vector<Module*> stack;
  return stack;
}

std::wstring describeException(std::exception_ptr exception, const void*& thrown) {
  thrown = nullptr;
  try {
    std::rethrow_exception(exception);
  } catch (const std::exception& error) {
    thrown = &error;
    return api::fromUtf8(error.what());
  } catch (...) {
    return L"unknown exception";
  }
}

bool sameText(std::wstring_view left, std::wstring_view right) {
  return std::ranges::equal(
      left, right, [](wchar_t a, wchar_t b) { return std::towupper(a) == std::towupper(b); });
}

}  // namespace

std::vector<std::unique_ptr<Module>>& mutableModules() {
  return table();
}

const std::vector<std::unique_ptr<Module>>& modules() {
  return table();
}

Module* moduleById(const void* id) {
  for (const auto& each : table()) {
    if (each.get() == id) return each.get();
  }
  return nullptr;
}

Module* moduleByName(std::wstring_view name) {
  if (name.empty()) return nullptr;
  const std::filesystem::path given(name);
  const std::wstring givenFile = given.filename().wstring();
  const std::wstring givenStem = given.stem().wstring();
  const bool hasFolder = given.has_parent_path();
  const bool hasExtension = given.has_extension();
  for (const auto& each : table()) {
    const std::filesystem::path loaded(each->path);
    if (hasFolder) {
      std::error_code error;
      const auto canonical = std::filesystem::weakly_canonical(given, error);
      if (!error && canonical == loaded) return each.get();
      if (std::filesystem::path(api::toUtf8(name)) == loaded) return each.get();
      continue;
    }
    if (hasExtension ? sameText(givenFile, each->fileName)
                     : sameText(givenStem, loaded.stem().wstring())) {
      return each.get();
    }
  }
  return nullptr;
}

Module* moduleContaining(const void* address) {
  Dl_info info{};
  if (!address || dladdr(address, &info) == 0) return nullptr;
  for (const auto& each : table()) {
    if (each->codeBase == info.dli_fbase) return each.get();
  }
  return nullptr;
}

Module* callingModule(const void* returnAddress) {
  if (Module* byCode = moduleContaining(returnAddress)) return byCode;
  return receiving().empty() ? nullptr : receiving().back();
}

int sendMessage(Module& module, int message, void* packet, std::optional<std::wstring>* failure) {
  if (failure) failure->reset();
  ++module.messagesUnderway;
  receiving().push_back(&module);
  int result = QxRx::kRetError;
  try {
    result = module.entryPoint(message, packet);
  } catch (...) {
    // A module's exception must not unwind through korva's loops.
    const void* thrown = nullptr;
    std::wstring what = describeException(std::current_exception(), thrown);
    if (QxCrashRecorder* recorder = qxadGetCrashRecorder()) recorder->record(thrown, what.c_str());
    if (failure) {
      *failure = std::move(what);
    } else {
      printLine(module.fileName + L" failed on message " + std::to_wstring(message) + L": " + what);
    }
  }
  receiving().pop_back();
  --module.messagesUnderway;
  return result;
}

void printLine(std::wstring_view text) {
  std::wstring line;
  if (!input::Console::instance().atLineStart()) line += L'\n';
  line += text;
  line += L'\n';
  api::printText(line);
}

}  // namespace korva::rt
