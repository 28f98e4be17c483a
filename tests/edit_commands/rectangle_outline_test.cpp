// The outlines RECTANG draws: corners turned, cut and rounded the right way round.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "cmd/edit/rectangle_outline.h"

namespace korva::cmd::edit {
namespace {

void expectPoint(Vec2 got, Vec2 want) {
  EXPECT_NEAR(got.x, want.x, 1e-9);
  EXPECT_NEAR(got.y, want.y, 1e-9);
}

TEST(RectangleOutline, CornersFollowTheRotation) {
  std::vector<Vec2> plain = rectangleCorners({1, 1}, {5, 3}, 0);
  expectPoint(plain[1], {5, 1});
  expectPoint(plain[3], {1, 3});
  // Turned a quarter: the first side runs up the Y axis.
  std::vector<Vec2> turned = rectangleCorners({0, 0}, {-2, 4}, std::numbers::pi / 2);
  expectPoint(turned[1], {0, 4});
  expectPoint(turned[2], {-2, 4});
  expectPoint(turned[3], {-2, 0});
}

TEST(RectangleOutline, FilletsTurnWithTheOutline) {
  RectangleCorners fillet{RectangleCorners::Kind::Fillet, 1, 1};
  double quarter = std::tan(std::numbers::pi / 8);
  Chain left = rectangleOutline(rectangleCorners({0, 0}, {10, 5}, 0), fillet);
  ASSERT_EQ(left.vertices.size(), 8u);
  EXPECT_TRUE(left.closed);
  expectPoint(left.vertices[0].point, {0, 1});
  expectPoint(left.vertices[1].point, {1, 0});
  EXPECT_NEAR(left.vertices[0].bulge, quarter, 1e-12);
  EXPECT_EQ(left.vertices[1].bulge, 0);
  // Drawn from the top left to the bottom right the outline runs clockwise.
  Chain right = rectangleOutline(rectangleCorners({0, 5}, {10, 0}, 0), fillet);
  EXPECT_NEAR(right.vertices[0].bulge, -quarter, 1e-12);
}

TEST(RectangleOutline, ChamfersCutEachSideByItsDistance) {
  RectangleCorners chamfer{RectangleCorners::Kind::Chamfer, 1, 2};
  Chain outline = rectangleOutline(rectangleCorners({0, 0}, {10, 5}, 0), chamfer);
  ASSERT_EQ(outline.vertices.size(), 8u);
  // The first distance along the side arriving at a corner, the second leaving it.
  expectPoint(outline.vertices[0].point, {0, 1});
  expectPoint(outline.vertices[1].point, {2, 0});
  expectPoint(outline.vertices[2].point, {9, 0});
  expectPoint(outline.vertices[3].point, {10, 2});
  for (const ChainVertex& v : outline.vertices) EXPECT_EQ(v.bulge, 0);
}

TEST(RectangleOutline, CutsThatDoNotFitLeaveSharpCorners) {
  RectangleCorners fillet{RectangleCorners::Kind::Fillet, 3, 3};
  Chain outline = rectangleOutline(rectangleCorners({0, 0}, {10, 5}, 0), fillet);
  ASSERT_EQ(outline.vertices.size(), 4u);
  expectPoint(outline.vertices[2].point, {10, 5});
  // Exactly fitting: the short sides are used up by the two fillets.
  RectangleCorners fits{RectangleCorners::Kind::Fillet, 2.5, 2.5};
  EXPECT_EQ(rectangleOutline(rectangleCorners({0, 0}, {10, 5}, 0), fits).vertices.size(), 8u);
}

}  // namespace
}  // namespace korva::cmd::edit
