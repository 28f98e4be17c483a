#include "selection_region.h"

#include <algorithm>
#include <cmath>

namespace korva::geom {

namespace {

double orient(Vec2 a, Vec2 b, Vec2 c) {
  return cross(b - a, c - a);
}

bool onSegment(Vec2 a, Vec2 b, Vec2 p) {
  return std::min(a.x, b.x) <= p.x && p.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= p.y &&
         p.y <= std::max(a.y, b.y);
}

// An unbounded line or ray cut to a box that holds the region with room to spare.
bool clipLine(const Line2& line, const Box2& box, Segment2& out) {
  double reach = box.diagonal() + length(line.base - (box.min + box.max) * 0.5);
  double scale = reach / length(line.dir) + 1.0;
  Vec2 far = line.base + line.dir * scale;
  Vec2 near = line.ray ? line.base : line.base - line.dir * scale;
  out = {near, far};
  return true;
}

}  // namespace

bool segmentsIntersect(const Segment2& s, const Segment2& t) {
  double d1 = orient(t.a, t.b, s.a), d2 = orient(t.a, t.b, s.b);
  double d3 = orient(s.a, s.b, t.a), d4 = orient(s.a, s.b, t.b);
  if (((d1 > 0 && d2 < 0) || (d1 < 0 && d2 > 0)) && ((d3 > 0 && d4 < 0) || (d3 < 0 && d4 > 0))) {
    return true;
  }
  if (d1 == 0 && onSegment(t.a, t.b, s.a)) return true;
  if (d2 == 0 && onSegment(t.a, t.b, s.b)) return true;
  if (d3 == 0 && onSegment(s.a, s.b, t.a)) return true;
  if (d4 == 0 && onSegment(s.a, s.b, t.b)) return true;
  return false;
}

bool arcIntersectsSegment(const Arc2& arc, const Segment2& s) {
  // |a + k d - c|^2 = r^2 for k in [0, 1].
  Vec2 d = s.b - s.a, f = s.a - arc.center;
  double a = dot(d, d), b = 2 * dot(f, d), c = dot(f, f) - arc.radius * arc.radius;
  if (a == 0)
    return std::fabs(std::sqrt(dot(f, f)) - arc.radius) <= 1e-12 * arc.radius &&
           arc.containsAngle(std::atan2(f.y, f.x));
  double disc = b * b - 4 * a * c;
  if (disc < 0) return false;
  double root = std::sqrt(disc);
  for (double k : {(-b - root) / (2 * a), (-b + root) / (2 * a)}) {
    if (k < 0 || k > 1) continue;
    Vec2 p = s.a + d * k - arc.center;
    if (arc.containsAngle(std::atan2(p.y, p.x))) return true;
  }
  return false;
}

SelectionRegion SelectionRegion::rectangle(Vec2 first, Vec2 second) {
  SelectionRegion region;
  double x0 = std::min(first.x, second.x), x1 = std::max(first.x, second.x);
  double y0 = std::min(first.y, second.y), y1 = std::max(first.y, second.y);
  region.points_ = {{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}};
  for (Vec2 p : region.points_) region.box_.add(p);
  region.rectangle_ = true;
  return region;
}

SelectionRegion SelectionRegion::polygon(std::vector<Vec2> points) {
  SelectionRegion region;
  // A closing point that repeats the first adds nothing.
  if (points.size() > 1 && points.front().x == points.back().x &&
      points.front().y == points.back().y) {
    points.pop_back();
  }
  region.points_ = std::move(points);
  for (Vec2 p : region.points_) region.box_.add(p);
  return region;
}

bool SelectionRegion::contains(Vec2 p) const {
  if (!box_.overlaps(Box2{p, p})) return false;
  if (rectangle_) return true;
  bool inside = false;
  for (size_t i = 0, j = points_.size() - 1; i < points_.size(); j = i++) {
    Vec2 a = points_[i], b = points_[j];
    if ((a.y > p.y) != (b.y > p.y)) {
      double x = a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y);
      if (p.x < x) inside = !inside;
    }
  }
  return inside;
}

bool SelectionRegion::crossesOutline(const Segment2& segment) const {
  for (size_t i = 0, j = points_.size() - 1; i < points_.size(); j = i++) {
    if (segmentsIntersect(segment, {points_[j], points_[i]})) return true;
  }
  return false;
}

bool SelectionRegion::crossesOutline(const Arc2& arc) const {
  for (size_t i = 0, j = points_.size() - 1; i < points_.size(); j = i++) {
    if (arcIntersectsSegment(arc, {points_[j], points_[i]})) return true;
  }
  return false;
}

bool SelectionRegion::encloses(const PlaneShape& shape) const {
  if (points_.size() < 3 || shape.empty() || !shape.lines.empty()) return false;
  if (!box_.contains(shape.box)) return false;
  // The shape's box is exact, so inside a rectangle nothing more needs checking.
  if (rectangle_) return true;
  for (Vec2 p : shape.points) {
    if (!contains(p)) return false;
  }
  for (const Segment2& s : shape.segments) {
    if (!contains(s.a) || crossesOutline(s)) return false;
  }
  for (const Arc2& arc : shape.arcs) {
    if (!contains(arc.pointAt(arc.start)) || crossesOutline(arc)) return false;
  }
  return true;
}

bool SelectionRegion::touches(const PlaneShape& shape) const {
  if (points_.size() < 3 || shape.empty()) return false;
  if (shape.lines.empty()) {
    if (!box_.overlaps(shape.box)) return false;
    if (rectangle_ && box_.contains(shape.box)) return true;
  }
  for (Vec2 p : shape.points) {
    if (contains(p)) return true;
  }
  for (const Segment2& s : shape.segments) {
    if (contains(s.a) || crossesOutline(s)) return true;
  }
  for (const Arc2& arc : shape.arcs) {
    if (contains(arc.pointAt(arc.start)) || crossesOutline(arc)) return true;
  }
  for (const Line2& line : shape.lines) {
    Segment2 cut;
    if (clipLine(line, box_, cut) && (contains(cut.a) || crossesOutline(cut))) return true;
  }
  return false;
}

bool fenceCrosses(const std::vector<Vec2>& fence, const PlaneShape& shape) {
  if (fence.size() < 2 || shape.empty()) return false;
  Box2 box;
  for (Vec2 p : fence) box.add(p);
  if (shape.lines.empty() && !box.overlaps(shape.box)) return false;
  for (size_t i = 0; i + 1 < fence.size(); ++i) {
    Segment2 leg{fence[i], fence[i + 1]};
    for (Vec2 p : shape.points) {
      if (orient(leg.a, leg.b, p) == 0 && onSegment(leg.a, leg.b, p)) return true;
    }
    for (const Segment2& s : shape.segments) {
      if (segmentsIntersect(leg, s)) return true;
    }
    for (const Arc2& arc : shape.arcs) {
      if (arcIntersectsSegment(arc, leg)) return true;
    }
    for (const Line2& line : shape.lines) {
      Segment2 cut;
      if (clipLine(line, box, cut) && segmentsIntersect(leg, cut)) return true;
    }
  }
  return false;
}

}  // namespace korva::geom
