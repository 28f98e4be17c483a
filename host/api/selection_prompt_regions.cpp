#include "selection_prompt_regions.h"

#include "qx_input.h"
#include "qx_print.h"

namespace korva::api {

namespace {

AskedRegion giveUp(int status) {
  AskedRegion region;
  region.status = status == RTCAN ? RTCAN : RTNONE;
  return region;
}

}  // namespace

AskedRegion askRectangle(RegionMethod method) {
  double first[3] = {0, 0, 0};
  int status = qxedGetPoint(nullptr, L"\nSpecify first corner: ", first);
  if (status != RTNORM) return giveUp(status);
  double second[3] = {0, 0, 0};
  status = qxedGetCorner(first, L"\nSpecify opposite corner: ", second);
  if (status != RTNORM) return giveUp(status);
  return {RTNORM, method, {{first[0], first[1]}, {second[0], second[1]}}};
}

AskedRegion askImpliedWindow(const double firstCorner[3]) {
  double second[3] = {0, 0, 0};
  int status = qxedGetCorner(firstCorner, L"\nSpecify opposite corner: ", second);
  if (status != RTNORM) return giveUp(status);
  RegionMethod method = second[0] >= firstCorner[0] ? RegionMethod::Window : RegionMethod::Crossing;
  return {RTNORM, method, {{firstCorner[0], firstCorner[1]}, {second[0], second[1]}}};
}

AskedRegion askPointChain(RegionMethod method) {
  const bool fence = method == RegionMethod::Fence;
  const wchar_t* firstPrompt =
      fence ? L"\nSpecify first fence point: " : L"\nFirst polygon point: ";
  const wchar_t* nextPrompt =
      fence ? L"\nSpecify next fence point or [Undo]: " : L"\nSpecify endpoint of line or [Undo]: ";
  double point[3] = {0, 0, 0};
  int status = qxedGetPoint(nullptr, firstPrompt, point);
  if (status != RTNORM) return giveUp(status);
  AskedRegion region{RTNORM, method, {{point[0], point[1]}}};
  for (;;) {
    qxedInitGet(0, L"Undo");
    double next[3] = {0, 0, 0};
    status = qxedGetPoint(point, nextPrompt, next);
    if (status == RTCAN) return giveUp(RTCAN);
    if (status == RTKWORD) {
      if (region.points.size() > 1) {
        region.points.pop_back();
        point[0] = region.points.back().x;
        point[1] = region.points.back().y;
      } else {
        qxutPrintf(L"\nNothing to undo.");
      }
      continue;
    }
    if (status != RTNORM) break;
    region.points.push_back({next[0], next[1]});
    for (int i = 0; i < 3; ++i) point[i] = next[i];
  }
  const size_t needed = fence ? 2 : 3;
  if (region.points.size() < needed) {
    qxutPrintf(fence ? L"\nA fence needs at least two points."
                     : L"\nA polygon needs at least three points.");
    return giveUp(RTNONE);
  }
  return region;
}

}  // namespace korva::api
