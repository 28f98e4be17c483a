// Handles: unique hexadecimal record numbers.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace korva::db {

using Handle = uint64_t;
constexpr Handle kNoHandle = 0;

// Parses hexadecimal text (surrounding blanks allowed); nothing for anything else.
std::optional<Handle> parseHandle(std::string_view text);
// Upper-case hexadecimal without leading zeros, as DXF writes handles.
std::string formatHandle(Handle handle);

}  // namespace korva::db
