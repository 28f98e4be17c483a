// Chains as PEDIT joins and turns them: segment shapes and widths must survive.
#include <gtest/gtest.h>

#include <cmath>

#include "cmd/edit/polyline_chain.h"

namespace korva::cmd::edit {
namespace {

// Every vertex of the chain: point, bulge and widths.
void expectChain(const Chain& chain, const std::vector<ChainVertex>& expected) {
  ASSERT_EQ(chain.vertices.size(), expected.size());
  for (size_t i = 0; i < expected.size(); ++i) {
    SCOPED_TRACE(i);
    const ChainVertex& got = chain.vertices[i];
    EXPECT_NEAR(got.point.x, expected[i].point.x, 1e-12);
    EXPECT_NEAR(got.point.y, expected[i].point.y, 1e-12);
    EXPECT_NEAR(got.bulge, expected[i].bulge, 1e-12);
    EXPECT_NEAR(got.startWidth, expected[i].startWidth, 1e-12);
    EXPECT_NEAR(got.endWidth, expected[i].endWidth, 1e-12);
  }
}

TEST(PolylineChain, ReversingKeepsEachSegmentsShapeAndWidths) {
  Chain open;
  open.vertices = {{{0, 0}, 0.5, 1, 2}, {{10, 0}, 0, 3, 4}, {{10, 10}, 0, 0, 0}};
  expectChain(reversed(open), {{{10, 10}, 0, 4, 3}, {{10, 0}, -0.5, 2, 1}, {{0, 0}}});

  // A closed chain's closing segment starts at its last vertex.
  Chain closed = open;
  closed.closed = true;
  closed.vertices[2].bulge = 1;
  Chain turned = reversed(closed);
  expectChain(turned, {{{10, 10}, 0, 4, 3}, {{10, 0}, -0.5, 2, 1}, {{0, 0}, -1}});
  expectChain(reversed(turned), closed.vertices);
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
  // The arc piece turned round: its bulge changes sign.
  expectChain(joined.chain, {{{-5, 0}}, {{0, 0}}, {{10, 0}, -0.25}, {{20, 0}}});
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
  // The base keeps its direction; what joined at its start comes first.
  expectChain(joined.chain, {{{0, 10}}, {{0, 0}}, {{10, 0}}, {{10, 10}}});
  // A closed base joins nothing more.
  EXPECT_EQ(joinChains(joined.chain, {segmentChain({0, 0}, {-1, 0}, 0)}, 1).added, 0);
}

TEST(PolylineChain, GapsWithinTheFuzzAreBridgedByAStraightSegment) {
  Chain base = segmentChain({0, 0}, {10, 0}, 0);
  base.vertices[0].startWidth = base.vertices[0].endWidth = 2;
  std::vector<Chain> pieces = {segmentChain({10.5, 0}, {20, 0}, 0),
                               segmentChain({-3, 0}, {-10, 0}, 0)};
  JoinResult near = joinChains(base, pieces, 1);
  EXPECT_EQ(near.used, (std::vector<bool>{true, false}));
  // The bridge from (10, 0) has no width.
  expectChain(near.chain, {{{0, 0}, 0, 2, 2}, {{10, 0}}, {{10.5, 0}}, {{20, 0}}});
  EXPECT_EQ(near.added, 2);
  EXPECT_EQ(joinChains(base, pieces, 3).added, 4);
}

TEST(PolylineChain, ExtendMeetsStraightSegmentsWhereTheirLinesCross) {
  // An L whose corner is missing: the base runs east, the piece down from above.
  Chain base = segmentChain({0, 0}, {9, 0}, 0);
  expectChain(joinChains(base, {segmentChain({10, 10}, {10, 1}, 0)}, 2, JoinType::Extend).chain,
              {{{0, 0}}, {{10, 0}}, {{10, 10}}});
  // In line with the base, the base reaches out to the piece.
  expectChain(joinChains(base, {segmentChain({9.5, 0}, {20, 0}, 0)}, 1, JoinType::Extend).chain,
              {{{0, 0}}, {{9.5, 0}}, {{20, 0}}});

  // An arc can't be extended: Extend leaves it, Both bridges the gap.
  std::vector<Chain> arc = {segmentChain({10, 1}, {12, 3}, 0.4)};
  EXPECT_EQ(joinChains(base, arc, 2, JoinType::Extend).added, 0);
  expectChain(joinChains(base, arc, 2, JoinType::Both).chain,
              {{{0, 0}}, {{9, 0}}, {{10, 1}, 0.4}, {{12, 3}}});
}

TEST(PolylineChain, ALoopWithAGapClosesAsTheJoinTypeSays) {
  // Three sides of a square, the fourth falling short of the start.
  Chain base = segmentChain({0, 0}, {10, 0}, 0);
  std::vector<Chain> pieces = {segmentChain({10, 0}, {10, 10}, 0),
                               segmentChain({10, 10}, {0, 10}, 0),
                               segmentChain({0, 10}, {0, 0.5}, 0)};
  JoinResult extended = joinChains(base, pieces, 1, JoinType::Extend);
  EXPECT_TRUE(extended.chain.closed);
  expectChain(extended.chain, {{{0, 0}}, {{10, 0}}, {{10, 10}}, {{0, 10}}});
  JoinResult added = joinChains(base, pieces, 1, JoinType::Add);
  EXPECT_TRUE(added.chain.closed);
  expectChain(added.chain, {{{0, 0}}, {{10, 0}}, {{10, 10}}, {{0, 10}}, {{0, 0.5}}});
}

}  // namespace
}  // namespace korva::cmd::edit
