// Text between the flat layer's wide strings and a drawing's own encoding.
#pragma once

#include <string>
#include <string_view>

namespace korva::api {

class Document;

// Drawing text of `text`: UTF-8 from AC1021 on, the $DWGCODEPAGE code page before.
std::string toDrawingText(const Document& document, std::wstring_view text);
// The wide form of drawing text.
std::wstring fromDrawingText(const Document& document, std::string_view text);

}  // namespace korva::api
