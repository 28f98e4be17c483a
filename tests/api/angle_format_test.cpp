#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "api/angle_format.h"
#include "api/variable_source.h"
#include "qx_types.h"
#include "qx_units.h"

namespace {

using korva::api::formatAngle;
using korva::api::parseAngle;

constexpr double kPi = std::numbers::pi;

double radians(double degrees) {
  return degrees * kPi / 180.0;
}

struct AngleCase {
  double degrees;
  int units;
  int precision;
  const wchar_t* expected;
};

void PrintTo(const AngleCase& c, std::ostream* out) {
  *out << c.degrees << " deg, units " << c.units << " prec " << c.precision;
}

class AngleFormatTest : public testing::TestWithParam<AngleCase> {};

TEST_P(AngleFormatTest, FormatsAndReadsBack) {
  const AngleCase& c = GetParam();
  const auto text = formatAngle(radians(c.degrees), c.units, c.precision);
  ASSERT_TRUE(text.has_value());
  EXPECT_EQ(*text, c.expected);

  // Reading the text back lands within the precision that was written.
  const auto back = parseAngle(*text, c.units);
  ASSERT_TRUE(back.has_value()) << "cannot read back";
  double expected = std::fmod(radians(c.degrees), 2 * kPi);
  if (expected < 0) expected += 2 * kPi;
  double difference = std::fabs(*back - expected);
  difference = std::min(difference, 2 * kPi - difference);
  EXPECT_LT(difference, radians(1.0)) << "read back as " << *back;
}

INSTANTIATE_TEST_SUITE_P(
    Degrees, AngleFormatTest,
    testing::Values(AngleCase{45, 0, 0, L"45"}, AngleCase{45, 0, 4, L"45.0000"},
                    AngleCase{-45, 0, 2, L"315.00"},  // shown in [0, 360)
                    AngleCase{405, 0, 0, L"45"},
                    AngleCase{359.9999, 0, 2, L"0.00"},  // rounds to a full turn
                    AngleCase{12.345678, 0, 3, L"12.346"}));

INSTANTIATE_TEST_SUITE_P(
    DegreesMinutesSeconds, AngleFormatTest,
    testing::Values(AngleCase{45.5, 1, 4, L"45d30'0\""}, AngleCase{45.6, 1, 0, L"46d"},
                    AngleCase{45.5, 1, 2, L"45d30'"}, AngleCase{45, 1, 4, L"45d0'0\""},
                    AngleCase{10.5125, 1, 4, L"10d30'45\""},
                    AngleCase{10.5125, 1, 6, L"10d30'45.00\""},
                    AngleCase{29.99999, 1, 4, L"30d0'0\""},  // seconds carry up to degrees
                    AngleCase{359.9999, 1, 2, L"0d0'"}));

INSTANTIATE_TEST_SUITE_P(GradsAndRadians, AngleFormatTest,
                         testing::Values(AngleCase{45, 2, 4, L"50.0000g"},
                                         AngleCase{90, 2, 0, L"100g"},
                                         AngleCase{45, 3, 4, L"0.7854r"},
                                         AngleCase{180, 3, 2, L"3.14r"}));

INSTANTIATE_TEST_SUITE_P(
    Surveyor, AngleFormatTest,
    testing::Values(AngleCase{45, 4, 2, L"N 45d0' E"}, AngleCase{45, 4, 0, L"N 45d E"},
                    AngleCase{120, 4, 4, L"N 30d0'0\" W"}, AngleCase{200, 4, 2, L"S 70d0' W"},
                    AngleCase{350.5, 4, 2, L"S 80d30' E"}, AngleCase{0, 4, 2, L"E"},
                    AngleCase{90, 4, 2, L"N"}, AngleCase{180, 4, 4, L"W"},
                    AngleCase{270, 4, 0, L"S"},
                    AngleCase{89.9999, 4, 2, L"N"}));  // rounds onto the north axis

TEST(AngleFormat, SurveyorWithoutBlanksUnderUnitMode) {
  EXPECT_EQ(formatAngle(radians(45), 4, 2, 1), L"N45d0'E");
}

TEST(AngleFormat, RejectsBadUnitsAndPrecisions) {
  EXPECT_FALSE(formatAngle(1.0, 5, 0));
  EXPECT_FALSE(formatAngle(1.0, -2, 0));
  EXPECT_FALSE(formatAngle(1.0, 0, 9));
  EXPECT_FALSE(formatAngle(std::numeric_limits<double>::infinity(), 0, 0));
}

struct ParseCase {
  const wchar_t* text;
  int units;
  double degrees;
};

class AngleParseTest : public testing::TestWithParam<ParseCase> {};

TEST_P(AngleParseTest, Reads) {
  const ParseCase& c = GetParam();
  const auto value = parseAngle(c.text, c.units);
  ASSERT_TRUE(value.has_value()) << "rejected";
  EXPECT_NEAR(*value, radians(c.degrees), 1e-12);
}

INSTANTIATE_TEST_SUITE_P(
    Forms, AngleParseTest,
    testing::Values(ParseCase{L"45", 0, 45}, ParseCase{L"  12.5  ", 0, 12.5},
                    ParseCase{L"-90", 0, 270}, ParseCase{L"1.5e1", 0, 15},
                    ParseCase{L"45d30'", 1, 45.5}, ParseCase{L"45d30'36\"", 1, 45.51},
                    ParseCase{L"45D", 1, 45}, ParseCase{L"45.25", 1, 45.25},
                    ParseCase{L"-10d30'", 1, 349.5}, ParseCase{L"100g", 2, 90},
                    ParseCase{L"50", 2, 45}, ParseCase{L"3.14159265358979r", 3, 180},
                    ParseCase{L"N 45d0' E", 4, 45}, ParseCase{L"n45d30'w", 4, 135.5},
                    ParseCase{L"S 10d E", 4, 280}, ParseCase{L"S 10 W", 4, 260},
                    ParseCase{L"N", 4, 90}, ParseCase{L"W", 4, 180}, ParseCase{L"E", 4, 0}));

TEST(AngleParse, RejectsMalformedText) {
  for (const wchar_t* text : {L"", L"abc", L"45x", L"45d30", L"45d30'15", L"4 5", L"--45"}) {
    EXPECT_FALSE(parseAngle(text, 1)) << "accepted: " << testing::PrintToString(text);
  }
  EXPECT_FALSE(parseAngle(L"N 95d E", 4));  // a bearing is at most 90 degrees
  EXPECT_FALSE(parseAngle(L"N 45d", 4));
  EXPECT_FALSE(parseAngle(L"45", 4));
  EXPECT_FALSE(parseAngle(L"45r", 0));
  EXPECT_FALSE(parseAngle(L"45", 7));
}

TEST(AngToS, MinusOneTakesAunitsAndAuprec) {
  wchar_t buffer[64];
  ASSERT_EQ(qxdbAngToS(radians(45.6), -1, -1, buffer), RTNORM);
  EXPECT_STREQ(buffer, L"46");  // AUNITS 0, AUPREC 0 by default

  class Surveying : public korva::api::VariableSource {
    int getInt(std::string_view name) const override {
      if (name == "AUNITS") return 4;
      if (name == "AUPREC") return 2;
      return 0;
    }
  } drawing;
  korva::api::setVariableSource(&drawing);
  EXPECT_EQ(qxdbAngToS(radians(45.5), -1, -1, buffer), RTNORM);
  EXPECT_STREQ(buffer, L"N 44d30' E");
  double value = 0;
  EXPECT_EQ(qxdbAngToF(L"S 10d E", -1, &value), RTNORM);
  EXPECT_NEAR(value, radians(280), 1e-12);
  korva::api::setVariableSource(nullptr);

  EXPECT_EQ(qxdbAngToF(L"S 10d E", -1, &value), RTERROR);
  EXPECT_EQ(qxdbAngToF(nullptr, 0, &value), RTERROR);
  EXPECT_EQ(qxdbAngToS(1.0, 0, 4, buffer, 4), RTERROR);  // "57.2958" doesn't fit
}

}  // namespace
