// The dialog layer's text file: a C stream over the file, with lines of UTF-8 read up
// to their line feed.
#include <sys/stat.h>

#include <string>

#include "api/utf8.h"
#include "qx_ui_file.h"

namespace {

const char* streamMode(unsigned openFlags) {
  if (openFlags & CQxUiFile::modeReadWrite) return "r+b";
  if (openFlags & CQxUiFile::modeWrite) return "wb";  // truncation was the descriptor's
  return "rb";
}

// The bytes of the next line with its line feed; false when nothing was left.
bool readLineBytes(CQxUiFile& file, std::string& bytes) {
  bytes.clear();
  char byte = 0;
  while (file.Read(&byte, 1) == 1) {
    bytes.push_back(byte);
    if (byte == '\n') break;
  }
  return !bytes.empty();
}

}  // namespace

CQxUiStdioFile::~CQxUiStdioFile() {
  CQxUiStdioFile::Close();
}

bool CQxUiStdioFile::Open(const wchar_t* path, unsigned openFlags) {
  Close();
  const int descriptor = openDescriptor(path, openFlags);
  if (descriptor < 0) return false;
  stream_ = ::fdopen(descriptor, streamMode(openFlags));
  if (!stream_) {
    CQxUiFile::Close();
    return false;
  }
  releaseDescriptor();  // the stream closes it
  return true;
}

void CQxUiStdioFile::Close() {
  if (stream_) std::fclose(stream_);
  stream_ = nullptr;
  CQxUiFile::Close();
}

std::size_t CQxUiStdioFile::Read(void* buffer, std::size_t count) {
  if (!stream_ || !buffer) return 0;
  return std::fread(buffer, 1, count, stream_);
}

bool CQxUiStdioFile::Write(const void* buffer, std::size_t count) {
  if (!stream_ || (!buffer && count > 0)) return false;
  return std::fwrite(buffer, 1, count, stream_) == count;
}

std::int64_t CQxUiStdioFile::Seek(std::int64_t offset, SeekPosition from) {
  if (!stream_) return -1;
  const int whence = from == begin ? SEEK_SET : from == current ? SEEK_CUR : SEEK_END;
  if (::fseeko(stream_, static_cast<off_t>(offset), whence) != 0) return -1;
  return static_cast<std::int64_t>(::ftello(stream_));
}

std::uint64_t CQxUiStdioFile::GetPosition() const {
  if (!stream_) return 0;
  const off_t position = ::ftello(stream_);
  return position < 0 ? 0 : static_cast<std::uint64_t>(position);
}

std::uint64_t CQxUiStdioFile::GetLength() const {
  if (!stream_) return 0;
  std::fflush(stream_);
  struct stat status {};
  if (::fstat(::fileno(stream_), &status) != 0) return 0;
  return static_cast<std::uint64_t>(status.st_size);
}

bool CQxUiStdioFile::Flush() {
  return stream_ && std::fflush(stream_) == 0;
}

bool CQxUiStdioFile::ReadString(std::wstring& line) {
  std::string bytes;
  if (!readLineBytes(*this, bytes)) return false;
  if (!bytes.empty() && bytes.back() == '\n') bytes.pop_back();
  if ((openFlags() & typeText) && !bytes.empty() && bytes.back() == '\r') bytes.pop_back();
  line = korva::api::fromUtf8(bytes);
  return true;
}

wchar_t* CQxUiStdioFile::ReadString(wchar_t* buffer, unsigned maxChars) {
  if (!buffer || maxChars == 0) return nullptr;
  const std::uint64_t start = GetPosition();
  std::string bytes;
  if (!readLineBytes(*this, bytes)) return nullptr;
  if ((openFlags() & typeText) && bytes.size() >= 2 && bytes[bytes.size() - 2] == '\r' &&
      bytes.back() == '\n') {
    bytes.erase(bytes.size() - 2, 1);
  }
  std::wstring text = korva::api::fromUtf8(bytes);
  if (text.size() > maxChars - 1) {
    // What doesn't fit stays in the file for the next read.
    text.resize(maxChars - 1);
    Seek(static_cast<std::int64_t>(start + korva::api::toUtf8(text).size()), begin);
  }
  text.copy(buffer, text.size());
  buffer[text.size()] = L'\0';
  return buffer;
}

bool CQxUiStdioFile::WriteString(const wchar_t* text) {
  if (!text) return false;
  const std::string bytes = korva::api::toUtf8(text);
  return Write(bytes.data(), bytes.size());
}
