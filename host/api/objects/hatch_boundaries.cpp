#include "hatch_boundaries.h"

#include <cmath>
#include <numbers>

#include "db/value_text.h"

namespace korva::api {

namespace {

constexpr double kDegree = std::numbers::pi / 180;

// Walks the groups in order; a read that finds another code leaves the place as it is.
class GroupCursor {
 public:
  GroupCursor(const std::vector<db::Group>& groups, size_t at) : groups_(groups), at_(at) {}

  bool atCode(int code) const { return at_ < groups_.size() && groups_[at_].code == code; }
  int peekCode(size_t ahead = 0) const {
    return at_ + ahead < groups_.size() ? groups_[at_ + ahead].code : -1;
  }
  size_t place() const { return at_; }
  void moveTo(size_t place) { at_ = place; }

  bool integer(int code, long long& out) {
    if (!atCode(code)) return false;
    out = db::parseInteger(groups_[at_++].value).value_or(0);
    return true;
  }
  bool real(int code, double& out) {
    if (!atCode(code)) return false;
    out = db::parseReal(groups_[at_++].value).value_or(0);
    return true;
  }
  // X at code, Y at code + 10 right behind; a Z group behind that is passed over.
  bool point(int code, geom::Vec2& out) {
    if (!atCode(code) || peekCode(1) != code + 10) return false;
    out.x = db::parseReal(groups_[at_].value).value_or(0);
    out.y = db::parseReal(groups_[at_ + 1].value).value_or(0);
    at_ += 2;
    if (atCode(code + 20)) ++at_;
    return true;
  }
  bool text(int code, std::string_view& out) {
    if (!atCode(code)) return false;
    out = groups_[at_++].value;
    return true;
  }

 private:
  const std::vector<db::Group>& groups_;
  size_t at_;
};

// Whether a 97 group at the cursor counts the fit points of a spline edge rather than the
// loop's source objects: fit data is followed, after its points and optional tangents,
// by the next edge (72) or the loop's own 97, which never follow a source count.
bool isFitCount(GroupCursor& in) {
  size_t start = in.place();
  long long count = 0;
  in.integer(97, count);
  geom::Vec2 p;
  bool fit = true;
  for (long long i = 0; i < count && fit; ++i) fit = in.point(11, p);
  if (fit) {
    in.point(12, p);
    in.point(13, p);
    fit = in.atCode(97) || in.atCode(72);
  }
  in.moveTo(start);
  return fit;
}

bool readSpline(GroupCursor& in, HatchEdge& edge) {
  long long degree = 3, rational = 0, periodic = 0, knots = 0, controls = 0;
  if (!in.integer(94, degree) || !in.integer(73, rational) || !in.integer(74, periodic) ||
      !in.integer(95, knots) || !in.integer(96, controls)) {
    return false;
  }
  edge.degree = static_cast<int>(degree);
  edge.periodic = periodic != 0;
  for (long long k = 0; k < knots; ++k) {
    double knot = 0;
    if (!in.real(40, knot)) return false;
    edge.knots.push_back(knot);
  }
  for (long long k = 0; k < controls; ++k) {
    geom::Vec2 p;
    if (!in.point(10, p)) return false;
    edge.control.push_back(p);
    double weight = 1;
    if (in.real(42, weight) || rational) edge.weights.push_back(weight);
  }
  if (in.atCode(97) && isFitCount(in)) {
    long long fits = 0;
    in.integer(97, fits);
    for (long long k = 0; k < fits; ++k) {
      geom::Vec2 p;
      if (!in.point(11, p)) return false;
      edge.fit.push_back(p);
    }
  }
  geom::Vec2 tangent;
  in.point(12, tangent);
  in.point(13, tangent);
  return true;
}

bool readEdge(GroupCursor& in, HatchEdge& edge) {
  long long kind = 0;
  if (!in.integer(72, kind)) return false;
  edge.kind = static_cast<int>(kind);
  long long ccw = 1;
  switch (kind) {
    case 1:
      return in.point(10, edge.start) && in.point(11, edge.end);
    case 2:
      if (!in.point(10, edge.center) || !in.real(40, edge.radius) ||
          !in.real(50, edge.startAngle) || !in.real(51, edge.endAngle) || !in.integer(73, ccw)) {
        return false;
      }
      edge.counterclockwise = ccw != 0;
      return true;
    case 3:
      if (!in.point(10, edge.center) || !in.point(11, edge.majorAxis) || !in.real(40, edge.ratio) ||
          !in.real(50, edge.startAngle) || !in.real(51, edge.endAngle) || !in.integer(73, ccw)) {
        return false;
      }
      edge.counterclockwise = ccw != 0;
      return true;
    case 4:
      return readSpline(in, edge);
    default:
      return false;
  }
}

bool readLoop(GroupCursor& in, HatchLoop& loop) {
  if (!in.integer(92, loop.type)) return false;
  if (loop.isPolyline()) {
    long long hasBulges = 0, closed = 0, count = 0;
    if (!in.integer(72, hasBulges) || !in.integer(73, closed) || !in.integer(93, count))
      return false;
    for (long long i = 0; i < count; ++i) {
      geom::Vec2 p;
      if (!in.point(10, p)) return false;
      double bulge = 0;
      in.real(42, bulge);
      loop.vertices.push_back(p);
      loop.bulges.push_back(bulge);
    }
  } else {
    long long count = 0;
    if (!in.integer(93, count)) return false;
    for (long long i = 0; i < count; ++i) {
      HatchEdge edge;
      if (!readEdge(in, edge)) return false;
      loop.edges.push_back(std::move(edge));
    }
  }
  long long sources = 0;
  if (in.integer(97, sources)) {
    for (long long i = 0; i < sources; ++i) {
      std::string_view handle;
      if (!in.text(330, handle)) break;
      loop.sources.push_back(handle);
    }
  }
  return true;
}

void readPatternLines(GroupCursor& in, HatchBoundaries& out) {
  long long count = 0;
  if (!in.integer(78, count)) return;
  for (long long i = 0; i < count; ++i) {
    HatchPatternLine line;
    long long dashes = 0;
    if (!in.real(53, line.angle) || !in.real(43, line.base.x) || !in.real(44, line.base.y) ||
        !in.real(45, line.offset.x) || !in.real(46, line.offset.y) || !in.integer(79, dashes)) {
      return;
    }
    for (long long d = 0; d < dashes; ++d) {
      double dash = 0;
      if (!in.real(49, dash)) return;
      line.dashes.push_back(dash);
    }
    out.patternLines.push_back(std::move(line));
  }
}

// A polar angle of an ellipse of this ratio as its eccentric parameter, in the same turn.
double parameterOfAngle(double angle, double ratio) {
  double turns = std::floor(angle / (2 * std::numbers::pi));
  double param = std::atan2(std::sin(angle), ratio * std::cos(angle));
  if (param < 0) param += 2 * std::numbers::pi;
  return param + turns * 2 * std::numbers::pi;
}

}  // namespace

HatchBoundaries readHatchBoundaries(const std::vector<db::Group>& hatchPart) {
  HatchBoundaries out;
  size_t start = 0;
  while (start < hatchPart.size() && hatchPart[start].code != 91) ++start;
  GroupCursor in(hatchPart, start);
  long long loops = 0;
  if (!in.integer(91, loops)) return out;
  for (long long i = 0; i < loops; ++i) {
    HatchLoop loop;
    if (!readLoop(in, loop)) return out;
    out.loops.push_back(std::move(loop));
  }
  // Style, pattern type, angle, scale and the double flag stand between the loops and
  // the pattern lines.
  while (in.peekCode() != -1 && !in.atCode(78) && !in.atCode(47) && !in.atCode(98) &&
         in.peekCode() < 450) {
    in.moveTo(in.place() + 1);
  }
  readPatternLines(in, out);
  return out;
}

void edgeSpan(const HatchEdge& edge, double& from, double& to) {
  double first = edge.counterclockwise ? edge.startAngle : -edge.endAngle;
  double last = edge.counterclockwise ? edge.endAngle : -edge.startAngle;
  double span = std::fmod(last - first, 360.0);
  if (span <= 0) span += 360;
  from = first * kDegree;
  to = from + span * kDegree;
  if (edge.kind != 3 || span >= 360) return;
  // Elliptic edges store polar angles; the curve is drawn by eccentric parameter.
  double start = parameterOfAngle(from, edge.ratio);
  double end = parameterOfAngle(to, edge.ratio);
  while (end <= start) end += 2 * std::numbers::pi;
  while (end > start + 2 * std::numbers::pi) end -= 2 * std::numbers::pi;
  from = start;
  to = end;
}

}  // namespace korva::api
