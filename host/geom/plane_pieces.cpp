#include "geom/plane_pieces.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korva::geom {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;

Vec2 onCircle(Vec2 center, double radius, double angle) {
  return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

double angleOf(Vec2 center, Vec2 point) {
  return std::atan2(point.y - center.y, point.x - center.x);
}

Vec2 unit(Vec2 v) {
  double l = geom::length(v);
  return l > 0 ? v * (1 / l) : Vec2{};
}

bool onPiece(const Piece& piece, Vec2 point) {
  if (isWholeCircle(piece)) return true;
  double slack = kSamePoint / std::max(pieceLength(piece), kSamePoint);
  double fraction = fractionOf(piece, point);
  return fraction >= -slack && fraction <= 1 + slack;
}

std::vector<Vec2> lineLine(Vec2 a, Vec2 aDirection, Vec2 b, Vec2 bDirection) {
  double denominator = cross(aDirection, bDirection);
  double scale = geom::length(aDirection) * geom::length(bDirection);
  if (std::fabs(denominator) <= 1e-12 * scale) return {};
  double t = cross(b - a, bDirection) / denominator;
  return {a + aDirection * t};
}

std::vector<Vec2> lineCircle(Vec2 a, Vec2 direction, Vec2 center, double radius) {
  Vec2 along = unit(direction);
  Vec2 foot = a + along * dot(center - a, along);
  double height = geom::length(center - foot);
  if (height > radius + kSamePoint) return {};
  double half = std::sqrt(std::max(0.0, radius * radius - height * height));
  if (half <= kSamePoint) return {foot};
  return {foot - along * half, foot + along * half};
}

std::vector<Vec2> circleCircle(Vec2 c1, double r1, Vec2 c2, double r2) {
  double d = geom::length(c2 - c1);
  if (d <= kSamePoint || d > r1 + r2 + kSamePoint || d < std::fabs(r1 - r2) - kSamePoint) return {};
  Vec2 along = (c2 - c1) * (1 / d);
  double a = (d * d + r1 * r1 - r2 * r2) / (2 * d);
  double h = std::sqrt(std::max(0.0, r1 * r1 - a * a));
  Vec2 base = c1 + along * a;
  if (h <= kSamePoint) return {base};
  Vec2 across{-along.y, along.x};
  return {base + across * h, base - across * h};
}

}  // namespace

Piece linePiece(Vec2 start, Vec2 end) {
  Piece piece;
  piece.start = start;
  piece.end = end;
  return piece;
}

Piece arcPiece(Vec2 center, double radius, double startAngle, double sweep) {
  Piece piece;
  piece.arc = true;
  piece.center = center;
  piece.radius = radius;
  piece.startAngle = startAngle;
  piece.sweep = sweep;
  piece.start = onCircle(center, radius, startAngle);
  piece.end =
      std::fabs(sweep) >= kTwoPi ? piece.start : onCircle(center, radius, startAngle + sweep);
  return piece;
}

Piece bulgePiece(Vec2 start, Vec2 end, double bulge) {
  double chord = geom::length(end - start);
  if (std::fabs(bulge) < 1e-12 || chord <= 0) return linePiece(start, end);
  Vec2 left = Vec2{-(end - start).y, (end - start).x} * (1 / chord);
  Vec2 center = (start + end) * 0.5 + left * (chord * (1 - bulge * bulge) / (4 * bulge));
  Piece piece =
      arcPiece(center, geom::length(start - center), angleOf(center, start), 4 * std::atan(bulge));
  piece.start = start;
  piece.end = end;
  return piece;
}

double bulgeOf(const Piece& piece) {
  return piece.arc ? std::tan(piece.sweep / 4) : 0;
}

bool isWholeCircle(const Piece& piece) {
  return piece.arc && std::fabs(piece.sweep) >= kTwoPi - 1e-12;
}

double pieceLength(const Piece& piece) {
  return piece.arc ? piece.radius * std::fabs(piece.sweep) : geom::length(piece.end - piece.start);
}

Vec2 pointAt(const Piece& piece, double fraction) {
  if (fraction == 0) return piece.start;
  if (fraction == 1) return piece.end;
  if (!piece.arc) return piece.start + (piece.end - piece.start) * fraction;
  return onCircle(piece.center, piece.radius, piece.startAngle + piece.sweep * fraction);
}

Vec2 tangentAt(const Piece& piece, double fraction) {
  if (!piece.arc) return unit(piece.end - piece.start);
  Vec2 radial = unit(pointAt(piece, fraction) - piece.center);
  Vec2 left{-radial.y, radial.x};
  return piece.sweep > 0 ? left : left * -1;
}

double fractionOf(const Piece& piece, Vec2 point) {
  if (!piece.arc) {
    Vec2 direction = piece.end - piece.start;
    double squared = dot(direction, direction);
    return squared > 0 ? dot(point - piece.start, direction) / squared : 0;
  }
  double span = std::fabs(piece.sweep);
  if (span <= 0) return 0;
  double turn = angleOf(piece.center, point) - piece.startAngle;
  if (piece.sweep < 0) turn = -turn;
  turn = std::fmod(turn, kTwoPi);
  if (turn < 0) turn += kTwoPi;
  if (turn > span + (kTwoPi - span) / 2) turn -= kTwoPi;
  return turn / span;
}

double distanceTo(const Piece& piece, Vec2 point) {
  double fraction = fractionOf(piece, point);
  if (fraction >= 0 && fraction <= 1) {
    if (piece.arc) return std::fabs(geom::length(point - piece.center) - piece.radius);
    return geom::length(point - pointAt(piece, fraction));
  }
  return std::min(geom::length(point - piece.start), geom::length(point - piece.end));
}

Piece subPiece(const Piece& piece, double from, double to) {
  if (!piece.arc) return linePiece(pointAt(piece, from), pointAt(piece, to));
  return arcPiece(piece.center, piece.radius, piece.startAngle + piece.sweep * from,
                  piece.sweep * (to - from));
}

Piece reversed(const Piece& piece) {
  if (!piece.arc) return linePiece(piece.end, piece.start);
  Piece back = arcPiece(piece.center, piece.radius, piece.startAngle + piece.sweep, -piece.sweep);
  back.start = piece.end;
  back.end = piece.start;
  return back;
}

Piece withEnd(const Piece& piece, Vec2 end) {
  if (!piece.arc) return linePiece(piece.start, end);
  Piece changed =
      arcPiece(piece.center, piece.radius, piece.startAngle, piece.sweep * fractionOf(piece, end));
  changed.start = piece.start;
  return changed;
}

Piece withStart(const Piece& piece, Vec2 start) {
  if (!piece.arc) return linePiece(start, piece.end);
  double fraction = fractionOf(piece, start);
  Piece changed = arcPiece(piece.center, piece.radius, piece.startAngle + piece.sweep * fraction,
                           piece.sweep * (1 - fraction));
  changed.end = piece.end;
  return changed;
}

std::vector<Vec2> carrierIntersections(const Piece& first, const Piece& second) {
  if (!first.arc && !second.arc) {
    return lineLine(first.start, first.end - first.start, second.start, second.end - second.start);
  }
  if (!first.arc) {
    return lineCircle(first.start, first.end - first.start, second.center, second.radius);
  }
  if (!second.arc) {
    return lineCircle(second.start, second.end - second.start, first.center, first.radius);
  }
  return circleCircle(first.center, first.radius, second.center, second.radius);
}

std::vector<Vec2> pieceIntersections(const Piece& first, const Piece& second, bool extendSecond) {
  std::vector<Vec2> points;
  for (Vec2 point : carrierIntersections(first, second)) {
    if (onPiece(first, point) && (extendSecond || onPiece(second, point))) points.push_back(point);
  }
  return points;
}

std::optional<Piece> offsetPiece(const Piece& piece, double distance) {
  if (!piece.arc) {
    Vec2 along = unit(piece.end - piece.start);
    Vec2 shift = Vec2{-along.y, along.x} * distance;
    return linePiece(piece.start + shift, piece.end + shift);
  }
  double radius = piece.sweep > 0 ? piece.radius - distance : piece.radius + distance;
  if (radius <= kSamePoint) return std::nullopt;
  return arcPiece(piece.center, radius, piece.startAngle, piece.sweep);
}

}  // namespace korva::geom
