// Reading text through a text mode from any file of the dialog layer, shared by QxCFile
// and QxCStdioFile.
#pragma once

#include <cstddef>
#include <string>

#include "frame/host_interface.h"
#include "frame/text_codec.h"

// The bytes of a file, read one at a time; giving back steps the file position back.
class FileByteSource : public ByteSource {
 public:
  explicit FileByteSource(CQxUiFile& file) : file_(file) {}
  int next() override;
  void giveBack(std::size_t count) override;

 private:
  CQxUiFile& file_;
};

// At the start of the file, a byte-order mark sets the encoding and is stepped over;
// elsewhere nothing happens.
void takeByteOrderMark(CQxUiFile& file, QxTextMode& mode);

// Up to count characters; fewer at the end of the file.
std::size_t readCharacters(CQxUiFile& file, QxTextMode& mode, wchar_t* buffer, std::size_t count);

// The characters up to and with the next line feed, at most maxChars of them (0: no
// limit); false when the file had nothing left.
bool readLine(CQxUiFile& file, QxTextMode& mode, std::wstring& line, std::size_t maxChars);

// A value from 1 to 4.
bool isTextEncoding(std::int32_t encoding);
