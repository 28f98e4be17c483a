// The ANSI code page of narrow text files: the current drawing's $DWGCODEPAGE, converted
// a character at a time with iconv.
#include <iconv.h>

#include <array>
#include <cerrno>
#include <map>
#include <string>

#include "dxf/text_encoding.h"
#include "qx_memory.h"
#include "qx_ui_file.h"
#include "qx_variables.h"

namespace {

constexpr const char* kWide = "WCHAR_T";
const iconv_t kNoConverter = reinterpret_cast<iconv_t>(-1);

// Opening a converter costs far more than converting one character: they are kept.
iconv_t converter(const std::string& from, const std::string& to) {
  static std::map<std::pair<std::string, std::string>, iconv_t> converters;
  auto [found, added] = converters.try_emplace({from, to}, kNoConverter);
  if (added) found->second = iconv_open(to.c_str(), from.c_str());
  if (found->second != kNoConverter) iconv(found->second, nullptr, nullptr, nullptr, nullptr);
  return found->second;
}

std::string ansiCharset() {
  ResultBuffer value{};
  std::string codePage = "ANSI_1252";
  if (qxedGetVar(L"DWGCODEPAGE", &value) == RTNORM && value.type == RTSTR) {
    if (value.value.rstring) {
      codePage.clear();
      for (const wchar_t* each = value.value.rstring; *each; ++each) {
        codePage.push_back(static_cast<char>(*each));
      }
    }
    qxad_free(value.value.rstring);
  }
  return korva::dxf::charsetOfCodePage(codePage);
}

// -1 when the bytes are an incomplete character, 0 when they are no character, 1 when
// character holds the one they make.
int convertToWide(const std::string& charset, const char* bytes, std::size_t byteCount,
                  wchar_t& character) {
  iconv_t narrowToWide = converter(charset, kWide);
  if (narrowToWide == kNoConverter || byteCount == 0) return 0;
  char* in = const_cast<char*>(bytes);
  std::size_t inLeft = byteCount;
  std::array<wchar_t, 2> out{};
  char* outBytes = reinterpret_cast<char*>(out.data());
  std::size_t outLeft = sizeof(out);
  if (iconv(narrowToWide, &in, &inLeft, &outBytes, &outLeft) == static_cast<std::size_t>(-1)) {
    return errno == EINVAL ? -1 : 0;
  }
  if (inLeft != 0 || outLeft != sizeof(out) - sizeof(wchar_t)) return 0;
  character = out[0];
  return 1;
}

bool isLeadByteOf(const std::string& charset, unsigned char byte) {
  static std::map<std::string, std::array<bool, 256>> leadBytes;
  auto [found, added] = leadBytes.try_emplace(charset);
  if (added) {
    for (unsigned value = 0x80; value < 256; ++value) {
      const char single = static_cast<char>(value);
      wchar_t ignored = 0;
      found->second[value] = convertToWide(charset, &single, 1, ignored) == -1;
    }
  }
  return found->second[byte];
}

std::string charsetOfWindowsCodePage(int codePage) {
  switch (codePage) {
    case 932:
      return "CP932";
    case 936:
      return "GBK";
    case 949:
      return "CP949";
    case 950:
      return "BIG5";
    case 1361:
      return "JOHAB";
    default:
      return {};
  }
}

}  // namespace

bool qxuiIsAnsiLeadByte(unsigned char byte) {
  return isLeadByteOf(ansiCharset(), byte);
}

bool qxuiAnsiToWide(const char* bytes, std::size_t byteCount, wchar_t& character) {
  if (!bytes || byteCount == 0 || byteCount > 2) return false;
  return convertToWide(ansiCharset(), bytes, byteCount, character) == 1;
}

std::size_t qxuiWideToAnsi(wchar_t character, char* bytes, std::size_t bufferBytes) {
  if (!bytes) return 0;
  iconv_t wideToNarrow = converter(kWide, ansiCharset());
  if (wideToNarrow == kNoConverter) return 0;
  char* in = reinterpret_cast<char*>(&character);
  std::size_t inLeft = sizeof(character);
  std::array<char, 8> out{};
  char* outBytes = out.data();
  std::size_t outLeft = out.size();
  if (iconv(wideToNarrow, &in, &inLeft, &outBytes, &outLeft) == static_cast<std::size_t>(-1)) {
    return 0;
  }
  const std::size_t written = out.size() - outLeft;
  if (written == 0 || written > bufferBytes) return 0;
  std::copy(out.begin(), out.begin() + static_cast<std::ptrdiff_t>(written), bytes);
  return written;
}

bool qxuiDoubleByteToWide(int codePage, std::uint16_t code, wchar_t& character) {
  const std::string charset = charsetOfWindowsCodePage(codePage);
  if (charset.empty()) return false;
  const char bytes[2] = {static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
  return convertToWide(charset, bytes, 2, character) == 1;
}
