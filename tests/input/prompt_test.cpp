#include <cmath>
#include <numbers>

#include "input/user_break.h"
#include "input_fixture.h"
#include "qx_input.h"
#include "qx_variables.h"

namespace korva::testing {
namespace {

constexpr double kPi = std::numbers::pi;

using PromptTest = InputTest;

std::wstring keywordInput() {
  wchar_t buffer[64];
  EXPECT_EQ(qxedGetInput(buffer, 64), RTNORM);
  return buffer;
}

TEST_F(PromptTest, IntegersAreAskedAgainUntilValid) {
  script("abc\n70000\n2.5\n12\n");
  int value = 0;
  EXPECT_EQ(qxedGetInt(L"\nCount: ", &value), RTNORM);
  EXPECT_EQ(value, 12);
  EXPECT_EQ(transcript(),
            "\nCount: abc\nRequires an integer value."
            "\nCount: 70000\nRequires an integer between -32768 and 32767."
            "\nCount: 2.5\nRequires an integer value."
            "\nCount: 12\n");
}

TEST_F(PromptTest, FlagsRefuseEnterZeroAndNegativeValues) {
  script("\n0\n-2\n3.5\n");
  double value = 0;
  qxedInitGet(QXED_NO_NULL | QXED_NO_ZERO | QXED_NO_NEGATIVE, nullptr);
  EXPECT_EQ(qxedGetReal(L"\nHeight: ", &value), RTNORM);
  EXPECT_EQ(value, 3.5);
  EXPECT_EQ(transcript(),
            "\nHeight: "
            "\nHeight: 0\nValue must be positive and nonzero."
            "\nHeight: -2\nValue must be positive and nonzero."
            "\nHeight: 3.5\n");
  // The flags held for that prompt only: Enter and zero are taken now.
  script("\n0\n");
  EXPECT_EQ(qxedGetReal(L"\nHeight: ", &value), RTNONE);
  EXPECT_EQ(qxedGetReal(L"\nHeight: ", &value), RTNORM);
  EXPECT_EQ(value, 0);
}

TEST_F(PromptTest, SingleFlagMessages) {
  script("0\n-1\n");
  int value = 0;
  qxedInitGet(QXED_NO_ZERO, nullptr);
  EXPECT_EQ(qxedGetInt(L"N: ", &value), RTNORM);
  EXPECT_EQ(value, -1);
  qxedInitGet(QXED_NO_NEGATIVE, nullptr);
  script("-1\n0\n");
  EXPECT_EQ(qxedGetInt(L"N: ", &value), RTNORM);
  EXPECT_EQ(value, 0);
  // A prompt without its own line start still starts one after a refusal.
  EXPECT_EQ(transcript(),
            "N: 0\nValue must be nonzero.\nN: -1\n"
            "N: -1\nValue must be positive.\nN: 0\n");
}

TEST_F(PromptTest, KeywordsAtValuePrompts) {
  script("u\nl\nExit\n");
  double point[3];
  qxedInitGet(0, L"Undo eXit _ Undo Exit");
  EXPECT_EQ(qxedGetPoint(nullptr, L"\nNext point: ", point), RTKWORD);
  EXPECT_EQ(keywordInput(), L"Undo");
  qxedInitGet(0, L"Undo eXit");
  EXPECT_EQ(qxedGetPoint(nullptr, L"\nNext point: ", point), RTKWORD);
  EXPECT_EQ(keywordInput(), L"eXit");
  EXPECT_NE(transcript().find("l\nPoint or option keyword required."), std::string::npos);
}

TEST_F(PromptTest, ArbitraryTextComesBackAsKeyword) {
  script("hello\n");
  int value = 0;
  qxedInitGet(QXED_ARBITRARY, L"Yes");
  EXPECT_EQ(qxedGetInt(L"\nValue: ", &value), RTKWORD);
  EXPECT_EQ(keywordInput(), L"hello");
}

TEST_F(PromptTest, GetKword) {
  script("maybe\nla\nli\n\nx\n");
  wchar_t buffer[32];
  qxedInitGet(0, L"Layer Linetype");
  EXPECT_EQ(qxedGetKword(L"\nOption [Layer/Linetype]: ", buffer, 32), RTNORM);
  EXPECT_STREQ(buffer, L"Layer");
  EXPECT_NE(transcript().find("maybe\nInvalid option keyword."), std::string::npos);
  qxedInitGet(0, L"Layer Linetype");
  EXPECT_EQ(qxedGetKword(L"\nOption: ", buffer, 32), RTNORM);
  EXPECT_STREQ(buffer, L"Linetype");
  qxedInitGet(0, L"Layer Linetype");
  EXPECT_EQ(qxedGetKword(L"\nOption: ", buffer, 32), RTNONE);
  // The input ran out during the prompt: a cancel.
  qxedInitGet(0, L"Layer");
  EXPECT_EQ(qxedGetKword(L"\nOption: ", buffer, 32), RTCAN);
}

TEST_F(PromptTest, AmbiguousKeywordIsAskedAgain) {
  script("l\nla\n");
  wchar_t buffer[32];
  qxedInitGet(0, L"Layer Linetype");
  EXPECT_EQ(qxedGetKword(L"\nOption: ", buffer, 32), RTNORM);
  EXPECT_STREQ(buffer, L"Layer");
  EXPECT_NE(transcript().find("Ambiguous response"), std::string::npos);
}

TEST_F(PromptTest, PointsSetTheLastPoint) {
  script("3,4\n@1,1\n");
  double point[3];
  EXPECT_EQ(qxedGetPoint(nullptr, L"\nFrom: ", point), RTNORM);
  EXPECT_EQ(qxedGetPoint(nullptr, L"\nTo: ", point), RTNORM);
  EXPECT_DOUBLE_EQ(point[0], 4);
  EXPECT_DOUBLE_EQ(point[1], 5);
  ResultBuffer last;
  ASSERT_EQ(qxedGetVar(L"LASTPOINT", &last), RTNORM);
  EXPECT_DOUBLE_EQ(last.value.rpoint[0], 4);
  script("x\n");
  EXPECT_EQ(qxedGetCorner(point, L"\nCorner: ", point), RTCAN);
  EXPECT_NE(transcript().find("x\nInvalid point."), std::string::npos);
}

TEST_F(PromptTest, DistancesFromNumbersOrPoints) {
  script("2.5\n3,4\n1,1\n4,5\n");
  double distance = 0;
  EXPECT_EQ(qxedGetDist(nullptr, L"\nRadius: ", &distance), RTNORM);
  EXPECT_DOUBLE_EQ(distance, 2.5);
  const double origin[3] = {0, 0, 0};
  EXPECT_EQ(qxedGetDist(origin, L"\nRadius: ", &distance), RTNORM);
  EXPECT_DOUBLE_EQ(distance, 5);
  // Without a base the first point asks for a second.
  EXPECT_EQ(qxedGetDist(nullptr, L"\nRadius: ", &distance), RTNORM);
  EXPECT_DOUBLE_EQ(distance, 5);
  EXPECT_NE(transcript().find("\nRadius: 1,1\nSpecify second point: 4,5"), std::string::npos);
}

TEST_F(PromptTest, AnglesFromAngleBaseAndFromEast) {
  setReal("ANGBASE", kPi / 2);
  setShort("ANGDIR", 1);
  double angle = 0;
  // Typed 90 clockwise from north is east: counterclockwise from ANGBASE that is 270.
  script("90\n90\n-90\n");
  EXPECT_EQ(qxedGetAngle(nullptr, L"\nAngle: ", &angle), RTNORM);
  EXPECT_NEAR(angle, 3 * kPi / 2, 1e-12);
  EXPECT_EQ(qxedGetOrient(nullptr, L"\nAngle: ", &angle), RTNORM);
  EXPECT_NEAR(angle, 0, 1e-12);
  EXPECT_EQ(qxedGetOrient(nullptr, L"\nAngle: ", &angle), RTNORM);
  EXPECT_NEAR(angle, kPi, 1e-12);
  const double base[3] = {1, 1, 0};
  script("1,5\n");
  EXPECT_EQ(qxedGetOrient(base, L"\nAngle: ", &angle), RTNORM);
  EXPECT_NEAR(angle, kPi / 2, 1e-12);
  script("1,5\n");
  EXPECT_EQ(qxedGetAngle(base, L"\nAngle: ", &angle), RTNORM);
  EXPECT_NEAR(angle, 0, 1e-12);
}

TEST_F(PromptTest, StringsWithAndWithoutBlanks) {
  script("one two\nthree four\n\n");
  wchar_t buffer[6];
  EXPECT_EQ(qxedGetString(0, L"\nName: ", buffer, 6), RTNORM);
  EXPECT_STREQ(buffer, L"one");
  EXPECT_EQ(qxedGetString(0, L"\nName: ", buffer, 6), RTNORM);
  EXPECT_STREQ(buffer, L"two");
  // The rest of the line, cut to the buffer.
  EXPECT_EQ(qxedGetString(1, L"\nText: ", buffer, 6), RTNORM);
  EXPECT_STREQ(buffer, L"three");
  EXPECT_EQ(qxedGetString(1, L"\nText: ", buffer, 6), RTNORM);
  EXPECT_STREQ(buffer, L"");
  EXPECT_EQ(qxedGetString(1, L"\nText: ", buffer, 6), RTCAN);
}

TEST_F(PromptTest, MessagesAndBreak) {
  qxedPrompt(L"\nHello");
  qxedAlert(L"Careful");
  EXPECT_EQ(transcript(), "\nHello\nCareful\n");
  EXPECT_FALSE(qxedUsrBrk());
  input::signalUserBreak();
  EXPECT_TRUE(qxedUsrBrk());
  EXPECT_FALSE(qxedUsrBrk());
}

}  // namespace
}  // namespace korva::testing
