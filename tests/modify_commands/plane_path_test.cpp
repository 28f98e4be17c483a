// Offsets of polyline paths: the corner gap types, pieces that vanish, sides.
#include "geom/plane_path.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace korva::geom {
namespace {

constexpr double kTolerance = 1e-9;

PlanePath polyline(const std::vector<Vec2>& points, bool closed) {
  PlanePath path;
  path.closed = closed;
  size_t segments = closed ? points.size() : points.size() - 1;
  for (size_t i = 0; i < segments; ++i) {
    path.pieces.push_back(linePiece(points[i], points[(i + 1) % points.size()]));
  }
  return path;
}

void expectPoint(Vec2 got, Vec2 want) {
  EXPECT_NEAR(got.x, want.x, kTolerance);
  EXPECT_NEAR(got.y, want.y, kTolerance);
}

// East then north: offsetting to the right opens a gap at the corner.
const PlanePath kCorner = polyline({{0, 0}, {10, 0}, {10, 10}}, false);

TEST(PathOffset, OuterCornersFollowTheGapType) {
  PlanePath extended = *offsetPath(kCorner, -1, GapType::Extend);
  ASSERT_EQ(extended.pieces.size(), 2u);
  expectPoint(extended.pieces[0].end, {11, -1});
  expectPoint(extended.pieces[1].start, {11, -1});

  PlanePath rounded = *offsetPath(kCorner, -1, GapType::Fillet);
  ASSERT_EQ(rounded.pieces.size(), 3u);
  ASSERT_TRUE(rounded.pieces[1].arc);
  expectPoint(rounded.pieces[1].center, {10, 0});
  EXPECT_NEAR(rounded.pieces[1].sweep, std::numbers::pi / 2, kTolerance);
  expectPoint(rounded.pieces[1].start, {10, -1});
  expectPoint(rounded.pieces[1].end, {11, 0});

  PlanePath chamfered = *offsetPath(kCorner, -1, GapType::Chamfer);
  ASSERT_EQ(chamfered.pieces.size(), 3u);
  EXPECT_FALSE(chamfered.pieces[1].arc);
  // The chamfer touches the rounding arc at its middle, a distance away from the corner.
  Vec2 middle = (chamfered.pieces[1].start + chamfered.pieces[1].end) * 0.5;
  EXPECT_NEAR(geom::length(middle - Vec2{10, 0}), 1, kTolerance);
}

TEST(PathOffset, InnerCornersAreTrimmedWhateverTheGapType) {
  for (GapType gap : {GapType::Extend, GapType::Fillet, GapType::Chamfer}) {
    PlanePath inner = *offsetPath(kCorner, 1, gap);
    ASSERT_EQ(inner.pieces.size(), 2u);
    expectPoint(inner.pieces[0].end, {9, 1});
  }
}

TEST(PathOffset, ClosedPathsGrowShrinkAndVanish) {
  PlanePath square = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
  EXPECT_EQ(sideOf(square, {5, 5}), 1);  // counterclockwise: inside is left
  PlanePath inner = *offsetPath(square, 2, GapType::Extend);
  ASSERT_EQ(inner.pieces.size(), 4u);
  expectPoint(inner.pieces[0].start, {2, 2});
  expectPoint(inner.pieces[3].end, {2, 2});
  EXPECT_FALSE(offsetPath(square, 6, GapType::Extend).has_value());
  EXPECT_EQ(offsetPath(square, -1, GapType::Fillet)->pieces.size(), 8u);
}

TEST(PathOffset, ArcsShrinkingAwayDropOut) {
  // A line, a small half circle dipping to the right, a line.
  PlanePath path;
  path.pieces = {linePiece({0, 0}, {10, 0}), bulgePiece({10, 0}, {12, 0}, 1),
                 linePiece({12, 0}, {20, 0})};
  PlanePath moved = *offsetPath(path, -3, GapType::Extend);
  for (const Piece& piece : moved.pieces) EXPECT_NEAR(std::fabs(piece.start.y), 3, 1e-6);
  EXPECT_EQ(moved.pieces.size(), 3u);
  // Inward the half circle vanishes; the two lines, now in one line, are joined.
  PlanePath shrunk = *offsetPath(path, 3, GapType::Extend);
  for (const Piece& piece : shrunk.pieces) {
    EXPECT_FALSE(piece.arc);
    EXPECT_NEAR(piece.start.y, 3, kTolerance);
  }
  expectPoint(shrunk.pieces.back().end, {20, 3});
}

TEST(PathOffset, SubPathsRunRoundClosedPaths) {
  PlanePath square = polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}}, true);
  PlanePath part = subPath(square, 3.5, 4.5);
  ASSERT_EQ(part.pieces.size(), 2u);
  expectPoint(part.pieces[0].start, {0, 5});
  expectPoint(part.pieces[1].end, {5, 0});
  PathPlace place = nearestPlace(square, {10.5, 5});
  EXPECT_EQ(place.piece, 1u);
  EXPECT_NEAR(place.position(), 1.5, kTolerance);
  EXPECT_NEAR(place.distance, 0.5, kTolerance);
}

}  // namespace
}  // namespace korva::geom
