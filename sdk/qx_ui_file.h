// Files of the dialog layer: an unbuffered file of bytes, a buffered text file of lines,
// and the ANSI code page that modules use for narrow text files.
//
// Operations report by their result and never throw. An object that isn't open fails
// every operation but Open.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

class CQxUiFile {
 public:
  // Open flags: one access mode, optionally with modeCreate (create the file, emptying
  // it unless modeNoTruncate) and a type. The share flags are accepted and have no
  // effect.
  enum OpenFlags : unsigned {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    shareExclusive = 0x0010,
    shareDenyWrite = 0x0020,
    shareDenyNone = 0x0040,
    modeCreate = 0x1000,
    modeNoTruncate = 0x2000,
    typeText = 0x4000,  // CQxUiStdioFile: "\r\n" is read as "\n"
    typeBinary = 0x8000,
  };
  enum SeekPosition { begin = 0, current = 1, end = 2 };

  CQxUiFile() = default;
  // Opens at once; IsOpen() tells whether that worked.
  CQxUiFile(const wchar_t* path, unsigned openFlags);
  CQxUiFile(const CQxUiFile&) = delete;
  CQxUiFile& operator=(const CQxUiFile&) = delete;
  virtual ~CQxUiFile();  // closes

  // Opens path (UTF-8 on disk) closing what was open; false when it can't be opened, or
  // when it doesn't exist and modeCreate isn't given.
  virtual bool Open(const wchar_t* path, unsigned openFlags);
  virtual void Close();
  virtual bool IsOpen() const { return descriptor_ >= 0; }
  const std::wstring& GetFilePath() const { return path_; }

  // Each call reads or writes the file itself: nothing is held back.
  // Bytes read, fewer than count at the end of the file.
  virtual std::size_t Read(void* buffer, std::size_t count);
  // False when not all bytes could be written.
  virtual bool Write(const void* buffer, std::size_t count);
  // The new position from the start; -1 when the position would be before the start.
  virtual std::int64_t Seek(std::int64_t offset, SeekPosition from);
  std::int64_t SeekToBegin() { return Seek(0, begin); }
  std::int64_t SeekToEnd() { return Seek(0, end); }
  virtual std::uint64_t GetPosition() const;
  virtual std::uint64_t GetLength() const;
  virtual bool Flush();

 protected:
  unsigned openFlags() const { return openFlags_; }
  // Opens the descriptor and keeps path and flags; -1 when it can't be opened.
  int openDescriptor(const wchar_t* path, unsigned openFlags);
  // Forgets the descriptor without closing it (a derived class took it over).
  void releaseDescriptor();

 private:
  int descriptor_ = -1;
  std::wstring path_;
  unsigned openFlags_ = 0;
};

// A file of lines in UTF-8, read and written through a buffer: bytes written reach
// the file on Flush, Seek and Close.
class CQxUiStdioFile : public CQxUiFile {
 public:
  CQxUiStdioFile() = default;
  CQxUiStdioFile(const wchar_t* path, unsigned openFlags) { CQxUiStdioFile::Open(path, openFlags); }
  ~CQxUiStdioFile() override;

  bool Open(const wchar_t* path, unsigned openFlags) override;
  void Close() override;
  bool IsOpen() const override { return stream_ != nullptr; }
  std::size_t Read(void* buffer, std::size_t count) override;
  bool Write(const void* buffer, std::size_t count) override;
  std::int64_t Seek(std::int64_t offset, SeekPosition from) override;
  std::uint64_t GetPosition() const override;
  std::uint64_t GetLength() const override;
  bool Flush() override;

  // Reads up to and with the next line feed, at most maxChars - 1 characters, and
  // terminates. Null at the end of the file (or for maxChars 0).
  virtual wchar_t* ReadString(wchar_t* buffer, unsigned maxChars);
  // The next line without its line end; false at the end of the file.
  virtual bool ReadString(std::wstring& line);
  virtual bool WriteString(const wchar_t* text);

 private:
  std::FILE* stream_ = nullptr;
};

// The ANSI code page of korva's narrow text files is the code page of the current
// drawing ($DWGCODEPAGE; ANSI_1252 without a drawing). Double-byte code pages (932,
// 936, 949, 950) have lead bytes that start a two-byte character.
bool qxuiIsAnsiLeadByte(unsigned char byte);
// The character of one or two bytes of that code page; false when they aren't one.
bool qxuiAnsiToWide(const char* bytes, std::size_t byteCount, wchar_t& character);
// The bytes of a character in that code page (at most 2), 0 when it has no form there.
std::size_t qxuiWideToAnsi(wchar_t character, char* bytes, std::size_t bufferBytes);
// The character of a double-byte code of a Windows code page number (932, 936, 949,
// 950, 1361), as drawings write it in "\M+N" escapes; false when the code page is
// unknown or the code is no character there.
bool qxuiDoubleByteToWide(int codePage, std::uint16_t code, wchar_t& character);
