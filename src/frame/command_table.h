// The module's commands: global name, resource id of the local name, flags for the
// host, and handler, in the order they are registered.
#pragma once

#include <cwchar>
#include <span>

#include "frame/host_interface.h"

namespace frame {

constexpr const wchar_t* kCommandGroup = L"VN_EXTEND_COMMANDS";

struct CommandRow {
  const wchar_t* globalName;
  unsigned localNameId;
  int flags;
  QxRxFunctionPtr handler;
};

std::span<const CommandRow> commandTable();
// The handler of a command by its global name (exact), or null.
QxRxFunctionPtr handlerOf(const wchar_t* globalName);

}  // namespace frame
