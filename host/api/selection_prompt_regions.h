// The points of a window, crossing, polygon or fence, asked for at the selection prompt.
#pragma once

#include <vector>

#include "geom/vec.h"
#include "qx_types.h"
#include "selection_scan.h"

namespace korva::api {

struct AskedRegion {
  int status = RTNONE;  // RTNORM with the points; RTNONE when given up; RTCAN
  RegionMethod method = RegionMethod::Window;
  std::vector<geom::Vec2> points;  // current user system
};

// "W" or "C": both corners.
AskedRegion askRectangle(RegionMethod method);
// A pick that hit nothing starts a window there: left to right a window, right to left a
// crossing.
AskedRegion askImpliedWindow(const double firstCorner[3]);
// "WP", "CP" or "F": points until Enter, with Undo taking back the last one.
AskedRegion askPointChain(RegionMethod method);

}  // namespace korva::api
