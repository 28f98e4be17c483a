// Handles: unique hexadecimal record numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korva::db {

using Handle = uint64_t;
constexpr Handle kNoHandle = 0;

// The value of a hexadecimal digit, or -1 for any other character.
constexpr int hexDigitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

// Parses hexadecimal text (surrounding blanks allowed); nothing for anything else.
std::optional<Handle> parseHandle(std::string_view text);
// Upper-case hexadecimal without leading zeros, as DXF writes handles.
std::string formatHandle(Handle handle);

}  // namespace korva::db
