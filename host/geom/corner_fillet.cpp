#include "geom/corner_fillet.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace korva::geom {

namespace {

// -1, 0 or +1: the side of the piece's carrier the point lies on, left of travel
// positive.
int carrierSide(const Piece& piece, Vec2 point) {
  double fraction = fractionOf(piece, point);
  double side = cross(tangentAt(piece, fraction), point - pointAt(piece, fraction));
  if (std::fabs(side) <= kSamePoint) return 0;
  return side > 0 ? 1 : -1;
}

// The point of the carrier nearest to `point`.
Vec2 footOn(const Piece& piece, Vec2 point) {
  return pointAt(piece, fractionOf(piece, point));
}

bool turnedRound(const Piece& before, const Piece& after) {
  if (after.arc) return after.sweep * before.sweep <= 0;
  return dot(after.end - after.start, before.end - before.start) <= 0 ||
         geom::length(after.end - after.start) <= kSamePoint;
}

// The piece up to `touch`, keeping the part that lies away from `away` (the way the
// arc leaves it), or, for sharp corners, the part the pick is on.
Piece keptPart(const Piece& piece, Vec2 touch, Vec2 away, Vec2 pick, bool sharp) {
  double at = fractionOf(piece, touch);
  bool keepStart =
      sharp ? fractionOf(piece, pick) < at : dot(tangentAt(piece, at), away - touch) > 0;
  return keepStart ? withEnd(piece, touch) : withStart(piece, touch);
}

Fillet sharpCorner(const Piece& first, Vec2 firstPick, const Piece& second, Vec2 secondPick) {
  Fillet result;
  std::optional<Vec2> corner;
  double best = std::numeric_limits<double>::infinity();
  for (Vec2 point : carrierIntersections(first, second)) {
    double score = geom::length(point - firstPick) + geom::length(point - secondPick);
    if (score < best) best = score, corner = point;
  }
  if (!corner) {
    result.fault = FilletFault::NoCorner;
    return result;
  }
  result.first = keptPart(first, *corner, *corner, firstPick, true);
  result.second = keptPart(second, *corner, *corner, secondPick, true);
  return result;
}

}  // namespace

Fillet filletPieces(const Piece& first, Vec2 firstPick, const Piece& second, Vec2 secondPick,
                    double radius) {
  if (radius <= 0) return sharpCorner(first, firstPick, second, secondPick);
  Fillet result;
  result.fault = FilletFault::NoCorner;
  // The arc's center keeps the radius from both carriers; the one on the side of each
  // carrier where the other pick lies rounds the picked corner.
  int wantFirst = carrierSide(first, secondPick), wantSecond = carrierSide(second, firstPick);
  double best = std::numeric_limits<double>::infinity();
  bool bestMatches = false;
  for (int firstSide : {1, -1}) {
    for (int secondSide : {1, -1}) {
      std::optional<Piece> firstAway = offsetPiece(first, firstSide * radius);
      std::optional<Piece> secondAway = offsetPiece(second, secondSide * radius);
      if (!firstAway || !secondAway) continue;
      bool matches = firstSide == wantFirst && secondSide == wantSecond;
      for (Vec2 center : carrierIntersections(*firstAway, *secondAway)) {
        Vec2 firstTouch = footOn(first, center), secondTouch = footOn(second, center);
        double score =
            geom::length(firstTouch - firstPick) + geom::length(secondTouch - secondPick);
        if ((matches && !bestMatches) || (matches == bestMatches && score < best)) {
          best = score;
          bestMatches = matches;
          Vec2 from = firstTouch - center, to = secondTouch - center;
          result.arc = arcPiece(center, radius, std::atan2(from.y, from.x),
                                std::atan2(cross(from, to), dot(from, to)));
          result.arc->start = firstTouch;
          result.arc->end = secondTouch;
          result.first = keptPart(first, firstTouch, secondTouch, firstPick, false);
          result.second = keptPart(second, secondTouch, firstTouch, secondPick, false);
          result.fault = FilletFault::None;
        }
      }
    }
  }
  // An arc touching beyond the far end of a piece would turn the piece round.
  if (result.fault == FilletFault::None &&
      (turnedRound(first, result.first) || turnedRound(second, result.second))) {
    result.fault = FilletFault::RadiusTooLarge;
  }
  return result;
}

PolylineFillet filletPolyline(const std::vector<Vec2>& points, const std::vector<double>& bulges,
                              bool closed, double radius) {
  size_t count = points.size();
  size_t segments = closed ? count : count - 1;
  auto straight = [&](size_t segment) { return std::fabs(bulges[segment % count]) < 1e-12; };
  auto segmentLength = [&](size_t segment) {
    return geom::length(points[(segment + 1) % count] - points[segment % count]);
  };
  // How far each corner's arc reaches back along its two segments.
  std::vector<double> reach(count, 0);
  std::vector<double> sweeps(count, 0);
  PolylineFillet result;
  for (size_t corner = 0; corner < count && radius > 0 && count >= 3; ++corner) {
    if (!closed && (corner == 0 || corner == count - 1)) continue;
    size_t before = (corner + count - 1) % count;
    if (before >= segments || !straight(before) || !straight(corner)) continue;
    Vec2 in = points[corner] - points[before], out = points[(corner + 1) % count] - points[corner];
    if (geom::length(in) <= kSamePoint || geom::length(out) <= kSamePoint) continue;
    double turn = std::atan2(cross(in, out), dot(in, out));
    if (std::fabs(turn) < 1e-9 || std::fabs(turn) > std::numbers::pi - 1e-9) continue;
    reach[corner] = radius * std::tan(std::fabs(turn) / 2);
    sweeps[corner] = turn;
  }
  // A segment too short for the arcs at both its ends keeps both corners sharp.
  for (size_t segment = 0; segment < segments; ++segment) {
    size_t start = segment % count, end = (segment + 1) % count;
    if (reach[start] + reach[end] > segmentLength(segment) + kSamePoint) {
      for (size_t corner : {start, end}) {
        if (reach[corner] > 0) {
          reach[corner] = 0;
          ++result.tooShort;
        }
      }
    }
  }
  for (size_t corner = 0; corner < count; ++corner) {
    if (reach[corner] <= 0) {
      result.points.push_back(points[corner]);
      result.bulges.push_back(bulges[corner]);
      continue;
    }
    size_t before = (corner + count - 1) % count;
    Vec2 back = points[before] - points[corner],
         ahead = points[(corner + 1) % count] - points[corner];
    result.points.push_back(points[corner] + back * (reach[corner] / geom::length(back)));
    result.bulges.push_back(std::tan(sweeps[corner] / 4));
    result.points.push_back(points[corner] + ahead * (reach[corner] / geom::length(ahead)));
    result.bulges.push_back(bulges[corner]);
    ++result.rounded;
  }
  return result;
}

}  // namespace korva::geom
