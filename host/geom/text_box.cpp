#include "text_box.h"

#include <algorithm>
#include <cmath>

namespace korva::geom {

std::array<Vec2, 4> lineTextCorners(const LineTextLayout& t) {
  double height = t.height;
  double widthFactor = t.widthFactor > 0 ? t.widthFactor : 1;
  double rotation = t.rotation;
  Vec2 origin = t.first;
  double advance = std::max(t.extent.advance, 0.0);
  double width = advance * height * widthFactor;
  double shiftX = 0, shiftY = 0;
  bool twoPoint = t.horizontal == 3 || t.horizontal == 5;
  Vec2 span = t.second - t.first;
  if (twoPoint && length(span) > 0) {
    // Aligned and fit texts run from the first point to the second.
    rotation = std::atan2(span.y, span.x);
    if (t.horizontal == 3 && advance > 0) height = length(span) / (advance * widthFactor);
    width = length(span);
  } else if (t.horizontal != 0 || t.vertical != 0) {
    origin = t.second;
    if (t.horizontal == 1 || t.horizontal == 4) shiftX = -width / 2;
    if (t.horizontal == 2) shiftX = -width;
    if (t.horizontal == 4 || t.vertical == 2) shiftY = -height / 2;
    if (t.vertical == 1) shiftY = t.fontDescent * height;
    if (t.vertical == 3) shiftY = -height;
  }
  double bottom = std::min(0.0, t.extent.bottom) * height;
  double top = std::max(1.0, t.extent.top) * height;
  const Vec2 local[4] = {{0, bottom}, {width, bottom}, {width, top}, {0, top}};
  double slant = std::tan(t.oblique);
  double c = std::cos(rotation), s = std::sin(rotation);
  std::array<Vec2, 4> corners;
  for (int i = 0; i < 4; ++i) {
    double x = local[i].x + local[i].y * slant + shiftX;
    double y = local[i].y + shiftY;
    if (t.backward) x = -x;
    if (t.upsideDown) y = -y;
    corners[i] = {origin.x + x * c - y * s, origin.y + x * s + y * c};
  }
  return corners;
}

std::array<Vec2, 4> paragraphCorners(const ParagraphLayout& p) {
  int column = (p.attachment - 1) % 3;  // left, center, right
  int row = (p.attachment - 1) / 3;     // top, middle, bottom
  double left = -column * p.width / 2;
  double top = row == 0 ? 0 : row == 1 ? p.height / 2 : p.height;
  const Vec2 local[4] = {
      {left, top - p.height}, {left + p.width, top - p.height}, {left + p.width, top}, {left, top}};
  Vec2 x = length(p.direction) > 0 ? p.direction * (1 / length(p.direction)) : Vec2{1, 0};
  Vec2 y{-x.y, x.x};
  std::array<Vec2, 4> corners;
  for (int i = 0; i < 4; ++i) corners[i] = p.insertion + x * local[i].x + y * local[i].y;
  return corners;
}

}  // namespace korva::geom
