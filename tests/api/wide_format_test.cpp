#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <string>

#include "api/print_sink.h"
#include "api/utf8.h"
#include "qx_print.h"
#include "qx_types.h"

namespace {

// Formats through the flat sprintf and hands back the text.
template <typename... Args>
std::wstring sprint(const wchar_t* format, Args... args) {
  wchar_t buffer[512];
  const int length = qxutSPrintf(buffer, format, args...);
  EXPECT_EQ(length, static_cast<int>(std::wcslen(buffer)));
  return buffer;
}

TEST(WideFormat, TextConversions) {
  EXPECT_EQ(sprint(L"[%s]", L"wide \u00e9"), L"[wide \u00e9]");
  EXPECT_EQ(sprint(L"[%ls]", L"wide"), L"[wide]");
  EXPECT_EQ(sprint(L"[%hs]", "narrow \xc3\xa9"), L"[narrow \u00e9]");  // UTF-8 in
  EXPECT_EQ(sprint(L"[%S]", "narrow"), L"[narrow]");
  EXPECT_EQ(sprint(L"[%-8s|%8s]", L"ab", L"cd"), L"[ab      |      cd]");
  EXPECT_EQ(sprint(L"[%.3s]", L"abcdef"), L"[abc]");
  EXPECT_EQ(sprint(L"[%*s]", 5, L"ab"), L"[   ab]");
  EXPECT_EQ(sprint(L"[%*s]", -5, L"ab"), L"[ab   ]");  // negative '*' width aligns left
  EXPECT_EQ(sprint(L"[%s]", static_cast<const wchar_t*>(nullptr)), L"[(null)]");
  EXPECT_EQ(sprint(L"[%c%c%hc]", L'\u00e9', L'x', 'y'), L"[\u00e9xy]");
  EXPECT_EQ(sprint(L"[%3c]", L'x'), L"[  x]");
  EXPECT_EQ(sprint(L"100%% %s", L"done"), L"100% done");
}

TEST(WideFormat, IntegerConversions) {
  EXPECT_EQ(sprint(L"%d %i %u", -42, 7, 4000000000u), L"-42 7 4000000000");
  EXPECT_EQ(sprint(L"%ld %lld", LONG_MIN, LLONG_MAX),
            std::to_wstring(LONG_MIN) + L" " + std::to_wstring(LLONG_MAX));
  EXPECT_EQ(sprint(L"%x %X %#x", 255, 255, 255), L"ff FF 0xff");
  EXPECT_EQ(sprint(L"%02hX", 0xAB), L"AB");
  EXPECT_EQ(sprint(L"%02hX", 0x5), L"05");
  EXPECT_EQ(sprint(L"%hX", -1), L"FFFF");  // h narrows to 16 bits
  EXPECT_EQ(sprint(L"%8lx|", 0xbeefL), L"    beef|");
  EXPECT_EQ(sprint(L"[%-5d][%05d][%+d][% d]", 42, 42, 42, 42), L"[42   ][00042][+42][ 42]");
  EXPECT_EQ(sprint(L"[%*d][%-*d]", 4, 7, 3, 8), L"[   7][8  ]");
  EXPECT_EQ(sprint(L"[%.3d]", 5), L"[005]");
  EXPECT_EQ(sprint(L"%zu %jd", std::size_t{12}, std::intmax_t{-3}), L"12 -3");
}

TEST(WideFormat, FloatingConversions) {
  EXPECT_EQ(sprint(L"%f", 1.5), L"1.500000");
  EXPECT_EQ(sprint(L"%lf %.2f", 2.0, 3.14159), L"2.000000 3.14");
  EXPECT_EQ(sprint(L"%e", 12345.678), L"1.234568e+04");
  EXPECT_EQ(sprint(L"%g %g", 0.0001, 1e20), L"0.0001 1e+20");
  EXPECT_EQ(sprint(L"[%10.3f][%-10.1f]", -3.14159, 2.5), L"[    -3.142][2.5       ]");
  EXPECT_EQ(sprint(L"[%*.*f]", 8, 2, 1.0), L"[    1.00]");
  EXPECT_EQ(sprint(L"%.f", 2.5), L"2");  // a lone '.' is precision 0
}

TEST(WideFormat, ArgumentsStayInStepAcrossMixedConversions) {
  EXPECT_EQ(sprint(L"%s=%d (%.1f) %hs %c %lld", L"n", 3, 0.25, "x", L'y', 5LL), L"n=3 (0.2) x y 5");
}

TEST(WideFormat, PointerAndUnknownConversions) {
  int value = 0;
  const std::wstring pointer = sprint(L"%p", static_cast<void*>(&value));
  EXPECT_NE(pointer.find(L"x"), std::wstring::npos);
  EXPECT_EQ(sprint(L"%y and %", 1), L"%y and %");
}

TEST(SNPrintf, CutsToTheBufferAndReportsTheFullLength) {
  wchar_t buffer[6];
  EXPECT_EQ(qxutSNPrintf(buffer, 6, L"%s-%d", L"abc", 1234), 8);
  EXPECT_STREQ(buffer, L"abc-1");
  EXPECT_EQ(qxutSNPrintf(buffer, 6, L"%d", 12), 2);
  EXPECT_STREQ(buffer, L"12");
  EXPECT_EQ(qxutSNPrintf(nullptr, 0, L"%d", 12345), 5);  // measuring only
  EXPECT_EQ(qxutSNPrintf(nullptr, 4, L"x"), -1);
  EXPECT_EQ(qxutSPrintf(buffer, nullptr), -1);
}

TEST(Printf, GoesToTheInstalledSink) {
  std::wstring transcript;
  korva::api::PrintSink previous =
      korva::api::setPrintSink([&](std::wstring_view text) { transcript += text; });
  EXPECT_EQ(qxutPrintf(L"\n%s: %d\n", L"Total", 3), RTNORM);
  EXPECT_EQ(qxutPrintf(L"%hs", "\xe2\x82\xac"), RTNORM);
  EXPECT_EQ(qxutPrintf(nullptr), RTERROR);
  korva::api::setPrintSink(std::move(previous));
  EXPECT_EQ(transcript, L"\nTotal: 3\n\u20ac");
}

TEST(Printf, StandardOutputGetsUtf8) {
  testing::internal::CaptureStdout();
  qxutPrintf(L"%s %d\n", L"caf\u00e9 \u20ac \U0001F600", 1);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "caf\xc3\xa9 \xe2\x82\xac \xf0\x9f\x98\x80 1\n");
}

TEST(Utf8, MalformedInputBecomesReplacementCharacters) {
  EXPECT_EQ(korva::api::fromUtf8("a\xff"
                                 "b"),
            L"a\ufffdb");
  EXPECT_EQ(korva::api::fromUtf8("\xc3"), L"\ufffd");                      // cut short
  EXPECT_EQ(korva::api::fromUtf8("\xc0\xaf"), L"\ufffd\ufffd");            // overlong
  EXPECT_EQ(korva::api::fromUtf8("\xed\xa0\x80"), L"\ufffd\ufffd\ufffd");  // surrogate
  EXPECT_EQ(korva::api::toUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xef\xbf\xbd");
}

}  // namespace
