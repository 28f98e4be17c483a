#include <gtest/gtest.h>

#include <numbers>

#include "qx_util.h"

namespace {

constexpr double kPi = std::numbers::pi;

TEST(PlaneGeometry, DistanceIsThreeDimensional) {
  const double a[3] = {1, 2, 3};
  const double b[3] = {4, 6, 15};
  EXPECT_DOUBLE_EQ(qxutDistance(a, b), 13.0);
  EXPECT_DOUBLE_EQ(qxutDistance(b, b), 0.0);
}

TEST(PlaneGeometry, AngleUsesTheXYProjectionInZeroToTwoPi) {
  const double origin[3] = {0, 0, 0};
  const double northWestUp[3] = {-1, 1, 50};
  const double south[3] = {0, -2, -7};
  EXPECT_DOUBLE_EQ(qxutAngle(origin, northWestUp), 0.75 * kPi);
  EXPECT_DOUBLE_EQ(qxutAngle(origin, south), 1.5 * kPi);
  EXPECT_DOUBLE_EQ(qxutAngle(south, origin), 0.5 * kPi);
}

TEST(PlaneGeometry, PolarKeepsZAndMayWriteOverItsBase) {
  double point[3] = {1, 1, 5};
  qxutPolar(point, kPi, 3, point);
  EXPECT_NEAR(point[0], -2, 1e-12);
  EXPECT_NEAR(point[1], 1, 1e-12);
  EXPECT_EQ(point[2], 5);
  // Angle and distance in the plane take a point back to itself.
  const double base[3] = {0, 0, 0};
  const double target[3] = {-2, 1, 0};
  double result[3];
  qxutPolar(base, qxutAngle(base, target), qxutDistance(base, target), result);
  EXPECT_NEAR(result[0], -2, 1e-12);
  EXPECT_NEAR(result[1], 1, 1e-12);
}

}  // namespace
