// What an entity looks like projected on a plane: the primitives that selection tests
// against windows, polygons and fences.
#pragma once

#include <span>
#include <vector>

#include "affine.h"
#include "vec.h"

namespace korva::geom {

struct Segment2 {
  Vec2 a, b;
};

// A circular arc drawn counterclockwise from start through sweep (radians, > 0).
struct Arc2 {
  Vec2 center;
  double radius = 0;
  double start = 0;
  double sweep = 0;

  Vec2 pointAt(double angle) const;
  bool containsAngle(double angle) const;
  bool isFullCircle() const;
};

// An unbounded line or a ray from base along dir.
struct Line2 {
  Vec2 base, dir;
  bool ray = false;
};

struct PlaneShape {
  std::vector<Vec2> points;
  std::vector<Segment2> segments;
  std::vector<Arc2> arcs;
  std::vector<Line2> lines;
  Box2 box;  // of everything but lines

  bool empty() const { return points.empty() && segments.empty() && arcs.empty() && lines.empty(); }
};

// Projects geometry given in local coordinates on the X-Y plane of a target system.
// Curves that stay circles under the projection are kept exact; the others are
// flattened finely relative to their size.
class ShapeBuilder {
 public:
  // toPlane maps world coordinates to the target system (whose X and Y are kept).
  explicit ShapeBuilder(const Affine3& toPlane);

  // Later geometry is given in a system that `local` maps to the current one.
  void pushTransform(const Affine3& local);
  void popTransform();
  const Affine3& transform() const { return stack_.back(); }
  size_t depth() const { return stack_.size() - 1; }

  void point(Vec3 p);
  void segment(Vec3 a, Vec3 b);
  void polyline(std::span<const Vec3> points, bool closed);
  // center + cos(t) * u + sin(t) * v for t from t0 to t1 (t1 > t0).
  void ellipticArc(Vec3 center, Vec3 u, Vec3 v, double t0, double t1);
  // A polyline segment with a bulge, both ends in the same plane z = a.z of the local
  // system (the bulge is tan of a quarter of the included angle; positive turns left).
  void bulgeSegment(Vec3 a, Vec3 b, double bulge);
  void line(Vec3 base, Vec3 direction, bool ray);

  PlaneShape& shape() { return shape_; }
  PlaneShape take();

 private:
  Vec2 project(Vec3 p) const;
  std::vector<Affine3> stack_;
  PlaneShape shape_;
};

// Relative chord error of flattened curves.
constexpr double kFlatteningTolerance = 1e-5;

}  // namespace korva::geom
