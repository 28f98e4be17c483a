// Straight and circular pieces of curves in the plane, as the modifying commands cut,
// offset and round them. A piece runs from its start to its end; an arc turns by its
// signed sweep (positive counterclockwise) about its center. A whole circle is an arc
// of sweep 2 pi that ends where it starts.
#pragma once

#include <optional>
#include <vector>

#include "geom/vec.h"

namespace korva::geom {

// Points closer than this are one point.
constexpr double kSamePoint = 1e-9;

struct Piece {
  bool arc = false;
  Vec2 start, end;
  Vec2 center;
  double radius = 0;
  double startAngle = 0;
  double sweep = 0;
};

Piece linePiece(Vec2 start, Vec2 end);
Piece arcPiece(Vec2 center, double radius, double startAngle, double sweep);
// A polyline segment; bulge is the tangent of a quarter of the sweep.
Piece bulgePiece(Vec2 start, Vec2 end, double bulge);
double bulgeOf(const Piece& piece);
bool isWholeCircle(const Piece& piece);

double pieceLength(const Piece& piece);
// Fraction 0 is the start, 1 the end; beyond them the carrier (the infinite line or
// the whole circle) goes on.
Vec2 pointAt(const Piece& piece, double fraction);
// The unit direction of travel.
Vec2 tangentAt(const Piece& piece, double fraction);
// The fraction of the point's foot on the carrier. For arcs, points of the rest of
// the circle count from the nearer end: before the start they are negative.
double fractionOf(const Piece& piece, Vec2 point);
double distanceTo(const Piece& piece, Vec2 point);

// The part between two fractions, which may lie beyond 0 and 1.
Piece subPiece(const Piece& piece, double from, double to);
Piece reversed(const Piece& piece);
// The same carrier with a new end (or start), going the same way round.
Piece withEnd(const Piece& piece, Vec2 end);
Piece withStart(const Piece& piece, Vec2 start);

// Where the carriers of two pieces meet.
std::vector<Vec2> carrierIntersections(const Piece& first, const Piece& second);
// Of those, the points that lie on the pieces themselves: on `first` always, on
// `second` only unless extendSecond.
std::vector<Vec2> pieceIntersections(const Piece& first, const Piece& second, bool extendSecond);

// The piece moved sideways by distance, to the left of travel when positive. Arcs
// shrinking to nothing give nothing.
std::optional<Piece> offsetPiece(const Piece& piece, double distance);

}  // namespace korva::geom
