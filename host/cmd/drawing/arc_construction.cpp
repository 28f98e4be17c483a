#include "cmd/drawing/arc_construction.h"

#include <cmath>
#include <numbers>

namespace korva::cmd::drawing {

namespace {

constexpr double kTwoPi = 2 * std::numbers::pi;
// Relative size under which lengths count as zero.
constexpr double kTiny = 1e-12;

Vec2 leftNormal(Vec2 v) {
  return {-v.y, v.x};
}

// The counterclockwise arc between two angles on a circle, as drawn from `from` with
// the signed sweep.
PlaneArc arcFrom(Vec2 center, double radius, double from, double sweep) {
  PlaneArc arc;
  arc.center = center;
  arc.radius = radius;
  arc.start = sweep >= 0 ? from : from + sweep;
  arc.end = arc.start + std::fabs(sweep);
  return arc;
}

bool degenerate(Vec2 a, Vec2 b) {
  double scale = std::fmax(1.0, std::fmax(geom::length(a), geom::length(b)));
  return geom::length(b - a) <= kTiny * scale;
}

}  // namespace

Vec2 PlaneArc::pointAt(double angle) const {
  return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

double angleOf(Vec2 direction) {
  return std::atan2(direction.y, direction.x);
}

double turnAngle(Vec2 from, Vec2 to) {
  return std::atan2(geom::cross(from, to), geom::dot(from, to));
}

std::optional<PlaneCircle> circleThroughPoints(Vec2 a, Vec2 b, Vec2 c) {
  Vec2 ab = b - a, ac = c - a;
  double twiceArea = geom::cross(ab, ac);
  double scale = geom::length(ab) * geom::length(ac);
  if (scale == 0 || std::fabs(twiceArea) <= kTiny * scale) return std::nullopt;
  double ab2 = geom::dot(ab, ab), ac2 = geom::dot(ac, ac);
  Vec2 offset{(ac.y * ab2 - ab.y * ac2) / (2 * twiceArea),
              (ab.x * ac2 - ac.x * ab2) / (2 * twiceArea)};
  return PlaneCircle{a + offset, geom::length(offset)};
}

std::optional<PlaneArc> arcThroughPoints(Vec2 start, Vec2 through, Vec2 end) {
  std::optional<PlaneCircle> circle = circleThroughPoints(start, through, end);
  if (!circle) return std::nullopt;
  double from = angleOf(start - circle->center);
  // Counterclockwise sweeps from start to the other two points: `through` comes first
  // on a counterclockwise arc.
  auto sweepTo = [&](Vec2 point) {
    double sweep = std::remainder(angleOf(point - circle->center) - from, kTwoPi);
    return sweep < 0 ? sweep + kTwoPi : sweep;
  };
  double toEnd = sweepTo(end);
  double sweep = sweepTo(through) < toEnd ? toEnd : toEnd - kTwoPi;
  return arcFrom(circle->center, circle->radius, from, sweep);
}

std::optional<PlaneArc> arcFromStartCenterToward(Vec2 start, Vec2 center, Vec2 toward) {
  if (degenerate(start, center) || degenerate(toward, center)) return std::nullopt;
  double from = angleOf(start - center);
  double sweep = std::remainder(angleOf(toward - center) - from, kTwoPi);
  if (sweep <= 0) sweep += kTwoPi;
  return arcFrom(center, geom::length(start - center), from, sweep);
}

std::optional<PlaneArc> arcFromStartCenterAngle(Vec2 start, Vec2 center, double included) {
  if (degenerate(start, center) || included == 0 || std::fabs(included) > kTwoPi) {
    return std::nullopt;
  }
  return arcFrom(center, geom::length(start - center), angleOf(start - center), included);
}

std::optional<PlaneArc> arcFromStartCenterChord(Vec2 start, Vec2 center, double chord) {
  double radius = geom::length(start - center);
  if (radius == 0 || chord == 0 || std::fabs(chord) > 2 * radius) return std::nullopt;
  double sweep = 2 * std::asin(std::fabs(chord) / (2 * radius));
  if (chord < 0) sweep = kTwoPi - sweep;
  return arcFrom(center, radius, angleOf(start - center), sweep);
}

std::optional<PlaneArc> arcFromStartEndAngle(Vec2 start, Vec2 end, double included) {
  if (degenerate(start, end) || included == 0 || std::fabs(included) >= kTwoPi) {
    return std::nullopt;
  }
  Vec2 chord = end - start;
  double half = geom::length(chord) / 2;
  // The center sits on the chord's bisector, to the left for counterclockwise sweeps
  // under half a turn.
  double offset = half / std::tan(included / 2);
  Vec2 center = start + chord * 0.5 + leftNormal(chord) * (offset / geom::length(chord));
  double radius = geom::length(start - center);
  return arcFrom(center, radius, angleOf(start - center), included);
}

std::optional<PlaneArc> arcFromStartEndDirection(Vec2 start, Vec2 end, double direction) {
  Vec2 tangent{std::cos(direction), std::sin(direction)};
  double turn = turnAngle(tangent, end - start);
  return arcFromStartEndAngle(start, end, 2 * turn);
}

std::optional<PlaneArc> arcFromStartEndRadius(Vec2 start, Vec2 end, double radius) {
  double half = geom::length(end - start) / 2;
  if (radius == 0 || half > std::fabs(radius) * (1 + kTiny)) return std::nullopt;
  double sweep = 2 * std::asin(std::fmin(1.0, half / std::fabs(radius)));
  if (radius < 0) sweep = kTwoPi - sweep;
  return arcFromStartEndAngle(start, end, sweep);
}

double bulgeOfSweep(double sweep) {
  return std::tan(sweep / 4);
}

double bulgeFromTangent(Vec2 tangent, Vec2 start, Vec2 end) {
  // The sweep is twice the turn from the tangent to the chord.
  return std::tan(turnAngle(tangent, end - start) / 2);
}

Vec2 endTangent(Vec2 start, Vec2 end, double bulge) {
  Vec2 chord = end - start;
  double length = geom::length(chord);
  if (length == 0) return {1, 0};
  Vec2 along = chord * (1 / length);
  // The end tangent is the chord turned by half the sweep (the start tangent is turned
  // back by as much).
  double turn = 2 * std::atan(bulge);
  return {along.x * std::cos(turn) - along.y * std::sin(turn),
          along.x * std::sin(turn) + along.y * std::cos(turn)};
}

}  // namespace korva::cmd::drawing
