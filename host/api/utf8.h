// Conversion between the host's wide strings and UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace korva::api {

// Characters that aren't Unicode scalar values become U+FFFD.
std::string toUtf8(std::wstring_view text);
// Malformed sequences become U+FFFD, one per offending byte.
std::wstring fromUtf8(std::string_view text);

}  // namespace korva::api
