// Text of a drawing in its own encoding: UTF-8 from AC1021 on, before that the
// code page of $DWGCODEPAGE with "\U+XXXX" for characters it can't hold.
#pragma once

#include <string>
#include <string_view>

namespace korva::dxf {

class TextEncoding {
 public:
  // codePage as DXF names it ("ANSI_1252", "ANSI_936", "DOS850"); ignored when utf8.
  TextEncoding(bool utf8, std::string_view codePage);

  bool isUtf8() const { return utf8_; }
  // The iconv name of the code page, "UTF-8" for UTF-8 drawings.
  const std::string& charset() const { return charset_; }

  // Drawing text to UTF-8; "\U+XXXX" escapes become their characters.
  std::string toUtf8(std::string_view text) const;
  // UTF-8 to drawing text; what the code page lacks becomes "\U+XXXX".
  std::string fromUtf8(std::string_view text) const;

 private:
  bool utf8_;
  std::string charset_;
};

// The iconv name of a DXF code page name; "CP1252" for names it does not know.
std::string charsetOfCodePage(std::string_view codePage);

}  // namespace korva::dxf
