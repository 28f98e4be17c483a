// Where TRIM cuts a path: the positions at which cutting pieces cross it, and the
// parts that stay when the part around a picked position goes.
#pragma once

#include <optional>
#include <vector>

#include "geom/plane_path.h"

namespace korva::geom {

struct CuttingPiece {
  Piece piece;
  bool extended = false;  // its carrier cuts, beyond its ends too
};

// Positions (piece index plus fraction) where the cutting pieces cross the path, in
// order, without repeats.
std::vector<double> cutPositions(const PlanePath& path, const std::vector<CuttingPiece>& edges);

enum class TrimFault { None, NoEdge, NeedsTwoCuts };

struct TrimResult {
  TrimFault fault = TrimFault::None;
  std::vector<PlanePath> parts;  // what stays, in order along the path; open paths
};

// The part between the cuts either side of `picked` goes. On an open path the ends
// count as no cut; a closed path needs two cuts and opens up.
TrimResult trimAt(const PlanePath& path, const std::vector<double>& cuts, double picked);

}  // namespace korva::geom
