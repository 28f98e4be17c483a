// Corners: sharp and rounded, the corner the picks choose, radii that don't fit, and
// the corners of polylines.
#include "geom/corner_fillet.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace korva::geom {
namespace {

constexpr double kTolerance = 1e-9;

void expectPoint(Vec2 got, Vec2 want) {
  EXPECT_NEAR(got.x, want.x, kTolerance);
  EXPECT_NEAR(got.y, want.y, kTolerance);
}

// Two lines that don't reach their meeting point at (10, 0).
const Piece kAcross = linePiece({0, 0}, {8, 0});
const Piece kUp = linePiece({10, 3}, {10, 10});

TEST(CornerFillet, RadiusZeroExtendsOrTrimsToTheCorner) {
  Fillet sharp = filletPieces(kAcross, {2, 0}, kUp, {10, 8}, 0);
  ASSERT_EQ(sharp.fault, FilletFault::None);
  EXPECT_FALSE(sharp.arc.has_value());
  expectPoint(sharp.first.start, {0, 0});
  expectPoint(sharp.first.end, {10, 0});
  expectPoint(sharp.second.start, {10, 0});
  expectPoint(sharp.second.end, {10, 10});
  // Crossing lines: the picked side of each stays.
  Fillet crossed =
      filletPieces(linePiece({0, 0}, {20, 0}), {2, 0}, linePiece({10, -5}, {10, 10}), {10, 8}, 0);
  expectPoint(crossed.first.end, {10, 0});
  expectPoint(crossed.second.start, {10, 0});
  expectPoint(crossed.second.end, {10, 10});
}

TEST(CornerFillet, ArcsTouchBothLinesOnThePickedCorner) {
  Fillet round = filletPieces(kAcross, {2, 0}, kUp, {10, 8}, 2);
  ASSERT_EQ(round.fault, FilletFault::None);
  ASSERT_TRUE(round.arc.has_value());
  expectPoint(round.arc->center, {8, 2});
  expectPoint(round.first.end, {8, 0});
  expectPoint(round.second.start, {10, 2});
  EXPECT_NEAR(std::fabs(round.arc->sweep), std::numbers::pi / 2, kTolerance);
  expectPoint(round.arc->start, {8, 0});
  expectPoint(round.arc->end, {10, 2});
}

TEST(CornerFillet, TooLargeRadiiAndParallelLinesFail) {
  // Radius 9 still touches both lines; 11 would touch beyond their far ends.
  EXPECT_EQ(filletPieces(kAcross, {2, 0}, kUp, {10, 8}, 9).fault, FilletFault::None);
  EXPECT_EQ(filletPieces(kAcross, {2, 0}, kUp, {10, 8}, 11).fault, FilletFault::RadiusTooLarge);
  EXPECT_EQ(filletPieces(kAcross, {2, 0}, linePiece({0, 5}, {8, 5}), {2, 5}, 0).fault,
            FilletFault::NoCorner);
}

TEST(CornerFillet, ALineAndAnArcMeetWhereTheLineReachesTheCircle) {
  // An upper half circle about (0, 0); a line coming in from the right along y = 3.
  Piece arc = arcPiece({0, 0}, 5, 0, std::numbers::pi);
  Piece line = linePiece({20, 3}, {10, 3});
  Fillet sharp = filletPieces(line, {15, 3}, arc, {0, 5}, 0);
  ASSERT_EQ(sharp.fault, FilletFault::None);
  expectPoint(sharp.first.end, {4, 3});
  // The arc loses its part right of the meeting point and keeps the pick.
  expectPoint(sharp.second.start, {4, 3});
  expectPoint(sharp.second.end, {-5, 0});

  Fillet round = filletPieces(line, {15, 3}, arc, {0, 5}, 1);
  ASSERT_EQ(round.fault, FilletFault::None);
  // Tangent to both: one from the line, six from the circle's center.
  EXPECT_NEAR(round.arc->center.y, 4, kTolerance);
  EXPECT_NEAR(geom::length(round.arc->center), 6, kTolerance);
}

TEST(CornerFillet, PolylineCornersAreRoundedWhereTheSegmentsAllow) {
  std::vector<Vec2> square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  std::vector<double> flat(4, 0);
  PolylineFillet rounded = filletPolyline(square, flat, true, 2);
  EXPECT_EQ(rounded.rounded, 4);
  ASSERT_EQ(rounded.points.size(), 8u);
  expectPoint(rounded.points[0], {0, 2});
  expectPoint(rounded.points[1], {2, 0});
  EXPECT_NEAR(rounded.bulges[0], std::tan(std::numbers::pi / 8), kTolerance);
  EXPECT_EQ(rounded.bulges[1], 0);

  // A radius of 6 needs 12 of each side: every corner stays sharp.
  PolylineFillet tooShort = filletPolyline(square, flat, true, 6);
  EXPECT_EQ(tooShort.rounded, 0);
  EXPECT_EQ(tooShort.tooShort, 4);
  // An open polyline's ends are no corners.
  PolylineFillet open = filletPolyline({{0, 0}, {10, 0}, {10, 10}}, {0, 0, 0}, false, 2);
  EXPECT_EQ(open.rounded, 1);
  EXPECT_EQ(open.points.size(), 4u);
}

}  // namespace
}  // namespace korva::geom
