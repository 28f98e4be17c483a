#include <gtest/gtest.h>

#include <string>

#include "api/linear_format.h"
#include "api/variable_source.h"
#include "qx_types.h"
#include "qx_units.h"

namespace {

using korva::api::formatLinear;
using korva::api::LinearStyle;

struct LinearCase {
  double value;
  int units;
  int precision;
  int dimzin;
  int unitmode;
  const wchar_t* expected;
};

void PrintTo(const LinearCase& c, std::ostream* out) {
  *out << c.value << " units " << c.units << " prec " << c.precision << " dimzin " << c.dimzin
       << " unitmode " << c.unitmode;
}

class LinearFormatTest : public testing::TestWithParam<LinearCase> {};

TEST_P(LinearFormatTest, Formats) {
  const LinearCase& c = GetParam();
  const auto text = formatLinear(c.value, c.units, c.precision, LinearStyle{c.dimzin, c.unitmode});
  ASSERT_TRUE(text.has_value());
  EXPECT_EQ(*text, c.expected);
}

INSTANTIATE_TEST_SUITE_P(Scientific, LinearFormatTest,
                         testing::Values(LinearCase{10.0, 1, 4, 0, 0, L"1.0000E+01"},
                                         LinearCase{17.5, 1, 4, 0, 0, L"1.7500E+01"},
                                         LinearCase{-0.00125, 1, 2, 0, 0, L"-1.25E-03"},
                                         LinearCase{0.0, 1, 2, 0, 0, L"0.00E+00"},
                                         LinearCase{17.5, 1, 0, 0, 0, L"2E+01"},
                                         LinearCase{17.5, 1, 4, 8, 0, L"1.75E+01"},
                                         LinearCase{10.0, 1, 4, 8, 0, L"1E+01"}));

INSTANTIATE_TEST_SUITE_P(
    Decimal, LinearFormatTest,
    testing::Values(LinearCase{17.5, 2, 4, 0, 0, L"17.5000"}, LinearCase{17.5, 2, 0, 0, 0, L"18"},
                    LinearCase{-2.5, 2, 0, 0, 0, L"-3"},
                    LinearCase{2.675, 2, 2, 0, 0, L"2.68"},  // decimal tie below in binary
                    LinearCase{0.125, 2, 2, 0, 0, L"0.13"},
                    LinearCase{1234567.891, 2, 8, 0, 0, L"1234567.89100000"},
                    LinearCase{-0.00001, 2, 4, 0, 0, L"0.0000"},  // no "-0.0000"
                    LinearCase{0.5, 2, 4, 4, 0, L".5000"}, LinearCase{-0.5, 2, 4, 4, 0, L"-.5000"},
                    LinearCase{12.5, 2, 4, 8, 0, L"12.5"}, LinearCase{12.0, 2, 4, 8, 0, L"12"},
                    LinearCase{0.5, 2, 4, 12, 0, L".5"}, LinearCase{0.0, 2, 4, 12, 0, L"0"},
                    LinearCase{100.0, 2, 0, 8, 0, L"100"}));  // integer zeros stay

INSTANTIATE_TEST_SUITE_P(
    Engineering, LinearFormatTest,
    testing::Values(LinearCase{17.5, 3, 4, 0, 0, L"1'-5.5000\""},
                    LinearCase{17.5, 3, 4, 0, 1, L"1'5.5000\""},
                    LinearCase{6.0, 3, 2, 0, 0, L"6.00\""},      // zero feet dropped
                    LinearCase{6.0, 3, 2, 1, 0, L"0'-6.00\""},   // zero feet kept
                    LinearCase{24.0, 3, 2, 0, 0, L"2'"},         // zero inches dropped
                    LinearCase{24.0, 3, 2, 3, 0, L"2'-0.00\""},  // zero inches kept
                    LinearCase{11.9999, 3, 2, 0, 0, L"1'"},      // rounding carries to feet
                    LinearCase{17.5, 3, 4, 8, 0, L"1'-5.5\""},
                    LinearCase{0.5, 3, 2, 4, 0, L".50\""},
                    LinearCase{-17.5, 3, 1, 0, 0, L"-1'-5.5\""}));

INSTANTIATE_TEST_SUITE_P(
    Architectural, LinearFormatTest,
    testing::Values(LinearCase{17.5, 4, 4, 0, 0, L"1'-5 1/2\""},
                    LinearCase{12.5, 4, 2, 0, 0, L"1'-0 1/2\""},
                    LinearCase{17.5, 4, 4, 0, 1, L"1'5-1/2\""},
                    LinearCase{17.5, 4, 0, 0, 0, L"1'-6\""},  // whole inches only
                    LinearCase{0.5, 4, 2, 0, 0, L"1/2\""},    // zero feet dropped
                    LinearCase{0.5, 4, 2, 1, 0, L"0'-0 1/2\""}, LinearCase{12.0, 4, 2, 0, 0, L"1'"},
                    LinearCase{12.0, 4, 2, 1, 0, L"1'-0\""}, LinearCase{12.0, 4, 2, 2, 0, L"1'"},
                    LinearCase{6.0, 4, 2, 2, 0, L"0'-6\""}, LinearCase{6.0, 4, 2, 3, 0, L"6\""},
                    LinearCase{0.0, 4, 2, 0, 0, L"0\""}, LinearCase{0.0, 4, 2, 2, 0, L"0'"},
                    LinearCase{3.0 / 16.0, 4, 4, 0, 0, L"3/16\""},
                    LinearCase{6.0 / 16.0, 4, 4, 0, 0, L"3/8\""},  // fraction in lowest terms
                    LinearCase{35.999, 4, 3, 0, 0, L"3'"},         // 35 8/8 carries to feet
                    LinearCase{1.0 / 256.0, 4, 8, 0, 0, L"1/256\""},
                    LinearCase{-12.5, 4, 1, 0, 0, L"-1'-0 1/2\""}));

INSTANTIATE_TEST_SUITE_P(
    Fractional, LinearFormatTest,
    testing::Values(LinearCase{17.5, 5, 4, 0, 0, L"17 1/2"},
                    LinearCase{17.5, 5, 4, 0, 1, L"17-1/2"}, LinearCase{0.75, 5, 2, 0, 0, L"3/4"},
                    LinearCase{0.75, 5, 1, 0, 0, L"1"}, LinearCase{17.0, 5, 3, 0, 0, L"17"},
                    LinearCase{0.001, 5, 3, 0, 0, L"0"}, LinearCase{-2.25, 5, 2, 0, 0, L"-2 1/4"}));

TEST(LinearFormat, RejectsWhatItCannotWrite) {
  EXPECT_FALSE(formatLinear(1.0, 0, 2));
  EXPECT_FALSE(formatLinear(1.0, 6, 2));
  EXPECT_FALSE(formatLinear(1.0, 2, 9));
  EXPECT_FALSE(formatLinear(1.0, 2, -1));
  EXPECT_FALSE(formatLinear(std::numeric_limits<double>::quiet_NaN(), 2, 2));
  EXPECT_FALSE(formatLinear(std::numeric_limits<double>::infinity(), 1, 2));
  EXPECT_FALSE(formatLinear(1e12, 4, 2));
}

// Plays a drawing whose variables differ from the defaults.
class FakeDrawing : public korva::api::VariableSource {
 public:
  int getInt(std::string_view name) const override {
    if (name == "LUNITS") return 4;
    if (name == "LUPREC") return 3;
    if (name == "DIMZIN") return 1;
    if (name == "UNITMODE") return 1;
    return 0;
  }
};

TEST(RToS, MinusOneTakesTheDrawingVariables) {
  wchar_t buffer[64];
  ASSERT_EQ(qxdbRToS(17.5, -1, -1, buffer), RTNORM);
  EXPECT_STREQ(buffer, L"17.5000");  // LUNITS 2, LUPREC 4 by default

  FakeDrawing drawing;
  korva::api::setVariableSource(&drawing);
  EXPECT_EQ(qxdbRToS(6.5, -1, -1, buffer), RTNORM);
  EXPECT_STREQ(buffer, L"0'6-1/2\"");
  EXPECT_EQ(qxdbRToS(6.5, 2, -1, buffer), RTNORM);
  EXPECT_STREQ(buffer, L"6.500");
  korva::api::setVariableSource(nullptr);

  EXPECT_EQ(qxdbRToS(6.5, -1, 1, buffer), RTNORM);
  EXPECT_STREQ(buffer, L"6.5");
}

TEST(RToS, FailsCleanlyOnBadArgumentsOrShortBuffers) {
  wchar_t buffer[8] = L"junk";
  EXPECT_EQ(qxdbRToS(1.0, 7, 2, buffer), RTERROR);
  EXPECT_STREQ(buffer, L"");
  EXPECT_EQ(qxdbRToS(1.0, 2, 2, nullptr), RTERROR);
  EXPECT_EQ(qxdbRToS(12345.678, 2, 3, buffer, 8), RTERROR);  // needs 10 with terminator
  EXPECT_EQ(qxdbRToS(12345.6, 2, 1, buffer, 8), RTNORM);
  EXPECT_STREQ(buffer, L"12345.6");
}

}  // namespace
