// BROWSER: opens a web address, INETLOCATION by default, with the desktop's opener.
#include <algorithm>
#include <cwchar>
#include <string>

#include "frame/commands/small_command_ids.h"
#include "frame/commands/small_commands.h"
#include "frame/host_interface.h"
#include "frame/resource_scope.h"
#include "frame/string_helpers.h"

namespace {

constexpr std::size_t kAddressChars = 2049;
// Results of the opener at or below this are failures.
constexpr int kLastFailure = 32;
constexpr int kFileNotFound = 2;
constexpr int kFolderNotFound = 3;

std::wstring ReadInternetLocation() {
  ResultBuffer value{};
  std::wstring address;
  if (qxedGetVar(L"INETLOCATION", &value) == RTNORM && value.type == RTSTR) {
    wchar_t buffer[kAddressChars] = {};
    if (value.value.rstring) std::wcsncpy(buffer, value.value.rstring, kAddressChars - 1);
    qxutDelBuffer(value.value.rstring);
    address = buffer;
  }
  return address.empty() ? small_commands::kDefaultWebAddress : address;
}

}  // namespace

void cmdBrowser() {
  ResourceScope resources;
  std::wstring address = ReadInternetLocation();
  const std::wstring format = LoadResourceString(small_commands::kAddressPromptFormat);
  std::wstring prompt(format.size() + address.size() + 1, L'\0');
  const int length = qxutSNPrintf(prompt.data(), prompt.size(), format.c_str(), address.c_str());
  prompt.resize(length < 0 ? 0 : std::min<std::size_t>(length, prompt.size() - 1));

  wchar_t answer[kAddressChars] = {};
  const int answered = qxedGetString(0, prompt.c_str(), answer, kAddressChars);
  if (answered != RTNORM && answered != RTNONE) return;
  if (answer[0] != L'\0') address = answer;

  const int opened = qxplOpenAddress(address.c_str());
  if (opened > kLastFailure) return;
  qxutPrintf(L"%s", LoadResourceString(small_commands::kAddressFailed).c_str());
  qxutPrintf(L" %s\n", address.c_str());
  if (opened == kFileNotFound || opened == kFolderNotFound) {
    qxutPrintf(L"\n %s", LoadResourceString(small_commands::kAddressNotFound).c_str());
  }
}
