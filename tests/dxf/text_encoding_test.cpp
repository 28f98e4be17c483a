// Drawing text to and from UTF-8 through code pages and "\U+XXXX".
#include <gtest/gtest.h>

#include "dxf/text_encoding.h"

namespace korva {
namespace {

using dxf::TextEncoding;

TEST(TextEncoding, CodePagesRoundTrip) {
  struct Case {
    const char* codePage;
    std::string utf8;
    std::string bytes;
  };
  for (const Case& each : {
           Case{"ANSI_1252", "caf\xC3\xA9 \xE2\x82\xAC", "caf\xE9 \x80"},
           Case{"ansi_1252", "\xC3\x9F", "\xDF"},
           Case{"ANSI_1251", "\xD0\x96", "\xC6"},
           Case{"ANSI_936", "\xE4\xB8\xAD\xE6\x96\x87 A", "\xD6\xD0\xCE\xC4 A"},
           Case{"ANSI_932", "\xE6\x97\xA5\xE6\x9C\xAC", "\x93\xFA\x96\x7B"},
           // A half-width katakana before a kanji whose second byte is ASCII.
           Case{"ANSI_932", "\xEF\xBD\xB1\xE6\x9C\xAC", "\xB1\x96\x7B"},
           Case{"ANSI_949", "\xED\x95\x9C", "\xC7\xD1"},
           Case{"DOS850", "\xC3\xA9", "\x82"},
       }) {
    TextEncoding encoding(false, each.codePage);
    EXPECT_FALSE(encoding.isUtf8());
    EXPECT_EQ(encoding.fromUtf8(each.utf8), each.bytes) << each.codePage;
    EXPECT_EQ(encoding.toUtf8(each.bytes), each.utf8) << each.codePage;
  }
}

TEST(TextEncoding, UnrepresentableCharactersBecomeEscapesAndComeBack) {
  TextEncoding latin(false, "ANSI_1252");
  EXPECT_EQ(latin.fromUtf8("\xE4\xB8\xAD=x"), "\\U+4E2D=x");
  EXPECT_EQ(latin.toUtf8("\\U+4E2D=x"), "\xE4\xB8\xAD=x");
  EXPECT_EQ(latin.toUtf8("\\u+00e9"), "\\u+00e9");  // only the upper-case form is an escape
  EXPECT_EQ(latin.toUtf8("\\U+00e9\\U+12"), "\xC3\xA9\\U+12");
  // Beyond the 16-bit range: still one character after the round trip.
  std::string emoji = "a\xF0\x9F\x98\x80z";
  EXPECT_EQ(latin.toUtf8(latin.fromUtf8(emoji)), emoji);
  TextEncoding chinese(false, "ANSI_936");
  EXPECT_EQ(chinese.fromUtf8("\xC3\xA9\xE4\xB8\xAD"), "\xA8\xA6\xD6\xD0");
  EXPECT_EQ(chinese.fromUtf8("\xD0\x96"), "\xA7\xA8");
  EXPECT_EQ(chinese.fromUtf8("\xE0\xB8\x81"), "\\U+0E01");  // Thai is not in GBK
}

TEST(TextEncoding, Utf8DrawingsOnlyDecodeEscapes) {
  TextEncoding utf8(true, "ANSI_1252");
  EXPECT_TRUE(utf8.isUtf8());
  EXPECT_EQ(utf8.charset(), "UTF-8");
  std::string text = "\xE4\xB8\xAD\xE6\x96\x87";
  EXPECT_EQ(utf8.fromUtf8(text), text);
  EXPECT_EQ(utf8.toUtf8(text + "\\U+00E9"), text + "\xC3\xA9");
  EXPECT_TRUE(TextEncoding(false, "UTF8").isUtf8());
}

TEST(TextEncoding, BrokenInputLosesNothingSilently) {
  TextEncoding latin(false, "ANSI_1252");
  // 0x81 is unassigned in 1252: kept as its own character rather than dropped.
  std::string decoded = latin.toUtf8("a\x81z");
  EXPECT_EQ(decoded.size(), 4u);
  EXPECT_EQ(decoded.front(), 'a');
  EXPECT_EQ(decoded.back(), 'z');
  // A cut UTF-8 sequence still gives text and the rest of the string.
  std::string encoded = latin.fromUtf8("x\xE4\xB8");
  EXPECT_EQ(encoded.front(), 'x');
  EXPECT_GT(encoded.size(), 1u);
}

TEST(TextEncoding, UnknownCodePageNamesFallBack) {
  EXPECT_EQ(dxf::charsetOfCodePage("ANSI_936"), "GBK");
  EXPECT_EQ(dxf::charsetOfCodePage("dos850"), "CP850");
  EXPECT_EQ(dxf::charsetOfCodePage("NO_SUCH_PAGE"), "CP1252");
  EXPECT_EQ(dxf::charsetOfCodePage(""), "CP1252");
}

}  // namespace
}  // namespace korva
