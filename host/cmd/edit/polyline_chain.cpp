#include "cmd/edit/polyline_chain.h"

#include <cmath>
#include <optional>

namespace korva::cmd::edit {

namespace {

double distance(Vec2 a, Vec2 b) {
  return std::hypot(a.x - b.x, a.y - b.y);
}

int segmentCount(const Chain& chain) {
  int count = static_cast<int>(chain.vertices.size());
  return chain.closed ? count : count - 1;
}

// Where the chain's last straight segment and the piece's first one meet when extended
// or trimmed; nothing when either is an arc, they are parallel beside each other, or
// one would turn round.
std::optional<Vec2> meetingPoint(const Chain& chain, const Chain& piece) {
  if (chain.vertices.size() < 2 || piece.vertices.size() < 2) return std::nullopt;
  const ChainVertex& before = chain.vertices[chain.vertices.size() - 2];
  if (before.bulge != 0 || piece.vertices.front().bulge != 0) return std::nullopt;
  Vec2 a = before.point, along{chain.last().x - a.x, chain.last().y - a.y};
  Vec2 b = piece.vertices[1].point, back{piece.first().x - b.x, piece.first().y - b.y};
  double cross = along.x * back.y - along.y * back.x;
  double scale = std::hypot(along.x, along.y) * std::hypot(back.x, back.y);
  Vec2 ab{b.x - a.x, b.y - a.y};
  if (std::fabs(cross) <= 1e-12 * scale) {
    // On one line and running on: the chain's segment reaches out to the piece.
    Vec2 gap{piece.first().x - chain.last().x, piece.first().y - chain.last().y};
    double off = std::fabs(along.x * gap.y - along.y * gap.x) / std::hypot(along.x, along.y);
    bool onward = along.x * back.x + along.y * back.y < 0;
    if (off <= kSamePoint && onward) return piece.first();
    return std::nullopt;
  }
  double t = (ab.x * back.y - ab.y * back.x) / cross;
  double u = (ab.x * along.y - ab.y * along.x) / cross;
  if (t <= 0 || u <= 0) return std::nullopt;
  return Vec2{a.x + along.x * t, a.y + along.y * t};
}

// Appends the piece behind the chain's last vertex; false when the join type can't
// close the gap between them.
bool appendPiece(Chain& chain, const Chain& piece, JoinType type) {
  std::optional<Vec2> meeting;
  if (distance(chain.last(), piece.first()) <= kSamePoint) {
    meeting = chain.last();
  } else if (type != JoinType::Add) {
    meeting = meetingPoint(chain, piece);
    if (!meeting && type == JoinType::Extend) return false;
  }
  if (meeting) {
    // The piece's first vertex moves to where the two meet and takes the chain's end.
    chain.vertices.back() = piece.vertices.front();
    chain.vertices.back().point = *meeting;
    chain.vertices.insert(chain.vertices.end(), piece.vertices.begin() + 1, piece.vertices.end());
    return true;
  }
  // The gap becomes a straight segment of no width.
  ChainVertex& end = chain.vertices.back();
  end.bulge = end.startWidth = end.endWidth = 0;
  chain.vertices.insert(chain.vertices.end(), piece.vertices.begin(), piece.vertices.end());
  return true;
}

// Tries the piece at the chain's end, either way round; true when it joined.
bool joinAtEnd(Chain& chain, const Chain& piece, double fuzz, JoinType type) {
  if (distance(chain.last(), piece.first()) <= fuzz && appendPiece(chain, piece, type)) {
    return true;
  }
  return distance(chain.last(), piece.last()) <= fuzz && appendPiece(chain, reversed(piece), type);
}

// A chain whose ends came together closes: on the same point, or within the fuzz as the
// join type closes a gap between pieces.
void closeIfEndsMeet(Chain& chain, double fuzz, JoinType type) {
  double gap = distance(chain.first(), chain.last());
  if (chain.vertices.size() < 3 || gap > fuzz) return;
  std::optional<Vec2> meeting;
  if (gap <= kSamePoint) {
    meeting = chain.first();
  } else if (type != JoinType::Add) {
    meeting = meetingPoint(chain, chain);
    if (!meeting && type == JoinType::Extend) return;
  }
  if (meeting) {
    // The last vertex gives way to the first, which moves to where the ends meet.
    chain.vertices.front().point = *meeting;
    chain.vertices.pop_back();
  } else {
    ChainVertex& end = chain.vertices.back();
    end.bulge = end.startWidth = end.endWidth = 0;
  }
  chain.closed = true;
}

}  // namespace

Chain reversed(const Chain& chain) {
  Chain result;
  result.closed = chain.closed;
  const std::vector<ChainVertex>& from = chain.vertices;
  int count = static_cast<int>(from.size());
  for (int j = 0; j < count; ++j) {
    // The segment leaving the j-th vertex of the result is the source's segment that
    // arrives at it, run backwards.
    const ChainVertex& segment =
        from[static_cast<size_t>(((count - 2 - j) % count + count) % count)];
    ChainVertex vertex;
    vertex.point = from[static_cast<size_t>(count - 1 - j)].point;
    vertex.bulge = -segment.bulge;
    vertex.startWidth = segment.endWidth;
    vertex.endWidth = segment.startWidth;
    result.vertices.push_back(vertex);
  }
  if (!chain.closed && count > 0) {
    // The last vertex of an open path starts no segment.
    result.vertices.back().bulge = 0;
    result.vertices.back().startWidth = result.vertices.back().endWidth = 0;
  }
  return result;
}

Chain straightened(const Chain& chain) {
  Chain result = chain;
  for (ChainVertex& vertex : result.vertices) vertex.bulge = 0;
  return result;
}

Chain segmentChain(Vec2 start, Vec2 end, double bulge) {
  Chain chain;
  chain.vertices.push_back({start, bulge, 0, 0});
  chain.vertices.push_back({end, 0, 0, 0});
  return chain;
}

JoinResult joinChains(const Chain& base, const std::vector<Chain>& pieces, double fuzz,
                      JoinType type) {
  JoinResult result{base, std::vector<bool>(pieces.size(), false), 0};
  Chain& chain = result.chain;
  if (chain.closed || chain.vertices.empty()) return result;
  int before = segmentCount(chain);
  bool joined = true;
  while (joined && !chain.closed) {
    joined = false;
    for (size_t i = 0; i < pieces.size(); ++i) {
      if (result.used[i] || pieces[i].closed || pieces[i].vertices.size() < 2) continue;
      if (joinAtEnd(chain, pieces[i], fuzz, type)) {
        result.used[i] = joined = true;
        continue;
      }
      // At the start: turn round, join at the end, and turn back.
      Chain turned = reversed(chain);
      if (joinAtEnd(turned, pieces[i], fuzz, type)) {
        chain = reversed(turned);
        result.used[i] = joined = true;
      }
    }
    if (joined) closeIfEndsMeet(chain, fuzz, type);
  }
  result.added = segmentCount(chain) - before;
  return result;
}

}  // namespace korva::cmd::edit
