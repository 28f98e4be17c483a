#include <cmath>
#include <numbers>

#include "input/point_input.h"
#include "input_fixture.h"

namespace korva::testing {
namespace {

using input::parseAngleInput;
using input::parseDistanceInput;
using input::parseIntegerInput;
using input::parsePointInput;
using input::parseRealInput;

constexpr double kPi = std::numbers::pi;

class PointInputTest : public InputTest {
 protected:
  // The point parsed, or NaN coordinates when the text is not a point.
  std::array<double, 3> point(std::wstring_view text, const double* base = nullptr) {
    double result[3];
    if (!parsePointInput(text, base, result)) return {NAN, NAN, NAN};
    return {result[0], result[1], result[2]};
  }
  void expectPoint(std::wstring_view text, double x, double y, double z,
                   const double* base = nullptr) {
    const std::array<double, 3> p = point(text, base);
    EXPECT_NEAR(p[0], x, 1e-9) << std::string(text.begin(), text.end());
    EXPECT_NEAR(p[1], y, 1e-9) << std::string(text.begin(), text.end());
    EXPECT_NEAR(p[2], z, 1e-9) << std::string(text.begin(), text.end());
  }
};

TEST_F(PointInputTest, AbsoluteAndRelativeCoordinates) {
  expectPoint(L"1,2", 1, 2, 0);
  expectPoint(L"-1.5,2e1,3", -1.5, 20, 3);
  const double base[3] = {10, 10, 5};
  expectPoint(L"@1,-2", 11, 8, 5, base);
  expectPoint(L"@1,2,3", 11, 12, 8, base);
  expectPoint(L"@", 10, 10, 5, base);
  // Without a base "@" is relative to LASTPOINT.
  setPoint("LASTPOINT", 100, 200, 0);
  expectPoint(L"@5,5", 105, 205, 0);
  for (const wchar_t* wrong : {L"1", L"1,", L",1", L"1,2,3,4", L"a,b", L"@@1,1", L"1;2", L""}) {
    EXPECT_TRUE(std::isnan(point(wrong)[0])) << std::wstring(wrong).size();
  }
}

TEST_F(PointInputTest, PolarInputFollowsAngleBaseAndDirection) {
  expectPoint(L"10<90", 0, 10, 0);
  const double base[3] = {1, 1, 0};
  expectPoint(L"@2<180", -1, 1, 0, base);
  setShort("AUNITS", 2);  // grads
  expectPoint(L"@2<100", 1, 3, 0, base);
  setShort("AUNITS", 0);
  setReal("ANGBASE", kPi / 2);  // zero points north
  expectPoint(L"10<0", 0, 10, 0);
  setShort("ANGDIR", 1);  // clockwise
  expectPoint(L"10<90", 10, 0, 0);
  EXPECT_TRUE(std::isnan(point(L"10<")[0]));
  EXPECT_TRUE(std::isnan(point(L"<45")[0]));
}

TEST_F(PointInputTest, WorldCoordinatesWithAStar) {
  setPoint("UCSORG", 10, 20, 0);
  expectPoint(L"5,5", 5, 5, 0);
  expectPoint(L"*5,5", -5, -15, 0);
  const double base[3] = {0, 0, 0};
  expectPoint(L"@*1,1", 1, 1, 0, base);  // a displacement: the origin doesn't move it
}

TEST_F(PointInputTest, LengthsInTheDrawingUnits) {
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"2.5"), 2.5);
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"3/4"), 0.75);
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"-1-3/4"), -1.75);
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"1.2E2"), 120);
  EXPECT_FALSE(parseDistanceInput(L"1'2\""));  // feet only in engineering and architectural
  EXPECT_FALSE(parseDistanceInput(L"3/0"));
  setShort("LUNITS", 4);
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"1'2\""), 14);
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"1'-2-1/2\""), 14.5);
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"-2'"), -24);
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"7"), 7);
  EXPECT_DOUBLE_EQ(*parseDistanceInput(L"1/2\""), 0.5);
  EXPECT_FALSE(parseDistanceInput(L"1'2'"));
  expectPoint(L"1',6\"", 12, 6, 0);
}

TEST_F(PointInputTest, NumbersAndAngles) {
  EXPECT_DOUBLE_EQ(*parseRealInput(L"-.5"), -0.5);
  EXPECT_DOUBLE_EQ(*parseRealInput(L"+2.e1"), 20);
  EXPECT_FALSE(parseRealInput(L"1/2"));
  EXPECT_FALSE(parseRealInput(L"1e"));
  EXPECT_EQ(*parseIntegerInput(L"-32768"), -32768);
  EXPECT_EQ(*parseIntegerInput(L"32767"), 32767);
  EXPECT_FALSE(parseIntegerInput(L"32768"));
  EXPECT_FALSE(parseIntegerInput(L"1.0"));
  EXPECT_NEAR(*parseAngleInput(L"90"), kPi / 2, 1e-12);
  EXPECT_NEAR(*parseAngleInput(L"-90"), 3 * kPi / 2, 1e-12);
  // Angles marked with other units than AUNITS are read in those.
  EXPECT_NEAR(*parseAngleInput(L"100g"), kPi / 2, 1e-12);
  EXPECT_NEAR(*parseAngleInput(L"1r"), 1, 1e-12);
  EXPECT_NEAR(*parseAngleInput(L"45d30'"), 45.5 * kPi / 180, 1e-12);
  setShort("AUNITS", 3);
  EXPECT_NEAR(*parseAngleInput(L"1"), 1, 1e-12);
  EXPECT_FALSE(parseAngleInput(L"x"));
}

}  // namespace
}  // namespace korva::testing
