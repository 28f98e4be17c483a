#include "frame/unavailable_command.h"

#include "frame/host_interface.h"
#include "frame/resource_ids.h"
#include "frame/string_helpers.h"

void printNotAvailable(const wchar_t* commandName) {
  const std::wstring format = LoadResourceString(frame::kNotAvailableFormat);
  qxutPrintf(format.c_str(), commandName);
}
