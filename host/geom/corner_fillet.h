// Rounding the corner where two pieces meet, and the sharp corner of radius 0: the
// arc tangent to both and each piece trimmed or extended to where the arc touches it.
#pragma once

#include <optional>
#include <vector>

#include "geom/plane_pieces.h"

namespace korva::geom {

enum class FilletFault { None, NoCorner, RadiusTooLarge };

struct Fillet {
  FilletFault fault = FilletFault::None;
  // The pieces as they are to stay: the picked part of each, up to the arc.
  Piece first, second;
  std::optional<Piece> arc;  // none for radius 0
};

// The picks say which part of each piece stays and, of the corners the two carriers
// make, which one is rounded.
Fillet filletPieces(const Piece& first, Vec2 firstPick, const Piece& second, Vec2 secondPick,
                    double radius);

// A polyline's straight corners rounded: vertices and bulges in, the same with two
// vertices for each rounded corner out. Corners whose segments are too short for the
// radius stay as they are and are counted.
struct PolylineFillet {
  std::vector<Vec2> points;
  std::vector<double> bulges;
  int rounded = 0;
  int tooShort = 0;
};
PolylineFillet filletPolyline(const std::vector<Vec2>& points, const std::vector<double>& bulges,
                              bool closed, double radius);

}  // namespace korva::geom
