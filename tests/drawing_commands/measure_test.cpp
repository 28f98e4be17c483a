// What AREA and LIST measure: areas of curves closed by their chord, splines by
// integration, and lengths around.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "cmd/drawing/curve_area.h"
#include "drawing_fixture.h"
#include "qx_util.h"

namespace korva::cmd::drawing {
namespace {

constexpr double kPi = std::numbers::pi;

class MeasureTest : public DrawingTest {};

TEST_F(MeasureTest, OpenBulgedPolylineIsClosedByItsChord) {
  const double a[2] = {0, 0}, b[2] = {2, 0}, c[2] = {2, 3};
  EntityName name;
  // A half circle of radius 1 from (0,0) to (2,0), then a straight leg up to (2,3).
  make(qxutBuildList(RTDXF0, L"LWPOLYLINE", 90, 3, 70, 0, 10, a, 42, 1.0, 10, b, 10, c, RTNONE),
       name);
  std::optional<Measured> measured = measureEntity(name);
  ASSERT_TRUE(measured.has_value());
  EXPECT_EQ(measured->outline, Measured::Outline::Open);
  // The half disc below the X axis plus the triangle (0,0) (2,0) (2,3).
  EXPECT_NEAR(measured->area, kPi / 2 + 3, 1e-9);
  EXPECT_NEAR(measured->length, kPi + 3, 1e-9);
}

TEST_F(MeasureTest, CirclesAndClosedPolylines) {
  const double center[3] = {4, 4, 0};
  EntityName circle;
  make(qxutBuildList(RTDXF0, L"CIRCLE", 10, center, 40, 2.0, RTNONE), circle);
  std::optional<Measured> measured = measureEntity(circle);
  ASSERT_TRUE(measured.has_value());
  EXPECT_EQ(measured->outline, Measured::Outline::Circle);
  EXPECT_NEAR(measured->area, 4 * kPi, 1e-9);
  EXPECT_NEAR(measured->length, 4 * kPi, 1e-9);

  const double p[2] = {0, 0}, q[2] = {4, 0}, r[2] = {4, 3};
  EntityName triangle;
  make(qxutBuildList(RTDXF0, L"LWPOLYLINE", 90, 3, 70, 1, 10, p, 10, q, 10, r, RTNONE), triangle);
  measured = measureEntity(triangle);
  ASSERT_TRUE(measured.has_value());
  EXPECT_EQ(measured->outline, Measured::Outline::Closed);
  EXPECT_NEAR(measured->area, 6, 1e-12);
  EXPECT_NEAR(measured->length, 12, 1e-12);
}

TEST_F(MeasureTest, SplineAreaByIntegration) {
  // The quadratic arch from (0,0) over (1,2) to (2,0) peaks at height 1: it closes
  // with its chord two thirds of the box 2 x 1.
  const double a[3] = {0, 0, 0}, b[3] = {1, 2, 0}, c[3] = {2, 0, 0};
  EntityName name;
  make(qxutBuildList(RTDXF0, L"SPLINE", 70, 8, 71, 2, 72, 6, 73, 3, 40, 0.0, 40, 0.0, 40, 0.0, 40,
                     1.0, 40, 1.0, 40, 1.0, 10, a, 10, b, 10, c, RTNONE),
       name);
  std::optional<Measured> measured = measureEntity(name);
  ASSERT_TRUE(measured.has_value());
  EXPECT_NEAR(measured->area, 4.0 / 3.0, 1e-9);
  // The arch's length: twice the integral of sqrt(1 + 4 (1 - t)^2) ... in closed form.
  double half = (std::sqrt(5.0) / 2 + std::asinh(2.0) / 4);
  EXPECT_NEAR(measured->length, 2 * half, 1e-6);
}

TEST_F(MeasureTest, LinesAndTextsHaveNoArea) {
  const double a[3] = {0, 0, 0}, b[3] = {1, 1, 0};
  EntityName line, text;
  make(qxutBuildList(RTDXF0, L"LINE", 10, a, 11, b, RTNONE), line);
  EXPECT_FALSE(measureEntity(line).has_value());
  make(qxutBuildList(RTDXF0, L"TEXT", 10, a, 40, 1.0, 1, L"x", RTNONE), text);
  EXPECT_FALSE(measureEntity(text).has_value());
}

}  // namespace
}  // namespace korva::cmd::drawing
