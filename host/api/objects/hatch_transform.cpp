// A hatch's groups under a similarity map: the loops, pattern lines and seeds are 2D
// values of the hatch's object system at its elevation, read in file order because
// their codes repeat (the same grammar as readHatchBoundaries).
#include <cmath>
#include <numbers>

#include "db/value_text.h"
#include "entity_transform_kinds.h"

namespace korva::api {

namespace {

using namespace transform;

constexpr double kDegree = std::numbers::pi / 180;

class HatchRewriter {
 public:
  HatchRewriter(Groups& groups, const Affine3& map, double scale)
      : groups_(groups), map_(map), move_(map, extrusion(groups)), scale_(scale) {
    turn_ = move_.turn(map);
  }

  bool run() {
    // The elevation point comes first in the hatch's own groups.
    size_t at = 0;
    while (at < groups_.size() && groups_[at].code != 10 && groups_[at].code != 1001) ++at;
    if (at >= groups_.size() || groups_[at].code != 10) return false;
    at_ = at;
    elevation_ = coordinate(at_ + 2, 30);
    Vec3 lifted = move_.point(map_, {0, 0, elevation_});
    newElevation_ = lifted.z;
    set(at_, 0);
    if (at_ + 1 < groups_.size() && groups_[at_ + 1].code == 20) set(at_ + 1, 0);
    if (at_ + 2 < groups_.size() && groups_[at_ + 2].code == 30) set(at_ + 2, newElevation_);
    while (at_ < groups_.size() && groups_[at_].code != 91) {
      if (groups_[at_].code == 1001) return false;
      ++at_;
    }
    long long loops = 0;
    if (!integer(91, loops)) return false;
    for (long long i = 0; i < loops; ++i) {
      if (!loop()) return false;
    }
    return tail();
  }

  Vec3 newNormal() const { return move_.newNormal; }

 private:
  bool at(int code) const { return at_ < groups_.size() && groups_[at_].code == code; }
  double value(size_t i) const { return db::parseReal(groups_[i].value).value_or(0); }
  double coordinate(size_t i, int code) const {
    return i < groups_.size() && groups_[i].code == code ? value(i) : 0;
  }
  void set(size_t i, double v) { groups_[i].value = db::formatReal(v); }

  bool integer(int code, long long& out) {
    if (!at(code)) return false;
    out = db::parseInteger(groups_[at_++].value).value_or(0);
    return true;
  }
  bool skip(int code) {
    if (!at(code)) return false;
    ++at_;
    return true;
  }
  bool scaled(int code) {
    if (!at(code)) return false;
    set(at_, value(at_) * scale_);
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
  // A 2D point (code, code + 10) of the plane.
  bool point(int code) {
    if (!at(code) || at_ + 1 >= groups_.size() || groups_[at_ + 1].code != code + 10) return false;
    Vec3 moved = move_.point(map_, {value(at_), value(at_ + 1), elevation_});
    set(at_, moved.x);
    set(at_ + 1, moved.y);
    at_ += 2;
    if (at(code + 20)) ++at_;
    return true;
  }
  bool vector(int code) {
    if (!at(code) || at_ + 1 >= groups_.size() || groups_[at_ + 1].code != code + 10) return false;
    Vec3 moved = move_.vector(map_, {value(at_), value(at_ + 1), 0});
    set(at_, moved.x);
    set(at_ + 1, moved.y);
    at_ += 2;
    if (at(code + 20)) ++at_;
    return true;
  }
  // Pattern base points and offsets are pairs of separate codes.
  bool pair(int xCode, int yCode, bool isPoint) {
    if (!at(xCode) || at_ + 1 >= groups_.size() || groups_[at_ + 1].code != yCode) return false;
    Vec3 given{value(at_), value(at_ + 1), isPoint ? elevation_ : 0};
    Vec3 moved = isPoint ? move_.point(map_, given) : move_.vector(map_, given);
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
    for (long long i = 0; i < count && fit; ++i) fit = skipPair(11);
    if (fit) {
      skipPair(12);
      skipPair(13);
      fit = at(97) || at(72);
    }
    at_ = mark;
    return fit;
  }
  bool skipPair(int code) {
    if (!at(code) || at_ + 1 >= groups_.size() || groups_[at_ + 1].code != code + 10) return false;
    at_ += 2;
    if (at(code + 20)) ++at_;
    return true;
  }

  bool loop() {
    long long type = 0;
    if (!integer(92, type)) return false;
    if (type & 2) {
      long long bulges = 0, closed = 0, count = 0;
      if (!integer(72, bulges) || !integer(73, closed) || !integer(93, count)) return false;
      for (long long i = 0; i < count; ++i) {
        if (!point(10)) return false;
        skip(42);  // the plane keeps its turning sense, so bulges stay
      }
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

  bool edge() {
    long long kind = 0;
    if (!integer(72, kind)) return false;
    switch (kind) {
      case 1:
        return point(10) && point(11);
      case 2:
        return point(10) && scaled(40) && arcAngles();
      case 3:
        // Angles are measured from the major axis, which turns along.
        return point(10) && vector(11) && skip(40) && skip(50) && skip(51) && skip(73);
      case 4:
        return spline();
      default:
        return false;
    }
  }

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

  // Style, pattern, seeds and gradient after the loops.
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
  double scale_;
  double turn_ = 0;
  size_t at_ = 0;
  double elevation_ = 0, newElevation_ = 0;
};

}  // namespace

bool transformHatchGroups(Groups& groups, const Affine3& map) {
  double scale = 1;
  if (!geom::isSimilarity(map, scale)) return false;
  HatchRewriter rewriter(groups, map, scale);
  if (!rewriter.run()) return false;
  setExtrusion(groups, rewriter.newNormal());
  return true;
}

}  // namespace korva::api
