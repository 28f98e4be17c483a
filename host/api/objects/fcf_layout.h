// Where the boxes and the texts of a feature control frame stand, in the frame's own
// axes: the origin at its location, X along its direction, Y up in its plane.
//
// The text is rows separated by "^J", each row cells separated by "%%v". A row is one
// text height plus a gap above and below, the first row centered on the location, the
// next ones stacked below it. A cell is its contents plus a gap on either side, the cells
// of a row side by side from X = 0; empty cells draw no box and take no room, and an
// empty row keeps its place. Symbols written in the GDT font ("{\Fgdt;j}") count one text
// height each; other characters take their width in the style's font.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "geom/text_metrics.h"

namespace korva::api {

struct FrameCell {
  double left = 0, bottom = 0, right = 0, top = 0;
  std::string contents;  // as the record spells it, format codes kept
};

struct FrameLayout {
  std::vector<FrameCell> cells;  // row by row, left to right
  double textHeight = 0;
  double gap = 0;
};

FrameLayout layOutFrame(std::string_view text, double textHeight, double gap,
                        const geom::TextMetrics& metrics);

// The width of one cell's contents.
double frameContentsWidth(std::string_view contents, double textHeight,
                          const geom::TextMetrics& metrics);

}  // namespace korva::api
