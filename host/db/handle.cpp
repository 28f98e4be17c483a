#include "handle.h"

namespace korva::db {

std::optional<Handle> parseHandle(std::string_view text) {
  size_t begin = 0;
  size_t end = text.size();
  while (begin < end && (text[begin] == ' ' || text[begin] == '\t')) ++begin;
  while (end > begin && (text[end - 1] == ' ' || text[end - 1] == '\t')) --end;
  if (begin == end || end - begin > 16) return std::nullopt;
  Handle value = 0;
  for (size_t i = begin; i < end; ++i) {
    int digit = hexDigitValue(text[i]);
    if (digit < 0) return std::nullopt;
    value = (value << 4) | static_cast<unsigned>(digit);
  }
  return value;
}

std::string formatHandle(Handle handle) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  char buffer[17];
  int pos = 16;
  buffer[pos] = '\0';
  do {
    buffer[--pos] = kDigits[handle & 0xF];
    handle >>= 4;
  } while (handle != 0);
  return std::string(buffer + pos);
}

}  // namespace korva::db
