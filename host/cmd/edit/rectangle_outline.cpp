#include "cmd/edit/rectangle_outline.h"

#include <cmath>
#include <numbers>

namespace korva::cmd::edit {

namespace {

Vec2 along(Vec2 from, Vec2 to, double length) {
  double total = std::hypot(to.x - from.x, to.y - from.y);
  return {from.x + (to.x - from.x) * length / total, from.y + (to.y - from.y) * length / total};
}

double sideLength(Vec2 a, Vec2 b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

}  // namespace

std::vector<Vec2> rectangleCorners(Vec2 first, Vec2 opposite, double rotation) {
  double c = std::cos(rotation), s = std::sin(rotation);
  Vec2 d{opposite.x - first.x, opposite.y - first.y};
  // The diagonal in the turned axes.
  double along = d.x * c + d.y * s;
  Vec2 second{first.x + along * c, first.y + along * s};
  Vec2 fourth{first.x + opposite.x - second.x, first.y + opposite.y - second.y};
  return {first, second, opposite, fourth};
}

Chain rectangleOutline(const std::vector<Vec2>& corners, const RectangleCorners& cut) {
  Chain chain;
  chain.closed = true;
  size_t count = corners.size();
  bool fits = cut.kind != RectangleCorners::Kind::Sharp && cut.first > 0 &&
              (cut.kind == RectangleCorners::Kind::Fillet || cut.second > 0);
  // Each side loses the cuts at both of its ends.
  double atStart = cut.kind == RectangleCorners::Kind::Fillet ? cut.first : cut.second;
  double atEnd = cut.first;
  for (size_t i = 0; fits && i < count; ++i) {
    if (sideLength(corners[i], corners[(i + 1) % count]) < atStart + atEnd - kSamePoint)
      fits = false;
  }
  if (!fits) {
    for (Vec2 corner : corners) chain.vertices.push_back({corner});
    return chain;
  }
  for (size_t i = 0; i < count; ++i) {
    Vec2 before = corners[(i + count - 1) % count];
    Vec2 corner = corners[i];
    Vec2 after = corners[(i + 1) % count];
    double bulge = 0;
    if (cut.kind == RectangleCorners::Kind::Fillet) {
      // A quarter circle, turning the way the outline turns at the corner.
      double turn = (corner.x - before.x) * (after.y - corner.y) -
                    (corner.y - before.y) * (after.x - corner.x);
      bulge = std::tan(std::numbers::pi / 8) * (turn < 0 ? -1 : 1);
    }
    chain.vertices.push_back({along(corner, before, atEnd), bulge});
    chain.vertices.push_back({along(corner, after, atStart), 0});
  }
  return chain;
}

}  // namespace korva::cmd::edit
