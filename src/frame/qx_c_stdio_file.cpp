#include "frame/qx_c_stdio_file.h"

#include <cstring>
#include <vector>

#include "frame/text_file_reading.h"

bool QxCStdioFile::SetEncoding(std::int32_t encoding) {
  if (!isTextEncoding(encoding)) return false;
  mode_.encoding = encoding;
  return true;
}

bool QxCStdioFile::WriteByteOrderMark() {
  unsigned char mark[3];
  const std::size_t length = byteOrderMark(mode_.encoding, mark);
  return length == 0 || Write(mark, length);
}

wchar_t* QxCStdioFile::ReadString(wchar_t* buffer, unsigned maxChars) {
  if (!buffer || maxChars == 0) return nullptr;
  std::wstring line;
  if (maxChars == 1 || !readLine(*this, mode_, line, maxChars - 1)) {
    buffer[0] = L'\0';
    return maxChars == 1 && IsOpen() ? buffer : nullptr;
  }
  line.copy(buffer, line.size());
  buffer[line.size()] = L'\0';
  return buffer;
}

bool QxCStdioFile::ReadString(std::wstring& line) {
  if (!readLine(*this, mode_, line, 0)) return false;
  if (!line.empty() && line.back() == L'\n') {
    line.pop_back();
    if ((openFlags() & typeText) && !line.empty() && line.back() == L'\r') line.pop_back();
  }
  return true;
}

bool QxCStdioFile::WriteString(const wchar_t* text) {
  return text && WriteChars(text, std::wcslen(text));
}

std::size_t QxCStdioFile::ReadChars(wchar_t* buffer, std::size_t count) {
  return readCharacters(*this, mode_, buffer, count);
}

bool QxCStdioFile::WriteChars(const wchar_t* text, std::size_t count) {
  if (!IsOpen() || (!text && count > 0)) return false;
  std::vector<unsigned char> bytes;
  bytes.reserve(count);
  unsigned char encoded[kMaxEncodedBytes];
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t length = encodeCharacter(mode_, text[index], encoded);
    bytes.insert(bytes.end(), encoded, encoded + length);
  }
  return Write(bytes.data(), bytes.size());
}
