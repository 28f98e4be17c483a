// Text between the flat layer's wide strings and a drawing's own encoding.
#pragma once

#include <string>
#include <string_view>

namespace korva::db {
class Database;
}

namespace korva::api {

class Document;

// Drawing text of `text`: UTF-8 from AC1021 on, the $DWGCODEPAGE code page before.
// A null database stands for a drawing in UTF-8 (a new object not yet in one).
std::string toDrawingText(const db::Database* database, std::wstring_view text);
// The wide form of drawing text.
std::wstring fromDrawingText(const db::Database* database, std::string_view text);

std::string toDrawingText(const Document& document, std::wstring_view text);
std::wstring fromDrawingText(const Document& document, std::string_view text);

}  // namespace korva::api
