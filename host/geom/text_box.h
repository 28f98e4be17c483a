// The boxes that single-line and paragraph texts cover in their own plane.
#pragma once

#include <array>

#include "text_metrics.h"
#include "vec.h"

namespace korva::geom {

struct LineTextLayout {
  Vec2 first;   // the insertion point
  Vec2 second;  // the alignment point, used unless left on the baseline
  double height = 1;
  double widthFactor = 1;
  double rotation = 0;    // radians
  double oblique = 0;     // radians, slant from the vertical
  int horizontal = 0;     // 0 left, 1 center, 2 right, 3 aligned, 4 middle, 5 fit
  int vertical = 0;       // 0 baseline, 1 bottom, 2 middle, 3 top
  bool backward = false;  // mirrored in X
  bool upsideDown = false;
  TextExtent extent;  // of the string, in text heights
  double fontDescent = 0.3;
};

// Corners counterclockwise from the lower left of the unrotated box.
std::array<Vec2, 4> lineTextCorners(const LineTextLayout& layout);

struct ParagraphLayout {
  Vec2 insertion;
  Vec2 direction{1, 0};  // of the text's X axis
  double width = 0;
  double height = 0;
  int attachment = 1;  // 1..9: top, middle, bottom rows of left, center, right
};

std::array<Vec2, 4> paragraphCorners(const ParagraphLayout& layout);

}  // namespace korva::geom
