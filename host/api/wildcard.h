// Wildcard matching of the flat layer (see qxutWcMatch in qx_util.h for the syntax).
#pragma once

#include <string_view>

namespace korva::api {

bool wildcardMatch(std::wstring_view text, std::wstring_view pattern);

}  // namespace korva::api
