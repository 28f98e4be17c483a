// QxCFile and QxCStdioFile: the bytes each encoding writes, reading them back, the
// escapes of narrow files, line ends, byte-order marks and the write buffer.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "api/document.h"
#include "dxf/reader.h"
#include "frame/qx_c_file.h"
#include "frame/qx_c_stdio_file.h"
#include "script_fixture.h"

namespace korva::test {
namespace {

using Bytes = std::string;

class TextFileTest : public ScriptTest {
 protected:
  void SetUp() override {
    ScriptTest::SetUp();
    folder_ = std::filesystem::temp_directory_path() /
              ("frame_text_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(folder_);
    path_ = (folder_ / "text.txt").wstring();
  }
  void TearDown() override {
    std::filesystem::remove_all(folder_);
    ScriptTest::TearDown();
  }

  Bytes fileBytes() const {
    std::ifstream in(folder_ / "text.txt", std::ios::binary);
    return Bytes(std::istreambuf_iterator<char>(in), {});
  }
  void writeBytes(const Bytes& bytes) const {
    std::ofstream(folder_ / "text.txt", std::ios::binary) << bytes;
  }

  // The bytes QxCFile writes for text in the mode.
  Bytes written(const std::wstring& text, int encoding, bool escape, bool lineEnds) const {
    QxCFile file(path_.c_str(), CQxUiFile::modeCreate | CQxUiFile::modeWrite);
    EXPECT_TRUE(file.IsOpen());
    EXPECT_TRUE(file.SetEncoding(encoding));
    file.SetUnicodeEscape(escape);
    file.SetLineEndTranslation(lineEnds);
    EXPECT_TRUE(file.WriteString(text.c_str()));
    file.Close();
    return fileBytes();
  }

  // All characters QxCFile reads from bytes in the mode.
  std::wstring read(const Bytes& bytes, int encoding, bool escape, bool lineEnds) const {
    writeBytes(bytes);
    QxCFile file(path_.c_str(), CQxUiFile::modeRead);
    file.SetEncoding(encoding);
    file.SetUnicodeEscape(escape);
    file.SetLineEndTranslation(lineEnds);
    std::wstring text(bytes.size() + 1, L'\0');
    text.resize(file.ReadChars(text.data(), text.size()));
    return text;
  }

  std::filesystem::path folder_;
  std::wstring path_;
};

const std::wstring kSample = L"A\u00e9\u20ac\u03a9\U0001F600\\";  // A é € Ω 😀 backslash

TEST_F(TextFileTest, AnsiWritesTheCodePageAndEscapesWhatItLacks) {
  // é and € are in the drawing's code page 1252, Ω and the emoji are not.
  EXPECT_EQ(written(kSample, kAnsiCodePage, true, false), "A\xE9\x80\\U+03A9\\U+D83D\\U+DE00\\");
  EXPECT_EQ(written(kSample, kAnsiCodePage, false, false), "A\xE9\x80??\\");
  EXPECT_EQ(read("A\xE9\x80\\U+03A9\\U+D83D\\U+DE00\\", kAnsiCodePage, true, false), kSample);
  // Without the escape flag a backslash is only a backslash.
  EXPECT_EQ(read("\\U+03A9", kAnsiCodePage, false, false), L"\\U+03A9");
}

TEST_F(TextFileTest, AMalformedEscapeIsAPlainBackslashAndItsBytesAreReadAgain) {
  EXPECT_EQ(read("a\\U+12G4b\\Mx\\M+9B0A1\\U+00e9\\U+00", kAnsiCodePage, true, false),
            L"a\\U+12G4b\\Mx\\M+9B0A1\u00e9\\U+00");
  // "\M+5" is the double-byte code page 936: B0A1 is one of its characters.
  EXPECT_EQ(read("\\M+5B0A1.", kAnsiCodePage, true, false), L"\u554a.");
}

TEST_F(TextFileTest, Utf8TakesOneToFourBytes) {
  const Bytes utf8 = "A\xC3\xA9\xE2\x82\xAC\xCE\xA9\xF0\x9F\x98\x80\\";
  EXPECT_EQ(written(kSample, kUtf8, true, false), utf8);  // no escapes but in ANSI
  EXPECT_EQ(read(utf8, kUtf8, false, false), kSample);
  // A broken sequence gives one replacement and the next character stays whole.
  EXPECT_EQ(read("\xC3"
                 "A\xE2\x82",
                 kUtf8, false, false),
            L"\ufffdA\ufffd");
}

TEST_F(TextFileTest, Utf16InBothByteOrdersWithSurrogatePairs) {
  const std::wstring text = L"A\U0001F600";
  const Bytes little("A\0\x3D\xD8\x00\xDE", 6);
  const Bytes big("\0A\xD8\x3D\xDE\x00", 6);
  EXPECT_EQ(written(text, kUtf16LittleEndian, false, false), little);
  EXPECT_EQ(written(text, kUtf16BigEndian, false, false), big);
  EXPECT_EQ(read(little, kUtf16LittleEndian, false, false), text);
  EXPECT_EQ(read(big, kUtf16BigEndian, false, false), text);
  EXPECT_EQ(read(Bytes("\x3D\xD8"
                       "B\0",
                       4),
                 kUtf16LittleEndian, false, false),
            L"\ufffdB");
}

TEST_F(TextFileTest, LineEndsAreTranslatedOnlyWhenAsked) {
  EXPECT_EQ(written(L"\n", kUtf16LittleEndian, false, true), Bytes("\r\0\n\0", 4));
  EXPECT_EQ(written(L"a\nb", kAnsiCodePage, false, true), "a\r\nb");
  EXPECT_EQ(written(L"a\nb", kUtf8, false, false), "a\nb");
  // A carriage return alone stays, and the character behind it is read normally.
  EXPECT_EQ(read("a\r\nb\rc\r", kUtf8, false, true), L"a\nb\rc\r");
  EXPECT_EQ(read("a\r\nb", kUtf8, false, false), L"a\r\nb");
  EXPECT_EQ(read(Bytes("a\0\r\0\n\0", 6), kUtf16LittleEndian, false, true), L"a\n");
}

TEST_F(TextFileTest, TheWriteBufferGoesOutWhenItsReserveIsReached) {
  QxCFile file(path_.c_str(), CQxUiFile::modeCreate | CQxUiFile::modeWrite);
  ASSERT_TRUE(file.AttachWriteBuffer(16));
  ASSERT_TRUE(file.WriteString(L"012345678"));
  EXPECT_EQ(std::filesystem::file_size(folder_ / "text.txt"), 0u);  // all still buffered
  EXPECT_EQ(file.GetLength(), 9u);
  ASSERT_TRUE(file.WriteString(L"9"));  // fewer than 8 bytes were left for it
  EXPECT_EQ(std::filesystem::file_size(folder_ / "text.txt"), 9u);
  EXPECT_EQ(file.GetPosition(), 10u);
  ASSERT_TRUE(file.Flush());
  EXPECT_EQ(std::filesystem::file_size(folder_ / "text.txt"), 10u);
  ASSERT_TRUE(file.WriteString(L"\u03a9"));
  file.SetUnicodeEscape(true);
  ASSERT_TRUE(file.WriteString(L"\u03a9"));  // seven bytes at once
  file.Close();
  EXPECT_EQ(fileBytes(), "0123456789?\\U+03A9");
}

TEST_F(TextFileTest, ByteOrderMarksAreWrittenAndRecognised) {
  {
    QxCStdioFile file(path_.c_str(), CQxUiFile::modeCreate | CQxUiFile::modeWrite);
    ASSERT_TRUE(file.SetEncoding(kUtf16BigEndian));
    ASSERT_TRUE(file.WriteByteOrderMark());
    ASSERT_TRUE(file.WriteString(L"Zeile \u00e4\nZweite\n"));
  }
  EXPECT_EQ(fileBytes().substr(0, 4), Bytes("\xFE\xFF\0Z", 4));
  QxCStdioFile file(path_.c_str(), CQxUiFile::modeRead);
  EXPECT_EQ(file.GetEncoding(), kAnsiCodePage);
  std::wstring line;
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(file.GetEncoding(), kUtf16BigEndian);
  EXPECT_EQ(line, L"Zeile \u00e4");
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, L"Zweite");
  EXPECT_FALSE(file.ReadString(line));

  writeBytes("\xEF\xBB\xBF\xC3\xA9");
  QxCFile utf8(path_.c_str(), CQxUiFile::modeRead);
  wchar_t character[2] = {};
  ASSERT_EQ(utf8.ReadChars(character, 2), 1u);
  EXPECT_EQ(character[0], L'\u00e9');
}

TEST_F(TextFileTest, LinesAreReadWithTheirLineFeedUpToTheBufferSize) {
  writeBytes("first line\r\nsecond\n");
  QxCStdioFile file(path_.c_str(), CQxUiFile::modeRead | CQxUiFile::typeText);
  file.SetLineEndTranslation(true);
  wchar_t buffer[8];
  ASSERT_NE(file.ReadString(buffer, 8), nullptr);
  EXPECT_STREQ(buffer, L"first l");
  ASSERT_NE(file.ReadString(buffer, 8), nullptr);
  EXPECT_STREQ(buffer, L"ine\n");
  std::wstring line;
  ASSERT_TRUE(file.ReadString(line));
  EXPECT_EQ(line, L"second");
  EXPECT_EQ(file.ReadString(buffer, 8), nullptr);
}

TEST_F(TextFileTest, DoubleByteCodePagesReadTheirLeadBytes) {
  const std::string drawing =
      "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1015\n9\n$DWGCODEPAGE\n3\nANSI_936\n"
      "0\nENDSEC\n0\nEOF\n";
  dxf::ReadOptions options;
  options.recover = true;
  dxf::ReadResult result = dxf::readBuffer(drawing, options);
  ASSERT_TRUE(result.ok()) << result.error;
  api::DocumentList::instance().add(std::move(result.database), "");
  // 中 is D6 D0 in code page 936; the second byte isn't read as a character of its own.
  EXPECT_EQ(written(L"a\u4e2d\n", kAnsiCodePage, true, false), "a\xD6\xD0\n");
  EXPECT_EQ(read("a\xD6\xD0\\b", kAnsiCodePage, true, false), L"a\u4e2d\\b");
}

}  // namespace
}  // namespace korva::test
