// A hatch's groups under an affine map: the loops, pattern lines and seeds are 2D
// values of the hatch's object system at its elevation, read in file order because
// their codes repeat (the same grammar as readHatchBoundaries).
//
// A map that keeps circles round in the hatch's plane rewrites every value in place.
// Any other map carries each edge exactly: lines stay lines, circular arcs become
// elliptic arcs, ellipses stay ellipses, splines follow their control points, and a
// polyline loop whose arcs would stop being circular becomes a loop of edges.
#include <cmath>
#include <numbers>

#include "conjugate_ellipse.h"
#include "db/value_text.h"
#include "entity_transform_kinds.h"

namespace korva::api {

namespace {

using namespace transform;

constexpr double kDegree = std::numbers::pi / 180;

double degreesInTurn(double radians) {
  return normalizedAngle(radians) / kDegree;
}

// The eccentric parameter of an ellipse point at a polar angle of its own axes, and back.
double parameterAtPolar(double angle, double ratio) {
  return std::atan2(std::sin(angle), ratio * std::cos(angle));
}
double polarAtParameter(double parameter, double ratio) {
  return std::atan2(ratio * std::sin(parameter), std::cos(parameter));
}

void add(Groups& out, int code, double value) {
  out.push_back({code, db::formatReal(value)});
}
void addInteger(Groups& out, int code, long long value) {
  out.push_back({code, std::to_string(value)});
}

// An elliptic edge (72 = 3) through c + a cos t + b sin t, from parameter `from` to `to`
// in the edge's own direction. Angles are stored as polar angles of the ellipse's axes,
// negated for a clockwise edge, as readHatchBoundaries expects them.
Groups ellipseEdge(Vec3 center, Vec3 a, Vec3 b, double from, double to, bool counterclockwise,
                   bool full) {
  PrincipalAxes axes = principalAxes(a, b);
  double ratio = geom::length(axes.minor) / geom::length(axes.major);
  double sign = counterclockwise ? 1 : -1;
  double start = full ? 0 : degreesInTurn(sign * polarAtParameter(from - axes.shift, ratio));
  double end = full ? 360 : degreesInTurn(sign * polarAtParameter(to - axes.shift, ratio));
  Groups out;
  addInteger(out, 72, 3);
  add(out, 10, center.x);
  add(out, 20, center.y);
  add(out, 11, axes.major.x);
  add(out, 21, axes.major.y);
  add(out, 40, ratio);
  add(out, 50, start);
  add(out, 51, end);
  addInteger(out, 73, counterclockwise ? 1 : 0);
  return out;
}

// A stretch of groups to put in place of [begin, end) once the walk is over.
struct Replacement {
  size_t begin = 0, end = 0;
  Groups groups;
};

class HatchRewriter {
 public:
  HatchRewriter(Groups& groups, const Affine3& map)
      : groups_(groups), map_(map), move_(map, extrusion(groups)) {
    Vec3 x = move_.vector(map, {1, 0, 0});
    Vec3 y = move_.vector(map, {0, 1, 0});
    xLength_ = geom::length(x);
    turn_ = std::atan2(x.y, x.x);
    double yLength = geom::length(y);
    round_ = std::fabs(xLength_ - yLength) <= 1e-9 * xLength_ &&
             std::fabs(geom::dot(x, y)) <= 1e-9 * xLength_ * yLength;
  }

  bool run() {
    // The elevation point comes first in the hatch's own groups.
    size_t at = 0;
    while (at < groups_.size() && groups_[at].code != 10 && groups_[at].code != 1001) ++at;
    if (at >= groups_.size() || groups_[at].code != 10) return false;
    at_ = at;
    elevation_ = coordinate(at_ + 2, 30);
    double newElevation = move_.point(map_, {0, 0, elevation_}).z;
    set(at_, 0);
    if (at_ + 1 < groups_.size() && groups_[at_ + 1].code == 20) set(at_ + 1, 0);
    if (at_ + 2 < groups_.size() && groups_[at_ + 2].code == 30) set(at_ + 2, newElevation);
    while (at_ < groups_.size() && groups_[at_].code != 91) {
      if (groups_[at_].code == 1001) return false;
      ++at_;
    }
    long long loops = 0;
    if (!integer(91, loops)) return false;
    for (long long i = 0; i < loops; ++i) {
      if (!loop()) return false;
    }
    if (!tail()) return false;
    for (auto it = replacements_.rbegin(); it != replacements_.rend(); ++it) {
      auto begin = groups_.begin() + static_cast<std::ptrdiff_t>(it->begin);
      groups_.erase(begin, groups_.begin() + static_cast<std::ptrdiff_t>(it->end));
      groups_.insert(groups_.begin() + static_cast<std::ptrdiff_t>(it->begin), it->groups.begin(),
                     it->groups.end());
    }
    return true;
  }

  Vec3 newNormal() const { return move_.newNormal; }

 private:
  bool at(int code) const { return at_ < groups_.size() && groups_[at_].code == code; }
  double value(size_t i) const { return db::parseReal(groups_[i].value).value_or(0); }
  double coordinate(size_t i, int code) const {
    return i < groups_.size() && groups_[i].code == code ? value(i) : 0;
  }
  void set(size_t i, double v) { groups_[i].value = db::formatReal(v); }
  Vec3 planePoint(double x, double y) const { return move_.point(map_, {x, y, elevation_}); }
  Vec3 planeVector(double x, double y) const { return move_.vector(map_, {x, y, 0}); }

  bool integer(int code, long long& out) {
    if (!at(code)) return false;
    out = db::parseInteger(groups_[at_++].value).value_or(0);
    return true;
  }
  bool real(int code, double& out) {
    if (!at(code)) return false;
    out = value(at_++);
    return true;
  }
  bool skip(int code) {
    if (!at(code)) return false;
    ++at_;
    return true;
  }
  // Lengths of the pattern and of arcs that stay round.
  bool scaled(int code) {
    if (!at(code)) return false;
    set(at_, value(at_) * xLength_);
    ++at_;
    return true;
  }
  // An angle of the plane in degrees, turned with it; a clockwise arc stores the
  // complements of its angles, which turn the other way.
  bool turned(int code, bool clockwise = false) {
    if (!at(code)) return false;
    double degrees = value(at_) + (clockwise ? -turn_ : turn_) / kDegree;
    set(at_, degrees);
    ++at_;
    return true;
  }
  // A 2D point (code, code + 10) of the plane, read and optionally moved.
  bool readPair(int code, double& x, double& y) {
    if (!at(code) || at_ + 1 >= groups_.size() || groups_[at_ + 1].code != code + 10) return false;
    x = value(at_);
    y = value(at_ + 1);
    at_ += 2;
    if (at(code + 20)) ++at_;
    return true;
  }
  bool point(int code) {
    return mapPair(code, [this](double x, double y) { return planePoint(x, y); });
  }
  bool vector(int code) {
    return mapPair(code, [this](double x, double y) { return planeVector(x, y); });
  }
  // Reads the pair at the code and writes back where map takes it.
  template <class Map>
  bool mapPair(int code, Map map) {
    size_t first = at_;
    double x = 0, y = 0;
    if (!readPair(code, x, y)) return false;
    Vec3 moved = map(x, y);
    set(first, moved.x);
    set(first + 1, moved.y);
    return true;
  }
  // Pattern base points and offsets are pairs of separate codes. The pattern is not
  // distorted: its lines keep their shape, turned and scaled as the map turns and
  // stretches the hatch's X axis; only the base point follows the map itself.
  bool pair(int xCode, int yCode, bool isPoint) {
    if (!at(xCode) || at_ + 1 >= groups_.size() || groups_[at_ + 1].code != yCode) return false;
    double x = value(at_), y = value(at_ + 1);
    Vec3 moved = isPoint ? planePoint(x, y)
                         : Vec3{x * std::cos(turn_) - y * std::sin(turn_),
                                x * std::sin(turn_) + y * std::cos(turn_), 0} *
                               xLength_;
    set(at_, moved.x);
    set(at_ + 1, moved.y);
    at_ += 2;
    return true;
  }

  // Whether the 97 here counts a spline's fit points rather than the loop's sources:
  // fit points, after their optional tangents, are followed by the next edge (72) or
  // the loop's own 97, which never follow a source count.
  bool isFitCount() {
    size_t mark = at_;
    long long count = 0;
    integer(97, count);
    bool fit = true;
    double x, y;
    for (long long i = 0; i < count && fit; ++i) fit = readPair(11, x, y);
    if (fit) {
      readPair(12, x, y);
      readPair(13, x, y);
      fit = at(97) || at(72);
    }
    at_ = mark;
    return fit;
  }

  bool loop() {
    size_t begin = at_;
    long long type = 0;
    if (!integer(92, type)) return false;
    if (type & 2) {
      if (!polylineLoop(begin, type)) return false;
    } else {
      long long edges = 0;
      if (!integer(93, edges)) return false;
      for (long long i = 0; i < edges; ++i) {
        if (!edge()) return false;
      }
    }
    long long sources = 0;
    if (integer(97, sources)) {
      for (long long i = 0; i < sources && skip(330); ++i) {
      }
    }
    return true;
  }

  bool polylineLoop(size_t begin, long long type) {
    long long bulged = 0, closed = 0, count = 0;
    if (!integer(72, bulged) || !integer(73, closed) || !integer(93, count)) return false;
    std::vector<size_t> places;
    std::vector<double> bulges;
    bool curved = false;
    for (long long i = 0; i < count; ++i) {
      places.push_back(at_);
      double x, y, bulge = 0;
      if (!readPair(10, x, y)) return false;
      real(42, bulge);
      bulges.push_back(bulge);
      curved = curved || bulge != 0;
    }
    if (round_ || !curved) {
      // The plane keeps its turning sense (the normal turns over with a mirror), so
      // bulges stay.
      for (size_t place : places) {
        Vec3 moved = planePoint(value(place), value(place + 1));
        set(place, moved.x);
        set(place + 1, moved.y);
      }
      return true;
    }
    std::vector<geom::Vec2> vertices;
    for (size_t place : places) vertices.push_back({value(place), value(place + 1)});
    replacements_.push_back({begin, at_, edgesOfPolyline(type, closed != 0, vertices, bulges)});
    return true;
  }

  // The loop's polyline as lines and elliptic arcs, in the new plane.
  Groups edgesOfPolyline(long long type, bool closed, const std::vector<geom::Vec2>& vertices,
                         const std::vector<double>& bulges) {
    Groups edges;
    long long count = 0;
    size_t n = vertices.size();
    for (size_t i = 0; i < n; ++i) {
      bool last = i + 1 == n;
      geom::Vec2 p = vertices[i], q = vertices[last ? 0 : i + 1];
      // An open loop still closes, with a straight side.
      double bulge = last && !closed ? 0 : bulges[i];
      geom::Vec2 chord = q - p;
      double chordLength = geom::length(chord);
      if (chordLength == 0) continue;
      ++count;
      if (bulge == 0) {
        Vec3 from = planePoint(p.x, p.y), to = planePoint(q.x, q.y);
        addInteger(edges, 72, 1);
        add(edges, 10, from.x);
        add(edges, 20, from.y);
        add(edges, 11, to.x);
        add(edges, 21, to.y);
        continue;
      }
      // The center lies off the chord's middle, to the left for a counterclockwise arc.
      geom::Vec2 left{-chord.y / chordLength, chord.x / chordLength};
      geom::Vec2 center = (p + q) * 0.5 + left * (chordLength * (1 - bulge * bulge) / (4 * bulge));
      double radius = geom::length(p - center);
      double from = std::atan2(p.y - center.y, p.x - center.x);
      double to = std::atan2(q.y - center.y, q.x - center.x);
      Groups arc = ellipseEdge(planePoint(center.x, center.y), planeVector(radius, 0),
                               planeVector(0, radius), from, to, bulge > 0, false);
      edges.insert(edges.end(), arc.begin(), arc.end());
    }
    Groups out;
    addInteger(out, 92, type & ~2LL);
    addInteger(out, 93, count);
    out.insert(out.end(), edges.begin(), edges.end());
    return out;
  }

  bool arcAngles() {
    // The start and end are read ahead of the turning sense that decides their way.
    size_t start = at_;
    if (!at(50) || at_ + 2 >= groups_.size() || groups_[at_ + 1].code != 51 ||
        groups_[at_ + 2].code != 73) {
      return false;
    }
    bool clockwise = db::parseInteger(groups_[at_ + 2].value).value_or(1) == 0;
    double span = value(start + 1) - value(start);
    turned(50, clockwise);
    set(at_, value(start) + span);  // a full turn keeps its span
    at_ += 2;
    return true;
  }

  // The values of a circular (kind 2) or elliptic (kind 3) edge behind its 72.
  bool conicEdge(size_t begin, long long kind) {
    double cx, cy, mx = 1, my = 0, radius = 1, ratio = 1, start, end;
    long long counterclockwise = 1;
    if (!readPair(10, cx, cy)) return false;
    if (kind == 2 && !real(40, radius)) return false;
    if (kind == 3 && (!readPair(11, mx, my) || !real(40, ratio))) return false;
    if (!real(50, start) || !real(51, end) || !integer(73, counterclockwise)) return false;
    // Clockwise edges store their angles negated.
    double sign = counterclockwise ? 1 : -1;
    double from = sign * start * kDegree, to = sign * end * kDegree;
    Vec3 a = planeVector(mx * radius, my * radius);
    Vec3 b = planeVector(-my * radius * ratio, mx * radius * ratio);
    if (kind == 3) {
      from = parameterAtPolar(from, ratio);
      to = parameterAtPolar(to, ratio);
    }
    bool full = std::fabs(end - start) >= 360 - 1e-9;
    replacements_.push_back(
        {begin, at_, ellipseEdge(planePoint(cx, cy), a, b, from, to, counterclockwise, full)});
    return true;
  }

  bool edge() {
    size_t begin = at_;
    long long kind = 0;
    if (!integer(72, kind)) return false;
    switch (kind) {
      case 1:
        return point(10) && point(11);
      case 2:
        if (!round_) return conicEdge(begin, kind);
        return point(10) && scaled(40) && arcAngles();
      case 3:
        if (!round_) return conicEdge(begin, kind);
        // Angles are measured from the major axis, which turns along.
        return point(10) && vector(11) && skip(40) && skip(50) && skip(51) && skip(73);
      case 4:
        return spline();
      default:
        return false;
    }
  }

  // A spline is its control points' under any affine map; its knots and weights stay.
  bool spline() {
    long long degree = 0, rational = 0, periodic = 0, knots = 0, controls = 0;
    if (!integer(94, degree) || !integer(73, rational) || !integer(74, periodic) ||
        !integer(95, knots) || !integer(96, controls)) {
      return false;
    }
    for (long long k = 0; k < knots; ++k) {
      if (!skip(40)) return false;
    }
    for (long long k = 0; k < controls; ++k) {
      if (!point(10)) return false;
      skip(42);
    }
    if (at(97) && isFitCount()) {
      long long fits = 0;
      integer(97, fits);
      for (long long k = 0; k < fits; ++k) {
        if (!point(11)) return false;
      }
    }
    vector(12);
    vector(13);
    return true;
  }

  // Style, pattern, seeds and gradient after the loops. The pattern's and the gradient's
  // angle follow the hatch's X axis as the map turns it, and the pattern's scale its
  // stretch: under a map that distorts, the pattern stays undistorted.
  bool tail() {
    while (at_ < groups_.size() && groups_[at_].code != 1001) {
      int code = groups_[at_].code;
      if (code == 52 || code == 53) {
        turned(code);
      } else if (code == 41 || code == 47 || code == 49) {
        scaled(code);
      } else if (code == 43) {
        if (!pair(43, 44, true)) return false;
      } else if (code == 45) {
        if (!pair(45, 46, false)) return false;
      } else if (code == 98) {
        long long seeds = 0;
        integer(98, seeds);
        for (long long k = 0; k < seeds; ++k) {
          if (!point(10)) return false;
        }
      } else if (code == 460) {
        set(at_, value(at_) + turn_);
        ++at_;
      } else {
        ++at_;
      }
    }
    return true;
  }

  Groups& groups_;
  const Affine3& map_;
  PlaneMove move_;
  double xLength_ = 1;  // how the map stretches the hatch's X axis
  double turn_ = 0;     // how it turns it
  bool round_ = true;   // whether circles of the plane stay round
  size_t at_ = 0;
  double elevation_ = 0;
  std::vector<Replacement> replacements_;
};

}  // namespace

bool transformHatchGroups(Groups& groups, const Affine3& map) {
  HatchRewriter rewriter(groups, map);
  if (!rewriter.run()) return false;
  setExtrusion(groups, rewriter.newNormal());
  return true;
}

}  // namespace korva::api
