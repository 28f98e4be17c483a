#include "text_metrics.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_TRUETYPE_TABLES_H

#include <cctype>
#include <map>
#include <memory>
#include <string>

namespace korva::geom {

namespace {

constexpr const char* kFontPath = "/usr/share/fonts/truetype/dejavu/DejaVuSans.ttf";
constexpr double kFallbackAdvance = 0.6;

char32_t nextCodePoint(std::string_view text, size_t& i) {
  unsigned char c = static_cast<unsigned char>(text[i++]);
  if (c < 0x80) return c;
  int extra = c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
  char32_t value = c & (0x3F >> extra);
  for (int k = 0; k < extra && i < text.size(); ++k) {
    value = (value << 6) | (static_cast<unsigned char>(text[i++]) & 0x3F);
  }
  return extra == 0 ? U'\uFFFD' : value;
}

void appendUtf8(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

}  // namespace

TextMetrics::TextMetrics(const char* fontPath) {
  FT_Library library = nullptr;
  if (FT_Init_FreeType(&library) != 0) return;
  FT_Face face = nullptr;
  if (FT_New_Face(library, fontPath, 0, &face) != 0) {
    FT_Done_FreeType(library);
    return;
  }
  library_ = library;
  face_ = face;
  // Text height is the height of capitals: scale font units by the cap height.
  double capHeight = 0;
  if (auto* os2 = static_cast<TT_OS2*>(FT_Get_Sfnt_Table(face, FT_SFNT_OS2));
      os2 && os2->version >= 2 && os2->sCapHeight > 0) {
    capHeight = os2->sCapHeight;
  } else if (FT_Load_Char(face, 'H', FT_LOAD_NO_SCALE) == 0) {
    capHeight = static_cast<double>(face->glyph->metrics.height);
  }
  if (capHeight <= 0) capHeight = face->units_per_EM * 0.7;
  unitsPerHeight_ = capHeight;
  descent_ = -static_cast<double>(face->descender) / capHeight;
}

TextMetrics::~TextMetrics() {
  if (face_) FT_Done_Face(static_cast<FT_Face>(face_));
  if (library_) FT_Done_FreeType(static_cast<FT_Library>(library_));
}

const TextMetrics& TextMetrics::standard() {
  static const TextMetrics metrics(kFontPath);
  return metrics;
}

const TextMetrics& TextMetrics::ofFont(const std::string& fontPath) {
  if (fontPath == kFontPath) return standard();
  static std::map<std::string, std::unique_ptr<TextMetrics>> loaded;
  std::unique_ptr<TextMetrics>& slot = loaded[fontPath];
  if (!slot) slot.reset(new TextMetrics(fontPath.c_str()));
  return *slot;
}

TextMetrics::Glyph TextMetrics::glyph(char32_t character) const {
  if (character < 128 && ascii_[character].known) return ascii_[character];
  Glyph g{kFallbackAdvance, 0, 1, true};
  if (face_) {
    auto face = static_cast<FT_Face>(face_);
    if (FT_Load_Char(face, character, FT_LOAD_NO_SCALE) == 0) {
      const FT_Glyph_Metrics& m = face->glyph->metrics;
      g.advance = m.horiAdvance / unitsPerHeight_;
      g.top = m.horiBearingY / unitsPerHeight_;
      g.bottom = (m.horiBearingY - m.height) / unitsPerHeight_;
    }
  }
  if (character < 128) ascii_[character] = g;
  return g;
}

TextExtent TextMetrics::measure(std::string_view utf8) const {
  TextExtent extent;
  size_t i = 0;
  while (i < utf8.size()) {
    Glyph g = glyph(nextCodePoint(utf8, i));
    extent.advance += g.advance;
    if (g.bottom < extent.bottom) extent.bottom = g.bottom;
    if (g.top > extent.top) extent.top = g.top;
  }
  return extent;
}

std::string resolveTextCodes(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '%' && i + 2 < text.size() && text[i + 1] == '%') {
      char code = static_cast<char>(std::tolower(static_cast<unsigned char>(text[i + 2])));
      if (code == 'd') {
        appendUtf8(out, U'\u00B0');
      } else if (code == 'p') {
        appendUtf8(out, U'\u00B1');
      } else if (code == 'c') {
        appendUtf8(out, U'\u2300');
      } else if (code == '%') {
        out += '%';
      } else if (std::isdigit(static_cast<unsigned char>(code))) {
        size_t j = i + 2;
        int value = 0;
        while (j < text.size() && j < i + 5 && std::isdigit(static_cast<unsigned char>(text[j]))) {
          value = value * 10 + (text[j] - '0');
          ++j;
        }
        appendUtf8(out, static_cast<char32_t>(value));
        i = j - 1;
        continue;
      } else if (code != 'u' && code != 'o' && code != 'k') {
        out += text[i];
        continue;
      }
      i += 2;  // underline, overline and strike toggles draw no character
      continue;
    }
    out += text[i];
  }
  return out;
}

}  // namespace korva::geom
