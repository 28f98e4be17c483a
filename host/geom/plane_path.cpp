#include "geom/plane_path.h"

#include <algorithm>
#include <cmath>

namespace korva::geom {

namespace {

Vec2 unit(Vec2 v) {
  double l = geom::length(v);
  return l > 0 ? v * (1 / l) : Vec2{};
}

std::optional<Vec2> nearestTo(const std::vector<Vec2>& points, Vec2 target) {
  std::optional<Vec2> best;
  for (Vec2 point : points) {
    if (!best || geom::length(point - target) < geom::length(*best - target)) best = point;
  }
  return best;
}

// The offset pieces that survive, trimmed or extended to meet, with the gap pieces put
// in between.
class OffsetJoin {
 public:
  OffsetJoin(const PlanePath& source, double distance, GapType gap)
      : source_(source), distance_(distance), gap_(gap) {}

  std::vector<Piece> join(const std::vector<Piece>& raw, const std::vector<size_t>& active,
                          std::vector<size_t>& turnedRound) {
    std::vector<Piece> trimmed;
    for (size_t index : active) trimmed.push_back(raw[index]);
    std::vector<std::optional<Piece>> gaps(trimmed.size());
    size_t links = source_.closed ? trimmed.size() : trimmed.size() - 1;
    for (size_t link = 0; link < links && trimmed.size() > 1; ++link) {
      size_t next = (link + 1) % trimmed.size();
      gaps[link] = meet(trimmed[link], trimmed[next], source_.pieces[active[link]].end);
    }
    turnedRound.clear();
    std::vector<Piece> joined;
    for (size_t i = 0; i < trimmed.size(); ++i) {
      if (turned(raw[active[i]], trimmed[i])) turnedRound.push_back(active[i]);
      joined.push_back(trimmed[i]);
      if (gaps[i]) joined.push_back(*gaps[i]);
    }
    return joined;
  }

 private:
  static bool turned(const Piece& before, const Piece& after) {
    if (after.arc) return after.sweep * before.sweep <= 0 || std::fabs(after.sweep) < 1e-12;
    return dot(after.end - after.start, before.end - before.start) <= 0 ||
           geom::length(after.end - after.start) <= kSamePoint;
  }

  // Makes `first` end and `second` start at one point; a piece for the gap between
  // them when one is needed.
  std::optional<Piece> meet(Piece& first, Piece& second, Vec2 corner) {
    if (geom::length(first.end - second.start) <= kSamePoint) {
      second = withStart(second, first.end);
      return std::nullopt;
    }
    double turn = cross(tangentAt(first, 1), tangentAt(second, 0));
    bool outer = turn * distance_ < 0;
    double reach = std::fabs(distance_);
    bool aroundCorner =
        std::fabs(geom::length(first.end - corner) - reach) <= 1e-7 * (1 + reach) &&
        std::fabs(geom::length(second.start - corner) - reach) <= 1e-7 * (1 + reach);
    if (outer && aroundCorner && gap_ == GapType::Fillet) {
      Vec2 from = first.end - corner, to = second.start - corner;
      return arcPiece(corner, reach, std::atan2(from.y, from.x),
                      std::atan2(cross(from, to), dot(from, to)));
    }
    if (outer && aroundCorner && gap_ == GapType::Chamfer) {
      Vec2 middle = unit(unit(first.end - corner) + unit(second.start - corner));
      Vec2 touch = corner + middle * reach;
      Piece chamfer = linePiece(touch, touch + Vec2{-middle.y, middle.x});
      std::optional<Vec2> onFirst = nearestTo(carrierIntersections(first, chamfer), first.end);
      std::optional<Vec2> onSecond = nearestTo(carrierIntersections(second, chamfer), second.start);
      if (onFirst && onSecond) {
        first = withEnd(first, *onFirst);
        second = withStart(second, *onSecond);
        return linePiece(*onFirst, *onSecond);
      }
    }
    if (std::optional<Vec2> point = nearestTo(carrierIntersections(first, second), corner)) {
      first = withEnd(first, *point);
      second = withStart(second, *point);
      return std::nullopt;
    }
    return linePiece(first.end, second.start);
  }

  const PlanePath& source_;
  double distance_;
  GapType gap_;
};

bool enoughForClosed(const std::vector<Piece>& pieces) {
  bool anyArc = std::any_of(pieces.begin(), pieces.end(), [](const Piece& p) { return p.arc; });
  return pieces.size() >= 3 || (pieces.size() >= 1 && anyArc);
}

}  // namespace

PathPlace nearestPlace(const PlanePath& path, Vec2 point) {
  PathPlace best;
  best.distance = -1;
  for (size_t i = 0; i < path.pieces.size(); ++i) {
    const Piece& piece = path.pieces[i];
    double fraction = isWholeCircle(piece) ? fractionOf(piece, point)
                                           : std::clamp(fractionOf(piece, point), 0.0, 1.0);
    double distance = geom::length(point - pointAt(piece, fraction));
    if (best.distance < 0 || distance < best.distance) best = {i, fraction, distance};
  }
  return best;
}

int sideOf(const PlanePath& path, Vec2 point) {
  if (path.pieces.empty()) return 0;
  PathPlace place = nearestPlace(path, point);
  const Piece& piece = path.pieces[place.piece];
  double side = cross(tangentAt(piece, place.fraction), point - pointAt(piece, place.fraction));
  if (std::fabs(side) <= kSamePoint) return 0;
  return side > 0 ? 1 : -1;
}

PlanePath subPath(const PlanePath& path, double from, double to) {
  PlanePath part;
  size_t count = path.pieces.size();
  if (count == 0 || to <= from) return part;
  auto first = static_cast<size_t>(std::floor(from));
  for (size_t index = first; static_cast<double>(index) < to; ++index) {
    const Piece& piece = path.pieces[index % count];
    double start = std::max(from - static_cast<double>(index), 0.0);
    double end = std::min(to - static_cast<double>(index), 1.0);
    if (end - start <= 1e-12) continue;
    Piece next = start == 0 && end == 1 ? piece : subPiece(piece, start, end);
    // Round past the seam of a circle the part goes on as one arc.
    if (isWholeCircle(piece) && !part.pieces.empty()) {
      Piece& last = part.pieces.back();
      last = arcPiece(last.center, last.radius, last.startAngle, last.sweep + next.sweep);
      continue;
    }
    part.pieces.push_back(next);
  }
  return part;
}

std::optional<PlanePath> offsetPath(const PlanePath& path, double distance, GapType gap) {
  std::vector<Piece> raw;
  std::vector<size_t> active;
  for (const Piece& piece : path.pieces) {
    std::optional<Piece> moved = offsetPiece(piece, distance);
    if (moved) active.push_back(raw.size());
    raw.push_back(moved.value_or(piece));
  }
  OffsetJoin joiner(path, distance, gap);
  PlanePath result;
  result.closed = path.closed;
  // Each round drops the pieces the last join turned round, so this ends.
  while (!active.empty()) {
    std::vector<size_t> turnedRound;
    result.pieces = joiner.join(raw, active, turnedRound);
    if (turnedRound.empty()) break;
    std::erase_if(active, [&](size_t index) {
      return std::find(turnedRound.begin(), turnedRound.end(), index) != turnedRound.end();
    });
  }
  if (active.empty()) return std::nullopt;
  if (path.closed && !enoughForClosed(result.pieces)) return std::nullopt;
  return result;
}

}  // namespace korva::geom
