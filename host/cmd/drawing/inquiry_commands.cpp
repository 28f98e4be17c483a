// ID and DIST: coordinates of a point and the distance between two, in the user
// system and the drawing's units.
#include <cmath>

#include "cmd/drawing/command_input.h"
#include "cmd/drawing/command_text.h"
#include "cmd/drawing/command_variables.h"
#include "cmd/drawing/drawing_commands.h"
#include "cmd/drawing/user_system.h"
#include "qx_input.h"
#include "qx_print.h"

namespace korva::cmd::drawing {

void idCommand() {
  Vec3 point;
  if (!askPoint(L"\nSpecify point: ", std::nullopt, point, {QXED_NO_NULL}).value()) return;
  qxutPrintf(L"\nX = %s     Y = %s     Z = %s", distanceText(point.x).c_str(),
             distanceText(point.y).c_str(), distanceText(point.z).c_str());
  rememberLastPoint(point);
}

void distCommand() {
  Vec3 first, second;
  if (!askPoint(L"\nSpecify first point: ", std::nullopt, first, {QXED_NO_NULL}).value() ||
      !askPoint(L"\nSpecify second point: ", first, second, {QXED_NO_NULL}).value()) {
    return;
  }
  Vec3 delta = second - first;
  double distance = geom::length(delta);
  double inPlane = std::atan2(delta.y, delta.x);
  double fromPlane = std::atan2(delta.z, std::hypot(delta.x, delta.y));
  qxutPrintf(L"\nDistance = %s,  Angle in XY Plane = %s,  Angle from XY Plane = %s",
             distanceText(distance).c_str(), angleText(inPlane).c_str(),
             angleText(fromPlane).c_str());
  qxutPrintf(L"\nDelta X = %s,  Delta Y = %s,  Delta Z = %s", distanceText(delta.x).c_str(),
             distanceText(delta.y).c_str(), distanceText(delta.z).c_str());
  hostSetReal("DISTANCE", distance);
  rememberLastPoint(second);
}

}  // namespace korva::cmd::drawing
