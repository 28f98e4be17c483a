// Laying out a paragraph text: its lines broken at \P and wrapped at the width, each
// measured with real font metrics.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "geom/text_metrics.h"

class QxDbMText;

namespace korva::api {

struct ParagraphFacts {
  std::string contents;  // UTF-8, with the paragraph format codes
  double textHeight = 1;
  double width = 0;  // 0: no wrapping
  double lineSpacingFactor = 1;
  const geom::TextMetrics* metrics = nullptr;
};

struct ParagraphSize {
  double width = 0;   // the widest line
  double height = 0;  // first line's height plus the pitch of every further line
  std::vector<std::string> lines;
};

ParagraphSize layOutParagraph(const ParagraphFacts& facts);

// The distance between the baselines of neighbouring lines.
double paragraphLinePitch(double textHeight, double lineSpacingFactor);

// A paragraph text object laid out with the metrics of its style.
ParagraphSize paragraphLayoutOf(const QxDbMText* text);

}  // namespace korva::api
