// Pieces of the plane: where carriers meet, positions along arcs, moved ends.
#include "geom/plane_pieces.h"

#include <gtest/gtest.h>

#include <numbers>

namespace korva::geom {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kTolerance = 1e-9;

void expectPoint(Vec2 got, Vec2 want) {
  EXPECT_NEAR(got.x, want.x, kTolerance);
  EXPECT_NEAR(got.y, want.y, kTolerance);
}

TEST(PlanePieces, CarriersMeetBeyondTheEndsButPiecesOnlyOnThem) {
  Piece across = linePiece({0, 0}, {10, 0});
  Piece upright = linePiece({5, 1}, {5, 4});
  ASSERT_EQ(carrierIntersections(across, upright).size(), 1u);
  expectPoint(carrierIntersections(across, upright)[0], {5, 0});
  EXPECT_TRUE(pieceIntersections(across, upright, false).empty());
  EXPECT_EQ(pieceIntersections(across, upright, true).size(), 1u);
  EXPECT_TRUE(carrierIntersections(across, linePiece({0, 1}, {10, 1})).empty());
}

TEST(PlanePieces, LinesAndCirclesCrossTouchOrMiss) {
  Piece circle = arcPiece({0, 0}, 5, 0, 2 * kPi);
  EXPECT_EQ(carrierIntersections(linePiece({-10, 3}, {10, 3}), circle).size(), 2u);
  std::vector<Vec2> touch = carrierIntersections(linePiece({-10, 5}, {10, 5}), circle);
  ASSERT_EQ(touch.size(), 1u);
  expectPoint(touch[0], {0, 5});
  EXPECT_TRUE(carrierIntersections(linePiece({-10, 6}, {10, 6}), circle).empty());
  std::vector<Vec2> circles = carrierIntersections(circle, arcPiece({8, 0}, 5, 0, 2 * kPi));
  ASSERT_EQ(circles.size(), 2u);
  EXPECT_NEAR(circles[0].x, 4, kTolerance);
  EXPECT_NEAR(std::fabs(circles[0].y), 3, kTolerance);
  // Only the upper half circle holds the point (0, 5) of the line y = 5.
  Piece lower = arcPiece({0, 0}, 5, kPi, kPi);
  EXPECT_TRUE(pieceIntersections(lower, linePiece({-10, 5}, {10, 5}), true).empty());
}

TEST(PlanePieces, ArcFractionsCountTheRestOfTheCircleFromTheNearerEnd) {
  Piece quarter = arcPiece({0, 0}, 1, 0, kPi / 2);
  EXPECT_NEAR(fractionOf(quarter, {0, 1}), 1, kTolerance);
  EXPECT_NEAR(fractionOf(quarter, {std::cos(-0.1), std::sin(-0.1)}), -0.1 / (kPi / 2), kTolerance);
  EXPECT_GT(fractionOf(quarter, {-1, 0.1}), 1);
  // Clockwise arcs run the other way round.
  Piece clockwise = arcPiece({0, 0}, 1, kPi / 2, -kPi / 2);
  EXPECT_NEAR(fractionOf(clockwise, {1, 0}), 1, kTolerance);
  expectPoint(tangentAt(clockwise, 0), {1, 0});
}

TEST(PlanePieces, NewEndsKeepTheWayRound) {
  Piece quarter = arcPiece({0, 0}, 1, 0, kPi / 2);
  Piece longer = withEnd(quarter, {-1, 0});
  EXPECT_NEAR(longer.sweep, kPi, kTolerance);
  Piece shorter = withStart(quarter, {std::sqrt(0.5), std::sqrt(0.5)});
  EXPECT_NEAR(shorter.sweep, kPi / 4, kTolerance);
  expectPoint(shorter.end, {0, 1});
  Piece back = reversed(quarter);
  expectPoint(back.start, {0, 1});
  EXPECT_NEAR(back.sweep, -kPi / 2, kTolerance);
  expectPoint(pointAt(back, 0.5), {std::sqrt(0.5), std::sqrt(0.5)});
}

TEST(PlanePieces, OffsetsMoveLinesAndResizeArcs) {
  Piece moved = *offsetPiece(linePiece({0, 0}, {10, 0}), 2);
  expectPoint(moved.start, {0, 2});
  // Left of a counterclockwise arc is inward.
  EXPECT_NEAR(offsetPiece(arcPiece({0, 0}, 5, 0, kPi), 2)->radius, 3, kTolerance);
  EXPECT_NEAR(offsetPiece(arcPiece({0, 0}, 5, 0, -kPi), 2)->radius, 7, kTolerance);
  EXPECT_FALSE(offsetPiece(arcPiece({0, 0}, 5, 0, 2 * kPi), 5).has_value());
  Piece half = bulgePiece({0, 0}, {10, 0}, 1);
  expectPoint(half.center, {5, 0});
  EXPECT_NEAR(bulgeOf(half), 1, kTolerance);
}

}  // namespace
}  // namespace korva::geom
