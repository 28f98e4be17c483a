// Chains as PEDIT joins and turns them: segment shapes and widths must survive.
#include <gtest/gtest.h>

#include <cmath>

#include "cmd/edit/polyline_chain.h"

namespace korva::cmd::edit {
namespace {

void expectVertex(const ChainVertex& v, Vec2 point, double bulge, double start = 0,
                  double end = 0) {
  EXPECT_NEAR(v.point.x, point.x, 1e-12);
  EXPECT_NEAR(v.point.y, point.y, 1e-12);
  EXPECT_NEAR(v.bulge, bulge, 1e-12);
  EXPECT_NEAR(v.startWidth, start, 1e-12);
  EXPECT_NEAR(v.endWidth, end, 1e-12);
}

TEST(PolylineChain, ReversingKeepsEachSegmentsShapeAndWidths) {
  Chain open;
  open.vertices = {{{0, 0}, 0.5, 1, 2}, {{10, 0}, 0, 3, 4}, {{10, 10}, 0, 0, 0}};
  Chain back = reversed(open);
  ASSERT_EQ(back.vertices.size(), 3u);
  expectVertex(back.vertices[0], {10, 10}, 0, 4, 3);
  expectVertex(back.vertices[1], {10, 0}, -0.5, 2, 1);
  expectVertex(back.vertices[2], {0, 0}, 0);

  // A closed chain's closing segment starts at its last vertex.
  Chain closed = open;
  closed.closed = true;
  closed.vertices[2].bulge = 1;
  Chain turned = reversed(closed);
  expectVertex(turned.vertices[0], {10, 10}, 0, 4, 3);
  expectVertex(turned.vertices[1], {10, 0}, -0.5, 2, 1);
  expectVertex(turned.vertices[2], {0, 0}, -1);
  Chain again = reversed(turned);
  for (size_t i = 0; i < 3; ++i) {
    const ChainVertex& v = closed.vertices[i];
    expectVertex(again.vertices[i], v.point, v.bulge, v.startWidth, v.endWidth);
  }
}

TEST(PolylineChain, JoinsPiecesAtEitherEndInEitherDirection) {
  Chain base = segmentChain({0, 0}, {10, 0}, 0);
  std::vector<Chain> pieces = {
      segmentChain({20, 0}, {10, 0}, 0.25),  // runs toward the base's end
      segmentChain({-5, 0}, {0, 0}, 0),      // ends at the base's start
      segmentChain({50, 50}, {60, 50}, 0),   // touches nothing
  };
  JoinResult joined = joinChains(base, pieces, kSamePoint);
  EXPECT_EQ(joined.added, 2);
  EXPECT_EQ(joined.used, (std::vector<bool>{true, true, false}));
  ASSERT_EQ(joined.chain.vertices.size(), 4u);
  expectVertex(joined.chain.vertices[0], {-5, 0}, 0);
  expectVertex(joined.chain.vertices[1], {0, 0}, 0);
  // The arc piece turned round: its bulge changes sign.
  expectVertex(joined.chain.vertices[2], {10, 0}, -0.25);
  expectVertex(joined.chain.vertices[3], {20, 0}, 0);
  EXPECT_FALSE(joined.chain.closed);
}

TEST(PolylineChain, JoiningRoundALoopClosesIt) {
  Chain base = segmentChain({0, 0}, {10, 0}, 0);
  std::vector<Chain> pieces = {segmentChain({10, 10}, {0, 10}, 0),
                               segmentChain({10, 0}, {10, 10}, 0),
                               segmentChain({0, 10}, {0, 0}, 0)};
  JoinResult joined = joinChains(base, pieces, kSamePoint);
  EXPECT_EQ(joined.added, 3);
  EXPECT_TRUE(joined.chain.closed);
  ASSERT_EQ(joined.chain.vertices.size(), 4u);
  // The base keeps its direction; what joined at its start comes first.
  expectVertex(joined.chain.vertices[0], {0, 10}, 0);
  expectVertex(joined.chain.vertices[1], {0, 0}, 0);
  expectVertex(joined.chain.vertices[3], {10, 10}, 0);
  // A closed base joins nothing more.
  JoinResult again = joinChains(joined.chain, {segmentChain({0, 0}, {-1, 0}, 0)}, 1);
  EXPECT_EQ(again.added, 0);
}

TEST(PolylineChain, GapsWithinTheFuzzAreBridgedByAStraightSegment) {
  Chain base = segmentChain({0, 0}, {10, 0}, 0);
  base.vertices[0].startWidth = base.vertices[0].endWidth = 2;
  std::vector<Chain> pieces = {segmentChain({10.5, 0}, {20, 0}, 0),
                               segmentChain({-3, 0}, {-10, 0}, 0)};
  JoinResult near = joinChains(base, pieces, 1);
  EXPECT_EQ(near.used, (std::vector<bool>{true, false}));
  ASSERT_EQ(near.chain.vertices.size(), 4u);
  expectVertex(near.chain.vertices[0], {0, 0}, 0, 2, 2);
  expectVertex(near.chain.vertices[1], {10, 0}, 0);  // the bridge has no width
  expectVertex(near.chain.vertices[2], {10.5, 0}, 0);
  EXPECT_EQ(near.added, 2);
  EXPECT_EQ(joinChains(base, pieces, 3).added, 4);
}

TEST(PolylineChain, ExtendMeetsStraightSegmentsWhereTheirLinesCross) {
  // An L whose corner is missing: the base runs east, the piece down from above.
  Chain base = segmentChain({0, 0}, {9, 0}, 0);
  std::vector<Chain> pieces = {segmentChain({10, 10}, {10, 1}, 0)};
  JoinResult extended = joinChains(base, pieces, 2, JoinType::Extend);
  ASSERT_EQ(extended.chain.vertices.size(), 3u);
  expectVertex(extended.chain.vertices[1], {10, 0}, 0);
  expectVertex(extended.chain.vertices[2], {10, 10}, 0);
  // In line with the base, the base reaches out to the piece.
  JoinResult onward = joinChains(base, {segmentChain({9.5, 0}, {20, 0}, 0)}, 1, JoinType::Extend);
  ASSERT_EQ(onward.chain.vertices.size(), 3u);
  expectVertex(onward.chain.vertices[1], {9.5, 0}, 0);

  // An arc can't be extended: Extend leaves it, Both bridges the gap.
  std::vector<Chain> arc = {segmentChain({10, 1}, {12, 3}, 0.4)};
  EXPECT_EQ(joinChains(base, arc, 2, JoinType::Extend).added, 0);
  JoinResult both = joinChains(base, arc, 2, JoinType::Both);
  ASSERT_EQ(both.chain.vertices.size(), 4u);
  expectVertex(both.chain.vertices[2], {10, 1}, 0.4);
}

TEST(PolylineChain, ALoopWithAGapClosesAsTheJoinTypeSays) {
  // Three sides of a square, the fourth falling short of the start.
  Chain base = segmentChain({0, 0}, {10, 0}, 0);
  std::vector<Chain> pieces = {segmentChain({10, 0}, {10, 10}, 0),
                               segmentChain({10, 10}, {0, 10}, 0),
                               segmentChain({0, 10}, {0, 0.5}, 0)};
  JoinResult extended = joinChains(base, pieces, 1, JoinType::Extend);
  EXPECT_TRUE(extended.chain.closed);
  ASSERT_EQ(extended.chain.vertices.size(), 4u);
  expectVertex(extended.chain.vertices[0], {0, 0}, 0);
  JoinResult added = joinChains(base, pieces, 1, JoinType::Add);
  EXPECT_TRUE(added.chain.closed);
  ASSERT_EQ(added.chain.vertices.size(), 5u);
  expectVertex(added.chain.vertices[4], {0, 0.5}, 0);
}

}  // namespace
}  // namespace korva::cmd::edit
