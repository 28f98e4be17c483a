// A polyline as PEDIT edits it: vertices in the polyline's own plane, each with the
// bulge and widths of the segment that starts at it.
#pragma once

#include <vector>

#include "geom/vec.h"

namespace korva::cmd::edit {

using geom::Vec2;

struct ChainVertex {
  Vec2 point;
  double bulge = 0;
  double startWidth = 0;
  double endWidth = 0;
};

struct Chain {
  std::vector<ChainVertex> vertices;
  bool closed = false;

  Vec2 first() const { return vertices.front().point; }
  Vec2 last() const { return vertices.back().point; }
};

// Ends closer than this are one point.
constexpr double kSamePoint = 1e-8;

// The same path run the other way: every segment keeps its shape and widths.
Chain reversed(const Chain& chain);

// Every segment straight.
Chain straightened(const Chain& chain);

// How a gap within the fuzz distance is closed: by extending or trimming the two
// straight segments to where they meet, by a straight segment between the ends, or by
// the first where it can be done and the second otherwise.
enum class JoinType { Extend, Add, Both };

// Joins pieces to the ends of the base, one after another, as long as one touches an
// open end within fuzz and the join type can close the gap. A base whose ends meet
// afterwards is closed. used[i] tells whether piece i joined.
struct JoinResult {
  Chain chain;
  std::vector<bool> used;
  int added = 0;  // segments the base gained
};
JoinResult joinChains(const Chain& base, const std::vector<Chain>& pieces, double fuzz,
                      JoinType type = JoinType::Add);

// A chain of one segment: a line, or an arc given by its bulge.
Chain segmentChain(Vec2 start, Vec2 end, double bulge);

}  // namespace korva::cmd::edit
