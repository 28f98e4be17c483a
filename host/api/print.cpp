// The printf family of the flat layer, all on top of formatWide.
#include <algorithm>
#include <climits>
#include <cwchar>
#include <string>

#include "print_sink.h"
#include "qx_print.h"
#include "qx_types.h"
#include "wide_format.h"

using korva::api::formatWide;

int qxutVPrintf(const wchar_t* format, va_list args) {
  if (format == nullptr) return RTERROR;
  korva::api::printText(formatWide(format, args));
  return RTNORM;
}

int qxutPrintf(const wchar_t* format, ...) {
  va_list args;
  va_start(args, format);
  const int status = qxutVPrintf(format, args);
  va_end(args);
  return status;
}

int qxutVSNPrintf(wchar_t* buffer, std::size_t bufferChars, const wchar_t* format, va_list args) {
  if (format == nullptr || (buffer == nullptr && bufferChars > 0)) return -1;
  const std::wstring text = formatWide(format, args);
  if (bufferChars > 0) {
    const std::size_t kept = std::min(text.size(), bufferChars - 1);
    std::wmemcpy(buffer, text.data(), kept);
    buffer[kept] = L'\0';
  }
  return static_cast<int>(std::min<std::size_t>(text.size(), INT_MAX));
}

int qxutSNPrintf(wchar_t* buffer, std::size_t bufferChars, const wchar_t* format, ...) {
  va_list args;
  va_start(args, format);
  const int length = qxutVSNPrintf(buffer, bufferChars, format, args);
  va_end(args);
  return length;
}

int qxutSPrintf(wchar_t* buffer, const wchar_t* format, ...) {
  if (buffer == nullptr || format == nullptr) return -1;
  va_list args;
  va_start(args, format);
  const std::wstring text = formatWide(format, args);
  va_end(args);
  std::wmemcpy(buffer, text.c_str(), text.size() + 1);
  return static_cast<int>(std::min<std::size_t>(text.size(), INT_MAX));
}
