// The box of a single-line text and the place of its position relative to its
// alignment point, in the text's own axes (X along the baseline, before rotation).
#pragma once

#include <string>

#include "geom/text_metrics.h"
#include "geom/vec.h"

class QxDbText;

namespace korva::api {

struct LineTextFacts {
  std::string utf8;  // the text with its %% codes resolved
  double height = 1;
  double widthFactor = 1;
  double oblique = 0;     // radians
  int horizontal = 0;     // 0 left, 1 center, 2 right, 3 aligned, 4 middle, 5 fit
  int vertical = 0;       // 0 baseline, 1 bottom, 2 middle, 3 top
  bool backward = false;  // mirrored in X
  bool upsideDown = false;
  double span = 0;  // aligned and fit: distance from position to alignment point
  const geom::TextMetrics* metrics = nullptr;
};

struct LocalBox {
  double left = 0, bottom = 0, right = 0, top = 0;
};

// The box relative to the position.
LocalBox lineTextBox(const LineTextFacts& facts);
// Position minus alignment point, for the justified modes other than aligned and fit.
geom::Vec2 positionOffset(const LineTextFacts& facts);

// The facts of a text object: its string, style's metrics, size and justification
// (the span of aligned and fit texts left at 0).
LineTextFacts lineTextFactsOf(const QxDbText* text);

}  // namespace korva::api
