// A file of wide text lines in one of four encodings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "frame/host_interface.h"
#include "frame/text_codec.h"

class QxCStdioFile : public CQxUiStdioFile {
 public:
  QxCStdioFile() = default;
  QxCStdioFile(const wchar_t* path, unsigned openFlags) : CQxUiStdioFile(path, openFlags) {}

  // 1 to 4 (QxTextEncoding); false for other values, which aren't taken.
  bool SetEncoding(std::int32_t encoding);
  std::int32_t GetEncoding() const { return mode_.encoding; }
  void SetUnicodeEscape(bool on) { mode_.unicodeEscape = on ? 1 : 0; }
  void SetLineEndTranslation(bool on) { mode_.lineEndTranslation = on ? 1 : 0; }
  const QxTextMode& GetTextMode() const { return mode_; }

  // The mark of the current encoding (nothing for ANSI).
  bool WriteByteOrderMark();

  // Reading at the start of the file takes the encoding of a byte-order mark.
  // The line with its line feed, at most maxChars - 1 characters; null at the end.
  wchar_t* ReadString(wchar_t* buffer, unsigned maxChars) override;
  // The line without its line feed (nor, in a typeText file, a carriage return before
  // it); false at the end.
  bool ReadString(std::wstring& line) override;
  bool WriteString(const wchar_t* text) override;

  virtual std::size_t ReadChars(wchar_t* buffer, std::size_t count);
  virtual bool WriteChars(const wchar_t* text, std::size_t count);

 private:
  QxTextMode mode_;
};
