// A chain of pieces, each starting where the one before ends: a line, an arc, a circle
// or the segments of a polyline; closed when the last ends at the first.
#pragma once

#include <optional>
#include <vector>

#include "geom/plane_pieces.h"

namespace korva::geom {

struct PlanePath {
  std::vector<Piece> pieces;
  bool closed = false;
};

// Where a point falls on the path: the piece nearest to it and the fraction of its foot.
struct PathPlace {
  size_t piece = 0;
  double fraction = 0;
  double distance = 0;
  // As one number: piece index plus fraction, 0 at the start of the path.
  double position() const { return static_cast<double>(piece) + fraction; }
};
PathPlace nearestPlace(const PlanePath& path, Vec2 point);

// +1 when the point lies to the left of the path's travel where it is nearest, -1 to
// the right, 0 on it.
int sideOf(const PlanePath& path, Vec2 point);

// The path between two positions (piece index plus fraction). On a closed path `to`
// may run past the end and on round to the start again.
PlanePath subPath(const PlanePath& path, double from, double to);

// How the offset of a polyline closes the gap that opens at an outer corner: the two
// neighbours extended to meet, an arc about the corner, or a straight chamfer.
enum class GapType { Extend = 0, Fillet = 1, Chamfer = 2 };

// The path moved sideways by distance (to the left when positive). Pieces that the
// offset turns round or shrinks away drop out; nothing when nothing is left.
std::optional<PlanePath> offsetPath(const PlanePath& path, double distance, GapType gap);

}  // namespace korva::geom
