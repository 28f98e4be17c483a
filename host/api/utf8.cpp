#include "utf8.h"

namespace korva::api {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isScalarValue(char32_t c) {
  return c <= 0x10FFFF && (c < 0xD800 || c > 0xDFFF);
}

}  // namespace

std::string toUtf8(std::wstring_view text) {
  std::string out;
  out.reserve(text.size());
  for (const wchar_t wide : text) {
    char32_t c = static_cast<char32_t>(wide);
    if (!isScalarValue(c)) c = kReplacement;
    if (c < 0x80) {
      out += static_cast<char>(c);
    } else if (c < 0x800) {
      out += static_cast<char>(0xC0 | (c >> 6));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      out += static_cast<char>(0xE0 | (c >> 12));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      out += static_cast<char>(0xF0 | (c >> 18));
      out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      out += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return out;
}

std::wstring fromUtf8(std::string_view text) {
  std::wstring out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    const auto lead = static_cast<unsigned char>(text[i]);
    int extra = 0;
    char32_t c = 0;
    char32_t minimum = 0;
    if (lead < 0x80) {
      c = lead;
    } else if ((lead & 0xE0) == 0xC0) {
      extra = 1;
      c = lead & 0x1F;
      minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
      extra = 2;
      c = lead & 0x0F;
      minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
      extra = 3;
      c = lead & 0x07;
      minimum = 0x10000;
    } else {
      out += static_cast<wchar_t>(kReplacement);
      ++i;
      continue;
    }
    bool valid = true;
    for (int k = 1; valid && k <= extra; ++k) {
      if (i + k >= text.size()) {
        valid = false;
        break;
      }
      const auto follow = static_cast<unsigned char>(text[i + k]);
      if ((follow & 0xC0) != 0x80) {
        valid = false;
        break;
      }
      c = (c << 6) | (follow & 0x3F);
    }
    if (!valid || c < minimum || !isScalarValue(c)) {
      out += static_cast<wchar_t>(kReplacement);
      ++i;
      continue;
    }
    out += static_cast<wchar_t>(c);
    i += extra + 1;
  }
  return out;
}

}  // namespace korva::api
