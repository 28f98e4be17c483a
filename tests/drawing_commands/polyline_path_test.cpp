// The PLINE command's path: tangent continuation of arcs, undo, closing and widths.
#include "cmd/drawing/polyline_path.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace korva::cmd::drawing {
namespace {

constexpr double kTolerance = 1e-12;

TEST(PolylinePath, ArcsContinueTheDirectionOfTravel) {
  PolylinePath path({0, 0});
  EXPECT_NEAR(path.tangent().x, 1, kTolerance);  // east before the first segment
  path.addLine({10, 0}, 0, 0);
  path.addArc({10, 10}, bulgeFromTangent(path.tangent(), path.last(), {10, 10}), 0, 0);
  EXPECT_NEAR(path.vertices()[1].bulge, 1, kTolerance);
  EXPECT_NEAR(path.tangent().x, -1, kTolerance);
  EXPECT_NEAR(path.tangent().y, 0, kTolerance);

  ASSERT_TRUE(path.undo());
  EXPECT_EQ(path.segmentCount(), 1u);
  EXPECT_EQ(path.vertices().back().bulge, 0);
  EXPECT_NEAR(path.tangent().x, 1, kTolerance);
  ASSERT_TRUE(path.undo());
  EXPECT_FALSE(path.undo());
}

TEST(PolylinePath, ClosingWithAnArcStaysTangent) {
  PolylinePath path({0, 0});
  path.addLine({10, 0}, 0, 0);
  path.addLine({10, 10}, 0, 0);
  path.closeWithArc(0, 0);
  EXPECT_TRUE(path.closed());
  // Heading north at (10, 10), the way back to the start turns left by 135 degrees:
  // an arc of 270.
  EXPECT_NEAR(path.vertices().back().bulge, std::tan(3 * std::numbers::pi / 8), 1e-9);

  PolylinePath square({0, 0});
  square.addLine({1, 0}, 0, 0);
  square.addLine({1, 1}, 0, 0);
  square.closeWithLine(0, 0);
  EXPECT_EQ(square.vertices().back().bulge, 0);
}

TEST(PolylinePath, ConstantWidthOnlyWhenAllSegmentsAgree) {
  PolylinePath path({0, 0});
  path.addLine({1, 0}, 2, 2);
  path.addLine({2, 0}, 2, 2);
  EXPECT_EQ(path.constantWidth(), 2);
  path.addLine({3, 0}, 2, 0.5);
  EXPECT_LT(path.constantWidth(), 0);
  // The closing segment counts once the path is closed.
  PolylinePath closed({0, 0});
  closed.addLine({1, 0}, 1, 1);
  closed.addLine({1, 1}, 1, 1);
  closed.closeWithLine(3, 3);
  EXPECT_LT(closed.constantWidth(), 0);
}

TEST(DirectedArc, ReadsTheArcFromEitherEnd) {
  PlaneArc quarter{{0, 0}, 1, 0, std::numbers::pi / 2};
  DirectedArc forward = directedFrom(quarter, {1, 0});
  EXPECT_NEAR(forward.end.y, 1, kTolerance);
  EXPECT_GT(forward.sweep, 0);
  DirectedArc backward = directedFrom(quarter, {0, 1});
  EXPECT_NEAR(backward.end.x, 1, kTolerance);
  EXPECT_LT(backward.sweep, 0);
}

}  // namespace
}  // namespace korva::cmd::drawing
