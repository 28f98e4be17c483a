// Line scanning shared by the DXF reader and records read from a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace korva::db {

// The next line without its end ("\n" or "\r\n"); advances pos past the end.
inline std::string_view nextLine(const char*& pos, const char* end) {
  const char* start = pos;
  if (pos >= end) return {};
  const char* newline =
      static_cast<const char*>(__builtin_memchr(pos, '\n', static_cast<size_t>(end - pos)));
  const char* lineEnd = newline ? newline : end;
  pos = newline ? newline + 1 : end;
  if (lineEnd > start && lineEnd[-1] == '\r') --lineEnd;
  return {start, static_cast<size_t>(lineEnd - start)};
}

// A group code line: an integer with optional blanks around it.
inline std::optional<int> parseGroupCode(std::string_view line) {
  size_t i = 0;
  size_t n = line.size();
  while (i < n && (line[i] == ' ' || line[i] == '\t')) ++i;
  while (n > i && (line[n - 1] == ' ' || line[n - 1] == '\t')) --n;
  bool negative = false;
  if (i < n && (line[i] == '-' || line[i] == '+')) negative = line[i++] == '-';
  if (i == n || n - i > 6) return std::nullopt;
  int value = 0;
  for (; i < n; ++i) {
    unsigned digit = static_cast<unsigned char>(line[i]) - '0';
    if (digit > 9) return std::nullopt;
    value = value * 10 + static_cast<int>(digit);
  }
  return negative ? -value : value;
}

}  // namespace korva::db
