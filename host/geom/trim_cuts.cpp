#include "geom/trim_cuts.h"

#include <algorithm>
#include <cmath>

namespace korva::geom {

namespace {

constexpr double kSamePosition = 1e-9;

bool hasLength(const PlanePath& part) {
  double total = 0;
  for (const Piece& piece : part.pieces) total += pieceLength(piece);
  return total > kSamePoint;
}

}  // namespace

std::vector<double> cutPositions(const PlanePath& path, const std::vector<CuttingPiece>& edges) {
  std::vector<double> cuts;
  for (size_t index = 0; index < path.pieces.size(); ++index) {
    const Piece& piece = path.pieces[index];
    for (const CuttingPiece& edge : edges) {
      for (Vec2 point : pieceIntersections(piece, edge.piece, edge.extended)) {
        double fraction = std::clamp(fractionOf(piece, point), 0.0, 1.0);
        if (isWholeCircle(piece) && fraction >= 1 - kSamePosition) fraction = 0;
        cuts.push_back(static_cast<double>(index) + fraction);
      }
    }
  }
  std::sort(cuts.begin(), cuts.end());
  cuts.erase(std::unique(cuts.begin(), cuts.end(),
                         [](double a, double b) { return b - a <= kSamePosition; }),
             cuts.end());
  if (path.closed && cuts.size() > 1) {
    // The end of a closed path is its start.
    double wrapped = cuts.back() - static_cast<double>(path.pieces.size());
    if (std::fabs(wrapped - cuts.front()) <= kSamePosition) cuts.pop_back();
  }
  return cuts;
}

TrimResult trimAt(const PlanePath& path, const std::vector<double>& cuts, double picked) {
  TrimResult result;
  auto count = static_cast<double>(path.pieces.size());
  if (!path.closed) {
    std::optional<double> before, after;
    for (double cut : cuts) {
      if (cut <= kSamePosition || cut >= count - kSamePosition) continue;
      if (cut < picked - kSamePosition) before = cut;
      if (cut > picked + kSamePosition && !after) after = cut;
    }
    if (!before && !after) {
      result.fault = TrimFault::NoEdge;
      return result;
    }
    for (PlanePath part : {before ? subPath(path, 0, *before) : PlanePath{},
                           after ? subPath(path, *after, count) : PlanePath{}}) {
      if (hasLength(part)) result.parts.push_back(part);
    }
    return result;
  }
  if (cuts.size() < 2) {
    result.fault = cuts.empty() ? TrimFault::NoEdge : TrimFault::NeedsTwoCuts;
    return result;
  }
  // The cuts either side of the pick, going round.
  double before = cuts.back() - count, after = cuts.front() + count;
  for (double cut : cuts) {
    if (cut < picked) before = cut;
    if (cut > picked && after >= count + cuts.front()) after = cut;
  }
  double from = after, to = before + count;
  if (from >= count) from -= count, to -= count;
  while (to <= from) to += count;
  PlanePath part = subPath(path, from, to);
  if (hasLength(part)) result.parts.push_back(part);
  return result;
}

}  // namespace korva::geom
