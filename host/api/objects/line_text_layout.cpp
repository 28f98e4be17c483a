#include "line_text_layout.h"

#include <algorithm>
#include <cmath>

namespace korva::api {

namespace {

const geom::TextMetrics& metricsOf(const LineTextFacts& facts) {
  return facts.metrics ? *facts.metrics : geom::TextMetrics::standard();
}

double factorOf(const LineTextFacts& facts) {
  return facts.widthFactor > 0 ? facts.widthFactor : 1;
}

}  // namespace

LocalBox lineTextBox(const LineTextFacts& facts) {
  geom::TextExtent extent = metricsOf(facts).measure(facts.utf8);
  double advance = std::max(extent.advance, 0.0);
  double height = facts.height;
  double width = advance * height * factorOf(facts);
  bool twoPoint = facts.horizontal == 3 || facts.horizontal == 5;
  if (twoPoint && facts.span > 0) {
    // Aligned texts keep their proportions along the span; fit texts keep their height.
    if (facts.horizontal == 3 && advance > 0) height = facts.span / (advance * factorOf(facts));
    width = facts.span;
  }
  double bottom = std::min(0.0, extent.bottom) * height;
  double top = std::max(1.0, extent.top) * height;
  double slant = std::tan(facts.oblique);
  LocalBox box;
  box.left = std::min(bottom * slant, top * slant);
  box.left = std::min(box.left, 0.0);
  box.right = std::max(width + bottom * slant, width + top * slant);
  box.bottom = bottom;
  box.top = top;
  if (facts.backward) box = {-box.right, box.bottom, -box.left, box.top};
  if (facts.upsideDown) box = {box.left, -box.top, box.right, -box.bottom};
  return box;
}

geom::Vec2 positionOffset(const LineTextFacts& facts) {
  const geom::TextMetrics& metrics = metricsOf(facts);
  double advance = std::max(metrics.measure(facts.utf8).advance, 0.0);
  double width = advance * facts.height * factorOf(facts);
  double x = 0, y = 0;
  if (facts.horizontal == 1 || facts.horizontal == 4) x = -width / 2;
  if (facts.horizontal == 2) x = -width;
  if (facts.horizontal == 4 || facts.vertical == 2) y = -facts.height / 2;
  if (facts.vertical == 1) y = metrics.descent() * facts.height;
  if (facts.vertical == 3) y = -facts.height;
  if (facts.backward) x = -x;
  if (facts.upsideDown) y = -y;
  return {x, y};
}

}  // namespace korva::api
