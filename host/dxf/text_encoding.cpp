#include "text_encoding.h"

#include <iconv.h>

#include <cctype>
#include <cstdint>
#include <map>
#include <optional>

namespace korva::dxf {

namespace {

struct CodePageName {
  std::string_view dxf;
  std::string_view iconv;
};

constexpr CodePageName kCodePages[] = {
    {"ANSI_874", "CP874"},       {"ANSI_932", "CP932"},
    {"ANSI_936", "GBK"},         {"ANSI_949", "CP949"},
    {"ANSI_950", "BIG5"},        {"ANSI_1250", "CP1250"},
    {"ANSI_1251", "CP1251"},     {"ANSI_1252", "CP1252"},
    {"ANSI_1253", "CP1253"},     {"ANSI_1254", "CP1254"},
    {"ANSI_1255", "CP1255"},     {"ANSI_1256", "CP1256"},
    {"ANSI_1257", "CP1257"},     {"ANSI_1258", "CP1258"},
    {"DOS437", "CP437"},         {"DOS850", "CP850"},
    {"DOS852", "CP852"},         {"DOS855", "CP855"},
    {"DOS857", "CP857"},         {"DOS860", "CP860"},
    {"DOS861", "CP861"},         {"DOS863", "CP863"},
    {"DOS864", "CP864"},         {"DOS865", "CP865"},
    {"DOS869", "CP869"},         {"DOS932", "CP932"},
    {"MACINTOSH", "MACINTOSH"},  {"BIG5", "BIG5"},
    {"KSC5601", "CP949"},        {"JOHAB", "JOHAB"},
    {"DOS866", "CP866"},         {"GB2312", "GBK"},
    {"ISO8859-1", "ISO-8859-1"}, {"ISO8859-2", "ISO-8859-2"},
    {"ISO8859-5", "ISO-8859-5"}, {"ISO8859-7", "ISO-8859-7"},
    {"UTF8", "UTF-8"},           {"UTF-8", "UTF-8"},
};

bool sameIgnoringCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (size_t i = 0; i < a.size(); ++i) {
    if (std::toupper(static_cast<unsigned char>(a[i])) !=
        std::toupper(static_cast<unsigned char>(b[i]))) {
      return false;
    }
  }
  return true;
}

void appendUtf8(std::string& out, uint32_t codePoint) {
  if (codePoint < 0x80) {
    out += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    out += static_cast<char>(0xC0 | (codePoint >> 6));
    out += static_cast<char>(0x80 | (codePoint & 0x3F));
  } else if (codePoint < 0x10000) {
    out += static_cast<char>(0xE0 | (codePoint >> 12));
    out += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (codePoint & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (codePoint >> 18));
    out += static_cast<char>(0x80 | ((codePoint >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((codePoint >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (codePoint & 0x3F));
  }
}

// The length of the UTF-8 sequence that starts with this byte; 1 for stray bytes.
size_t sequenceLength(unsigned char lead) {
  if (lead >= 0xF0 && lead < 0xF8) return 4;
  if (lead >= 0xE0) return lead < 0xF0 ? 3 : 1;
  if (lead >= 0xC0) return 2;
  return 1;
}

uint32_t decodeUtf8(std::string_view sequence) {
  auto byte = [&](size_t i) {
    return static_cast<uint32_t>(static_cast<unsigned char>(sequence[i]));
  };
  switch (sequence.size()) {
    case 2:
      return ((byte(0) & 0x1F) << 6) | (byte(1) & 0x3F);
    case 3:
      return ((byte(0) & 0x0F) << 12) | ((byte(1) & 0x3F) << 6) | (byte(2) & 0x3F);
    case 4:
      return ((byte(0) & 0x07) << 18) | ((byte(1) & 0x3F) << 12) | ((byte(2) & 0x3F) << 6) |
             (byte(3) & 0x3F);
    default:
      return byte(0);
  }
}

std::optional<uint32_t> escapeAt(std::string_view text, size_t i) {
  if (text.size() < i + 7 || text.compare(i, 3, "\\U+") != 0) return std::nullopt;
  uint32_t value = 0;
  for (size_t k = i + 3; k < i + 7; ++k) {
    char c = text[k];
    int digit = std::isdigit(static_cast<unsigned char>(c)) ? c - '0'
                : (c >= 'A' && c <= 'F')                    ? c - 'A' + 10
                : (c >= 'a' && c <= 'f')                    ? c - 'a' + 10
                                                            : -1;
    if (digit < 0) return std::nullopt;
    value = value * 16 + static_cast<uint32_t>(digit);
  }
  return value;
}

// Converts one piece with iconv; false when a character does not fit.
// Opening a converter costs far more than a short conversion, and text is converted a
// character at a time where a code page lacks one: converters are kept per pair.
iconv_t converterFor(const std::string& from, const std::string& to) {
  static std::map<std::pair<std::string, std::string>, iconv_t> converters;
  auto [found, added] = converters.try_emplace({from, to}, reinterpret_cast<iconv_t>(-1));
  if (added) found->second = iconv_open(to.c_str(), from.c_str());
  return found->second;
}

bool convert(const std::string& from, const std::string& to, std::string_view input,
             std::string& output) {
  iconv_t converter = converterFor(from, to);
  if (converter == reinterpret_cast<iconv_t>(-1)) return false;
  iconv(converter, nullptr, nullptr, nullptr, nullptr);  // a fresh shift state
  std::string buffer(input.size() * 4 + 8, '\0');
  char* in = const_cast<char*>(input.data());
  size_t inLeft = input.size();
  char* out = buffer.data();
  size_t outLeft = buffer.size();
  size_t status = iconv(converter, &in, &inLeft, &out, &outLeft);
  if (status == static_cast<size_t>(-1)) return false;
  output.append(buffer.data(), buffer.size() - outLeft);
  return true;
}

}  // namespace

std::string charsetOfCodePage(std::string_view codePage) {
  for (const CodePageName& each : kCodePages) {
    if (sameIgnoringCase(each.dxf, codePage)) return std::string(each.iconv);
  }
  return "CP1252";
}

TextEncoding::TextEncoding(bool utf8, std::string_view codePage)
    : utf8_(utf8), charset_(utf8 ? "UTF-8" : charsetOfCodePage(codePage)) {
  if (charset_ == "UTF-8") utf8_ = true;
}

std::string TextEncoding::toUtf8(std::string_view text) const {
  std::string decoded;
  if (utf8_) {
    decoded.assign(text);
  } else if (!convert(charset_, "UTF-8", text, decoded)) {
    // Whole text first: the pieces below can split a double-byte character.
    // Byte by byte where a character does not convert, so nothing is lost silently.
    std::string_view rest = text;
    while (!rest.empty()) {
      size_t ascii = 0;
      while (ascii < rest.size() && static_cast<unsigned char>(rest[ascii]) < 0x80) ++ascii;
      decoded.append(rest.substr(0, ascii));
      rest.remove_prefix(ascii);
      if (rest.empty()) break;
      size_t run = 0;
      while (run < rest.size() && static_cast<unsigned char>(rest[run]) >= 0x80) ++run;
      // Double-byte code pages pair a lead byte with an ASCII trail byte.
      if (run < rest.size() && (run % 2 == 1)) ++run;
      if (!convert(charset_, "UTF-8", rest.substr(0, run), decoded)) {
        for (size_t i = 0; i < run; ++i) appendUtf8(decoded, static_cast<unsigned char>(rest[i]));
      }
      rest.remove_prefix(run);
    }
  }
  std::string result;
  result.reserve(decoded.size());
  for (size_t i = 0; i < decoded.size();) {
    if (std::optional<uint32_t> codePoint = escapeAt(decoded, i)) {
      i += 7;
      // Characters beyond 16 bits come as a surrogate pair of escapes.
      std::optional<uint32_t> low = escapeAt(decoded, i);
      if (*codePoint >= 0xD800 && *codePoint < 0xDC00 && low && *low >= 0xDC00 && *low < 0xE000) {
        *codePoint = 0x10000 + ((*codePoint - 0xD800) << 10) + (*low - 0xDC00);
        i += 7;
      }
      appendUtf8(result, *codePoint);
    } else {
      result += decoded[i++];
    }
  }
  return result;
}

std::string TextEncoding::fromUtf8(std::string_view text) const {
  if (utf8_) return std::string(text);
  std::string result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size();) {
    unsigned char lead = static_cast<unsigned char>(text[i]);
    if (lead < 0x80) {
      result += static_cast<char>(lead);
      ++i;
      continue;
    }
    size_t length = std::min(sequenceLength(lead), text.size() - i);
    std::string_view sequence = text.substr(i, length);
    if (!convert("UTF-8", charset_, sequence, result)) {
      char escape[32];
      uint32_t codePoint = decodeUtf8(sequence);
      if (codePoint >= 0x10000 && codePoint <= 0x10FFFF) {
        codePoint -= 0x10000;
        std::snprintf(escape, sizeof escape, "\\U+%04X\\U+%04X", 0xD800 + (codePoint >> 10),
                      0xDC00 + (codePoint & 0x3FF));
      } else {
        std::snprintf(escape, sizeof escape, "\\U+%04X", codePoint);
      }
      result += escape;
    }
    i += length;
  }
  return result;
}

}  // namespace korva::dxf
