#include "frame/text_file_reading.h"

int FileByteSource::next() {
  unsigned char byte = 0;
  return file_.Read(&byte, 1) == 1 ? byte : -1;
}

void FileByteSource::giveBack(std::size_t count) {
  if (count > 0) file_.Seek(-static_cast<std::int64_t>(count), CQxUiFile::current);
}

void takeByteOrderMark(CQxUiFile& file, QxTextMode& mode) {
  if (file.GetPosition() != 0) return;
  unsigned char bytes[3] = {};
  const std::size_t count = file.Read(bytes, sizeof(bytes));
  std::size_t markLength = 0;
  if (const std::int32_t encoding = encodingOfByteOrderMark(bytes, count, markLength)) {
    mode.encoding = encoding;
  }
  file.Seek(static_cast<std::int64_t>(markLength), CQxUiFile::begin);
}

std::size_t readCharacters(CQxUiFile& file, QxTextMode& mode, wchar_t* buffer, std::size_t count) {
  if (!buffer || !file.IsOpen()) return 0;
  takeByteOrderMark(file, mode);
  FileByteSource source(file);
  std::size_t read = 0;
  while (read < count) {
    const int character = decodeCharacter(mode, source);
    if (character == kEndOfText) break;
    buffer[read++] = static_cast<wchar_t>(character);
  }
  return read;
}

bool readLine(CQxUiFile& file, QxTextMode& mode, std::wstring& line, std::size_t maxChars) {
  line.clear();
  if (!file.IsOpen()) return false;
  takeByteOrderMark(file, mode);
  FileByteSource source(file);
  while (maxChars == 0 || line.size() < maxChars) {
    const int character = decodeCharacter(mode, source);
    if (character == kEndOfText) return !line.empty();
    line.push_back(static_cast<wchar_t>(character));
    if (character == '\n') break;
  }
  return true;
}

bool isTextEncoding(std::int32_t encoding) {
  return encoding >= kAnsiCodePage && encoding <= kUtf16BigEndian;
}
