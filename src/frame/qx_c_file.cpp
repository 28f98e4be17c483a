#include "frame/qx_c_file.h"

#include <algorithm>
#include <cstring>

#include "frame/text_file_reading.h"

namespace {
constexpr std::size_t kSmallestWriteBuffer = 16;
}

QxCFile::~QxCFile() {
  QxCFile::Close();
}

bool QxCFile::SetEncoding(std::int32_t encoding) {
  if (!isTextEncoding(encoding)) return false;
  mode_.encoding = encoding;
  return true;
}

bool QxCFile::AttachWriteBuffer(std::size_t bytes) {
  if (bytes < kSmallestWriteBuffer || !writeOutBuffer()) return false;
  buffer_.bytes = std::make_unique<unsigned char[]>(bytes);
  buffer_.size = bytes;
  buffer_.fill = 0;
  return true;
}

bool QxCFile::WriteByteOrderMark() {
  unsigned char mark[3];
  const std::size_t length = byteOrderMark(mode_.encoding, mark);
  return length == 0 || writeEncoded(mark, length);
}

std::size_t QxCFile::ReadChars(wchar_t* buffer, std::size_t count) {
  if (!writeOutBuffer()) return 0;
  return readCharacters(*this, mode_, buffer, count);
}

bool QxCFile::WriteString(const wchar_t* text) {
  return text && WriteChars(text, std::wcslen(text));
}

bool QxCFile::WriteChars(const wchar_t* text, std::size_t count) {
  if (!IsOpen() || (!text && count > 0)) return false;
  unsigned char bytes[kMaxEncodedBytes];
  for (std::size_t index = 0; index < count; ++index) {
    const std::size_t length = encodeCharacter(mode_, text[index], bytes);
    if (!writeEncoded(bytes, length)) return false;
  }
  return true;
}

bool QxCFile::writeEncoded(const unsigned char* bytes, std::size_t count) {
  if (!buffer_.bytes) return CQxUiFile::Write(bytes, count);
  const std::size_t room = std::max(buffer_.reserve, count);
  if (buffer_.size - buffer_.fill < room && !writeOutBuffer()) return false;
  std::memcpy(buffer_.bytes.get() + buffer_.fill, bytes, count);
  buffer_.fill += count;
  return true;
}

bool QxCFile::writeOutBuffer() {
  if (buffer_.fill == 0) return true;
  const bool written = CQxUiFile::Write(buffer_.bytes.get(), buffer_.fill);
  buffer_.fill = 0;
  return written;
}

bool QxCFile::Open(const wchar_t* path, unsigned openFlags) {
  QxCFile::Close();
  return CQxUiFile::Open(path, openFlags);
}

void QxCFile::Close() {
  writeOutBuffer();
  CQxUiFile::Close();
}

std::size_t QxCFile::Read(void* buffer, std::size_t count) {
  if (!writeOutBuffer()) return 0;
  return CQxUiFile::Read(buffer, count);
}

bool QxCFile::Write(const void* buffer, std::size_t count) {
  return writeOutBuffer() && CQxUiFile::Write(buffer, count);
}

std::int64_t QxCFile::Seek(std::int64_t offset, SeekPosition from) {
  if (!writeOutBuffer()) return -1;
  return CQxUiFile::Seek(offset, from);
}

std::uint64_t QxCFile::GetPosition() const {
  return CQxUiFile::GetPosition() + buffer_.fill;
}

std::uint64_t QxCFile::GetLength() const {
  return std::max<std::uint64_t>(CQxUiFile::GetLength(), GetPosition());
}

bool QxCFile::Flush() {
  return writeOutBuffer() && CQxUiFile::Flush();
}
