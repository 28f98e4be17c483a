// The plane constructions behind CIRCLE, ARC and PLINE: which arc each set of data
// gives, and its direction.
#include "cmd/drawing/arc_construction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace korva::cmd::drawing {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kTolerance = 1e-12;

void expectNear(Vec2 actual, Vec2 expected) {
  EXPECT_NEAR(actual.x, expected.x, kTolerance);
  EXPECT_NEAR(actual.y, expected.y, kTolerance);
}

// The arc runs counterclockwise from `from` to `to` about center with radius.
void expectArc(const std::optional<PlaneArc>& arc, Vec2 center, double radius, Vec2 from, Vec2 to) {
  ASSERT_TRUE(arc.has_value());
  expectNear(arc->center, center);
  EXPECT_NEAR(arc->radius, radius, kTolerance);
  expectNear(arc->pointAt(arc->start), from);
  expectNear(arc->pointAt(arc->end), to);
  EXPECT_GT(arc->sweep(), 0);
}

TEST(CircleThroughPoints, FindsCenterAndRadiusOrNothingOnALine) {
  Vec2 center{2, 3};
  auto on = [&](double angle) { return center + Vec2{std::cos(angle), std::sin(angle)} * 5; };
  std::optional<PlaneCircle> circle = circleThroughPoints(on(0.3), on(2.0), on(4.4));
  ASSERT_TRUE(circle.has_value());
  expectNear(circle->center, center);
  EXPECT_NEAR(circle->radius, 5, kTolerance);

  EXPECT_FALSE(circleThroughPoints({0, 0}, {1, 1}, {3, 3}).has_value());
  EXPECT_FALSE(circleThroughPoints({0, 0}, {0, 0}, {3, 1}).has_value());
}

TEST(ArcThroughPoints, KeepsTheSideOfTheMiddlePoint) {
  // Counterclockwise as given, clockwise as given (same arc, ends swapped), and the
  // three-quarter arc that passes below.
  expectArc(arcThroughPoints({1, 0}, {0, 1}, {-1, 0}), {0, 0}, 1, {1, 0}, {-1, 0});
  expectArc(arcThroughPoints({-1, 0}, {0, 1}, {1, 0}), {0, 0}, 1, {1, 0}, {-1, 0});
  std::optional<PlaneArc> major = arcThroughPoints({1, 0}, {0, -1}, {0, 1});
  expectArc(major, {0, 0}, 1, {0, 1}, {1, 0});
  EXPECT_NEAR(major->sweep(), 1.5 * kPi, kTolerance);
}

TEST(ArcFromStartAndEnd, AngleDirectionAndRadiusChooseTheArc) {
  Vec2 start{1, 0}, end{0, 1};
  expectArc(arcFromStartEndAngle(start, end, kPi / 2), {0, 0}, 1, start, end);
  // Clockwise: the same ends on a circle about (1, 1), drawn from end to start.
  expectArc(arcFromStartEndAngle(start, end, -kPi / 2), {1, 1}, 1, end, start);
  std::optional<PlaneArc> large = arcFromStartEndAngle(start, end, 1.5 * kPi);
  expectArc(large, {1, 1}, 1, start, end);
  EXPECT_FALSE(arcFromStartEndAngle(start, start, kPi).has_value());

  expectArc(arcFromStartEndRadius(start, end, 1), {0, 0}, 1, start, end);
  EXPECT_NEAR(arcFromStartEndRadius(start, end, -1)->sweep(), 1.5 * kPi, kTolerance);
  EXPECT_FALSE(arcFromStartEndRadius(start, end, 0.5).has_value());

  // Leaving north the arc turns left about the origin; leaving west it turns right.
  expectArc(arcFromStartEndDirection(start, end, kPi / 2), {0, 0}, 1, start, end);
  expectArc(arcFromStartEndDirection(start, end, kPi), {1, 1}, 1, end, start);
}

TEST(ArcFromStartAndCenter, EndRayAngleAndChord) {
  Vec2 start{1, 0}, center{0, 0};
  expectArc(arcFromStartCenterToward(start, center, {0, 5}), center, 1, start, {0, 1});
  // The ray's direction counts, not the point's distance; clockwise ends wrap round.
  EXPECT_NEAR(arcFromStartCenterToward(start, center, {0, -3})->sweep(), 1.5 * kPi, kTolerance);
  expectArc(arcFromStartCenterAngle(start, center, -kPi / 2), center, 1, {0, -1}, start);
  EXPECT_NEAR(arcFromStartCenterChord(start, center, std::sqrt(2.0))->sweep(), kPi / 2, 1e-9);
  EXPECT_NEAR(arcFromStartCenterChord(start, center, -std::sqrt(2.0))->sweep(), 1.5 * kPi, 1e-9);
  EXPECT_FALSE(arcFromStartCenterChord(start, center, 2.5).has_value());
}

TEST(Bulges, FollowTheTangentAndGiveTheEndDirection) {
  EXPECT_NEAR(bulgeOfSweep(kPi), 1, kTolerance);
  EXPECT_NEAR(bulgeOfSweep(-kPi / 2), -std::tan(kPi / 8), kTolerance);
  // Heading east, an end due north is a left-turning half circle that ends heading west.
  double bulge = bulgeFromTangent({1, 0}, {0, 0}, {0, 2});
  EXPECT_NEAR(bulge, 1, kTolerance);
  expectNear(endTangent({0, 0}, {0, 2}, bulge), {-1, 0});
  // Straight on: no bulge, no turn.
  EXPECT_NEAR(bulgeFromTangent({1, 0}, {0, 0}, {5, 0}), 0, kTolerance);
  expectNear(endTangent({0, 0}, {5, 0}, 0), {1, 0});
  // A quarter circle to the right.
  double right = bulgeFromTangent({0, 1}, {0, 0}, {1, 1});
  EXPECT_NEAR(right, -std::tan(kPi / 8), kTolerance);
  expectNear(endTangent({0, 0}, {1, 1}, right), {1, 0});
}

}  // namespace
}  // namespace korva::cmd::drawing
