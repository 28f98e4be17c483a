#include "plane_shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace korva::geom {

namespace {
constexpr double kTwoPi = 2 * std::numbers::pi;

double normalizeAngle(double angle) {
  angle = std::fmod(angle, kTwoPi);
  return angle < 0 ? angle + kTwoPi : angle;
}

// The exact bounding box of center + cos(t) u + sin(t) v over [t0, t1].
void addEllipseBox(Box2& box, Vec2 c, Vec2 u, Vec2 v, double t0, double t1) {
  auto at = [&](double t) { return c + u * std::cos(t) + v * std::sin(t); };
  box.add(at(t0));
  box.add(at(t1));
  // Extremes of x where -sin(t) u.x + cos(t) v.x = 0, likewise for y.
  for (double base : {std::atan2(v.x, u.x), std::atan2(v.y, u.y)}) {
    for (int k = -2; k <= 4; ++k) {
      double t = base + k * std::numbers::pi;
      if (t >= t0 && t <= t1) box.add(at(t));
    }
  }
}
}  // namespace

Vec2 Arc2::pointAt(double angle) const {
  return {center.x + radius * std::cos(angle), center.y + radius * std::sin(angle)};
}

bool Arc2::isFullCircle() const {
  return sweep >= kTwoPi - 1e-12;
}

bool Arc2::containsAngle(double angle) const {
  if (isFullCircle()) return true;
  double offset = normalizeAngle(angle - start);
  return offset <= sweep + 1e-12 || offset >= kTwoPi - 1e-12;
}

ShapeBuilder::ShapeBuilder(const Affine3& toPlane) {
  stack_.push_back(toPlane);
}

void ShapeBuilder::pushTransform(const Affine3& local) {
  stack_.push_back(stack_.back() * local);
}

void ShapeBuilder::popTransform() {
  if (stack_.size() > 1) stack_.pop_back();
}

Vec2 ShapeBuilder::project(Vec3 p) const {
  Vec3 q = stack_.back().point(p);
  return {q.x, q.y};
}

void ShapeBuilder::point(Vec3 p) {
  Vec2 q = project(p);
  shape_.points.push_back(q);
  shape_.box.add(q);
}

void ShapeBuilder::segment(Vec3 a, Vec3 b) {
  Segment2 s{project(a), project(b)};
  shape_.segments.push_back(s);
  shape_.box.add(s.a);
  shape_.box.add(s.b);
}

void ShapeBuilder::polyline(std::span<const Vec3> points, bool closed) {
  if (points.size() == 1) {
    point(points[0]);
    return;
  }
  for (size_t i = 0; i + 1 < points.size(); ++i) segment(points[i], points[i + 1]);
  if (closed && points.size() > 2) segment(points.back(), points.front());
}

void ShapeBuilder::ellipticArc(Vec3 center, Vec3 u, Vec3 v, double t0, double t1) {
  const Affine3& map = stack_.back();
  Vec3 c3 = map.point(center), u3 = map.vector(u), v3 = map.vector(v);
  Vec2 c{c3.x, c3.y}, pu{u3.x, u3.y}, pv{v3.x, v3.y};
  double lu = length(pu), lv = length(pv);
  double scale = std::max(lu, lv);
  if (scale <= 0) {
    point(center);
    return;
  }
  addEllipseBox(shape_.box, c, pu, pv, t0, t1);
  bool circular =
      std::fabs(lu - lv) <= 1e-9 * scale && std::fabs(dot(pu, pv)) <= 1e-9 * scale * scale;
  if (circular) {
    double alpha = std::atan2(pu.y, pu.x);
    double sweep = std::min(t1 - t0, kTwoPi);
    // Seen from behind, the angles run the other way round.
    double start = cross(pu, pv) > 0 ? alpha + t0 : alpha - t1;
    shape_.arcs.push_back({c, lu, normalizeAngle(start), sweep});
    return;
  }
  // Chord error r (1 - cos(dt / 2)) ~ r dt^2 / 8 stays below the tolerance.
  double step = std::sqrt(8 * kFlatteningTolerance);
  int count = std::max(4, static_cast<int>(std::ceil((t1 - t0) / step)));
  Vec2 previous = c + pu * std::cos(t0) + pv * std::sin(t0);
  for (int i = 1; i <= count; ++i) {
    double t = t0 + (t1 - t0) * i / count;
    Vec2 next = c + pu * std::cos(t) + pv * std::sin(t);
    shape_.segments.push_back({previous, next});
    previous = next;
  }
}

void ShapeBuilder::bulgeSegment(Vec3 a, Vec3 b, double bulge) {
  double chord = std::hypot(b.x - a.x, b.y - a.y);
  if (std::fabs(bulge) < 1e-12 || chord == 0) {
    segment(a, b);
    return;
  }
  // Included angle 4 atan(bulge); the center lies on the chord's perpendicular.
  double angle = 4 * std::atan(bulge);
  double radius = chord / (2 * std::sin(std::fabs(angle) / 2));
  double midX = (a.x + b.x) / 2, midY = (a.y + b.y) / 2;
  // Positive bulges run counterclockwise, so the center lies left of the chord while
  // the arc is less than a half circle (cos turns negative beyond).
  double toCenter = radius * std::cos(std::fabs(angle) / 2) * (bulge > 0 ? 1 : -1);
  double nx = -(b.y - a.y) / chord, ny = (b.x - a.x) / chord;
  Vec3 center{midX + nx * toCenter, midY + ny * toCenter, a.z};
  double startAngle = std::atan2(a.y - center.y, a.x - center.x);
  double endAngle = std::atan2(b.y - center.y, b.x - center.x);
  Vec3 u{radius, 0, 0}, v{0, radius, 0};
  if (bulge > 0) {
    double sweep = normalizeAngle(endAngle - startAngle);
    ellipticArc(center, u, v, startAngle, startAngle + sweep);
  } else {
    double sweep = normalizeAngle(startAngle - endAngle);
    ellipticArc(center, u, v, endAngle, endAngle + sweep);
  }
}

void ShapeBuilder::line(Vec3 base, Vec3 direction, bool ray) {
  const Affine3& map = stack_.back();
  Vec3 b = map.point(base), d = map.vector(direction);
  if (std::hypot(d.x, d.y) == 0) {
    // Seen end-on: only its base point shows.
    point(base);
    return;
  }
  shape_.lines.push_back({{b.x, b.y}, {d.x, d.y}, ray});
}

PlaneShape ShapeBuilder::take() {
  PlaneShape out = std::move(shape_);
  shape_ = {};
  return out;
}

}  // namespace korva::geom
