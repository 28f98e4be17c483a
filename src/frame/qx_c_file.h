// A file of wide text in one of four encodings, written through an optional buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "frame/host_interface.h"
#include "frame/text_codec.h"

class QxCFile : public CQxUiFile {
 public:
  QxCFile() = default;
  QxCFile(const wchar_t* path, unsigned openFlags) { QxCFile::Open(path, openFlags); }
  ~QxCFile() override;

  // 1 to 4 (QxTextEncoding); false for other values, which aren't taken.
  bool SetEncoding(std::int32_t encoding);
  std::int32_t GetEncoding() const { return mode_.encoding; }
  void SetUnicodeEscape(bool on) { mode_.unicodeEscape = on ? 1 : 0; }
  void SetLineEndTranslation(bool on) { mode_.lineEndTranslation = on ? 1 : 0; }
  const QxTextMode& GetTextMode() const { return mode_; }

  // From now on bytes collect in a buffer of that many bytes (at least 16) that is
  // written out when fewer than 8 bytes remain, and on Flush, Seek, Read and Close.
  bool AttachWriteBuffer(std::size_t bytes);
  // The mark of the current encoding (nothing for ANSI).
  bool WriteByteOrderMark();

  // Text. Reading at the start of the file takes the encoding of a byte-order mark.
  virtual std::size_t ReadChars(wchar_t* buffer, std::size_t count);
  virtual bool WriteString(const wchar_t* text);
  virtual bool WriteChars(const wchar_t* text, std::size_t count);

  bool Open(const wchar_t* path, unsigned openFlags) override;
  void Close() override;
  std::size_t Read(void* buffer, std::size_t count) override;
  bool Write(const void* buffer, std::size_t count) override;
  std::int64_t Seek(std::int64_t offset, SeekPosition from) override;
  std::uint64_t GetPosition() const override;
  std::uint64_t GetLength() const override;
  bool Flush() override;

 private:
  struct WriteBuffer {
    std::unique_ptr<unsigned char[]> bytes;
    std::size_t size = 0;
    std::size_t fill = 0;
    std::size_t reserve = 8;  // room kept for the longest character but a line end
  };

  bool writeEncoded(const unsigned char* bytes, std::size_t count);
  bool writeOutBuffer();

  QxTextMode mode_;
  WriteBuffer buffer_;
};
