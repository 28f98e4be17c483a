// ORTHO, SNAP and GRID as the module scripts them, and their other options.
#include <gtest/gtest.h>

#include <sstream>

#include "cmd/processor.h"
#include "drawing_fixture.h"
#include "input/console.h"
#include "qx_command.h"
#include "qx_variables.h"

namespace korva::cmd {
namespace {

class DrawingAidsTest : public HostCommandTest {
 protected:
  static int shortValue(const wchar_t* name) {
    ResultBuffer value{};
    EXPECT_EQ(qxedGetVar(name, &value), RTNORM);
    return value.value.rint;
  }
  static std::pair<double, double> pair(const wchar_t* name) {
    ResultBuffer value{};
    EXPECT_EQ(qxedGetVar(name, &value), RTNORM);
    return {value.value.rpoint[0], value.value.rpoint[1]};
  }
};

TEST_F(DrawingAidsTest, OrthoOnAndOff) {
  ASSERT_EQ(qxedCommand(RTSTR, L"_.ORTHO", RTSTR, L"_ON", RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"ORTHOMODE"), 1);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.ORTHO", RTSTR, L"", RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"ORTHOMODE"), 1);
  EXPECT_NE(transcript_.str().find("Enter mode [ON/OFF] <ON>:"), std::string::npos);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.ORTHO", RTSTR, L"_OFF", RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"ORTHOMODE"), 0);
}

TEST_F(DrawingAidsTest, AspectSpacingsTurnSnapAndGridOn) {
  ASSERT_EQ(qxedCommand(RTSTR, L"_.SNAP", RTSTR, L"_A", RTREAL, 2.5, RTREAL, 4.0, RTNONE), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"_A", RTREAL, 5.0, RTREAL, 8.0, RTNONE), RTNORM);
  EXPECT_EQ(pair(L"SNAPUNIT"), std::make_pair(2.5, 4.0));
  EXPECT_EQ(pair(L"GRIDUNIT"), std::make_pair(5.0, 8.0));
  EXPECT_EQ(shortValue(L"SNAPMODE"), 1);
  EXPECT_EQ(shortValue(L"GRIDMODE"), 1);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.SNAP", RTSTR, L"_OFF", RTNONE), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"_OFF", RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"SNAPMODE"), 0);
  EXPECT_EQ(shortValue(L"GRIDMODE"), 0);
  EXPECT_EQ(pair(L"SNAPUNIT"), std::make_pair(2.5, 4.0));
}

TEST_F(DrawingAidsTest, GridSpacingAsAMultipleOfSnapOrFollowingIt) {
  ASSERT_EQ(qxedCommand(RTSTR, L"_.SNAP", RTREAL, 1.5, RTNONE), RTNORM);
  EXPECT_EQ(pair(L"SNAPUNIT"), std::make_pair(1.5, 1.5));
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"4x", RTNONE), RTNORM);
  EXPECT_EQ(pair(L"GRIDUNIT"), std::make_pair(6.0, 6.0));
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"_S", RTNONE), RTNORM);
  EXPECT_EQ(pair(L"GRIDUNIT"), std::make_pair(1.5, 1.5));
  // Nonsense and zero are refused and asked again; Enter then keeps the spacing.
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"banana", RTSTR, L"0", RTSTR, L"", RTNONE),
            RTNORM);
  EXPECT_EQ(pair(L"GRIDUNIT"), std::make_pair(1.5, 1.5));
}

TEST_F(DrawingAidsTest, GridDisplayAndMajorLines) {
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"_M", RTSHORT, 10, RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"GRIDMAJOR"), 10);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"_D", RTSTR, L"_N", RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"GRIDDISPLAY") & 2, 0);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"_L", RTSTR, L"_Y", RTNONE), RTNORM);
  ASSERT_EQ(qxedCommand(RTSTR, L"_.GRID", RTSTR, L"_F", RTSTR, L"_Y", RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"GRIDDISPLAY"), 1 | 8);
}

TEST_F(DrawingAidsTest, IsometricStyleTakesOneSpacing) {
  ASSERT_EQ(qxedCommand(RTSTR, L"_.SNAP", RTSTR, L"_S", RTSTR, L"_I", RTREAL, 3.0, RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"SNAPSTYL"), 1);
  EXPECT_EQ(pair(L"SNAPUNIT"), std::make_pair(3.0, 3.0));
  ASSERT_EQ(qxedCommand(RTSTR, L"_.SNAP", RTSTR, L"_T", RTSTR, L"_P", RTNONE), RTNORM);
  EXPECT_EQ(shortValue(L"SNAPTYPE"), 1);
}

}  // namespace
}  // namespace korva::cmd
