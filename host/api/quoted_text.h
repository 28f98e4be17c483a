// Text in double quotes with the usual backslash escapes, as transcripts show strings.
#pragma once

#include <string>

namespace korva::api {

std::wstring quotedText(const std::wstring& text);

}  // namespace korva::api
