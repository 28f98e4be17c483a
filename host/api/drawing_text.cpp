#include "drawing_text.h"

#include <memory>
#include <unordered_map>

#include "document.h"
#include "dxf/text_encoding.h"
#include "utf8.h"

namespace korva::api {
namespace {

// The encoding is looked up once per drawing: reading it means scanning the header,
// which would cost more than the entity lists themselves.
const dxf::TextEncoding& encodingOf(const db::Database* database) {
  static const dxf::TextEncoding utf8(true, "");
  if (!database) return utf8;
  static std::unordered_map<uint64_t, std::unique_ptr<dxf::TextEncoding>> cache;
  auto found = cache.find(database->serial());
  if (found != cache.end()) return *found->second;
  auto encoding =
      std::make_unique<dxf::TextEncoding>(database->hasUtf8Text(), database->codePage());
  return *cache.emplace(database->serial(), std::move(encoding)).first->second;
}

// Plain ASCII without backslashes reads the same in every encoding and needs no
// "\U+XXXX" handling.
bool isPlainAscii(std::wstring_view text) {
  for (wchar_t c : text) {
    if (c >= 0x80 || c == L'\\' || c == 0) return false;
  }
  return true;
}

bool isPlainAscii(std::string_view text) {
  for (char c : text) {
    if (static_cast<unsigned char>(c) >= 0x80 || c == '\\') return false;
  }
  return true;
}

}  // namespace

std::string toDrawingText(const db::Database* database, std::wstring_view text) {
  if (isPlainAscii(text)) return std::string(text.begin(), text.end());
  const dxf::TextEncoding& encoding = encodingOf(database);
  std::string utf8 = toUtf8(text);
  return encoding.isUtf8() ? utf8 : encoding.fromUtf8(utf8);
}

std::wstring fromDrawingText(const db::Database* database, std::string_view text) {
  if (isPlainAscii(text)) return std::wstring(text.begin(), text.end());
  return fromUtf8(encodingOf(database).toUtf8(text));
}

std::string toDrawingText(const Document& document, std::wstring_view text) {
  return toDrawingText(&document.database(), text);
}

std::wstring fromDrawingText(const Document& document, std::string_view text) {
  return fromDrawingText(&document.database(), text);
}

}  // namespace korva::api
