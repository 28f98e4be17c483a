// Where TRIM cuts and what stays: open paths, closed ones, and picks without cuts.
#include "geom/trim_cuts.h"

#include <gtest/gtest.h>

#include <numbers>

namespace korva::geom {
namespace {

constexpr double kTolerance = 1e-9;
constexpr double kPi = std::numbers::pi;

PlanePath single(const Piece& piece, bool closed = false) {
  return PlanePath{{piece}, closed};
}

TEST(TrimCuts, OpenPathsLoseThePartBetweenTheCutsAroundThePick) {
  PlanePath line = single(linePiece({0, 0}, {10, 0}));
  std::vector<CuttingPiece> edges = {{linePiece({3, -1}, {3, 1})}, {linePiece({7, -1}, {7, 1})}};
  std::vector<double> cuts = cutPositions(line, edges);
  ASSERT_EQ(cuts.size(), 2u);
  EXPECT_NEAR(cuts[0], 0.3, kTolerance);

  TrimResult middle = trimAt(line, cuts, 0.5);
  ASSERT_EQ(middle.parts.size(), 2u);
  EXPECT_NEAR(middle.parts[0].pieces.back().end.x, 3, kTolerance);
  EXPECT_NEAR(middle.parts[1].pieces.front().start.x, 7, kTolerance);

  TrimResult end = trimAt(line, cuts, 0.9);
  ASSERT_EQ(end.parts.size(), 1u);
  EXPECT_NEAR(end.parts[0].pieces.front().start.x, 0, kTolerance);
  EXPECT_NEAR(end.parts[0].pieces.back().end.x, 7, kTolerance);
}

TEST(TrimCuts, EdgesCutWhereTheyWouldReachOnlyWhenExtended) {
  PlanePath line = single(linePiece({0, 0}, {10, 0}));
  Piece shortEdge = linePiece({5, 1}, {5, 2});
  EXPECT_TRUE(cutPositions(line, {{shortEdge, false}}).empty());
  EXPECT_EQ(cutPositions(line, {{shortEdge, true}}).size(), 1u);
  EXPECT_EQ(trimAt(line, {}, 0.5).fault, TrimFault::NoEdge);
  // A cut at the very end of the path is no cut.
  EXPECT_EQ(trimAt(line, {1.0}, 0.5).fault, TrimFault::NoEdge);
}

TEST(TrimCuts, ClosedPathsNeedTwoCutsAndOpenUp) {
  PlanePath circle = single(arcPiece({0, 0}, 5, 0, 2 * kPi), true);
  std::vector<double> cuts = cutPositions(circle, {{linePiece({-10, 3}, {10, 3})}});
  ASSERT_EQ(cuts.size(), 2u);
  // Picked at the top: the cap above y = 3 goes, the larger arc below stays.
  TrimResult kept = trimAt(circle, cuts, 0.25);
  ASSERT_EQ(kept.parts.size(), 1u);
  ASSERT_EQ(kept.parts[0].pieces.size(), 1u);
  const Piece& arc = kept.parts[0].pieces[0];
  EXPECT_NEAR(arc.start.y, 3, kTolerance);
  EXPECT_NEAR(arc.end.y, 3, kTolerance);
  EXPECT_NEAR(pointAt(arc, 0.5).y, -5, kTolerance);
  // Picked at the bottom: only the cap stays, running round through angle 0's seam.
  TrimResult cap = trimAt(circle, cuts, 0.75);
  EXPECT_NEAR(pointAt(cap.parts[0].pieces[0], 0.5).y, 5, kTolerance);

  EXPECT_EQ(trimAt(circle, {0.25}, 0.5).fault, TrimFault::NeedsTwoCuts);
}

TEST(TrimCuts, ClosedPolylinesOpenAcrossTheirFirstVertex) {
  PlanePath square;
  square.closed = true;
  square.pieces = {linePiece({0, 0}, {10, 0}), linePiece({10, 0}, {10, 10}),
                   linePiece({10, 10}, {0, 10}), linePiece({0, 10}, {0, 0})};
  std::vector<double> cuts = cutPositions(square, {{linePiece({-1, 1}, {11, -1})}});
  ASSERT_EQ(cuts.size(), 2u);
  // The corner at the start is cut off: the rest runs from the right cut round to the
  // left one.
  TrimResult rest = trimAt(square, cuts, 0.01);
  ASSERT_EQ(rest.parts.size(), 1u);
  ASSERT_EQ(rest.parts[0].pieces.size(), 4u);
  EXPECT_NEAR(rest.parts[0].pieces.front().start.x, 5, kTolerance);
  EXPECT_NEAR(rest.parts[0].pieces.back().end.y, 5.0 / 6.0, kTolerance);
  EXPECT_FALSE(rest.parts[0].closed);
}

}  // namespace
}  // namespace korva::geom
