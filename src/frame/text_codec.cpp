#include "frame/text_codec.h"

#include "frame/host_interface.h"

namespace {

constexpr wchar_t kReplacement = 0xFFFD;

bool isHighSurrogate(std::uint32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool isLowSurrogate(std::uint32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}
bool isScalarValue(std::uint32_t code) {
  return code <= 0x10FFFF && !(code >= 0xD800 && code <= 0xDFFF);
}

std::size_t writeEscape(std::uint32_t unit, unsigned char* bytes) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  bytes[0] = '\\';
  bytes[1] = 'U';
  bytes[2] = '+';
  for (int digit = 0; digit < 4; ++digit) {
    bytes[3 + digit] = static_cast<unsigned char>(kDigits[(unit >> (12 - 4 * digit)) & 0xF]);
  }
  return 7;
}

std::size_t encodeAnsi(const QxTextMode& mode, std::uint32_t code, unsigned char* bytes) {
  if (code < 0x80) {
    bytes[0] = static_cast<unsigned char>(code);
    return 1;
  }
  char narrow[2];
  if (const std::size_t count = qxuiWideToAnsi(static_cast<wchar_t>(code), narrow, 2)) {
    for (std::size_t index = 0; index < count; ++index) {
      bytes[index] = static_cast<unsigned char>(narrow[index]);
    }
    return count;
  }
  if (!mode.unicodeEscape) {
    bytes[0] = '?';  // what a code page conversion puts for a character it lacks
    return 1;
  }
  if (code <= 0xFFFF) return writeEscape(code, bytes);
  const std::uint32_t offset = code - 0x10000;
  const std::size_t first = writeEscape(0xD800 + (offset >> 10), bytes);
  return first + writeEscape(0xDC00 + (offset & 0x3FF), bytes + first);
}

std::size_t encodeUtf8(std::uint32_t code, unsigned char* bytes) {
  if (!isScalarValue(code)) code = kReplacement;
  if (code < 0x80) {
    bytes[0] = static_cast<unsigned char>(code);
    return 1;
  }
  if (code < 0x800) {
    bytes[0] = static_cast<unsigned char>(0xC0 | (code >> 6));
    bytes[1] = static_cast<unsigned char>(0x80 | (code & 0x3F));
    return 2;
  }
  if (code < 0x10000) {
    bytes[0] = static_cast<unsigned char>(0xE0 | (code >> 12));
    bytes[1] = static_cast<unsigned char>(0x80 | ((code >> 6) & 0x3F));
    bytes[2] = static_cast<unsigned char>(0x80 | (code & 0x3F));
    return 3;
  }
  bytes[0] = static_cast<unsigned char>(0xF0 | (code >> 18));
  bytes[1] = static_cast<unsigned char>(0x80 | ((code >> 12) & 0x3F));
  bytes[2] = static_cast<unsigned char>(0x80 | ((code >> 6) & 0x3F));
  bytes[3] = static_cast<unsigned char>(0x80 | (code & 0x3F));
  return 4;
}

std::size_t writeUnit16(std::uint32_t unit, bool bigEndian, unsigned char* bytes) {
  const auto low = static_cast<unsigned char>(unit & 0xFF);
  const auto high = static_cast<unsigned char>(unit >> 8);
  bytes[0] = bigEndian ? high : low;
  bytes[1] = bigEndian ? low : high;
  return 2;
}

std::size_t encodeUtf16(std::uint32_t code, bool bigEndian, unsigned char* bytes) {
  if (!isScalarValue(code)) code = kReplacement;
  if (code <= 0xFFFF) return writeUnit16(code, bigEndian, bytes);
  const std::uint32_t offset = code - 0x10000;
  writeUnit16(0xD800 + (offset >> 10), bigEndian, bytes);
  return 2 + writeUnit16(0xDC00 + (offset & 0x3FF), bigEndian, bytes + 2);
}

std::size_t encodeOne(const QxTextMode& mode, std::uint32_t code, unsigned char* bytes) {
  switch (mode.encoding) {
    case kUtf8:
      return encodeUtf8(code, bytes);
    case kUtf16LittleEndian:
      return encodeUtf16(code, false, bytes);
    case kUtf16BigEndian:
      return encodeUtf16(code, true, bytes);
    default:
      return encodeAnsi(mode, code, bytes);
  }
}

// Counts what is read, so that a caller can give all of it back.
class CountingSource : public ByteSource {
 public:
  explicit CountingSource(ByteSource& inner) : inner_(inner) {}
  int next() override {
    const int byte = inner_.next();
    if (byte >= 0) ++count_;
    return byte;
  }
  void giveBack(std::size_t count) override {
    inner_.giveBack(count);
    count_ -= count;
  }
  std::size_t count() const { return count_; }

 private:
  ByteSource& inner_;
  std::size_t count_ = 0;
};

int hexDigit(int byte) {
  if (byte >= '0' && byte <= '9') return byte - '0';
  if (byte >= 'A' && byte <= 'F') return byte - 'A' + 10;
  if (byte >= 'a' && byte <= 'f') return byte - 'a' + 10;
  return -1;
}

// Four hexadecimal digits, or -1.
int readHexUnit(ByteSource& source) {
  int value = 0;
  for (int digit = 0; digit < 4; ++digit) {
    const int next = hexDigit(source.next());
    if (next < 0) return -1;
    value = value * 16 + next;
  }
  return value;
}

// "\M+N" names the double-byte code page with a digit.
int codePageOfEscapeDigit(int digit) {
  switch (digit) {
    case '1':
      return 932;
    case '2':
      return 950;
    case '3':
      return 949;
    case '4':
      return 1361;
    case '5':
      return 936;
    default:
      return 0;
  }
}

// The rest of "\U+XXXX" (a surrogate pair as two escapes) or "\M+NXXXX" after the
// backslash; -1 when it is malformed.
int readEscape(ByteSource& source) {
  const int kind = source.next();
  if ((kind != 'U' && kind != 'M') || source.next() != '+') return -1;
  if (kind == 'M') {
    const int codePage = codePageOfEscapeDigit(source.next());
    const int code = readHexUnit(source);
    wchar_t character = 0;
    if (codePage == 0 || code < 0 ||
        !qxuiDoubleByteToWide(codePage, static_cast<std::uint16_t>(code), character)) {
      return -1;
    }
    return static_cast<int>(character);
  }
  const int unit = readHexUnit(source);
  if (unit < 0) return -1;
  if (!isHighSurrogate(static_cast<std::uint32_t>(unit))) return unit;
  CountingSource low(source);
  if (low.next() == '\\' && low.next() == 'U' && low.next() == '+') {
    const int second = readHexUnit(low);
    if (second >= 0 && isLowSurrogate(static_cast<std::uint32_t>(second))) {
      return 0x10000 + ((unit - 0xD800) << 10) + (second - 0xDC00);
    }
  }
  low.giveBack(low.count());
  return unit;
}

int decodeAnsi(const QxTextMode& mode, ByteSource& source) {
  const int byte = source.next();
  if (byte < 0) return kEndOfText;
  if (byte == '\\' && mode.unicodeEscape) {
    CountingSource escape(source);
    const int character = readEscape(escape);
    if (character >= 0) return character;
    escape.giveBack(escape.count());
    return '\\';
  }
  if (byte < 0x80) return byte;
  char bytes[2] = {static_cast<char>(byte), 0};
  std::size_t count = 1;
  if (qxuiIsAnsiLeadByte(static_cast<unsigned char>(byte))) {
    const int trail = source.next();
    if (trail < 0) return kReplacement;
    bytes[1] = static_cast<char>(trail);
    count = 2;
  }
  wchar_t character = 0;
  return qxuiAnsiToWide(bytes, count, character) ? static_cast<int>(character) : kReplacement;
}

int decodeUtf8(ByteSource& source) {
  const int lead = source.next();
  if (lead < 0) return kEndOfText;
  if (lead < 0x80) return lead;
  int length = 0;
  std::uint32_t code = 0;
  if ((lead & 0xE0) == 0xC0) {
    length = 2;
    code = lead & 0x1F;
  } else if ((lead & 0xF0) == 0xE0) {
    length = 3;
    code = lead & 0x0F;
  } else if ((lead & 0xF8) == 0xF0) {
    length = 4;
    code = lead & 0x07;
  } else {
    return kReplacement;
  }
  for (int index = 1; index < length; ++index) {
    const int continuation = source.next();
    if (continuation < 0) return kReplacement;
    if ((continuation & 0xC0) != 0x80) {
      source.giveBack(1);  // it may start the next character
      return kReplacement;
    }
    code = (code << 6) | (continuation & 0x3F);
  }
  static constexpr std::uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (code < kSmallest[length] || !isScalarValue(code)) return kReplacement;
  return static_cast<int>(code);
}

// A 16-bit unit, -1 at the end (a lone last byte counts as the end).
int readUnit16(ByteSource& source, bool bigEndian) {
  const int first = source.next();
  if (first < 0) return -1;
  const int second = source.next();
  if (second < 0) return -1;
  return bigEndian ? (first << 8) | second : (second << 8) | first;
}

int decodeUtf16(ByteSource& source, bool bigEndian) {
  const int unit = readUnit16(source, bigEndian);
  if (unit < 0) return kEndOfText;
  if (isLowSurrogate(static_cast<std::uint32_t>(unit))) return kReplacement;
  if (!isHighSurrogate(static_cast<std::uint32_t>(unit))) return unit;
  CountingSource low(source);
  const int second = readUnit16(low, bigEndian);
  if (second < 0 || !isLowSurrogate(static_cast<std::uint32_t>(second))) {
    low.giveBack(low.count());
    return kReplacement;
  }
  return 0x10000 + ((unit - 0xD800) << 10) + (second - 0xDC00);
}

int decodeOne(const QxTextMode& mode, ByteSource& source) {
  switch (mode.encoding) {
    case kUtf8:
      return decodeUtf8(source);
    case kUtf16LittleEndian:
      return decodeUtf16(source, false);
    case kUtf16BigEndian:
      return decodeUtf16(source, true);
    default:
      return decodeAnsi(mode, source);
  }
}

}  // namespace

std::size_t encodeCharacter(const QxTextMode& mode, wchar_t character,
                            unsigned char bytes[kMaxEncodedBytes]) {
  const auto code = static_cast<std::uint32_t>(character);
  if (code == '\n' && mode.lineEndTranslation) {
    const std::size_t first = encodeOne(mode, '\r', bytes);
    return first + encodeOne(mode, '\n', bytes + first);
  }
  return encodeOne(mode, code, bytes);
}

int decodeCharacter(const QxTextMode& mode, ByteSource& source) {
  const int character = decodeOne(mode, source);
  if (character != '\r' || !mode.lineEndTranslation) return character;
  CountingSource following(source);
  const int next = decodeOne(mode, following);
  if (next == '\n') return '\n';
  following.giveBack(following.count());
  return '\r';
}

std::size_t byteOrderMark(std::int32_t encoding, unsigned char bytes[3]) {
  switch (encoding) {
    case kUtf8:
      bytes[0] = 0xEF;
      bytes[1] = 0xBB;
      bytes[2] = 0xBF;
      return 3;
    case kUtf16LittleEndian:
      bytes[0] = 0xFF;
      bytes[1] = 0xFE;
      return 2;
    case kUtf16BigEndian:
      bytes[0] = 0xFE;
      bytes[1] = 0xFF;
      return 2;
    default:
      return 0;
  }
}

std::int32_t encodingOfByteOrderMark(const unsigned char* bytes, std::size_t count,
                                     std::size_t& markLength) {
  markLength = 0;
  if (count >= 3 && bytes[0] == 0xEF && bytes[1] == 0xBB && bytes[2] == 0xBF) {
    markLength = 3;
    return kUtf8;
  }
  if (count >= 2 && bytes[0] == 0xFF && bytes[1] == 0xFE) {
    markLength = 2;
    return kUtf16LittleEndian;
  }
  if (count >= 2 && bytes[0] == 0xFE && bytes[1] == 0xFF) {
    markLength = 2;
    return kUtf16BigEndian;
  }
  return 0;
}
