// Hatch outlines: the boundary paths, polyline or edge by edge, in the hatch's object
// system at its elevation.
#include <cmath>
#include <numbers>

#include "entity_outline.h"
#include "geom/spline_curve.h"

namespace korva::api {

using geom::Vec3;

namespace {

constexpr double kDegree = std::numbers::pi / 180;
constexpr double kTwoPi = 2 * std::numbers::pi;

// Reads boundary data in file order; any surprise ends the reading.
class BoundaryReader {
 public:
  BoundaryReader(const std::vector<FlatValue>& values, size_t start)
      : values_(values), at_(start) {}

  bool next(int code, const FlatValue*& out) {
    if (at_ >= values_.size() || values_[at_].code != code) return false;
    out = &values_[at_++];
    return true;
  }
  bool optional(int code, const FlatValue*& out) { return next(code, out); }
  bool integer(int code, long long& out) {
    const FlatValue* value;
    if (!next(code, value)) return false;
    out = value->integer;
    return true;
  }
  bool real(int code, double& out) {
    const FlatValue* value;
    if (!next(code, value)) return false;
    out = value->point[0];
    return true;
  }
  bool point(int code, double elevation, Vec3& out) {
    const FlatValue* value;
    if (!next(code, value)) return false;
    out = {value->point[0], value->point[1], elevation};
    return true;
  }

 private:
  const std::vector<FlatValue>& values_;
  size_t at_;
};

}  // namespace

void EntityOutliner::addHatch(const EntityValues& values) {
  const std::vector<FlatValue>& all = values.all();
  size_t start = 0;
  while (start < all.size() && all[start].code != 91) ++start;
  if (start == all.size()) return;
  double z = values.point(10).z;
  BoundaryReader in(all, start);
  long long loops = 0;
  in.integer(91, loops);
  builder_.pushTransform(geom::objectToWorld(values.extrusion()));
  for (long long loop = 0; loop < loops; ++loop) {
    long long flags = 0;
    if (!in.integer(92, flags)) break;
    if (flags & 2) {
      long long hasBulge = 0, closed = 0, count = 0;
      if (!in.integer(72, hasBulge) || !in.integer(73, closed) || !in.integer(93, count)) break;
      std::vector<Vec3> points;
      std::vector<double> bulges;
      for (long long i = 0; i < count; ++i) {
        Vec3 p;
        double bulge = 0;
        if (!in.point(10, z, p)) break;
        if (hasBulge) in.real(42, bulge);
        points.push_back(p);
        bulges.push_back(bulge);
      }
      for (size_t i = 0; i + 1 < points.size(); ++i)
        builder_.bulgeSegment(points[i], points[i + 1], bulges[i]);
      // Hatch boundaries are closed whatever the flag says.
      if (points.size() > 2) builder_.bulgeSegment(points.back(), points.front(), bulges.back());
    } else {
      long long edges = 0;
      if (!in.integer(93, edges)) break;
      for (long long edge = 0; edge < edges; ++edge) {
        long long kind = 0;
        if (!in.integer(72, kind)) break;
        if (kind == 1) {
          Vec3 a, b;
          if (!in.point(10, z, a) || !in.point(11, z, b)) break;
          builder_.segment(a, b);
        } else if (kind == 2 || kind == 3) {
          Vec3 center, major{1, 0, 0};
          double radius = 1, ratio = 1, a0 = 0, a1 = 360;
          long long ccw = 1;
          if (!in.point(10, z, center)) break;
          if (kind == 3 && !in.point(11, 0, major)) break;
          if (!in.real(40, kind == 2 ? radius : ratio) || !in.real(50, a0) || !in.real(51, a1) ||
              !in.integer(73, ccw)) {
            break;
          }
          Vec3 u = kind == 2 ? Vec3{radius, 0, 0} : major;
          Vec3 v = kind == 2 ? Vec3{0, radius, 0} : Vec3{-major.y * ratio, major.x * ratio, 0};
          double t0 = a0 * kDegree, t1 = a1 * kDegree;
          // Clockwise edges give their angles mirrored.
          if (!ccw) std::swap(t0, t1), t0 = -t0, t1 = -t1;
          while (t1 <= t0) t1 += kTwoPi;
          builder_.ellipticArc(center, u, v, t0, std::min(t1, t0 + kTwoPi));
        } else if (kind == 4) {
          geom::NurbsCurve curve;
          long long degree = 3, rational = 0, periodic = 0, knots = 0, controls = 0, fits = 0;
          if (!in.integer(94, degree) || !in.integer(73, rational) || !in.integer(74, periodic) ||
              !in.integer(95, knots) || !in.integer(96, controls)) {
            break;
          }
          curve.degree = static_cast<int>(degree);
          for (long long k = 0; k < knots; ++k) {
            double knot;
            if (in.real(40, knot)) curve.knots.push_back(knot);
          }
          for (long long k = 0; k < controls; ++k) {
            Vec3 p;
            double weight;
            if (in.point(10, z, p)) curve.control.push_back(p);
            if (in.real(42, weight)) curve.weights.push_back(weight);
          }
          std::vector<Vec3> fit;
          if (in.integer(97, fits)) {
            for (long long k = 0; k < fits; ++k) {
              Vec3 p;
              if (in.point(11, z, p)) fit.push_back(p);
            }
            const FlatValue* tangent;
            in.optional(12, tangent);
            in.optional(13, tangent);
          }
          geom::Box2 box;
          for (const Vec3& p : curve.control.empty() ? fit : curve.control)
            box.add(geom::Vec2{p.x, p.y});
          double tolerance = std::max(box.diagonal(), 1e-9) * geom::kFlatteningTolerance;
          builder_.polyline(curve.control.empty() ? geom::flattenThroughFitPoints(fit, tolerance)
                                                  : geom::flatten(curve, tolerance),
                            false);
        } else {
          break;
        }
      }
    }
    long long sources = 0;
    if (in.integer(97, sources)) {
      for (long long k = 0; k < sources; ++k) {
        const FlatValue* reference;
        in.optional(330, reference);
      }
    }
  }
  builder_.popTransform();
}

}  // namespace korva::api
