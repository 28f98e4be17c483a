#include "bulge_path.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korva::geom {

namespace {
// Below this a bulge draws as a straight segment.
constexpr double kStraight = 1e-12;
constexpr double kTwoPi = 2 * std::numbers::pi;
}  // namespace

bool BulgeSegment::isArc() const {
  return std::fabs(bulge) > kStraight && geom::length(end - start) > 0;
}

double BulgeSegment::sweep() const {
  return 4 * std::atan(bulge);
}

double BulgeSegment::radius() const {
  double chord = geom::length(end - start);
  return chord * (1 + bulge * bulge) / (4 * std::fabs(bulge));
}

Vec2 BulgeSegment::center() const {
  Vec2 chord = end - start;
  double c = geom::length(chord);
  Vec2 left{-chord.y / c, chord.x / c};
  // Signed distance from the chord's middle to the center, to the left.
  double offset = c * (1 - bulge * bulge) / (4 * bulge);
  return (start + end) * 0.5 + left * offset;
}

double BulgeSegment::startAngle() const {
  Vec2 c = center();
  return std::atan2(start.y - c.y, start.x - c.x);
}

double BulgeSegment::length() const {
  if (!isArc()) return geom::length(end - start);
  return radius() * std::fabs(sweep());
}

Vec2 BulgeSegment::pointAt(double fraction) const {
  if (!isArc()) return start + (end - start) * fraction;
  if (fraction == 1) return end;
  double a = startAngle() + sweep() * fraction;
  Vec2 c = center();
  double r = radius();
  return {c.x + r * std::cos(a), c.y + r * std::sin(a)};
}

Vec2 BulgeSegment::tangentAt(double fraction) const {
  if (!isArc()) {
    Vec2 d = end - start;
    double l = geom::length(d);
    return l > 0 ? d * (1 / l) : Vec2{};
  }
  double a = startAngle() + sweep() * fraction;
  double turn = bulge > 0 ? 1 : -1;
  return {-std::sin(a) * turn, std::cos(a) * turn};
}

double BulgeSegment::closestFraction(Vec2 p) const {
  if (!isArc()) {
    Vec2 d = end - start;
    double squared = dot(d, d);
    return squared == 0 ? 0 : std::clamp(dot(p - start, d) / squared, 0.0, 1.0);
  }
  Vec2 c = center();
  double s = sweep();
  double angle = std::atan2(p.y - c.y, p.x - c.x);
  // The angle travelled from the start in the segment's own direction.
  double travelled = std::fmod((angle - startAngle()) * (s > 0 ? 1 : -1), kTwoPi);
  if (travelled < 0) travelled += kTwoPi;
  double fraction = travelled / std::fabs(s);
  if (fraction <= 1) return fraction;
  // Beyond the arc: the nearer end.
  return geom::length(p - start) <= geom::length(p - end) ? 0.0 : 1.0;
}

std::vector<BulgeSegment> bulgeSegments(const std::vector<Vec2>& points,
                                        const std::vector<double>& bulges, bool closed) {
  std::vector<BulgeSegment> segments;
  size_t n = points.size();
  if (n < 2) return segments;
  size_t count = closed ? n : n - 1;
  for (size_t i = 0; i < count; ++i) {
    segments.push_back({points[i], points[(i + 1) % n], i < bulges.size() ? bulges[i] : 0.0});
  }
  return segments;
}

}  // namespace korva::geom
