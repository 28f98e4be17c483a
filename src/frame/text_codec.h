// The text mode of QxCFile and QxCStdioFile: how wide characters become bytes of one of
// four encodings and back, with the "\U+XXXX" escape of narrow files and line-end
// translation.
#pragma once

#include <cstddef>
#include <cstdint>

enum QxTextEncoding : std::int32_t {
  kAnsiCodePage = 1,  // the host's ANSI code page, double-byte lead bytes honoured
  kUtf8 = 2,
  kUtf16LittleEndian = 3,
  kUtf16BigEndian = 4,
};

struct QxTextMode {
  std::int32_t encoding = kAnsiCodePage;
  // ANSI only: a character without an ANSI form is written as "\U+XXXX", and reading
  // turns "\U+XXXX" and "\M+NXXXX" back into characters.
  std::uint8_t unicodeEscape = 0;
  // A line feed is written as carriage return and line feed, and read back as one.
  std::uint8_t lineEndTranslation = 0;
};

// Enough for a line end, or for a character outside the basic plane escaped as two
// surrogates.
constexpr std::size_t kMaxEncodedBytes = 16;

// The bytes of one character (a line feed with its carriage return under translation).
// 0 when the character has no form in the encoding: it is left out.
std::size_t encodeCharacter(const QxTextMode& mode, wchar_t character,
                            unsigned char bytes[kMaxEncodedBytes]);

// Where decoding reads bytes from.
class ByteSource {
 public:
  virtual ~ByteSource() = default;
  // The next byte, or -1 at the end.
  virtual int next() = 0;
  // Steps back over the last count bytes read, so that they are read again.
  virtual void giveBack(std::size_t count) = 0;
};

constexpr int kEndOfText = -1;

// The next character, or kEndOfText. A byte sequence that isn't a character of the
// encoding gives U+FFFD.
int decodeCharacter(const QxTextMode& mode, ByteSource& source);

// The byte-order mark of the encoding (none for ANSI); its length.
std::size_t byteOrderMark(std::int32_t encoding, unsigned char bytes[3]);
// The encoding whose byte-order mark starts bytes, and the mark's length in markLength;
// 0 when there is none.
std::int32_t encodingOfByteOrderMark(const unsigned char* bytes, std::size_t count,
                                     std::size_t& markLength);
